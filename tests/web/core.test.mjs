// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The compiled core in Node: the same estimates as the desktop's, and the few
// things the browser build adds around it.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { test } from 'node:test';
import { Blocker, Resampler } from '../../web/src/ports/resampler.js';
import { TOP, UKE, captureRateRecording, loadCore, withApp } from './support.mjs';

const WEB_BUILD = process.env.WEB_BUILD_DIR || 'build-web';

const core = await loadCore();
const SOUNDS = path.join(TOP, 'resources/sounds');
const noTool = !fs.existsSync(UKE) && `no ${UKE}`;
// What the desktop tool reads from each block of a recording.
const desktopBlocks = (wav) => execFileSync(UKE, ['analyse', wav, '--blocks', '--format', 'json'], { encoding: 'utf8' })
  .trim().split('\n').map((line) => JSON.parse(line));

test('estimates equal the desktop tool\'s, block for block', { skip: noTool }, () => {
  // Plucks of every string of the standard tuning and a note of none, at the capture
  // rate, so that neither side resamples and both read the very same samples.
  for (const name of ['A4', 'E4', 'C4', 'G4', 'DS4', 'beep-full']) withApp(core, (app, host) => {
    const { wav, samples } = captureRateRecording(path.join(SOUNDS, `${name}.mp3`));
    const desktop = desktopBlocks(wav);
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
  });
});

// Where the browser does not join the microphone to a context at the capture rate
// (Firefox), the page hears through the capture worklet's resampler, in 128-frame
// quanta, and the tool through libsamplerate: every block with a note lands on the
// same bin, at a sound server's usual rate.
test('through the capture worklet\'s resampler the estimates keep to the tool\'s bins', { skip: noTool }, () => {
  const rate = 48000, bin = 14039 / 32768;
  for (const note of ['A4', 'E4', 'C4', 'G4']) withApp(core, (app) => {
    const { wav, samples } = captureRateRecording(path.join(SOUNDS, `${note}.mp3`), undefined, rate);
    const desktop = desktopBlocks(wav).map((row) => row.frequency);
    const resampler = new Resampler(rate, 14039), blocker = new Blocker(4096), heard = [];
    for (let at = 0; at < samples.length; at += 128) {
      const quantum = Float32Array.from(samples.subarray(at, at + 128), (v) => v / 32768);
      blocker.push(resampler.push(quantum), (block) => heard.push(app.deliver(block) && app.frequency()));
    }
    // The worklet keeps a last, partial block.
    assert.ok(Math.abs(heard.length - desktop.length) <= 1, `${note}: ${heard.length} blocks, the tool ${desktop.length}`);
    desktop.slice(0, heard.length).forEach((f, i) => f > 0 && assert.equal(Math.round(heard[i] / bin), Math.round(f / bin),
      `${note} block ${i}: the tool ${f} Hz, the page ${heard[i]} Hz`));
  });
});

// Plucks an in-tune A4 and runs the ticks until the beep has sounded.
function pluckA4(app) {
  const { samples } = captureRateRecording(path.join(TOP, 'resources/sounds/A4.mp3'));
  app.deliver(samples.subarray(4096, 8192));
  for (let t = 0.01; t < 0.2; t += 0.01) app.advanceTo(t);
}

test('a delayed message runs at its time with no blocks coming, and a long gap replays a second of ticks', () => withApp(core, (app, host) => {
  pluckA4(app);
  assert.deepEqual(host.played, ['sounds/beep-full.mp3']);
  // The microphone goes: from now on only the page's timer for the beep's re-arm wakes the core.
  app.captureFailed('gone (unplugged)');
  const due = app.nextMessageDue();
  assert.ok(Math.abs(due - 15.01) < 1e-6, due);
  app.advanceTo(due);
  assert.equal(app.nextMessageDue(), -1, 'the re-arm ran when it was due');
  assert.equal(app.elapsed(), due);
}));

test('a screen of no device class is shown as the nearest class of its idiom, highlight included', () => {
  for (const [device, storyboard, highlight, shownAs] of [
    [{ idiom: 'phone', height: 844 }, 'Main_iPhone12Pro', '1st_string_6plus.png', null],
    [{ idiom: 'phone', height: 915 }, 'Main_iPhone12ProMax', '1st_string_6plus.png', 'phone-912'],
    [{ idiom: 'phone', height: 700 }, 'Main_iPhone6', '1st_string_6.png', 'phone-667'],
    [{ idiom: 'pad', height: 1300 }, 'Main_iPad_Pro', '1st_string_iPad_Pro.png', 'pad-1366'],
  ]) {
    const built = [];
    withApp(core, (app, host) => {
      pluckA4(app);
      const tuner = JSON.parse(app.changes()).tuner;
      const lit = ['tunedString', 'tunedString5', 'tunedStringiPad'].map((n) => tuner[n].image).filter(Boolean);
      assert.deepEqual([built, lit], [[storyboard], [highlight]], device.height);
      const said = host.logged.find((l) => l.startsWith('Screen: '));
      assert.equal(said?.split(' ').at(-1) ?? null, shownAs);
    }, { device: { ...device, systemVersion: '17.0' }, buildWindow: (s) => built.push(s) });
  }
});

// The page step names the cache after the bytes of every file, so it must run
// again when only the core was linked anew: the core is one of its inputs, not
// merely built before it.
test('a core linked anew writes the page again, and so renames the offline copy', { skip: !fs.existsSync(path.join(TOP, WEB_BUILD, 'build.ninja')) && `no ${WEB_BUILD}` }, () => {
  const inputs = execFileSync('ninja', ['-C', path.join(TOP, WEB_BUILD), '-t', 'query', 'web/page.stamp'], { encoding: 'utf8' })
    .split('input:')[1].split('outputs:')[0].split('\n').map((l) => l.trim());
  const core = inputs.find((l) => l.endsWith('web/dist/core.js'));
  assert.ok(core && !core.startsWith('|'), inputs.join('\n'));
});

test('only what changed reaches the page, and nothing while the screen is steady', () => withApp(core, (app) => {
  const first = JSON.parse(app.changes());
  assert.equal(first.tuner.firstString.text, 'A4');
  assert.equal(first.chordsOpen, false);
  app.advanceTo(0.5);
  assert.equal(app.changes(), '');
  assert.ok(app.act('tuner', 'showNextTuning', []));
  const next = JSON.parse(app.changes());
  assert.ok(next.tuner.firstString, 'the new tuning\'s notes');
  assert.equal(next.tuner.showPreviousTuningButton.hidden, false);
  assert.equal(next.chords, undefined);
}));

// What the core's actions refuse, and why, is the C++ tests'; here what the page's
// values become on their way in.
test('actions from the page are checked before they reach the core', () => withApp(core, (app, host) => {
  for (const [screen, name, args] of [['tuner', 'micSensitivity', [NaN]], ['tuner', 'didSelectRow', [1e12]],
    ['chords', 'didSelectRow', [1, 1]], ['nowhere', 'showNextTuning', []]])
    assert.equal(app.act(screen, name, args), false, `${screen}.${name}(${args})`);
  assert.match(host.logged.at(-2), /^Action didSelectRow refused: the chord library is not open$/);
  assert.ok(app.act('tuner', 'openChords', []));
  assert.equal(app.act('chords', 'didSelectRow', [1, Infinity]), false);
  assert.equal(app.act('chords', 'didSelectRow', [1, 3]), true);
}));

test('a refused microphone stops the listener and says why once', () => withApp(core, (app, host) => {
  // The read-out asks for a tap until the page says the microphone opened.
  const first = JSON.parse(app.changes());
  assert.deepEqual([first.hearing, first.idleReadout], [true, 'Tap to start listening']);
  app.captureOpened();
  assert.equal(JSON.parse(app.changes()).idleReadout, 'Pluck a string');
  app.captureFailed('refused (NotAllowedError: Permission denied)');
  const refused = JSON.parse(app.changes());
  assert.deepEqual([refused.hearing, refused.idleReadout], [false, 'No microphone found']);
  assert.equal(host.logged.filter((l) => l.startsWith('Microphone: refused')).length, 1);
  assert.equal(app.deliver(new Int16Array(4096)), false);
}));
