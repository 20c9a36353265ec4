// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el } from './dom.js';

// A panel over the tuner screen: it slides up from the bottom on a phone and sits
// centred on a pad. Closing it leaves the tuner as it was; content taller than
// the screen scrolls inside the card.
export function createSheet(v, { title, name, panel }) {
  const { lay, W, H, u } = v;
  const topRoom = lay.topInset || 20;
  const bottomRoom = v.pad ? topRoom : 0;
  const width = Math.min(W, lay.sheetWidth || W);
  const sheet = { isOpen: false, width: width - 32 * u };
  let opener = null;

  const done = el('button', {
    type: 'button', class: 'sheet-done', 'data-name': 'sheetDone', text: v.ctx.tr('Sheet', 'Done'),
    style: { right: 16 * u, fontSize: 16 * u }, onclick: () => v.ctx.tuner('closePanel'),
  });
  const header = el('div', { class: 'sheet-header', style: { height: 52 * u } },
    v.pad ? null : el('div', { class: 'grabber', style: { top: 6 * u, width: 36 * u, height: 5 * u, marginLeft: -18 * u } }),
    el('div', { class: 'sheet-title', text: title, style: { fontSize: 18 * u } }),
    done);
  sheet.body = el('div', { class: 'sheet-body' });
  const scroller = el('div', {
    class: 'sheet-scroller',
    style: { padding: `${16 * u}px ${16 * u}px ${16 * u + (lay.bottomInset || 0)}px` },
  }, sheet.body);
  const card = el('div', {
    class: 'sheet-card', role: 'dialog', 'aria-modal': 'true', 'aria-label': title, tabindex: '-1',
    style: { width, maxHeight: H - topRoom - bottomRoom, borderRadius: 18 * u },
  }, header, scroller);
  // Tapping beside the card closes it, as Done and Escape do.
  const backdrop = el('div', { class: 'backdrop', onclick: () => v.ctx.tuner('closePanel') });
  sheet.el = el('div', { class: `sheet ${v.pad ? 'pad' : 'phone'}`, 'data-name': name, style: { '--stage-height': H } }, backdrop, card);

  // The app says which panel is open; the sheet only slides.
  const show = () => {
    if (sheet.isOpen) return;
    sheet.isOpen = true;
    opener = document.activeElement;
    sheet.el.classList.add('open');
    scroller.scrollTop = 0;
    v.update();
    done.focus({ preventScroll: true });
  };
  const hide = () => {
    if (!sheet.isOpen) return;
    sheet.isOpen = false;
    sheet.el.classList.remove('open');
    v.update();
    if (opener?.isConnected && sheet.el.contains(document.activeElement)) opener.focus({ preventScroll: true });
  };
  v.watchFlag('panel', (open) => (open === panel ? show() : hide()));
  return sheet;
}
