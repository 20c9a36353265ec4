// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el, outletText } from './dom.js';
import { createSheet } from './sheet.js';

// The about panel: two texts from the string tables, a button that asks for a
// rating, one that opens the maker's site, and the licence line.
export function createAbout(v) {
  const { ctx, lay, u } = v;
  const tr = (s) => ctx.tr('AboutSheet', s);
  const sheet = createSheet(v, { title: tr('About'), name: 'aboutSheet', panel: 'about' });
  const font = lay.labelFont || 16;
  const text = (name, props) => outletText(v, 'tuner', name, 'div', { class: 'about-text', ...props });
  const button = (name, caption, primary, action) => el('button', {
    type: 'button', class: `panel-button${primary ? ' primary' : ''}`, 'data-name': name, text: caption,
    style: { height: Math.max(46 * u, font * 2.8), fontSize: font, borderWidth: 1.5 * u, padding: `0 ${12 * u}px` },
    onclick: () => ctx.tuner(action),
  });
  sheet.body.append(el('div', { class: 'column', style: { gap: 14 * u } },
    el('img', { class: 'about-icon', alt: '', src: ctx.art('tuning_fork.png'), style: { width: 64 * u, height: 64 * u } }),
    el('div', { class: 'about-title', text: tr('Ukulele Tuner'), style: { fontSize: lay.titleFont || 21 } }),
    text('aboutCongratsMessage', { style: { fontSize: font } }),
    text('aboutMsg2', { class: 'about-text muted', style: { fontSize: font * 0.9 } }),
    el('div', { style: { height: 4 * u } }),
    button('reviewButton', tr('Rate the app'), true, 'reviewQuenby'),
    button('makerButton', tr('Visit the maker'), false, 'redirectToMorvaneLabs'),
    // Opens the licences of the app and of KISS FFT, which is compiled into the
    // core (scripts/web.sh writes the file). Names and a licence identifier read
    // the same in every language, so the line needs no translation.
    el('a', {
      class: 'about-text about-licence', 'data-name': 'licenceLink', href: 'licenses.txt', target: '_blank',
      rel: 'noopener', text: '\u00a9 2026 Morvane Labs \u00b7 GPL-3.0-or-later', style: { fontSize: font * 0.8 },
    })));
  return sheet;
}
