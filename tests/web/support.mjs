// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// What the web tests share: the built page's folder, the compiled core on a
// recording host, and capture-rate recordings made with sox.
import { execFileSync } from 'node:child_process';
import { createRequire } from 'node:module';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { fileURLToPath } from 'node:url';

export const TOP = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../..');
export const DIST = process.env.UKE_WEB_DIST || path.join(TOP, 'web/dist');
export const UKE = process.env.UKE_BIN || path.join(TOP, 'build/tools/uke/uke');

// The core's module, given its binary directly: Node's fetch cannot read a file path.
export async function loadCore() {
  const createUkeCore = createRequire(import.meta.url)(path.join(DIST, 'core.js'));
  return createUkeCore({ wasmBinary: fs.readFileSync(path.join(DIST, 'core.wasm')) });
}

// A host whose ports record what the core asks of them.
export function recordingHost(overrides = {}) {
  const values = new Map();
  const host = {
    epoch: 1.7e9,
    resourcePath: 'sounds',
    // What the core asked for, in order.
    logged: [], captureCalls: [], played: [], opened: [], alerts: [],
    log: (line) => host.logged.push(line),
    settings: {
      value: (k) => values.get(k) ?? null,
      setValue: (k, tag, v) => values.set(k, [tag, v]),
      wipe: () => values.clear(),
      synchronize() {},
      keys: () => [...values.keys()],
    },
    lookup: () => null,
    device: { idiom: 'phone', height: 844, systemVersion: '17.0' },
    capture: { start: () => host.captureCalls.push('start'), stop: () => host.captureCalls.push('stop') },
    output: { start() {}, stop() {} },
    sounds: { has: () => true, play: (id, p) => host.played.push(p), stop() {} },
    openUrl: (u) => host.opened.push(u),
    online: () => true, fetch: () => true, keepAwake() {}, buildWindow: () => true,
    alert: { present: (title, message, buttons) => host.alerts.push({ title, message, buttons }), dismiss() {} },
    ...overrides,
  };
  return host;
}

// The core's app on a recording host (with `overrides`), started, handed to `fn`
// with its host, and deleted after.
export function withApp(core, fn, overrides = {}) {
  const host = recordingHost(overrides);
  const app = new core.WebApp(host);
  app.start();
  try {
    return fn(app, host);
  } finally {
    app.delete();
  }
}

// Recordings made for one test file, gone when it ends.
const made = fs.mkdtempSync(path.join(os.tmpdir(), 'uke-web-'));
process.once('exit', () => fs.rmSync(made, { recursive: true, force: true }));

// `file` as 16-bit mono at the capture rate (or `rate`), and its samples. Not
// dithered: a string's last, fading block can sit between a note and its octave,
// and two resamplers may then part on it for one draw of the dither's noise and
// not for another; the same samples every run keep the comparison's outcome fixed.
export function captureRateRecording(file, dir = made, rate = 14039) {
  const wav = path.join(dir, path.basename(file).replace(/\.\w+$/, `-${rate}.wav`));
  execFileSync('sox', ['-D', file, '-r', String(rate), '-c', '1', '-b', '16', '-e', 'signed-integer', wav]);
  return { wav, samples: wavSamples(fs.readFileSync(wav)) };
}

function wavSamples(bytes) {
  let at = 12;
  while (at + 8 <= bytes.length) {
    const id = bytes.toString('ascii', at, at + 4);
    const size = bytes.readUInt32LE(at + 4);
    if (id === 'data') return new Int16Array(bytes.buffer.slice(bytes.byteOffset + at + 8, bytes.byteOffset + at + 8 + size));
    at += 8 + size + (size & 1);
  }
  throw new Error('no data chunk');
}
