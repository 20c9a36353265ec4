// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Turns the audio context's rate into the capture rate the tuner is calibrated
// on (14039 Hz) and cuts the result into capture blocks of 16-bit samples. Used
// inside the capture worklet; kept free of any audio API so it can be tested alone.

// Taps each side of the output point, per output sample's worth of input: the
// filter's slope then spans the same part of the output's band at any input rate.
const TAPS_PER_STEP = 16;
const PHASES = 256;   // kernel table resolution between input samples

export class Resampler {
  constructor(inputRate, outputRate) {
    this.step = inputRate / outputRate;   // input samples per output sample
    this.position = 0;                    // of the next output sample, in input samples
    this.history = new Float32Array(0);   // input samples still needed
    this.same = inputRate === outputRate;
    this.taps = Math.ceil(TAPS_PER_STEP * Math.max(1, this.step));
    if (!this.same) this.kernel = makeKernel(Math.min(1, outputRate / inputRate), this.taps);
  }

  // Returns the output samples that `input` completes: `input` itself at the same
  // rate (read it before the next call), which spares the audio thread a copy
  // and its garbage a hundred times a second.
  push(input) {
    if (this.same) return input;
    const x = new Float32Array(this.history.length + input.length);
    x.set(this.history);
    x.set(input, this.history.length);
    const out = [];
    const k = this.kernel;
    const TAPS = this.taps;
    // position is relative to x[0]; an output needs TAPS samples either side.
    while (this.position + TAPS < x.length) {
      const base = Math.floor(this.position);
      const frac = this.position - base;
      const phase = Math.floor(frac * PHASES);
      const t = frac * PHASES - phase;
      let sum = 0;
      for (let j = -TAPS + 1; j <= TAPS; ++j) {
        const i = base + j;
        if (i < 0) continue;
        // Kernel at distance (j - frac), interpolated between table phases.
        const row = (TAPS - j) * PHASES + phase;
        const h = k[row] + (k[row + 1] - k[row]) * t;
        sum += x[i] * h;
      }
      out.push(sum);
      this.position += this.step;
    }
    const keep = Math.max(0, Math.floor(this.position) - this.taps);
    this.history = x.slice(keep);
    this.position -= keep;
    return Float32Array.from(out);
  }
}

// A Blackman-windowed sinc low-pass at `cutoff` (of the input's Nyquist), laid out
// so that entry (TAPS - j) * PHASES + phase holds the kernel at distance
// j - phase / PHASES.
function makeKernel(cutoff, TAPS) {
  // Half way down at 0.8 of the new Nyquist (5.6 kHz, far above any string's
  // harmonics that the tuner weighs), so the slope ends before the fold.
  const fc = cutoff * 0.8;
  const n = 2 * TAPS * PHASES + 2;
  const table = new Float32Array(n);
  for (let m = 0; m < n; ++m) {
    const d = TAPS - m / PHASES; // distance of this entry from the output point
    const w = Math.abs(d) >= TAPS ? 0 : 0.42 + 0.5 * Math.cos(Math.PI * d / TAPS) + 0.08 * Math.cos(2 * Math.PI * d / TAPS);
    const s = d === 0 ? 1 : Math.sin(Math.PI * fc * d) / (Math.PI * fc * d);
    table[m] = fc * s * w;
  }
  return table;
}

// Collects samples into blocks of `size` 16-bit samples.
export class Blocker {
  constructor(size) {
    this.size = size;
    this.block = new Int16Array(size);
    this.filled = 0;
  }

  // Calls `emit` with every block `samples` completes: a fresh array each time, so
  // `emit` may transfer it (which leaves it empty) to another thread.
  push(samples, emit) {
    for (let i = 0; i < samples.length; ++i) {
      const v = Math.round(samples[i] * 32768);
      this.block[this.filled++] = v > 32767 ? 32767 : v < -32768 ? -32768 : v;
      if (this.filled === this.block.length) {
        emit(this.block);
        this.block = new Int16Array(this.size);
        this.filled = 0;
      }
    }
  }
}
