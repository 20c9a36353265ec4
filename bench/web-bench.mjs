// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The browser app's budgets: what a first visit downloads (compressed), how soon
// the first screen shows from a local server, how soon the first reading follows
// the first tap, and the CPU Chromium spends while it tunes from a fake
// microphone hearing a plucked A4 every 2 s (the desktop's figure for the same
// comes from bench/app-cpu.sh). Everything after the download runs twice: as this
// machine is, and with the page's CPU slowed 4x, as on a modest phone.
// usage: node bench/web-bench.mjs [SECONDS]     (after scripts/web.sh and scripts/web-test.sh)
import { execFileSync, spawn } from 'node:child_process';
import fs from 'node:fs';
import { createRequire } from 'node:module';
import os from 'node:os';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import zlib from 'node:zlib';

const TOP = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '..');
const DIST = path.join(TOP, 'web/dist');
const puppeteer = createRequire(path.join(TOP, 'tests/web/package.json'))('puppeteer-core');
const seconds = Number(process.argv[2] || 30);
const scratch = fs.mkdtempSync(path.join(os.tmpdir(), 'uke-web-bench-'));
const HZ = Number(execFileSync('getconf', ['CLK_TCK'], { encoding: 'utf8' }));

// 1. Everything the service worker fetches on a first visit, gzip-compressed as a
//    server would send it (MP3 and WebAssembly included).
const build = JSON.parse(fs.readFileSync(path.join(DIST, 'build.json'), 'utf8'));
let raw = 0, packed = 0;
const groups = {};
for (const f of [...build.files.filter((f) => f !== './'), 'build.json', 'sw.js']) {
  const bytes = fs.readFileSync(path.join(DIST, f));
  const z = zlib.gzipSync(bytes, { level: 9 }).length;
  const group = f.includes('/') ? f.split('/')[0] + '/' : f;
  groups[group] = (groups[group] || 0) + z;
  raw += bytes.length;
  packed += z;
}
const kb = (n) => `${(n / 1024).toFixed(0)} KiB`;
console.log(`download: ${kb(packed)} compressed (${kb(raw)} raw), target at most 1536 KiB`);
for (const [g, n] of Object.entries(groups).sort((a, b) => b[1] - a[1]).slice(0, 8)) console.log(`  ${g.padEnd(22)} ${kb(n)}`);

const server = spawn('python3', [path.join(TOP, 'web/tools/serve.py'), '--port', '0', DIST], { stdio: ['ignore', 'pipe', 'inherit'] });
const origin = (await new Promise((r) => server.stdout.once('data', r))).toString().trim();

function launch(extra = []) {
  return puppeteer.launch({
    executablePath: '/usr/bin/chromium', headless: true, userDataDir: fs.mkdtempSync(path.join(scratch, 'p-')),
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync', ...extra],
  });
}

// A page whose CPU is slowed `throttle` times, as DevTools' phone presets do.
async function newPage(browser, throttle) {
  const page = await browser.newPage();
  await page.setViewport({ width: 390, height: 844, deviceScaleFactor: 3, isMobile: true, hasTouch: true });
  if (throttle > 1) await (await page.createCDPSession()).send('Emulation.setCPUThrottlingRate', { rate: throttle });
  return page;
}

// 2. First screen: a fresh profile each time (nothing cached), navigation to the
//    moment the core has built the window and shown its outlets.
async function firstScreen(throttle) {
  const starts = [];
  for (let i = 0; i < 5; ++i) {
    const browser = await launch();
    const page = await newPage(browser, throttle);
    await page.goto(origin);
    await page.waitForSelector('body[data-ready]');
    starts.push(await page.evaluate(() => window.uke.readyAt));
    await browser.close();
  }
  starts.sort((a, b) => a - b);
  return starts;
}

// 3. CPU while tuning: every Chromium process, (utime + stime) over wall time,
//    for the app and for a bare capture page (the microphone into a context at
//    the capture rate and a worklet that does nothing), the browser's own price
//    of listening, as bench/app-cpu.sh measures the desktop against a bare parecord.
const pluck = path.join(scratch, 'pluck-every-2s.wav');
execFileSync('sox', [path.join(TOP, 'resources/sounds/A4.mp3'), '-r', '48000', '-c', '1', '-b', '16', pluck, 'trim', '0', '2', 'pad', '0', '0']);

function tree(root) {
  const all = fs.readdirSync('/proc').filter((d) => /^\d+$/.test(d));
  const parent = new Map();
  for (const pid of all) {
    try { parent.set(pid, fs.readFileSync(`/proc/${pid}/stat`, 'utf8').split(') ')[1].split(' ')[1]); } catch { /* gone */ }
  }
  const inTree = (pid) => { for (let p = pid; p && p !== '0'; p = parent.get(p)) if (p === String(root)) return true; return false; };
  return all.filter(inTree);
}
function cpu(pids) {
  const out = {};
  for (const pid of pids) {
    try {
      const f = fs.readFileSync(`/proc/${pid}/stat`, 'utf8').split(') ')[1].split(' ');
      const cmdline = fs.readFileSync(`/proc/${pid}/cmdline`, 'utf8');
      const type = (cmdline.match(/--type=([\w-]+)/) || [, 'browser'])[1];
      const service = (cmdline.match(/--utility-sub-type=([\w.]+)/) || [, ''])[1];
      const name = service ? `${type} (${service.split('.').pop()})` : type;
      out[name] = (out[name] || 0) + (Number(f[11]) + Number(f[12])) / HZ;
    } catch { /* gone */ }
  }
  return out;
}

async function measure(label, throttle, setUp) {
  const browser = await launch(['--use-fake-ui-for-media-stream', '--use-fake-device-for-media-stream', `--use-file-for-fake-audio-capture=${pluck}`]);
  const page = await newPage(browser, throttle);
  const note = await setUp(page);
  await new Promise((r) => setTimeout(r, 5000));
  const pids = tree(browser.process().pid);
  const before = cpu(pids), t0 = Date.now();
  await new Promise((r) => setTimeout(r, seconds * 1000));
  const after = cpu(pids), wall = (Date.now() - t0) / 1000;
  let total = 0;
  const parts = [];
  for (const name of Object.keys(after)) {
    const share = (after[name] - (before[name] || 0)) / wall;
    total += share;
    if (share >= 0.001) parts.push(`${name} ${(100 * share).toFixed(1)}`);
  }
  console.log(`  ${label.padEnd(16)} ${(100 * total).toFixed(1)} % of a core over ${wall.toFixed(0)} s (${parts.join(', ')})${await note()}`);
  await browser.close();
  return total;
}

const bareCapture = async (page) => {
  await page.goto(`${origin}/build.json`);
  await page.evaluate(async () => {
    const stream = await navigator.mediaDevices.getUserMedia({ audio: { echoCancellation: false, noiseSuppression: false, autoGainControl: false } });
    const context = new AudioContext({ sampleRate: 14039, latencyHint: 'playback' });
    const code = "registerProcessor('idle', class extends AudioWorkletProcessor { process() { return true; } });";
    await context.audioWorklet.addModule(URL.createObjectURL(new Blob([code], { type: 'text/javascript' })));
    context.createMediaStreamSource(stream).connect(new AudioWorkletNode(context, 'idle', { numberOfOutputs: 0 }));
    window.keep = { stream, context };
  });
  return async () => '';
};

// The app from its first screen; also how long the first reading takes after the
// tap that opens the microphone (the recording starts with a pluck).
const tuningApp = async (page) => {
  await page.goto(origin);
  await page.waitForSelector('body[data-ready]');
  const reading = page.evaluate(() => new Promise((resolve) => {
    const freq = document.querySelector('[data-outlet="freq_label"]');
    let tapped = 0;
    document.addEventListener('touchend', () => { tapped = tapped || performance.now(); }, true);
    new MutationObserver((_, observer) => {
      if (tapped && /Hz/.test(freq.textContent)) {
        observer.disconnect();
        resolve(performance.now() - tapped);
      }
    }).observe(freq, { childList: true, characterData: true, subtree: true });
  }));
  await page.touchscreen.tap(195, 600);
  const firstReading = await reading;
  return async () => `; first reading ${firstReading.toFixed(0)} ms after the tap; lamp ${(await page.evaluate(() => document.querySelector('[data-outlet="LEDDisplay"]').getAttribute('src'))).split('/').pop()}`;
};

for (const throttle of [1, 4]) {
  console.log(throttle > 1 ? `CPU slowed ${throttle}x, as a modest phone:` : 'this machine:');
  const starts = await firstScreen(throttle);
  console.log(`  first screen: median ${starts[2].toFixed(0)} ms (${starts.map((s) => s.toFixed(0)).join(', ')}), target under ${throttle > 1 ? 1500 : 1000} ms`);
  const bare = await measure('bare capture', throttle, bareCapture);
  const app = await measure('app, tuning', throttle, tuningApp);
  console.log(`  cpu while tuning: ${(app / bare).toFixed(2)} x the bare capture page, target at most 1.3; the desktop's figure: bench/app-cpu.sh`);
}
server.kill();
