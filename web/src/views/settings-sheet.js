// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import { el, outletText, setStyle } from './dom.js';
import { createSheet } from './sheet.js';
import { createWheel } from './wheel.js';

// The settings panel: sensitivity, calibration, the three switches and the
// note-naming picker. Every control shows the tuner's outlet and sends its
// action; the controller decides what the value becomes.
export function createSettings(v) {
  const { ctx, lay, u } = v;
  const tr = (s) => ctx.tr('SettingsSheet', s);
  const o = (name) => v.state.tuner[name] || {};
  const sheet = createSheet(v, { title: tr('Settings'), name: 'settingsSheet', panel: 'settings' });
  const font = lay.labelFont || 16, small = lay.smallFont || 12;
  const rowHeight = Math.max(44 * u, font * 2.75);
  const inset = 14 * u;

  const group = (...rows) => el('div', { class: 'group', style: { borderRadius: 12 * u } }, ...rows);
  const caption = (name) => outletText(v, 'tuner', name, 'div', { class: 'caption', style: { fontSize: font } });
  // A caption's row sits on the row below it, as grouped settings do on a phone.
  const captionRow = (...children) => el('div', { class: 'caption-row', style: { height: rowHeight * 0.8, padding: `0 ${inset}px` } }, ...children);
  const row = (right, ...children) => el('div', { class: 'row', style: { height: rowHeight, padding: `0 ${right}px 0 ${inset}px`, gap: 8 * u } }, ...children);

  // Microphone sensitivity: the slider's raw position goes to the controller on
  // release; the controller snaps it to a whole step.
  const range = () => [o('micSensitivitySlider').minimum, o('micSensitivitySlider').maximum];
  const slider = el('input', { type: 'range', step: 'any', 'data-outlet': 'micSensitivitySlider' });
  const stepShown = el('div', { class: 'step-value', style: { fontSize: font } });
  const lowEnd = el('div', { class: 'range-end', style: { fontSize: small } });
  const highEnd = el('div', { class: 'range-end', style: { fontSize: small } });
  const fillBar = el('div', { class: 'slider-fill' });
  const ticks = el('div', { class: 'slider-ticks' });
  const showSlider = () => {
    const [lo, hi] = [Number(slider.min), Number(slider.max)];
    const value = Number(slider.value);
    stepShown.textContent = Math.round(value);
    fillBar.style.width = `${hi > lo ? ((value - lo) / (hi - lo)) * 100 : 0}%`;
  };
  const syncSlider = () => {
    const [lo, hi] = range();
    if (slider.min !== String(lo) || slider.max !== String(hi)) {
      slider.min = lo; slider.max = hi;
      lowEnd.textContent = lo; highEnd.textContent = hi;
      ticks.replaceChildren(...Array.from({ length: Math.max(0, Math.round(hi - lo) + 1) }, () => el('i')));
    }
    slider.value = o('micSensitivitySlider').value ?? lo;
    showSlider();
  };
  const sendSlider = (value) => {
    ctx.tuner('micSensitivity', value);
    // Show what the controller made of it, even when that equals the old value.
    syncSlider();
  };
  slider.addEventListener('input', showSlider);
  slider.addEventListener('change', () => sendSlider(Number(slider.value)));
  // Keys move whole steps: a fraction of one would snap straight back.
  slider.addEventListener('keydown', (e) => {
    const [lo, hi] = range();
    const now = Math.round(Number(slider.value));
    const to = { ArrowLeft: now - 1, ArrowDown: now - 1, ArrowRight: now + 1, ArrowUp: now + 1, Home: lo, End: hi }[e.key];
    if (to === undefined) return;
    e.preventDefault();
    e.stopPropagation();
    sendSlider(Math.max(lo, Math.min(hi, to)));
  });
  const sliderRow = row(inset, lowEnd,
    el('div', { class: 'slider', style: { '--thumb': 28 * u, '--track': 4 * u } },
      el('div', { class: 'slider-track' }, fillBar), ticks, slider),
    highEnd);
  setStyle(ticks, { '--tick-width': 2 * u, '--tick-height': 8 * u });
  v.watch('tuner', 'micSensitivitySlider', (out) => { sliderRow.hidden = !!out.hidden; syncSlider(); });
  v.watch('tuner', 'micSensitivityLabel', (out) => slider.setAttribute('aria-label', out.text));

  // Calibration: the caption over the read-out and a stepper of whole hertz.
  const stepperOutlet = () => o('setFrequencyValueStepper');
  const stepButtons = [-1, 1].map((direction) => {
    const b = el('button', {
      type: 'button', class: 'stepper-button', 'data-name': direction < 0 ? 'stepperMinus' : 'stepperPlus',
      'aria-label': tr(direction < 0 ? 'Calibration down' : 'Calibration up'),
      text: direction < 0 ? '−' : '+', style: { fontSize: font * 1.3, borderRadius: 8 * u },
    });
    // The controller keeps the value within the stepper's range.
    const step = () => {
      const s = stepperOutlet();
      ctx.tuner('setFrequencyValue', s.value + direction * s.stepValue);
    };
    // Holding a button keeps stepping, as a phone's stepper does.
    let timer = 0, ticks = 0;
    const release = () => { clearInterval(timer); timer = 0; };
    b.addEventListener('pointerdown', (e) => {
      if (e.button !== 0) return;
      step();
      ticks = 0;
      release();
      timer = setInterval(() => { if (++ticks > 3) step(); }, 110);
    });
    for (const end of ['pointerup', 'pointercancel', 'pointerleave', 'blur']) b.addEventListener(end, release);
    b.addEventListener('click', (e) => { if (e.detail === 0) step(); });   // keys and screen readers
    b.direction = direction;
    return b;
  });
  const stepper = el('div', {
    class: 'stepper', 'data-outlet': 'setFrequencyValueStepper', role: 'group',
    style: { width: 96 * u, height: 32 * u, borderRadius: 8 * u },
  }, stepButtons[0], el('div', { class: 'stepper-divider' }), stepButtons[1]);
  v.watch('tuner', 'setFrequencyValueStepper', (out) => {
    stepper.hidden = !!out.hidden;
    const s = stepperOutlet();
    for (const b of stepButtons) {
      const atEnd = b.direction < 0 ? s.value - s.stepValue < s.minimum : s.value + s.stepValue > s.maximum;
      b.classList.toggle('at-end', atEnd);
    }
  });
  v.watch('tuner', 'calibrationLabel', (out) => stepper.setAttribute('aria-label', out.text));

  // A caption with an on/off switch at the right end of the row.
  const switchRow = (name, captionName, action) => {
    const knob = el('span', { class: 'knob' });
    const toggle = el('button', {
      type: 'button', role: 'switch', class: 'switch', 'data-outlet': name, 'aria-checked': 'false',
      style: { width: 51 * u, height: 31 * u, '--knob': 27 * u, '--pad': 2 * u, '--travel': 20 * u },
      onclick: () => {
        ctx.tuner(action, o(name).on ? 0 : 1);
        toggle.setAttribute('aria-checked', String(!!o(name).on));
      },
    }, knob);
    const r = el('div', { class: 'row switch-row', style: { height: rowHeight, padding: `0 ${10 * u}px 0 ${inset}px`, gap: 8 * u } },
      caption(captionName), toggle);
    v.watch('tuner', name, (out) => { toggle.setAttribute('aria-checked', String(!!out.on)); r.hidden = !!out.hidden; });
    v.watch('tuner', captionName, (out) => toggle.setAttribute('aria-label', out.text));
    return r;
  };
  const separator = () => el('div', { class: 'separator', style: { marginLeft: inset } });

  // The note-naming picker. A row counts as chosen when the wheel comes to rest
  // on it or when it is tapped.
  const wheelHeight = lay.pickerHeight || 180;
  const wheel = createWheel({
    label: tr('Note names'),
    height: wheelHeight,
    props: { 'data-outlet': 'establecerIdioma' },
    paint: (option, d, current) => {
      const near = Math.abs(d) < 0.5;
      option.style.opacity = 1 - Math.min(0.8, Math.abs(d) / 2.5);
      option.style.fontSize = `${Math.round(font * (near ? 1.05 : 0.95))}px`;
      option.classList.toggle('near', near);
    },
    // A tap on the row already chosen is a choice too: it makes the stored naming
    // the one in force for this run.
    onChoose: (row, tapped) => { if (tapped || row !== o('establecerIdioma').value) ctx.tuner('didSelectRow', row); },
  });
  const band = el('div', { class: 'band', style: { left: 8 * u, right: 8 * u, borderRadius: 8 * u } });
  const picker = el('div', { class: 'picker' }, band, wheel.el);
  const pickerGroup = group(
    el('div', { class: 'caption-row', style: { height: rowHeight * 0.8, padding: `0 ${inset}px` } },
      el('div', { class: 'caption', 'data-name': 'noteNamesCaption', text: tr('Note names'), style: { fontSize: font } })),
    picker);
  setStyle(wheel.el, { padding: `0 ${12 * u}px` });
  // Some device classes shrink the wheel; its rows keep the panel's type size.
  const sizePicker = (scale) => {
    const h = wheelHeight * scale;
    setStyle(picker, { height: h });
    setStyle(band, { height: h / 5, marginTop: -h / 10 });
    wheel.setHeight(h);
  };
  sizePicker(1);
  v.watch('tuner', 'establecerIdioma', (out) => {
    sizePicker(out.scale || 1);
    pickerGroup.hidden = !!out.hidden;
    wheel.setRows(out.rows || []);
    wheel.show(out.value ?? 0);
  });

  sheet.body.append(el('div', { class: 'column', style: { gap: 16 * u } },
    group(captionRow(caption('micSensitivityLabel'), stepShown), sliderRow),
    group(
      captionRow(caption('calibrationLabel')),
      row(10 * u,
        el('div', { class: 'calibration' },
          outletText(v, 'tuner', 'calibrationFrequencyValue', 'span', { class: 'calibration-value', style: { fontSize: font * 1.35 } }),
          outletText(v, 'tuner', 'hZLabel', 'span', { style: { fontSize: font, marginLeft: 6 * u } })),
        stepper)),
    group(
      switchRow('soundNotificationSwitch', 'soundNotificationLabel', 'soundNotificationAction'), separator(),
      switchRow('stringSoundsSwitch', 'stringSoundsLabel', 'toggleStringSounds'), separator(),
      switchRow('freqChartSwitch', 'frequencyChartLabel', 'toggleFreqChart')),
    pickerGroup));
  syncSlider();
  return sheet;
}
