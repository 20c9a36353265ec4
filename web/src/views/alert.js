// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el, setStyle } from './dom.js';

// The app's own alert (the rating prompt's), over whatever screen is showing.
// Buttons come in the order the core gives them and report their position.
export function createAlert(v) {
  const { u, W, ctx } = v;
  const title = el('div', { class: 'alert-title', id: 'uke-alert-title', style: { fontSize: 18 * u, margin: `${20 * u}px ${18 * u}px 0` } });
  const message = el('div', { class: 'alert-message', id: 'uke-alert-message', style: { fontSize: 14 * u, margin: `${8 * u}px ${18 * u}px ${20 * u}px` } });
  const buttons = el('div', { class: 'alert-buttons' });
  const card = el('div', {
    class: 'alert-card', role: 'alertdialog', 'aria-modal': 'true',
    'aria-labelledby': title.id, 'aria-describedby': message.id,
    style: { width: Math.min(W - 48 * u, 300 * u), borderRadius: 16 * u },
  }, title, message, buttons);
  // A modal alert: taps around it do nothing, and nothing reaches the screen below.
  const root = el('div', { class: 'alert', 'data-name': 'alert' }, el('div', { class: 'backdrop' }), card);
  const alert = { el: root, visible: false };
  let opener = null;

  alert.present = (titleText, messageText, labels = []) => {
    title.textContent = titleText ?? '';
    message.textContent = messageText ?? '';
    buttons.replaceChildren(...labels.map((label, i) => {
      const b = el('button', {
        type: 'button', class: 'alert-button', 'data-name': `alertButton${i}`, text: label,
        onclick: () => {
          alert.dismiss();
          ctx.alertChosen(i);
        },
      });
      // The first button is the one the alert is for.
      if (i === 0) b.classList.add('first');
      else if (i === labels.length - 1) b.classList.add('last');
      setStyle(b, { height: 48 * u, fontSize: 16 * u, padding: `0 ${12 * u}px` });
      return b;
    }));
    if (!alert.visible) opener = document.activeElement;
    alert.visible = true;
    root.classList.add('open');
    v.update();
    (buttons.firstChild || card).focus({ preventScroll: true });
  };
  alert.dismiss = () => {
    if (!alert.visible) return;
    alert.visible = false;
    root.classList.remove('open');
    v.update();
    if (opener?.isConnected && !opener.closest('[inert]')) opener.focus({ preventScroll: true });
    opener = null;
  };
  card.tabIndex = -1;
  return alert;
}
