// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el, fill, iconButton, outletImage, outletText, setStyle } from './dom.js';

// The tuner screen: title row, read-out, the instrument's head with its rings and
// string names, the frequency chart and the toolbar, placed by the layout of the
// device class as the desktop's screen places them.
export function createTuner(v) {
  const { ctx, lay, W, H, u } = v;
  const tr = (source, ...args) => fill(ctx.tr('TunerScreen', source), ...args);
  const o = (name) => v.state.tuner[name] || {};
  const screen = el('div', { class: 'screen tuner-screen' });

  // Title row: the tuning's name between the arrows.
  const th = lay.titleHeight;
  const arrow = (name, label, icon, side, action) => {
    const b = iconButton({
      label, icon: ctx.art(icon), size: th, 'data-outlet': name,
      style: { top: lay.topInset, [side]: lay.margin / 2 },
      onclick: () => ctx.tuner(action),
    });
    v.watch('tuner', name, (out) => { b.hidden = !!out.hidden; });
    return b;
  };
  const tuningName = el('span', { 'data-outlet': 'currentTuningName', 'aria-hidden': 'true' });
  const tuningSpoken = el('span', { class: 'spoken' });
  v.watch('tuner', 'currentTuningName', (out) => {
    tuningName.textContent = out.text;
    tuningSpoken.textContent = tr('Tuning: %1', out.text);
  });
  screen.append(
    arrow('showPreviousTuningButton', tr('Previous tuning'), 'arrow_left.png', 'left', 'showPreviousTuning'),
    el('div', {
      class: 'tuning-name',
      style: { left: 1.2 * th, top: lay.topInset, width: W - 2.4 * th, height: th, fontSize: lay.titleFont },
    }, tuningName, tuningSpoken),
    arrow('showNextTuningButton', tr('Next tuning'), 'arrow_right.png', 'right', 'showNextTuning'),
  );

  // Read-out: note, frequency and the in-tune lamp.
  const rh = lay.readoutHeight;
  const readoutY = lay.topInset + th;
  const note = el('span', { 'data-outlet': 'noteDisplay', 'aria-hidden': 'true' });
  const noteSpoken = el('span', { class: 'spoken' });
  const freq = el('div', { 'data-outlet': 'freq_label', style: { fontSize: lay.freqFont } });
  const renderNote = () => {
    const text = o('noteDisplay').text || '';
    note.textContent = text === '' ? '–' : text;
    noteSpoken.textContent = text === '' ? tr('No note') : tr('Note: %1', text);
  };
  const renderFreq = () => {
    const text = o('freq_label').text || '';
    const idle = text === '';
    freq.textContent = idle ? v.state.idleReadout : text;
    freq.classList.toggle('idle', idle);
  };
  v.watch('tuner', 'noteDisplay', renderNote);
  v.watch('tuner', 'freq_label', renderFreq);
  v.watchFlag('idleReadout', renderFreq);
  const noteLine = el('div', { class: 'note', style: { fontSize: lay.noteFont } }, note, noteSpoken);
  v.watchFlag('inTune', (on) => noteLine.classList.toggle('in-tune', on));

  // Each size of lamp has its own outlet; the device class shows one of them.
  const led = rh * 0.62;
  const lamps = ['LEDDisplay', 'LEDDisplay128'].map((name) => {
    const img = outletImage(v, 'tuner', name, { class: 'lamp' });
    setStyle(img, { right: lay.margin * 2, top: readoutY + (rh - led) / 2, width: led, height: led });
    return img;
  });
  v.watchFlag('lampOutlet', (shown) => {
    for (const img of lamps) img.classList.toggle('other-device', img.dataset.outlet !== shown);
  });
  v.watchFlag('inTune', (on) => { for (const img of lamps) img.alt = tr(on ? 'In tune' : 'Not in tune'); });
  screen.append(
    el('div', { class: 'card', style: { left: lay.margin, top: readoutY, width: W - 2 * lay.margin, height: rh, borderRadius: 14 * u } }),
    el('div', {
      class: 'readout',
      style: { left: lay.margin * 2, top: readoutY, height: rh, gap: 2 * u, maxWidth: W - 4 * lay.margin - led },
    }, noteLine, freq),
    ...lamps,
  );

  // The instrument's head, with the highlight and the peg rings laid over it.
  const geo = v.geometry.headstock;
  const hw = lay.headWidth, hh = lay.headHeight;
  const sx = hw / geo.width, sy = hh / geo.height;
  const head = el('div', { class: 'head', style: { left: (W - hw) / 2, top: readoutY + rh + lay.margin, width: hw, height: hh } },
    el('img', { class: 'fill', alt: '', draggable: 'false', src: ctx.art('headstock.png') }),
    ...['tunedString', 'tunedString5', 'tunedStringiPad'].map((name) => outletImage(v, 'tuner', name, { class: 'fill' })));
  for (let n = 1; n <= 4; n++) {
    const peg = geo.pegs[String(n)];
    const ring = outletImage(v, 'tuner', `ring${n}`, { class: 'ring' });
    const size = 62 * sx;
    setStyle(ring, { left: peg.x * sx - size / 2, top: peg.y * sy - size / 2, width: size, height: size });
    head.append(ring);
  }

  // String names beside their pegs; a tap plays the string's recording.
  const labels = ['firstString', 'secondString', 'thirdString', 'fourthString'];
  const ordinals = ['1st', '2nd', '3rd', '4th'];
  const playString = (n) => {
    if (!o(labels[n - 1]).hidden) ctx.tuner(`play${ordinals[n - 1]}StringSound`);
  };
  const lf = lay.labelFont;
  labels.forEach((name, i) => {
    const peg = geo.pegs[String(i + 1)];
    const onRight = i < 2;
    const b = el('button', { type: 'button', class: 'string-name', 'data-outlet': name, onclick: () => playString(i + 1) });
    setStyle(b, {
      top: peg.y * sy - lf, height: 2 * lf, minWidth: 3.2 * lf, padding: `0 ${lf / 2}px`, borderRadius: lf, fontSize: lf,
      [onRight ? 'left' : 'right']: onRight ? (peg.x + 26) * sx : hw - (peg.x - 26) * sx,
    });
    v.watch('tuner', name, (out) => {
      b.textContent = out.text;
      b.setAttribute('aria-label', tr('Play %1', out.text));
      b.hidden = !!out.hidden;
    });
    head.append(b);
  });
  screen.append(head);

  // The frequency chart: each string's note and target, string 4 first.
  const chart = el('div', {
    class: 'chart',
    style: {
      left: 2 * lay.margin, top: readoutY + rh + lay.margin + hh + lay.margin,
      gridTemplateColumns: `repeat(2, ${(W - 6 * lay.margin) / 2}px)`, columnGap: 2 * lay.margin, rowGap: 4 * u, fontSize: lf,
    },
  });
  ['fourthStringNoteAndFreq', 'thirdStringNoteAndFreq', 'secondStringNoteAndFreq', 'firstStringNoteAndFreq'].forEach((name, i) => {
    chart.append(outletText(v, 'tuner', name, 'div', { class: i % 2 ? 'start' : 'end' }));
  });
  screen.append(chart);

  // Toolbar.
  const tb = lay.toolbarHeight;
  const gap = (W - 4 * tb) / 5;
  const tool = (i, label, icon, onclick, props = {}) => iconButton({
    label, icon: icon && ctx.art(icon), size: tb, onclick, ...props,
    style: { left: gap + i * (tb + gap), top: H - lay.bottomInset - tb },
  });
  const fork = tool(1, tr('Tuning fork'), 'tuning_fork.png', () => ctx.tuner('openTuningFork'), { 'data-outlet': 'tuningForkButton' });
  v.watch('tuner', 'tuningForkButton', (out) => { fork.disabled = !!out.hidden; });
  const chords = tool(2, tr('Chord library'), '', () => ctx.tuner('openChords'), { 'data-outlet': 'goToChordsLibraryButton' });
  v.watch('tuner', 'goToChordsLibraryButton', (out) => {
    chords.setIcon(out.image ? ctx.art(out.image) : '');
  });
  screen.append(
    tool(0, tr('Settings'), 'settings.png', () => ctx.tuner('openSettings'), { 'data-name': 'settingsButton' }),
    fork, chords,
    tool(3, tr('About'), 'about.png', () => ctx.tuner('openAbout'), { 'data-name': 'aboutButton' }),
  );

  renderNote();
  renderFreq();
  return { el: screen, playString, chordsButton: chords };
}
