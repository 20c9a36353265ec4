// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The page in Debian's Chromium, hearing a recorded pluck through the browser's
// fake microphone: what only Chromium can emulate or intercept (the screens of
// phones and tablets, a core held back until the first tap, going offline
// between visits). What every engine does is in engines.test.mjs.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { after, before, test } from 'node:test';
import { launch as launchEngine, serve, until } from './engines.mjs';
import { DIST, TOP } from './support.mjs';

const PHONE = { width: 390, height: 844, deviceScaleFactor: 2, isMobile: true, hasTouch: true };
const scratch = fs.mkdtempSync(path.join(os.tmpdir(), 'uke-browser-'));
let server;

// A pluck of the first string, then silence; the fake microphone plays it in a loop.
function pluckRecording() {
  const wav = path.join(scratch, 'pluck.wav');
  execFileSync('sox', [path.join(TOP, 'resources/sounds/A4.mp3'), '-r', '48000', '-c', '1', '-b', '16', wav, 'pad', '0', '4']);
  return wav;
}

// Headless, on the fake microphone: the harness's page (its `page` and `browser` puppeteer's).
const launch = (wav, viewport = PHONE) => launchEngine('chromium', { dir: scratch, microphone: wav, viewport });

// What the player sees of an outlet: shown or not, its text and its picture.
function outlet(page, name) {
  return page.evaluate((name) => {
    const el = document.querySelector(`[data-outlet="${name}"]`);
    if (!el) return null;
    const img = el.tagName === 'IMG' ? el : el.querySelector('img');
    const shown = !!(el.offsetWidth || el.offsetHeight || el.getClientRects().length) && !el.closest('[hidden]');
    return { shown, text: el.textContent.trim(), image: img && img.getAttribute('src') && shown ? img.getAttribute('src') : '' };
  }, name);
}

before(async () => { server = await serve(); });
after(async () => {
  await server.stop();
  fs.rmSync(scratch, { recursive: true, force: true });
});

// What a lit string and silence look like is engines.test.mjs's, in Chromium too.
test('a tap while the page still starts opens the microphone, and a plucked A4 turns the lamp green', async () => {
  const player = await launch(pluckRecording());
  try {
    const { page } = player;
    // The core is held back until the player has tapped.
    let release;
    const tapped = new Promise((r) => { release = r; });
    await page.setRequestInterception(true);
    page.on('request', (request) => {
      if (request.url().endsWith('core.wasm')) tapped.then(() => request.continue());
      else request.continue();
    });
    await page.goto(`${server.origin}/`);
    await page.waitForFunction(() => document.readyState === 'complete');
    assert.equal(await page.$('body[data-ready]'), null, 'still starting');
    await page.touchscreen.tap(195, 600);
    release();
    await until('green lamp', async () => /green/.test((await outlet(page, 'LEDDisplay'))?.image));
    assert.deepEqual(player.errors, []);
  } finally {
    await player.close();
  }
});

// The screen and the window set apart, as on a phone whose browser bars take part of it.
const SCREENS = [
  { name: 'iPhone, bars shown', screen: [390, 844], viewport: [390, 664], shownAs: 844 },
  { name: 'Android phone', screen: [412, 915], viewport: [412, 780], shownAs: 912 },
  { name: 'Android phone in landscape', screen: [915, 412], viewport: [915, 340], shownAs: 912, landscape: true },
  { name: 'tablet', screen: [834, 1194], viewport: [834, 1112], shownAs: 1194, pad: true },
];

function emulate(cdp, { screen: [screenWidth, screenHeight], viewport: [width, height], landscape }) {
  return cdp.send('Emulation.setDeviceMetricsOverride', {
    width, height, deviceScaleFactor: 2, mobile: true, screenWidth, screenHeight,
    screenOrientation: landscape ? { type: 'landscapePrimary', angle: 90 } : { type: 'portraitPrimary', angle: 0 },
  });
}

// Where the stage sits in the window: it must fit whole, and fill one side.
const stageFit = (page) => page.evaluate(() => {
  const r = document.querySelector('.stage').getBoundingClientRect();
  const w = window.innerWidth, h = window.innerHeight;
  const inside = r.left >= -1 && r.top >= -1 && r.right <= w + 1 && r.bottom <= h + 1;
  return inside && (Math.abs(r.width - w) < 2 || Math.abs(r.height - h) < 2);
});

test('phones and tablets of every size: the class of the screen, the string lit, the stage fitted through a rotation', async () => {
  const { browser } = await launch(pluckRecording(), null);
  try {
    for (const device of SCREENS) {
      const page = await browser.newPage();
      const cdp = await page.createCDPSession();
      await emulate(cdp, device);
      await cdp.send('Emulation.setTouchEmulationEnabled', { enabled: true });
      await page.goto(`${server.origin}/`);
      await page.waitForSelector('body[data-ready]', { timeout: 10000 });
      const shown = await page.evaluate(() => [window.uke.device.idiom, JSON.parse(window.uke.app.layoutSize()).height]);
      assert.deepEqual(shown, [device.pad ? 'pad' : 'phone', device.shownAs], device.name);
      assert.match((await outlet(page, 'freq_label')).text, /Tap to start listening/);
      await page.touchscreen.tap(device.viewport[0] / 2, device.viewport[1] * 0.7);
      const highlight = device.pad ? 'tunedStringiPad' : 'tunedString5';
      await until(`${device.name}: string lit`, async () => /1st_string/.test((await outlet(page, highlight)).image));
      assert.ok(await stageFit(page), device.name);
      if (device.pad && process.env.UKE_DOCS_DIR) await page.screenshot({ path: path.join(process.env.UKE_DOCS_DIR, 'web-tuner-lit-pad.png') });
      // Turned while tuning: the same class, fitted anew.
      const [w, h] = device.viewport;
      await emulate(cdp, { ...device, screen: [...device.screen].reverse(), viewport: [h, w], landscape: !device.landscape });
      await until(`${device.name}: fitted after turning`, () => stageFit(page));
      assert.equal(JSON.parse(await page.evaluate(() => window.uke.app.layoutSize())).height, device.shownAs);
      await until(`${device.name}: still tuning`, async () => /1st_string/.test((await outlet(page, highlight)).image));
      await page.close();
    }
  } finally {
    await browser.close();
  }
});

test('the tuning arrows, a chord on the wheels, and a tap on the chosen note-naming row', async () => {
  const player = await launch(null);
  try {
    const { page } = player;
    await page.goto(`${server.origin}/`);
    await page.waitForSelector('body[data-ready]', { timeout: 10000 });
    // Presses a button once it has come to rest where the player sees it
    // (panels slide in) and nothing covers it.
    const press = (name) => player.click(`[data-outlet="${name}"]`);
    const first = (await outlet(page, 'firstString')).text;
    assert.equal((await outlet(page, 'showPreviousTuningButton')).shown, false);
    await press('showNextTuningButton');
    await until('next tuning', async () => (await outlet(page, 'firstString')).text !== first);
    assert.equal((await outlet(page, 'showPreviousTuningButton')).shown, true);
    await press('showPreviousTuningButton');
    await until('back to the first tuning', async () => (await outlet(page, 'firstString')).text === first);

    await press('goToChordsLibraryButton');
    await until('chord screen', async () => (await outlet(page, 'chordDisplay'))?.shown);
    const chord = (await outlet(page, 'chordDisplay')).text;
    // A turn of the root wheel settles on another root.
    const wheel = await page.$('[data-outlet="selectRootChord"]');
    const box = await wheel.boundingBox();
    await page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
    await page.mouse.wheel({ deltaY: 120 });
    await until('another chord', async () => (await outlet(page, 'chordDisplay')).text !== chord);
    await page.keyboard.press('Escape');
    await until('tuner again', async () => (await outlet(page, 'firstString'))?.shown);

    // The wheel shows its first row while the stored choice is still the one a
    // first launch seeds: a tap on the row already shown chooses it, and stores it.
    const saved = () => page.evaluate(() => JSON.parse(localStorage.getItem('uketuner.settings')).SavedLanguage[1]);
    assert.equal(await saved(), 1);
    await player.click('[data-name="settingsButton"]');
    await player.settled('[data-outlet="establecerIdioma"]');
    const names = await (await page.$('[data-outlet="establecerIdioma"]')).boundingBox();
    await page.touchscreen.tap(names.x + names.width / 2, names.y + names.height / 2);
    await until('the tapped row stored', async () => (await saved()) === 0);
    assert.deepEqual(player.errors, []);
  } finally {
    await player.close();
  }
});

test('a returning visitor gets a new core at the next online visit', async () => {
  // A copy of the build to change; the page step run again over it, as the build would.
  const copy = fs.mkdtempSync(path.join(scratch, 'dist-'));
  fs.cpSync(DIST, copy, { recursive: true });
  const served = await serve(copy);
  const player = await launch(null);
  try {
    const { page } = player;
    const visit = async () => {
      await page.goto(`${served.origin}/`);
      await page.waitForSelector('body[data-ready]', { timeout: 10000 });
    };
    await visit();
    await page.evaluate(() => navigator.serviceWorker.ready);
    await page.setOfflineMode(true);
    await visit();
    fs.appendFileSync(path.join(copy, 'core.js'), '\nglobalThis.ukeCoreMark = 2;\n');
    execFileSync('python3', [path.join(TOP, 'web/tools/make_page.py'), '--top', TOP, '--out', copy, '--version', 'test']);
    await page.setOfflineMode(false);
    await visit();
    // The new build takes over during this visit and the page starts again with it.
    await until('the new core', () => page.evaluate(() => globalThis.ukeCoreMark === 2 && !!document.body.dataset.ready).catch(() => false));
    assert.equal((await page.evaluate(() => caches.keys())).length, 1, 'the old copy is dropped');
  } finally {
    await player.close();
    await served.stop();
  }
});
