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

function serve() {
  return new Promise((resolve, reject) => {
    const child = spawn('python3', [path.join(TOP, 'web/tools/serve.py'), '--port', '0', DIST], { stdio: ['ignore', 'pipe', 'inherit'] });
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

test('a plucked A4 lights the first string and the lamp green; silence turns the lamp yellow', async () => {
  const browser = await launch(pluckRecording());
  try {
    const page = await open(browser);
    // Browsers open the microphone only after a touch.
    await page.touchscreen.tap(195, 600);
    await until('green lamp', async () => /green/.test((await outlet(page, 'LEDDisplay')).image));
    assert.match((await outlet(page, 'ring1')).image, /ring1/);
    assert.match((await outlet(page, 'noteDisplay')).text, /A/);
    await screenshot(page, 'web-tuner-lit-phone.png');
    await until('yellow lamp', async () => /yellow/.test((await outlet(page, 'LEDDisplay')).image));
    assert.deepEqual(page.errors, []);
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
    assert.match((await outlet(page, 'freq_label')).text, /Pluck a string/);
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
