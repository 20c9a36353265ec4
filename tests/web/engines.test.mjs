// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The page in Chromium, Firefox and WebKit, each hearing plucks through a
// PulseAudio microphone and playing into a PulseAudio speaker that is recorded:
// the sound goes through each browser's own capture and output, as on a
// player's machine.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { after, before, describe, test } from 'node:test';
import { setTimeout as sleep } from 'node:timers/promises';
import { ENGINES, launch, loudest, missing, pitch, rms, serve, startDisplay, startPulse, until } from './engines.mjs';
import { TOP } from './support.mjs';

const PHONE = { width: 390, height: 844, deviceScaleFactor: 2, isMobile: true, hasTouch: true };
// The device class comes from the screen, which not every engine emulates:
// the page is told it outright.
const PAGE = '/?device=phone-844';
const SOUNDS = path.join(TOP, 'resources/sounds');
// The standard tuning's strings, first to fourth, and the highlight each lights.
const STRINGS = [['A4', '1st_string'], ['E4', '2nd_string'], ['C4', '3rd_string'], ['G4', '4th_string']];
const scratch = fs.mkdtempSync(path.join(os.tmpdir(), 'uke-engines-'));
let display, pulse, server, plucks;
// A failed run keeps its folder: screenshots, the browsers' profiles.
let keep = false;

// What the player sees: the read-out, the lit string, the lamp, the first
// string's name and the banner.
const view = () => {
  const at = (name) => document.querySelector(`[data-outlet="${name}"]`);
  const shown = (el) => !!el && !el.closest('[hidden]') && el.getClientRects().length > 0;
  const banner = document.querySelector('[role="alert"]');
  return {
    ready: !!document.body.dataset.ready,
    freq: at('freq_label')?.textContent.trim(),
    string: shown(at('tunedString5')) ? at('tunedString5').getAttribute('src') : '',
    lamp: at('LEDDisplay')?.getAttribute('src'),
    first: at('firstString')?.textContent.trim(),
    banner: shown(banner) ? banner.textContent : '',
  };
};

// Waits until what the player sees passes `ok`; says what was seen last if it never does.
async function see(page, what, ok, timeout = 30000) {
  let last = null;
  try {
    return await until(what, async () => ok(last = await page.evaluate(view)) && last, timeout, 100);
  } catch (e) {
    keep = true;
    const shot = path.join(scratch, `${page.engine}-${what.replace(/\W+/g, '-')}.png`);
    await page.screenshot(shot).catch(() => {});
    await page.collectErrors();
    e.message += `; seen ${JSON.stringify(last)} (${shot}); the page logged:\n${page.console.slice(-15).join('\n')}`;
    throw e;
  }
}

const open = async (page, origin = server.origin) => {
  await page.goto(`${origin}${PAGE}`);
  return see(page, 'the page to start', (v) => v.ready);
};

before(async () => {
  if (missing()) return;
  // Each string's pluck, then a rest, at the sound server's rate.
  plucks = STRINGS.map(([note]) => {
    const wav = path.join(scratch, `${note}.wav`);
    execFileSync('sox', [path.join(SOUNDS, `${note}.mp3`), '-r', '48000', '-c', '1', '-b', '16', wav, 'pad', '0', '1']);
    return wav;
  });
  display = await startDisplay();
  pulse = await startPulse(scratch);
  server = await serve();
});

after(async () => {
  await server?.stop();
  await pulse?.stop();
  await display?.stop();
  if (!keep) fs.rmSync(scratch, { recursive: true, force: true });
});

for (const engine of ENGINES) {
  describe(engine, { skip: missing(engine) ?? false }, () => {
    let page, beep;
    before(async () => {
      page = await launch(engine, { display, pulse, viewport: PHONE, dir: scratch });
      await open(page);
    });
    after(async () => {
      await page?.close();
      pulse.silence();
    });

    test('each string plucked at the microphone lights that string and the green lamp; silence, the yellow one', async () => {
      assert.match((await page.evaluate(view)).freq, /Tap to start listening/);
      for (const [i, [note, highlight]] of STRINGS.entries()) {
        pulse.play(plucks[i]);
        const lit = see(page, `${note} lit`, (v) => v.string.includes(highlight) && /green/.test(v.lamp));
        if (i === 0) {
          // The page opens the microphone at the first touch; the beep sounds
          // as the first string comes in tune.
          const heard = pulse.record(lit.then(() => sleep(1500)));
          await page.tap(195, 600);
          beep = await heard;
          if (process.env.UKE_DOCS_DIR) await page.screenshot(path.join(process.env.UKE_DOCS_DIR, `web-tuner-lit-${engine}.png`));
          // What lit it is the server's microphone, not a device of the browser's own.
          assert.ok(pulse.heardFrom().includes('mic'), `the browser records from ${pulse.heardFrom()}`);
        }
        await lit;
      }
      pulse.silence();
      await see(page, 'the yellow lamp', (v) => /yellow/.test(v.lamp) && /Pluck a string/.test(v.freq));
      assert.deepEqual(await page.collectErrors(), []);
    });

    // Each sound's pitch where it is loudest: the beep's strongest part is near
    // C5 (its octave is strong too), the string's sample and the fork are A4.
    const HEARD = [
      { name: 'the confirmation beep', hz: [523, 1046], recorded: () => beep },
      { name: 'the first string\'s sample', hz: [440], press: '[data-outlet="firstString"]', setUp: async () => {
        await page.click('[data-name="settingsButton"]');
        await page.click('[data-outlet="stringSoundsSwitch"]');
        await page.waitFor(() => document.querySelector('[data-outlet="stringSoundsSwitch"]').getAttribute('aria-checked') === 'true');
        await page.click('[data-name="sheetDone"]');
      } },
      { name: 'the A4 tuning fork', hz: [440], press: '[data-outlet="a4TFButton"]', setUp: () => page.click('[data-outlet="tuningForkButton"]') },
    ];

    test('the beep, a string\'s sample and the tuning fork are heard at the speaker', async (t) => {
      for (const sound of HEARD) {
        let heard = sound.recorded?.();
        if (sound.press) {
          await sound.setUp();
          await page.settled(sound.press);
          const recording = pulse.record(sleep(3000));
          await page.click(sound.press);
          heard = await recording;
        }
        assert.ok(heard, `${sound.name}: nothing recorded`);
        const part = loudest(heard, pulse.rate, 0.1);
        const level = rms(part), f = pitch(part, pulse.rate, 200, 2000);
        t.diagnostic(`${sound.name}: level ${level.toFixed(3)}, ${f.toFixed(1)} Hz`);
        assert.ok(level > 0.02, `${sound.name}: level ${level.toFixed(4)}; the page logged:\n${page.console.slice(-10).join('\n')}`);
        assert.ok(sound.hz.some((hz) => Math.abs(f - hz) < hz * 0.01), `${sound.name}: heard ${f.toFixed(1)} Hz`);
      }
      assert.deepEqual(await page.collectErrors(), []);
    });

    test('after one visit the page starts with no network', async () => {
      // A server of this test's own, stopped: no engine can reach it any more.
      const own = await serve();
      try {
        await open(page, own.origin);
        await page.evaluate(() => navigator.serviceWorker.ready.then(() => true));
        await page.waitFor(async () => (await caches.keys()).length === 1, { timeout: 30000, what: 'the offline copy' });
      } finally {
        await own.stop();
      }
      assert.equal((await open(page, own.origin)).first, 'A4');
      assert.deepEqual(await page.collectErrors(), []);
    });

    test('a refused microphone is said plainly, and the read-out says nothing is heard', async () => {
      // One browser at a time.
      await page.close();
      page = await launch(engine, { display, pulse, viewport: PHONE, dir: scratch, microphone: 'denied' });
      assert.match((await open(page)).freq, /Tap to start listening/);
      await page.tap(195, 600);
      const seen = await see(page, 'the banner', (v) => v.banner);
      assert.match(seen.banner, /Microphone access was refused/);
      assert.match(seen.freq, /No microphone found/);
      assert.deepEqual(await page.collectErrors(), []);
    });
  });
}
