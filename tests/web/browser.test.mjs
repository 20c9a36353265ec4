// The page in Debian's Chromium on a phone's viewport, hearing a recorded pluck
// through the browser's fake microphone: what a player sees and hears.
import assert from 'node:assert/strict';
import { execFileSync, spawn } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { after, before, test } from 'node:test';
import puppeteer from 'puppeteer-core';
import { DIST, TOP, UKE, captureRateRecording } from './support.mjs';

const CHROMIUM = process.env.CHROMIUM || '/usr/bin/chromium';
const PHONE = { width: 390, height: 844, deviceScaleFactor: 2, isMobile: true, hasTouch: true };
const PAD = { width: 834, height: 1194, deviceScaleFactor: 2, isMobile: true, hasTouch: true };
const scratch = fs.mkdtempSync(path.join(os.tmpdir(), 'uke-browser-'));
let server, origin;

// A pluck of the first string, then silence; the fake microphone plays it in a loop.
function pluckRecording() {
  const wav = path.join(scratch, 'pluck.wav');
  execFileSync('sox', [path.join(TOP, 'resources/sounds/A4.mp3'), '-r', '48000', '-c', '1', '-b', '16', wav, 'pad', '0', '4']);
  return wav;
}

function serve(folder = DIST) {
  return new Promise((resolve, reject) => {
    const child = spawn('python3', [path.join(TOP, 'web/tools/serve.py'), '--port', '0', folder], { stdio: ['ignore', 'pipe', 'inherit'] });
    child.stdout.once('data', (line) => resolve({ child, origin: String(line).trim().replace(/\/$/, '') }));
    child.once('exit', (code) => reject(new Error(`server exited with ${code}`)));
  });
}

// `extra` flags replace the fake prompt that grants the microphone when they
// answer it themselves.
function launch(wav, extra = []) {
  return puppeteer.launch({
    executablePath: CHROMIUM,
    headless: true,
    userDataDir: fs.mkdtempSync(path.join(scratch, 'profile-')),
    args: [
      '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync', '--autoplay-policy=no-user-gesture-required',
      ...(extra.length ? [] : ['--use-fake-ui-for-media-stream']), '--use-fake-device-for-media-stream',
      ...(wav ? [`--use-file-for-fake-audio-capture=${wav}`] : []),
      ...extra,
    ],
  });
}

async function open(browser, viewport = PHONE) {
  const page = await browser.newPage();
  const errors = [];
  page.on('pageerror', (e) => errors.push(e.message));
  await page.setViewport(viewport);
  await page.goto(`${origin}/`);
  await page.waitForSelector('body[data-ready]', { timeout: 10000 });
  page.errors = errors;
  return page;
}

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

async function until(what, fn, timeout = 10000) {
  const end = Date.now() + timeout;
  for (;;) {
    const value = await fn();
    if (value) return value;
    if (Date.now() > end) throw new Error(`timed out waiting: ${what}`);
    await new Promise((r) => setTimeout(r, 50));
  }
}

// Presses an outlet's button once it has come to rest where the player sees it
// (panels slide in) and nothing covers it.
async function press(page, name) {
  const selector = `[data-outlet="${name}"]`;
  let last = null;
  await until(`${name} to be pressable`, () => page.evaluate((selector, last) => {
    const el = document.querySelector(selector);
    if (!el) return false;
    const r = el.getBoundingClientRect();
    const here = `${r.x},${r.y},${r.width},${r.height}`;
    const top = document.elementFromPoint(r.x + r.width / 2, r.y + r.height / 2);
    window.__lastBox = here;
    return here === last && r.width > 0 && !!top && (el === top || el.contains(top));
  }, selector, last).then(async (ok) => {
    last = await page.evaluate(() => window.__lastBox);
    return ok;
  }));
  await page.click(selector);
}

async function screenshot(page, file) {
  if (process.env.UKE_DOCS_DIR) await page.screenshot({ path: path.join(process.env.UKE_DOCS_DIR, file) });
}

before(async () => ({ child: server, origin } = await serve()));
after(() => server.kill());

test('a tap while the page still starts opens the microphone; a plucked A4 lights the string, the lamp green; silence turns it yellow', async () => {
  const browser = await launch(pluckRecording());
  try {
    const page = await browser.newPage();
    page.errors = [];
    page.on('pageerror', (e) => page.errors.push(e.message));
    await page.setViewport(PHONE);
    // The core is held back until the player has tapped.
    let release;
    const tapped = new Promise((r) => { release = r; });
    await page.setRequestInterception(true);
    page.on('request', (request) => {
      if (request.url().endsWith('core.wasm')) tapped.then(() => request.continue());
      else request.continue();
    });
    await page.goto(`${origin}/`);
    await page.waitForFunction(() => document.readyState === 'complete');
    assert.equal(await page.$('body[data-ready]'), null, 'still starting');
    await page.touchscreen.tap(195, 600);
    release();
    await until('green lamp', async () => /green/.test((await outlet(page, 'LEDDisplay'))?.image));
    assert.match((await outlet(page, 'ring1')).image, /ring1/);
    assert.match((await outlet(page, 'tunedString5')).image, /1st_string_6plus/);
    assert.match((await outlet(page, 'noteDisplay')).text, /A/);
    await screenshot(page, 'web-tuner-lit-phone.png');
    await until('yellow lamp', async () => /yellow/.test((await outlet(page, 'LEDDisplay')).image));
    assert.match((await outlet(page, 'freq_label')).text, /Pluck a string/);
    assert.deepEqual(page.errors, []);
  } finally {
    await browser.close();
  }
});

// The screen and the window set apart, as on a phone whose browser bars take part of it.
const SCREENS = [
  { name: 'iPhone, bars shown', screen: [390, 844], viewport: [390, 664], shownAs: 844 },
  { name: 'Android phone', screen: [412, 915], viewport: [412, 780], shownAs: 912 },
  { name: 'Android phone in landscape', screen: [915, 412], viewport: [915, 340], shownAs: 912, landscape: true },
  { name: 'tablet', screen: [834, 1194], viewport: [834, 1112], shownAs: 1194, pad: true },
];

function emulate(cdp, { screen: [screenWidth, screenHeight], viewport: [width, height], landscape, pad }) {
  return cdp.send('Emulation.setDeviceMetricsOverride', {
    width, height, deviceScaleFactor: 2, mobile: true, screenWidth, screenHeight,
    screenOrientation: landscape ? { type: 'landscapePrimary', angle: 90 } : { type: pad ? 'portraitPrimary' : 'portraitPrimary', angle: 0 },
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
  const browser = await launch(pluckRecording());
  try {
    for (const device of SCREENS) {
      const page = await browser.newPage();
      const cdp = await page.createCDPSession();
      await emulate(cdp, device);
      await cdp.send('Emulation.setTouchEmulationEnabled', { enabled: true });
      await page.goto(`${origin}/`);
      await page.waitForSelector('body[data-ready]', { timeout: 10000 });
      const shown = await page.evaluate(() => [window.uke.device.idiom, JSON.parse(window.uke.app.layoutSize()).height]);
      assert.deepEqual(shown, [device.pad ? 'pad' : 'phone', device.shownAs], device.name);
      assert.match((await outlet(page, 'freq_label')).text, /Tap to start listening/);
      await page.touchscreen.tap(device.viewport[0] / 2, device.viewport[1] * 0.7);
      const highlight = device.pad ? 'tunedStringiPad' : 'tunedString5';
      await until(`${device.name}: string lit`, async () => /1st_string/.test((await outlet(page, highlight)).image));
      assert.ok(await stageFit(page), device.name);
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

test('the tuning arrows, a chord on the wheels and a tuning-fork tone', async () => {
  const browser = await launch(null);
  try {
    const page = await open(browser);
    const first = (await outlet(page, 'firstString')).text;
    assert.equal((await outlet(page, 'showPreviousTuningButton')).shown, false);
    await press(page, 'showNextTuningButton');
    await until('next tuning', async () => (await outlet(page, 'firstString')).text !== first);
    assert.equal((await outlet(page, 'showPreviousTuningButton')).shown, true);
    await press(page, 'showPreviousTuningButton');
    await until('back to the first tuning', async () => (await outlet(page, 'firstString')).text === first);

    await press(page, 'goToChordsLibraryButton');
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

    await press(page, 'tuningForkButton');
    await until('fork panel', async () => (await outlet(page, 'a4TFButton'))?.shown);
    await press(page, 'a4TFButton');
    // The worklet reports what it played: a tone at the level the core renders it.
    await until('tone heard', () => page.evaluate(() => window.uke.output.heard.rms > 0.05));
    assert.deepEqual(page.errors, []);
  } finally {
    await browser.close();
  }
});

test('a refused microphone is said plainly, and the read-out says nothing is heard', async () => {
  const browser = await launch(null, ['--deny-permission-prompts']);
  try {
    const page = await browser.newPage();
    await page.setViewport(PHONE);
    await page.goto(`${origin}/`);
    await page.waitForSelector('body[data-ready]');
    assert.match((await outlet(page, 'freq_label')).text, /Tap to start listening/);
    await page.touchscreen.tap(195, 600);
    const banner = await until('banner', () => page.evaluate(() => {
      const b = document.querySelector('[role="alert"]');
      return b && b.offsetHeight && b.textContent;
    }));
    assert.match(banner, /Microphone access was refused/);
    assert.match((await outlet(page, 'freq_label')).text, /No microphone found/);
  } finally {
    await browser.close();
  }
});

test('the page\'s estimates equal the desktop tool\'s, block for block', { skip: !fs.existsSync(UKE) && `no ${UKE}` }, async () => {
  const { wav, samples } = captureRateRecording(path.join(TOP, 'resources/sounds/C4.mp3'), scratch);
  const desktop = execFileSync(UKE, ['analyse', wav, '--blocks', '--format', 'json'], { encoding: 'utf8' })
    .trim().split('\n').map((line) => JSON.parse(line).frequency.toFixed(4));
  const browser = await launch(null);
  try {
    const page = await open(browser);
    // The running app's own listener, handed the blocks as the capture worklet would.
    const estimates = await page.evaluate((samples) => {
      const all = Int16Array.from(samples);
      const out = [];
      for (let at = 0; at < all.length; at += 4096) {
        window.uke.app.deliver(all.subarray(at, at + 4096));
        out.push(window.uke.app.frequency().toFixed(4));
      }
      return out;
    }, [...samples]);
    assert.deepEqual(estimates, desktop);
  } finally {
    await browser.close();
  }
});

test('after one visit the tuner starts with no network', async () => {
  const browser = await launch(null);
  try {
    const page = await open(browser);
    await page.evaluate(() => navigator.serviceWorker.ready);
    await until('cached', () => page.evaluate(async () => (await caches.keys()).length === 1));
    await page.setOfflineMode(true);
    await page.reload();
    await page.waitForSelector('body[data-ready]', { timeout: 10000 });
    assert.equal((await outlet(page, 'firstString')).text, 'A4');
    assert.deepEqual(page.errors, []);
  } finally {
    await browser.close();
  }
});

test('a returning visitor gets a new core at the next online visit', async () => {
  // A copy of the build to change; the page step run again over it, as the build would.
  const copy = fs.mkdtempSync(path.join(scratch, 'dist-'));
  fs.cpSync(DIST, copy, { recursive: true });
  const served = await serve(copy);
  const browser = await launch(null);
  try {
    const page = await browser.newPage();
    await page.setViewport(PHONE);
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
    await browser.close();
    served.child.kill();
  }
});

test('the pad layout', async () => {
  const browser = await launch(pluckRecording());
  try {
    const page = await open(browser, PAD);
    await page.touchscreen.tap(417, 900);
    await until('green lamp', async () => /green/.test((await outlet(page, 'LEDDisplay128'))?.image || (await outlet(page, 'LEDDisplay')).image));
    await screenshot(page, 'web-tuner-lit-pad.png');
    assert.deepEqual(page.errors, []);
  } finally {
    await browser.close();
  }
});
