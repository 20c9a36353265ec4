// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el, fill } from './dom.js';
import { createSheet } from './sheet.js';

// The tuning fork: a reference tone for each string of the selected tuning, and a
// button that silences it. The buttons are titled by the note-naming code.
export function createTuningFork(v) {
  const { ctx, lay, u } = v;
  const tr = (s, ...args) => fill(ctx.tr('TuningForkSheet', s), ...args);
  const o = (name) => v.state.tuner[name] || {};
  const sheet = createSheet(v, { title: tr('Tuning Fork'), name: 'tuningForkSheet', panel: 'tuningFork' });
  const spacing = lay.margin * 0.75;

  // What is sounding: the note and its exact frequency.
  const note = el('div', { class: 'fork-note', 'data-outlet': 'tfnoteDisplay', style: { fontSize: lay.noteFont * 0.8 } });
  const freq = el('div', { class: 'fork-freq', 'data-outlet': 'tfFreqLabel', style: { fontSize: lay.freqFont * 0.8 } });
  v.watch('tuner', 'tfnoteDisplay', (out) => { note.textContent = out.text || '–'; note.hidden = !!out.hidden; });
  v.watch('tuner', 'tfFreqLabel', (out) => {
    freq.textContent = out.text || tr('Tap a string');
    freq.classList.toggle('idle', !out.text);
    freq.hidden = !!out.hidden;
  });

  // One button per string, string 4 on the left as the strings lie on the head.
  const names = ['g4TFButton', 'c4TFButton', 'e4TFButton', 'a4TFButton'];
  const actions = ['playG392Hz', 'playC261_6Hz', 'playE329_6', 'playA440Hz'];
  const size = Math.min(lay.toolbarHeight * 1.15, (sheet.width - 3 * lay.margin * 0.5) / 4);
  const fit = (label, room) => {
    label.style.fontSize = `${lay.labelFont}px`;
    const wide = label.scrollWidth;
    if (wide > room) label.style.fontSize = `${Math.max(8, Math.floor((lay.labelFont * room) / wide))}px`;
  };
  const buttons = names.map((name, i) => {
    const label = el('span');
    const b = el('button', {
      type: 'button', class: 'fork-button', 'data-outlet': name, onclick: () => ctx.tuner(actions[i]),
      style: { width: size, height: size, borderWidth: 2 * u },
    }, label);
    v.watch('tuner', name, (out) => {
      label.textContent = out.title;
      b.setAttribute('aria-label', tr('Play %1', out.title));
      b.hidden = !!out.hidden;
      fit(label, size - 8 * u);
    });
    return b;
  });
  sheet.playString = (n) => {
    if (!o(names[4 - n]).hidden) ctx.tuner(actions[4 - n]);
  };

  sheet.body.append(el('div', { class: 'column', style: { gap: spacing } },
    el('div', { class: 'fork-readout', style: { height: lay.readoutHeight * 0.8, borderRadius: 14 * u, gap: 2 * u } }, note, freq),
    el('div', { class: 'fork-row', style: { gap: lay.margin * 0.5 } }, ...buttons),
    el('button', {
      type: 'button', class: 'stop-button', 'data-name': 'stopFreqPlayButton', text: tr('Stop'),
      style: { width: Math.min(sheet.width, 200 * u), height: lay.labelFont * 2.2, fontSize: lay.labelFont, borderWidth: 2 * u },
      onclick: () => ctx.tuner('stopFreqPlay'),
    })));
  return sheet;
}
