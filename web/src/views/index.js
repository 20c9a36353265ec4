// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el } from './dom.js';
import { createTuner } from './tuner.js';
import { createSettings } from './settings-sheet.js';
import { createAbout } from './about-sheet.js';
import { createTuningFork } from './tuning-fork-sheet.js';
import { createChords } from './chords.js';
import { createAlert } from './alert.js';

// The app's screens in the page. The stage is the device class's size in points,
// scaled as a whole to fit the window and centred, with the screens' background
// carrying on beside or above it. The core's changes come in through `apply`;
// the user's actions go out through `ctx`.
export function createViews(root, ctx) {
  const lay = ctx.layout;
  // The core's flags and its idle read-out, as last told.
  const flags = ['hearing', 'inTune', 'chordsOpen', 'idleReadout', 'panel', 'lampOutlet'];
  const state = { tuner: {}, chords: {}, hearing: true, inTune: false, chordsOpen: false, idleReadout: '', panel: '', lampOutlet: '' };
  const outletWatchers = { tuner: new Map(), chords: new Map() };
  const flagWatchers = Object.fromEntries(flags.map((flag) => [flag, []]));

  const v = {
    ctx, lay, state,
    geometry: ctx.geometry,
    W: lay.width, H: lay.height,
    u: lay.unit || 1,
    pad: !!ctx.isPad,
    watch(screen, name, fn) {
      const list = outletWatchers[screen].get(name);
      if (list) list.push(fn);
      else outletWatchers[screen].set(name, [fn]);
    },
    watchFlag(name, fn) { flagWatchers[name].push(fn); },
    update: () => {},
  };

  const stage = el('div', { class: 'stage', style: { width: v.W, height: v.H } });
  // Page-level messages; one can be put aside, as it may cover the title row.
  const bannerText = el('span');
  const banner = el('div', { class: 'banner', role: 'alert', hidden: true }, bannerText,
    el('button', { type: 'button', class: 'banner-close', 'aria-label': ctx.tr('WebPage', 'Dismiss'), text: '×', onclick: () => { banner.hidden = true; } }));
  const frame = el('div', { class: `uke ${v.pad ? 'pad' : 'phone'}`, 'data-storyboard': ctx.storyboard }, stage, banner);
  root.append(frame);

  const settings = createSettings(v);
  const about = createAbout(v);
  const fork = createTuningFork(v);
  const sheets = [fork, settings, about];
  const tuner = createTuner(v);
  const chords = createChords(v);
  const alert = createAlert(v);
  stage.append(tuner.el, settings.el, about.el, fork.el, chords.el, alert.el);

  const panelOpen = () => state.panel !== '';
  // Only the screen in front takes taps, keys and focus.
  v.update = () => {
    const panel = panelOpen();
    tuner.el.hidden = state.chordsOpen;
    tuner.el.inert = state.chordsOpen || panel || alert.visible;
    chords.el.hidden = !state.chordsOpen;
    chords.el.inert = alert.visible;
    for (const s of sheets) s.el.inert = alert.visible || !s.isOpen;
  };
  v.watchFlag('chordsOpen', (open) => {
    const from = document.activeElement;
    v.update();
    if (open) {
      chords.placeName();
      if (!alert.visible) chords.back.focus({ preventScroll: true });
    } else if (chords.el.contains(from) || from === document.body) {
      tuner.chordsButton.focus({ preventScroll: true });
    }
  });
  v.update();
  for (const flag of ['hearing', 'inTune']) for (const fn of flagWatchers[flag]) fn(state[flag]);

  // Scaled to fit, centred, whole pixels from the window's edge.
  const fit = () => {
    const w = frame.clientWidth, h = frame.clientHeight;
    if (!w || !h) return;
    const scale = Math.min(w / v.W, h / v.H);
    const x = Math.round((w - v.W * scale) / 2), y = Math.round((h - v.H * scale) / 2);
    stage.style.transform = `translate(${x}px, ${y}px) scale(${scale})`;
  };
  new ResizeObserver(fit).observe(frame);
  fit();

  // Keys do what the screen in front offers, and nothing hidden behind it.
  document.addEventListener('keydown', (e) => {
    if (e.defaultPrevented || e.altKey || e.ctrlKey || e.metaKey || alert.visible) return;
    const tunerInFront = !state.chordsOpen && !panelOpen();
    const arrow = (name, action) => {
      if (!tunerInFront || (state.tuner[name] || {}).hidden) return false;
      ctx.tuner(action);
      return true;
    };
    let handled = true;
    switch (e.key) {
    case 'Escape':
      if (panelOpen()) ctx.tuner('closePanel');
      else if (state.chordsOpen) ctx.chord('closeChords');
      else handled = false;
      break;
    case 'ArrowLeft':
      if (state.chordsOpen) chords.pickWheel(0);
      else handled = arrow('showPreviousTuningButton', 'showPreviousTuning');
      break;
    case 'ArrowRight':
      if (state.chordsOpen) chords.pickWheel(1);
      else handled = arrow('showNextTuningButton', 'showNextTuning');
      break;
    case 'ArrowUp':
    case 'ArrowDown':
      if (state.chordsOpen) chords.stepWheel(e.key === 'ArrowUp' ? -1 : 1);
      else handled = false;
      break;
    case '1': case '2': case '3': case '4':
      // The strings' tones in the tuning fork, their recordings on the tuner.
      if (state.chordsOpen || (panelOpen() && state.panel !== 'tuningFork')) handled = false;
      else if (panelOpen()) fork.playString(Number(e.key));
      else tuner.playString(Number(e.key));
      break;
    default:
      handled = false;
    }
    if (handled) e.preventDefault();
  });

  // The core sends only what changed since it last told the page.
  function setFlag(flag, value) {
    if (value === state[flag]) return;
    state[flag] = value;
    for (const fn of flagWatchers[flag]) fn(value);
  }

  function apply(changes) {
    if (!changes) return;
    for (const screen of ['tuner', 'chords']) {
      const section = changes[screen];
      if (!section) continue;
      const known = state[screen], watchers = outletWatchers[screen];
      for (const name in section) {
        const value = section[name];
        known[name] = value;
        const list = watchers.get(name);
        if (list) for (const fn of list) fn(value);
      }
    }
    for (const flag of flags) {
      if (flag in changes) setFlag(flag, changes[flag]);
    }
  }

  return {
    apply,
    alert: { present: alert.present, dismiss: alert.dismiss },
    say(text) {
      bannerText.textContent = text ?? '';
      banner.hidden = !text;
    },
  };
}
