// The compiled core in Node: the same estimates as the desktop's, and the few
// things the browser build adds around it.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { test } from 'node:test';
import { TOP, UKE, captureRateRecording, loadCore, recordingHost } from './support.mjs';

const core = await loadCore();

test('estimates equal the desktop tool\'s, block for block', { skip: !fs.existsSync(UKE) && `no ${UKE}` }, () => {
  // Plucks of every string of the standard tuning and a note of none, at the capture
  // rate, so that neither side resamples and both read the very same samples.
  const sounds = path.join(TOP, 'resources/sounds');
  for (const name of ['A4', 'E4', 'C4', 'G4', 'DS4', 'beep-full']) {
    const { wav, samples } = captureRateRecording(path.join(sounds, `${name}.mp3`));
    const desktop = execFileSync(UKE, ['analyse', wav, '--blocks', '--format', 'json'], { encoding: 'utf8' })
      .trim().split('\n').map((line) => JSON.parse(line));
    const host = recordingHost();
    const app = new core.WebApp(host);
    app.start();
    assert.deepEqual(host.captureCalls, ['start']);
    desktop.forEach((row, b) => {
      assert.ok(app.deliver(samples.subarray(b * 4096, (b + 1) * 4096)), `${name}: block ${b} taken`);
      // Estimates sit on the transform's bins, 0.43 Hz apart: equal to four
      // decimals means the same bin, and so the same float.
      const at = `${name}: block ${b}`;
      assert.equal(app.frequency().toFixed(4), row.frequency.toFixed(4), at);
      assert.ok(Math.abs(app.averagePower() - row.average) <= 5e-7, at);
      assert.ok(Math.abs(app.peakPower() - row.peak) <= 5e-7, at);
    });
    assert.equal(desktop.length, Math.ceil(samples.length / 4096));
    app.delete();
  }
});

test('a page back from the background catches up a second, not every missed tick', () => {
  const host = recordingHost();
  const app = new core.WebApp(host);
  app.start();
  for (let t = 0.01; t <= 1.0001; t += 0.01) app.advanceTo(t);
  assert.ok(Math.abs(app.elapsed() - 1) < 1e-9);
  app.advanceTo(3601);
  assert.equal(app.elapsed(), 2);
  // The wall clock jumped the rest: the next step is an ordinary one.
  app.advanceTo(3601.01);
  assert.ok(Math.abs(app.elapsed() - 2.01) < 1e-9);
  app.delete();
});

test('only what changed reaches the page, and nothing while the screen is steady', () => {
  const app = new core.WebApp(recordingHost());
  app.start();
  const first = JSON.parse(app.changes());
  assert.equal(first.tuner.firstString.text, 'A4');
  assert.equal(first.chordsOpen, false);
  app.advanceTo(0.5);
  assert.equal(app.changes(), '');
  assert.ok(app.tunerAction('showNextTuning', 0));
  const next = JSON.parse(app.changes());
  assert.ok(next.tuner.firstString, 'the new tuning\'s notes');
  assert.equal(next.tuner.showPreviousTuningButton.hidden, false);
  assert.equal(next.chords, undefined);
  app.delete();
});

test('actions from the page are checked before they reach the core', () => {
  const app = new core.WebApp(recordingHost());
  app.start();
  for (const [name, arg] of [['noSuchAction', 0], ['micSensitivity', NaN], ['didSelectRow', 1.5], ['didSelectRow', 1e12]])
    assert.equal(app.tunerAction(name, arg), false, `${name}(${arg})`);
  assert.equal(app.chordAction('didSelectRow', 0, 1), false, 'the chord screen is closed');
  app.openChords();
  assert.equal(app.chordAction('didSelectRow', 0, Infinity), false);
  assert.equal(app.chordAction('didSelectRow', 0, 3), true);
  app.delete();
});

test('a refused microphone stops the listener and says why once', () => {
  const host = recordingHost();
  const app = new core.WebApp(host);
  app.start();
  assert.equal(JSON.parse(app.changes()).hearing, true);
  app.captureFailed('refused (NotAllowedError: Permission denied)');
  assert.equal(JSON.parse(app.changes()).hearing, false);
  assert.equal(host.logged.filter((l) => l.startsWith('Microphone: refused')).length, 1);
  assert.equal(app.deliver(new Int16Array(4096)), false);
  app.delete();
});

test('settings reach the page\'s store with their types', () => {
  const host = recordingHost();
  const app = new core.WebApp(host);
  app.start();
  app.tunerAction('setFrequencyValue', 442);
  app.tunerAction('soundNotificationAction', 0);
  const tags = new Set([...host.values.values()].map(([tag]) => tag));
  assert.ok(tags.has('b') && tags.has('i'), [...tags].join());
  app.delete();
});
