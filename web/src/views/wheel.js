// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el, setStyle } from './dom.js';

// A picker wheel as a phone draws one: five rows show and the middle one is the
// choice. It turns by drag and flick, by the mouse wheel and by the arrow keys,
// and always comes to rest on a whole row. `onChoose(row, tapped)` hears of a row
// the user settled on or tapped (a tap counts even on the row already chosen);
// what the wheel shows otherwise follows `show(row)`.
// `paint(option, distance, current)` styles a row by how far it is from the middle.

const VISIBLE = 5;
const EDGE = 0.35;   // how far a drag follows past either end
const FLICK = 220;   // ms of travel a flick's speed carries on for
const FLING = 0.5;   // points per ms: slower than this, a release is no flick
let serial = 0;

const reducedMotion = () => window.matchMedia?.('(prefers-reduced-motion: reduce)').matches;

export function createWheel({ label, height, paint, onChoose, props = {} }) {
  let rowHeight = height / VISIBLE;
  const middle = (VISIBLE - 1) / 2;
  const prefix = `wheel${++serial}-`;
  const list = el('div', { class: 'wheel-rows' });
  const box = el('div', { class: 'wheel', role: 'listbox', tabindex: '0', 'aria-label': label, ...props }, list);
  setStyle(box, { height });

  let options = [];
  let pos = 0;        // the row at the middle, fractional while it turns
  let resting = 0;    // the row it is at or on its way to
  let current = -1;   // the row drawn as chosen
  let anim = null, drag = null, wheelTimer = 0, wheelFrom = 0;

  const last = () => Math.max(0, options.length - 1);
  const clamp = (row) => Math.max(0, Math.min(last(), row));

  function render() {
    list.style.transform = `translateY(${(middle - pos) * rowHeight}px)`;
    const near = clamp(Math.round(pos));
    if (near !== current && options.length) {
      options[current]?.setAttribute('aria-selected', 'false');
      options[near].setAttribute('aria-selected', 'true');
      box.setAttribute('aria-activedescendant', options[near].id);
      current = near;
    }
    options.forEach((option, row) => paint(option, row - pos, row === current));
  }

  function stop() {
    if (anim) {
      cancelAnimationFrame(anim.frame);
      clearTimeout(anim.timer);
      anim = null;
    }
  }

  // Eases to `row`; `done` runs once it is there, even where frames are held back.
  function glide(row, done) {
    stop();
    resting = row;
    const from = pos, span = row - from;
    const duration = reducedMotion() ? 0 : Math.min(520, 160 + 70 * Math.abs(span));
    const finish = () => {
      stop();
      pos = row;
      render();
      done?.();
    };
    if (!duration || Math.abs(span) < 1e-3) return finish();
    const start = performance.now();
    const frame = (now) => {
      const t = Math.max(0, Math.min(1, (now - start) / duration));
      if (t >= 1) return finish();
      pos = from + span * (1 - (1 - t) ** 3);
      render();
      anim.frame = requestAnimationFrame(frame);
    };
    anim = { frame: requestAnimationFrame(frame), timer: setTimeout(finish, duration + 100) };
  }

  // A row the user chose: it is reported at once, the wheel turns there meanwhile.
  function choose(row, tapped = false) {
    if (!options.length) return;
    row = clamp(row);
    glide(row);
    onChoose(row, tapped);
  }
  // A wheel let go: it reports where it comes to rest.
  const settle = (row) => glide(clamp(row), () => onChoose(resting));

  function step(rows) {
    if (!options.length) return;
    const row = clamp(resting + rows);
    if (row !== resting || Math.round(pos) !== row) choose(row);
  }

  box.addEventListener('pointerdown', (e) => {
    if (e.button !== 0 || !options.length) return;
    stop();
    const scale = box.getBoundingClientRect().height / height || 1;
    drag = { id: e.pointerId, y: e.clientY, from: pos, scale, moved: false, samples: [[e.timeStamp, pos]] };
    box.setPointerCapture?.(e.pointerId);
  });
  box.addEventListener('pointermove', (e) => {
    if (!drag || e.pointerId !== drag.id) return;
    const dy = e.clientY - drag.y;
    if (Math.abs(dy) > 5 * drag.scale) drag.moved = true;
    if (!drag.moved) return;
    const p = drag.from - dy / drag.scale / rowHeight;
    pos = p < 0 ? p * EDGE : p > last() ? last() + (p - last()) * EDGE : p;
    drag.samples.push([e.timeStamp, pos]);
    while (drag.samples.length > 2 && e.timeStamp - drag.samples[0][0] > 100) drag.samples.shift();
    render();
  });
  const release = (e, cancelled) => {
    if (!drag || e.pointerId !== drag.id) return;
    const d = drag;
    drag = null;
    if (!d.moved) {
      if (cancelled) return settle(Math.round(pos));
      // A tap: the row under the finger.
      const r = box.getBoundingClientRect();
      const offset = (e.clientY - r.top) / d.scale / rowHeight - VISIBLE / 2;
      return choose(Math.round(d.from + offset), true);
    }
    const [t0, p0] = d.samples[0];
    const dt = e.timeStamp - t0;
    const speed = !cancelled && dt > 0 && e.timeStamp - d.samples[d.samples.length - 1][0] < 80 ? (pos - p0) / dt : 0;
    settle(Math.round(Math.abs(speed) * rowHeight < FLING ? pos : pos + speed * FLICK));
  };
  box.addEventListener('pointerup', (e) => release(e, false));
  box.addEventListener('pointercancel', (e) => release(e, true));

  // Wheel and trackpad: the rows follow; once the scrolling pauses the wheel
  // settles, at least one row along so that a single notch always counts.
  box.addEventListener('wheel', (e) => {
    if (!options.length || drag || !e.deltaY) return;
    e.preventDefault();
    if (!wheelTimer) wheelFrom = resting;
    stop();
    const rows = e.deltaMode === 1 ? e.deltaY / 3 : e.deltaMode === 2 ? e.deltaY * VISIBLE : e.deltaY / 100;
    pos = Math.max(-EDGE, Math.min(last() + EDGE, pos + rows));
    render();
    clearTimeout(wheelTimer);
    wheelTimer = setTimeout(() => {
      wheelTimer = 0;
      let row = clamp(Math.round(pos));
      if (row === wheelFrom && Math.abs(pos - wheelFrom) > 0.05) row = clamp(wheelFrom + Math.sign(pos - wheelFrom));
      settle(row);
    }, 140);
  }, { passive: false });

  box.addEventListener('keydown', (e) => {
    if (e.altKey || e.ctrlKey || e.metaKey) return;
    const moves = { ArrowUp: -1, ArrowDown: 1, PageUp: -(VISIBLE - 1), PageDown: VISIBLE - 1 };
    if (e.key in moves) step(moves[e.key]);
    else if (e.key === 'Home') step(-options.length);
    else if (e.key === 'End') step(options.length);
    else return;
    e.preventDefault();
    e.stopPropagation();
  });

  return {
    el: box,
    step,
    setRows(rows) {
      list.replaceChildren();
      options = rows.map((text, row) => {
        const option = el('div', { class: 'wheel-row', role: 'option', id: prefix + row, 'aria-selected': 'false', text });
        setStyle(option, { height: rowHeight, lineHeight: rowHeight });
        list.append(option);
        return option;
      });
      current = -1;
      if (!options.length) box.removeAttribute('aria-activedescendant');
      resting = clamp(resting);
      if (!drag && !wheelTimer && !anim) pos = resting;
      render();
    },
    setHeight(h) {
      if (h === height) return;
      height = h;
      rowHeight = h / VISIBLE;
      setStyle(box, { height });
      for (const option of options) setStyle(option, { height: rowHeight, lineHeight: rowHeight });
      render();
    },
    // The row the core says is chosen. A wheel under the user's hand finishes
    // first; one easing towards a row the core chose otherwise turns there instead.
    show(row) {
      if (drag || wheelTimer || !options.length) return;
      row = clamp(row);
      if (anim) {
        if (row !== resting) glide(row);
        return;
      }
      resting = pos = row;
      render();
    },
  };
}
