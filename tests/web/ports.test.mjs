// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The page's ports on their own, with stand-ins for the browser's objects.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { LocalSettings, STORAGE_KEY } from '../../web/src/ports/settings.js';
import { startFetch } from '../../web/src/ports/browser.js';
import { StringTables, chooseLanguage } from '../../web/src/ports/strings.js';
import { Blocker, Resampler } from '../../web/src/ports/resampler.js';
import path from 'node:path';
import { TOP, captureRateRecording, loadCore, recordingHost, withApp } from './support.mjs';

class MemoryStorage {
  constructor(items = {}) { this.items = new Map(Object.entries(items)); this.full = false; }
  getItem(k) { return this.items.has(k) ? this.items.get(k) : null; }
  setItem(k, v) {
    if (this.full) throw Object.assign(new Error('full'), { name: 'QuotaExceededError' });
    this.items.set(k, String(v));
  }
  removeItem(k) { this.items.delete(k); }
}

test('settings are stored with their types and survive a reload, through the core\'s typed reads', async () => {
  const core = await loadCore();
  const storage = new MemoryStorage();
  const run = (fn) => withApp(core, (app) => {
    fn(app);
    return JSON.parse(app.changes());
  }, { settings: new LocalSettings(storage, () => {}) });
  run((app) => {
    app.act('tuner', 'setFrequencyValue', [442]);
    app.act('tuner', 'micSensitivity', [8]);
    app.act('tuner', 'toggleStringSounds', [1]);
  });
  const stored = JSON.parse(storage.getItem(STORAGE_KEY));
  assert.deepEqual([stored.savedA4Calibration, stored.stringSoundsEnabled], [['i', 442], ['b', true]]);
  const again = run(() => {});
  assert.equal(again.tuner.setFrequencyValueStepper.value, 442);
  assert.equal(again.tuner.micSensitivitySlider.value, 8);
  assert.equal(again.tuner.stringSoundsSwitch.on, true);
});

test('text that looks like a number is the same text after a reload, and a number a number', () => {
  const storage = new MemoryStorage();
  const entries = [['s', '1.10'], ['s', '1.0'], ['s', '007'], ['s', '1e3'], ['s', 'nan'], ['s', ''], ['d', 1.1], ['i', 7]];
  const written = new LocalSettings(storage, () => {});
  entries.forEach(([tag, value], i) => written.setValue(`k${i}`, tag, value));
  const read = new LocalSettings(storage, () => {});
  assert.deepEqual(entries.map((_, i) => read.value(`k${i}`)), entries);
});

test('the network probe fetches past every cache and gives up after the time it is given', () => {
  const calls = [], timers = [];
  const realSetTimeout = globalThis.setTimeout;
  globalThis.setTimeout = (fn, ms) => timers.push([fn, ms]);
  try {
    assert.equal(startFetch('http://127.0.0.1:9/', 20, (...args) => { calls.push(args); return new Promise(() => {}); }), true);
  } finally {
    globalThis.setTimeout = realSetTimeout;
  }
  const [[url, options]] = calls;
  assert.deepEqual([url, options.cache, timers.map(([, ms]) => ms)], ['http://127.0.0.1:9/', 'no-store', [20000]]);
  assert.equal(options.signal.aborted, false);
  timers[0][0]();
  assert.equal(options.signal.aborted, true);
});

test('a damaged store is kept aside once and the app starts afresh', () => {
  for (const damaged of ['{not json', '[1,2]', '{"k": ["i", 1.5]}', '{"k": ["x", 1]}', '{"k": ["b", "yes"]}', 'null']) {
    const storage = new MemoryStorage({ [STORAGE_KEY]: damaged });
    const lines = [];
    const settings = new LocalSettings(storage, (l) => lines.push(l));
    assert.deepEqual(settings.keys(), [], damaged);
    assert.equal(storage.getItem(STORAGE_KEY + '.damaged'), damaged);
    assert.equal(storage.getItem(STORAGE_KEY), null);
    assert.equal(lines.length, 1);
  }
  const good = new LocalSettings(new MemoryStorage({ [STORAGE_KEY]: '{"a": ["b", true], "n": ["d", 0.5]}' }), () => {});
  assert.deepEqual(good.value('a'), ['b', true]);
  assert.deepEqual(good.value('n'), ['d', 0.5]);
});

test('a full or refused store keeps every value, says so once and writes them all when it can', () => {
  const storage = new MemoryStorage();
  const lines = [];
  const settings = new LocalSettings(storage, (l) => lines.push(l));
  storage.full = true;
  settings.setValue('a', 'i', 1);
  settings.setValue('b', 's', 'x');
  assert.equal(lines.length, 1);
  assert.deepEqual(settings.value('b'), ['s', 'x']);
  storage.full = false;
  settings.setValue('c', 'b', false);
  assert.deepEqual(Object.keys(JSON.parse(storage.getItem(STORAGE_KEY))), ['a', 'b', 'c']);

  const blocked = { getItem() { throw Object.assign(new Error('denied'), { name: 'SecurityError' }); } };
  const kept = new LocalSettings(blocked, (l) => lines.push(l));
  kept.setValue('a', 'i', 2);
  assert.deepEqual(kept.value('a'), ['i', 2]);
});

test('the page speaks the player\'s first language the app has, else English', () => {
  const available = ['de', 'en', 'es', 'fr', 'it', 'ru'];
  for (const [preferred, expected] of [
    [['de-AT', 'en'], 'de'], [['pt-BR', 'es-MX'], 'es'], [['FR'], 'fr'], [['ja'], 'en'], [[], 'en'],
    [['ru_RU.UTF-8'], 'ru'], [['x-klingon', 'it'], 'it'],
  ]) assert.equal(chooseLanguage(preferred, available), expected, preferred.join());
  const tables = new StringTables({ TunerScreen: { 'Pluck a string': 'Zupf eine Saite' }, Localizable: { empty: '' } });
  assert.equal(tables.tr('TunerScreen', 'Pluck a string'), 'Zupf eine Saite');
  assert.equal(tables.tr('TunerScreen', 'Settings'), 'Settings');
  assert.equal(tables.lookup('Pluck a string', 'Other'), null);
  assert.equal(tables.lookup('constructor', 'TunerScreen'), null);
});

// Frequency of a signal by counting rising zero crossings between the first and last.
function measuredFrequency(x, rate) {
  const ups = [];
  for (let i = 1; i < x.length; ++i) if (x[i - 1] < 0 && x[i] >= 0) ups.push(i - x[i] / (x[i] - x[i - 1]));
  return ((ups.length - 1) * rate) / (ups.at(-1) - ups[0]);
}

test('the capture worklet\'s resampling keeps a string\'s pitch and level and drops what the tuner cannot hear', () => {
  for (const rate of [44100, 48000, 96000, 14039]) {
    const tone = (hz, seconds) => Float32Array.from({ length: Math.round(rate * seconds) }, (_, i) => 0.5 * Math.sin(2 * Math.PI * hz * i / rate));
    const r = new Resampler(rate, 14039);
    // Fed in the worklet's 128-frame quanta.
    const input = tone(440, 1);
    const parts = [];
    for (let i = 0; i < input.length; i += 128) parts.push(...r.push(input.subarray(i, i + 128)));
    const out = Float32Array.from(parts.slice(200));
    assert.ok(Math.abs(parts.length - 14039) < 40, `${rate}: ${parts.length} samples`);
    assert.ok(Math.abs(measuredFrequency(out, 14039) - 440) < 0.01, `${rate}: ${measuredFrequency(out, 14039)}`);
    const peak = Math.max(...out);
    assert.ok(Math.abs(peak - 0.5) < 0.01, `${rate}: peak ${peak}`);
    if (rate > 14039 * 2) {
      // 9 kHz is above the new Nyquist: it must not fold down into the tuner's range.
      const high = new Resampler(rate, 14039);
      const folded = Float32Array.from(high.push(tone(9000, 0.5))).slice(200, -200);
      assert.ok(Math.max(...folded.map(Math.abs)) < 0.01, `${rate}: 9 kHz leaks`);
    }
  }
});

test('blocks are whole, 16-bit and clipped, and each can be handed to another thread', () => {
  const blocks = [];
  const b = new Blocker(4);
  // As the worklet posts them: transferred, which empties the sender's array.
  const post = (block) => blocks.push(structuredClone(block, { transfer: [block.buffer] }));
  b.push(Float32Array.from([0, 0.5, -0.5, 1, -1.5, 2 ** -15]), post);
  b.push(Float32Array.from([0.25, 0.75, 0, 0, 0.5, 0]), post);
  assert.deepEqual(blocks.map((x) => [...x]), [[0, 16384, -16384, 32767], [-32768, 1, 8192, 24576], [0, 0, 16384, 0]]);
});

// Timers on a hand-moved clock, counting how often the page would wake.
class FakeTimers {
  constructor() { this.t = 0; this.timers = new Map(); this.next = 1; this.wakes = 0; this.performance = { now: () => this.t }; }
  setTimeout(fn, ms) { this.timers.set(this.next, { at: this.t + ms, fn }); return this.next++; }
  clearTimeout(id) { this.timers.delete(id); }
  advance(ms) {
    const end = this.t + ms;
    for (;;) {
      const [id, due] = [...this.timers].sort((a, b) => a[1].at - b[1].at)[0] || [];
      if (!due || due.at > end) break;
      this.timers.delete(id);
      this.t = due.at;
      ++this.wakes;
      due.fn();
    }
    this.t = end;
  }
}

test('the page wakes the core only when something can happen, and shows a block 10 ms after it came', async () => {
  const core = await loadCore();
  const { PageClock } = await import('../../web/src/ports/clock.js');
  const { samples } = captureRateRecording(path.join(TOP, 'resources/sounds/A4.mp3'));
  const timers = new FakeTimers();
  const app = new core.WebApp(recordingHost());
  const shown = [];
  const clock = new PageClock(app, (c) => shown.push([timers.t, c]), timers);
  app.start();
  app.changes();
  clock.start();
  timers.advance(5000);
  assert.equal(timers.wakes, 0, 'a quiet page sleeps');
  // A block arrives as the worklet would post it.
  clock.catchUp();
  app.deliver(samples.subarray(4096, 8192));
  clock.poke();
  timers.advance(9);
  assert.equal(shown.length, 0);
  timers.advance(1);
  assert.equal(shown.at(-1)[0], 5010);
  assert.match(shown.at(-1)[1].tuner.noteDisplay.text, /A/);
  // The delayed messages the in-tune string and an action leave (the beep's resets,
  // the rings' removal) wake the page when due, and then it sleeps again: a handful
  // of wakes in a minute where a 10 ms timer would make six thousand.
  const wakes = timers.wakes;
  clock.catchUp();
  app.act('tuner', 'showNextTuning', []);
  clock.poke();
  assert.ok(app.nextMessageDue() >= 0);
  timers.advance(60000);
  assert.ok(timers.wakes - wakes < 10, `${timers.wakes - wakes} wakes`);
  app.delete();
});

// A context whose state follows its calls in order, as a browser applies them;
// every source records the state it was started in.
function recordingContext(events) {
  return class {
    constructor(options) { this.options = options; this.state = 'suspended'; this.destination = {}; events.push('new'); }
    resume() { events.push('resume'); this.state = 'running'; return Promise.resolve(); }
    suspend() { events.push('suspend'); this.state = 'suspended'; return Promise.resolve(); }
    close() { events.push('close'); }
    decodeAudioData(bytes) { events.push('decode'); return Promise.resolve({ bytes }); }
    createBufferSource() {
      const source = {
        connect() {},
        start: () => events.push(`start on ${this.state}`),
        stop: () => { events.push('stop'); queueMicrotask(() => source.onended()); },
      };
      return source;
    }
  };
}

test('sounds: every sound starts on a running context, one decode per file, an idle context sleeps', async () => {
  const { SoundPlayers } = await import('../../web/src/ports/sounds.js');
  const events = [];
  let fail = true;
  const lines = [];
  const fetches = [];
  const players = new SoundPlayers({
    AudioContext: recordingContext(events),
    files: ['A4.mp3', 'beep-full.mp3'],
    log: (l) => lines.push(l),
    fetch: (path) => {
      fetches.push(path);
      return Promise.resolve(fail ? { ok: false, status: 404 } : { ok: true, arrayBuffer: () => Promise.resolve(new ArrayBuffer(8)) });
    },
  });
  const settle = () => new Promise((r) => setTimeout(r, 0));
  assert.equal(players.has('sounds/A4.mp3'), true);
  assert.equal(players.has('sounds/B9.mp3'), false);
  // The server lacks the file: said once, and tried again at the next play.
  players.play(1, 'sounds/A4.mp3');
  await settle();
  players.play(1, 'sounds/A4.mp3');
  await settle();
  assert.equal(lines.length, 1);
  assert.equal(fetches.length, 2);
  fail = false;
  // A sound stopped before its file loaded never starts.
  players.play(2, 'sounds/beep-full.mp3');
  players.stop(2);
  await settle();
  assert.ok(!events.some((e) => e.startsWith('start')), events.join());
  // Unlocked by a gesture, then: the beep, a string sample pressed twice (a new
  // player each time), the same player again while it plays, a sample over the beep.
  players.unlock();
  await settle();
  for (const [id, file] of [[3, 'beep-full'], [4, 'A4'], [5, 'A4'], [5, 'A4'], [6, 'beep-full']]) {
    players.play(id, `sounds/${file}.mp3`);
    await settle();
  }
  const starts = events.filter((e) => e.startsWith('start'));
  assert.deepEqual(starts, Array(5).fill('start on running'), events.join());
  assert.equal(events.filter((e) => e === 'decode').length, 2);
  for (const id of [3, 4, 5]) players.stop(id);
  await settle();
  assert.notEqual(events.at(-1), 'suspend', 'another sound still plays');
  players.stop(6);
  await settle();
  assert.equal(events.at(-1), 'suspend');
});

test('the first gesture starts every context and asks for the microphone before anything waits', async () => {
  const { Capture, CAPTURE_RATE } = await import('../../web/src/ports/capture.js');
  const { ToneOutput } = await import('../../web/src/ports/output.js');
  const { onFirstGesture } = await import('../../web/src/ports/browser.js');
  // One engine joins a microphone to a context of any rate, the other (Firefox) to
  // none but its own: the capture context is then made anew at the browser's rate.
  for (const mixedRates of [true, false]) {
    const events = [];
    const Context = recordingContext(events);
    class CaptureContext extends Context {
      constructor(options) {
        super(options);
        events.push(`rate ${options.sampleRate ?? 'own'}`);
        this.audioWorklet = { addModule: () => Promise.resolve() };
      }
      createMediaStreamSource() {
        if (!mixedRates && this.options.sampleRate) throw Object.assign(new Error('rates differ'), { name: 'NotSupportedError' });
        return { connect() {} };
      }
    }
    const failures = [];
    let opened = false;
    const capture = new Capture({
      mediaDevices: { getUserMedia: () => { events.push('getUserMedia'); return Promise.resolve({ getAudioTracks: () => [] }); } },
      AudioContext: CaptureContext,
      AudioWorkletNode: class { constructor() { this.port = {}; } },
      onOpen: () => { opened = true; },
      onBlock() {},
      onFailure: (...f) => failures.push(f),
    });
    const tone = new ToneOutput({ AudioContext: Context });
    const listeners = new Map();
    const target = {
      addEventListener: (name, fn) => listeners.set(name, fn),
      removeEventListener: (name) => listeners.delete(name),
    };
    const activation = { isActive: false };
    onFirstGesture(() => { capture.unlock(); tone.unlock(); }, target, activation);
    // A touch that scrolled is no gesture; the lifted finger of a tap is.
    listeners.get('touchend')({});
    assert.deepEqual(events, []);
    activation.isActive = true;
    listeners.get('touchend')({});
    assert.equal(listeners.size, 0, 'one gesture is enough');
    assert.deepEqual(events, [`new`, `rate ${CAPTURE_RATE}`, 'resume', 'getUserMedia', 'new', 'resume'], `mixed rates ${mixedRates}`);
    capture.start();
    await new Promise((r) => setTimeout(r, 0));
    assert.ok(opened && failures.length === 0, JSON.stringify(failures));
    assert.equal(capture.context.options.sampleRate, mixedRates ? CAPTURE_RATE : undefined);
    assert.equal(capture.context.state, 'running');
    assert.equal(tone.context.state, 'suspended', 'a tone context that plays nothing sleeps again');
  }
});

// A phone and a tablet upright are browser.test.mjs's, through the emulated screens.
test('the device class is the screen\'s, whatever the window, unless the address names one', async () => {
  const { deviceOf } = await import('../../web/src/ports/browser.js');
  for (const [screen, search, expected] of [
    [{ width: 915, height: 412 }, '', ['phone', 915]],      // a phone in landscape
    [{ width: 1194, height: 834 }, '', ['pad', 1194]],
    [{ width: 599, height: 960 }, '', ['phone', 960]],
    [{ width: 1920, height: 1080 }, '?x=1&device=pad-1024', ['pad', 1024]],
    [{ width: 1920, height: 1080 }, '?device=watch-200', ['pad', 1920]],
  ]) assert.deepEqual(Object.values(deviceOf(screen, search)), expected, `${screen.width}x${screen.height}${search}`);
});
