// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Small helpers the screens share. Every length here is in the layout's points:
// the stage is exactly the device class's size and is scaled as a whole, so a
// point is one CSS pixel inside it.

// el('div', {class, style, text, onclick, ...attributes}, ...children)
export function el(tag, props = {}, ...children) {
  const e = document.createElement(tag);
  for (const [key, value] of Object.entries(props)) {
    if (value == null || value === false) continue;
    if (key === 'class') e.className = value;
    else if (key === 'text') e.textContent = value;
    else if (key === 'style') setStyle(e, value);
    else if (key.startsWith('on')) e.addEventListener(key.slice(2), value);
    else e.setAttribute(key, value === true ? '' : value);
  }
  for (const child of children) if (child) e.append(child);
  return e;
}

// Numbers are lengths in points; strings go through as written. Type sizes are
// whole points, as the desktop's fonts take them.
export function setStyle(e, style) {
  for (const [key, value] of Object.entries(style)) {
    const css = typeof value !== 'number' ? value : `${key === 'fontSize' ? Math.round(value) : value}px`;
    if (key.startsWith('--')) e.style.setProperty(key, css);
    else e.style[key] = css;
  }
}

// Qt's %1, %2 in a translated caption.
export function fill(text, ...args) {
  return args.reduce((s, arg, i) => s.split(`%${i + 1}`).join(String(arg)), text);
}

// An <img> that shows an image outlet: the core names a picture, or none.
export function outletImage(v, screen, name, props = {}) {
  const img = el('img', { alt: '', draggable: 'false', 'data-outlet': name, hidden: true, ...props });
  let shown = '';
  v.watch(screen, name, (o) => {
    const src = o.image ? v.ctx.art(o.image) : '';
    if (src !== shown) {
      shown = src;
      if (src) img.src = src;
      else img.removeAttribute('src');
    }
    img.hidden = !!o.hidden || !src;
  });
  return img;
}

// An element showing a label outlet's text as it is.
export function outletText(v, screen, name, tag = 'div', props = {}) {
  const e = el(tag, { 'data-outlet': name, ...props });
  v.watch(screen, name, (o) => {
    e.textContent = o.text ?? '';
    e.hidden = !!o.hidden;
  });
  return e;
}

// A round image button of the title row and the toolbar.
export function iconButton({ label, icon, size, style = {}, onclick, ...props }) {
  const img = el('img', { alt: '', draggable: 'false', src: icon || null, hidden: !icon });
  const b = el('button', { type: 'button', class: 'icon-button', 'aria-label': label, onclick, ...props }, img);
  setStyle(b, { width: size, height: size, ...style });
  b.setIcon = (src) => {
    if (src) img.src = src;
    else img.removeAttribute('src');
    img.hidden = !src;
  };
  return b;
}
