// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el, iconButton, outletImage, outletText, setStyle } from './dom.js';
import { createWheel } from './wheel.js';

// The chord library: titles, the chord's name with the spelling switch, the
// fretboard with its marks, and the root and chord-type wheels. Sizes come from
// the layout of the device class; the marks sit where geometry.json puts them on
// the neck pictures.
export function createChords(v) {
  const { ctx, lay, W, H, u } = v;
  const tr = (s) => ctx.tr('ChordsScreen', s);
  const o = (name) => v.state.chords[name] || {};
  const m = lay.margin;
  const geo = v.geometry.fretboard;
  const screen = el('div', { class: 'screen chords-screen', hidden: true });

  // Room left over once the fixed blocks are placed, shared out between them.
  const usable = H - lay.topInset - lay.bottomInset;
  const titleBlock = lay.titleHeight * 1.3;
  const nameBlock = lay.noteFont * 1.45;
  const layoutScale = Math.min(lay.fretboardWidth / geo.width, lay.fretboardHeight / geo.height);
  // The board takes up to a third more than the layout gives it where the screen
  // has height to spare, so that the marks read well on tall screens.
  const room = usable - titleBlock - nameBlock - lay.pickerHeight - 2 * m;
  const scale = Math.max(layoutScale, Math.min(layoutScale * 1.3, room / geo.height, (W - 2 * m) / geo.width));
  const bw = geo.width * scale, bh = geo.height * scale;
  const gap = Math.max(m / 3, (usable - titleBlock - nameBlock - bh - lay.pickerHeight) / 4);
  const nameY = lay.topInset + titleBlock + gap;
  const boardY = nameY + nameBlock + gap;
  const pickersY = boardY + bh + gap;

  // Title: back to the tuner, and the two title lines.
  const titleLine = (name, fontSize, cls) => outletText(v, 'chords', name, 'div', { class: `chords-title ${cls}`, style: { fontSize } });
  const back = iconButton({
    label: tr('Back to the tuner'), icon: ctx.art('arrow_left.png'), size: lay.titleHeight, 'data-name': 'chordsBack',
    style: { left: m / 2, top: lay.topInset + (titleBlock - lay.titleHeight) / 2 },
    onclick: () => ctx.chord('closeChords'),
  });
  const titleWidth = W - 2.6 * lay.titleHeight;
  screen.append(back, el('div', {
    class: 'chords-titles',
    style: { left: (W - titleWidth) / 2, top: lay.topInset, width: titleWidth, height: titleBlock, gap: 2 * u },
  }, titleLine('chordsTitle1', lay.titleFont, ''), titleLine('chordsTitle2', lay.labelFont, 'muted')));

  // The chord's name, with the spelling switch beside it. The name keeps room for
  // the switch on either side so that it stays centred.
  const sw = nameBlock * 0.95;
  const nameWidth = W - 2 * (sw + 2 * m);
  const nameText = el('span');
  const name = el('div', {
    class: 'chord-name', 'data-outlet': 'chordDisplay',
    style: { left: (W - nameWidth) / 2, top: nameY, width: nameWidth, height: nameBlock },
  }, nameText);
  const spelling = el('button', {
    type: 'button', class: 'spelling', 'data-outlet': 'buttonFlatOrSharp', 'aria-label': tr('Sharps or flats'),
    style: { top: nameY + (nameBlock - sw) / 2, width: sw, height: sw, borderWidth: Math.max(1, 1.5 * u) },
    onclick: () => ctx.chord('toggleSharpOfFlat'),
  }, el('img', { alt: '', draggable: 'false' }));
  // Shrinks a long name to fit, down to half size, and puts the switch after it.
  const placeName = () => {
    if (screen.hidden) return;
    nameText.style.fontSize = `${lay.noteFont}px`;
    const wide = nameText.scrollWidth;
    if (wide > nameWidth) nameText.style.fontSize = `${Math.max(Math.round(lay.noteFont / 2), Math.floor((lay.noteFont * nameWidth) / wide))}px`;
    const shown = Math.min(nameText.offsetWidth, nameWidth);
    spelling.style.left = `${Math.min(W - sw - m / 2, (W - nameWidth) / 2 + (nameWidth + shown) / 2 + m)}px`;
  };
  v.watch('chords', 'chordDisplay', (out) => {
    nameText.textContent = out.text;
    name.hidden = !!out.hidden;
    placeName();
  });
  v.watch('chords', 'buttonFlatOrSharp', (out) => {
    const img = spelling.firstChild;
    if (out.image) img.src = ctx.art(out.image);
    else img.removeAttribute('src');
    spelling.hidden = !!out.hidden;
  });
  screen.append(name, spelling);

  // The fretboard: the neck picture with status marks, 16 cells and the fret numbers.
  const board = el('div', { class: 'board', style: { left: (W - bw) / 2, top: boardY, width: bw, height: bh } },
    outletImage(v, 'chords', 'ukuleleFretboard', { class: 'fill stretch' }));
  const mark = (name, x, y, size) => {
    const img = outletImage(v, 'chords', name, { class: 'mark' });
    setStyle(img, { left: x * scale - (size * scale) / 2, top: y * scale - (size * scale) / 2, width: size * scale, height: size * scale });
    board.append(img);
  };
  for (let s = 1; s <= 4; s++) mark(`string${s}Status`, geo.stringX[s], geo.statusY, geo.markSize);
  for (let s = 1; s <= 4; s++)
    for (let r = 1; r <= 4; r++) mark(`Str${s}Fr${r}`, geo.stringX[s], geo.rowCenterY[r], geo.markSize);
  mark('rightNumberFr1', geo.rightNumberX, geo.rowCenterY[1], geo.numberSize);
  mark('rightNumberFr2', geo.rightNumberX, geo.rowCenterY[2], geo.numberSize);
  mark('leftNumberFr2', geo.leftNumberX, geo.rowCenterY[2], geo.numberSize);
  screen.append(board);

  // The two wheels on one panel, with a band marking the chosen row.
  const ph = lay.pickerHeight;
  const pw = Math.min(W - 2 * m, Math.max(bw * 1.35, 300 * u));
  const rowFont = Math.min(lay.titleFont * 1.15, (ph / 5) * 0.52);
  // The core's tag tells the wheels apart; the chord type's also says which list
  // of chord types it shows, the long one or the open tunings' short one.
  const tagOf = (outlet) => o(outlet).tag;
  const wheels = [['selectRootChord', 'Root'], ['selectVariant', 'Chord type']].map(([outlet, label]) => {
    const wheel = createWheel({
      label: tr(label),
      height: ph,
      props: { 'data-outlet': outlet },
      paint: (option, d, current) => {
        option.style.opacity = 1 - Math.abs(d) / 2.9;
        option.classList.toggle('near', current);
      },
      onChoose: (row) => {
        if (row !== o(outlet).value) ctx.chord('didSelectRow', tagOf(outlet), row);
      },
    });
    setStyle(wheel.el, { width: (pw - m) / 2, fontSize: rowFont, borderRadius: 10 * u, '--mark': 2 * u });
    v.watch('chords', outlet, (out) => {
      wheel.el.hidden = !!out.hidden;
      wheel.setRows(out.rows || []);
      wheel.show(out.value ?? 0);
    });
    return wheel;
  });
  screen.append(el('div', {
    class: 'pickers',
    style: { left: (W - pw) / 2, top: pickersY, width: pw, height: ph, borderRadius: 14 * u, padding: `0 ${m / 2}px` },
  },
  el('div', { class: 'band', style: { left: m / 2, right: m / 2, height: ph / 5, marginTop: -ph / 10, borderRadius: ph / 15 } }),
  el('div', { class: 'divider', style: { height: ph * 0.7, marginTop: -ph * 0.35 } }),
  ...wheels.map((w) => w.el)));

  // Left and right pick a wheel, up and down turn it.
  let keyWheel = 0;
  const focused = () => wheels.findIndex((w) => w.el === document.activeElement);
  return {
    el: screen,
    back,
    placeName,
    pickWheel(i) {
      keyWheel = i;
      wheels[i].el.focus({ preventScroll: true });
    },
    stepWheel(rows) {
      if (focused() >= 0) keyWheel = focused();
      wheels[keyWheel].el.focus({ preventScroll: true });
      wheels[keyWheel].step(rows);
    },
  };
}
