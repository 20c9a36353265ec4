// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The page in the three engines players' browsers are built on — Chromium,
// Firefox (Gecko) and WebKitGTK (Safari's engine) — each with a window on a
// private X display and its sound on a private PulseAudio server: a microphone
// the tests feed from a file and a speaker they record. Headed on purpose: a
// headless browser plays into no sound server at all.
//
//   const display = await startDisplay();
//   const pulse = await startPulse(dir);
//   for (const engine of ENGINES) { const page = await launch(engine, { display, pulse, viewport, dir }); ... }
//
// Every process started here ends with the test process, however it ends.
import { spawn, spawnSync } from 'node:child_process';
import { once } from 'node:events';
import fs from 'node:fs';
import http from 'node:http';
import net from 'node:net';
import path from 'node:path';
import puppeteer from 'puppeteer-core';
import { DIST, TOP } from './support.mjs';

export const ENGINES = ['chromium', 'firefox', 'webkit'];

const CHROMIUM = process.env.CHROMIUM || '/usr/bin/chromium';
const FIREFOX = process.env.FIREFOX || '/usr/bin/firefox-esr';
const WEBKIT_DRIVER = process.env.WEBKIT_DRIVER || '/usr/bin/WebKitWebDriver';
const RATE = 48000;

function miniBrowser() {
  if (process.env.MINIBROWSER) return process.env.MINIBROWSER;
  const lib = '/usr/lib/x86_64-linux-gnu';
  const dirs = fs.existsSync(lib) ? fs.readdirSync(lib).filter((d) => /^webkit2?gtk-[\d.]+$/.test(d)).sort().reverse() : [];
  return dirs.map((d) => path.join(lib, d, 'MiniBrowser')).find((f) => fs.existsSync(f)) || null;
}

const onPath = (cmd) => process.env.PATH.split(':').some((d) => fs.existsSync(path.join(d, cmd)));

// Why `engine`, or the display and sound server all need, cannot run here; null if it can.
export function missing(engine) {
  const tools = ['Xvfb', 'pulseaudio', 'pactl', 'paplay', 'parec', 'setpriv'].filter((t) => !onPath(t));
  if (tools.length) return `not installed: ${tools.join(', ')}`;
  const binary = { chromium: CHROMIUM, firefox: FIREFOX, webkit: WEBKIT_DRIVER }[engine];
  if (engine && !fs.existsSync(binary)) return `no ${binary}`;
  if (engine === 'webkit' && !miniBrowser()) return 'no MiniBrowser';
  return null;
}

// ---- processes that die with us ----

const owned = new Set();
// Signals a child, or its whole group; false when it is gone already.
function signal(child, name) {
  try {
    process.kill(child.detached ? -child.pid : child.pid, name);
    return true;
  } catch {
    return false;
  }
}
process.once('exit', () => owned.forEach((child) => signal(child, 'SIGKILL')));

// `setpriv --pdeathsig` covers what an exit handler cannot: a test process
// killed outright. `group` puts the child and what it starts (WebKitWebDriver's
// browser) in a process group of their own, ended together.
function own(cmd, args, { env, group = false, stdio = ['ignore', 'pipe', 'pipe'] } = {}) {
  const child = spawn('setpriv', ['--pdeathsig', 'KILL', cmd, ...args], { env, stdio, detached: group });
  child.detached = group;
  owned.add(child);
  child.once('exit', () => owned.delete(child));
  child.stderr?.setEncoding('utf8');
  child.log = '';
  child.stderr?.on('data', (d) => { child.log = (child.log + d).slice(-20000); });
  return child;
}

async function stopChild(child) {
  if (!child || child.exitCode !== null || child.signalCode !== null) return;
  const gone = once(child, 'exit');
  if (!signal(child, 'SIGTERM')) return;
  const timer = setTimeout(() => signal(child, 'SIGKILL'), 3000);
  await gone;
  clearTimeout(timer);
}

const sleep = (ms) => new Promise((r) => setTimeout(r, ms));

export async function until(what, fn, timeout = 10000, every = 50) {
  const end = Date.now() + timeout;
  let last;
  for (;;) {
    try {
      const value = await fn();
      if (value) return value;
    } catch (e) {
      last = e;
    }
    if (Date.now() > end) throw new Error(`timed out waiting: ${what}${last ? ` (${last.message})` : ''}`);
    await sleep(every);
  }
}

// The first line `child` writes to `stream`; its exit before that is an error.
function firstLine(child, stream) {
  let text = '';
  stream.setEncoding('utf8');
  return new Promise((resolve, reject) => {
    stream.on('data', (d) => (text += d).includes('\n') && resolve(text.split('\n')[0].trim()));
    child.once('exit', (code) => reject(new Error(`${child.spawnargs[3]} exited with ${code}: ${child.log}`)));
  });
}

// ---- the display ----

// Xvfb picks a free display number itself (-displayfd), so parallel runs and
// a desktop's own :0 never collide.
export async function startDisplay() {
  const child = own('Xvfb', ['-displayfd', '3', '-screen', '0', '1280x1024x24', '-nolisten', 'tcp'],
    { stdio: ['ignore', 'ignore', 'pipe', 'pipe'] });
  return { display: `:${await firstLine(child, child.stdio[3])}`, stop: () => stopChild(child) };
}

// ---- the page's server ----

// `folder` served on loopback by the project's own server; its origin, and how to stop it.
export async function serve(folder = DIST) {
  const child = own('python3', [path.join(TOP, 'web/tools/serve.py'), '--port', '0', folder]);
  return { origin: (await firstLine(child, child.stdout)).replace(/\/$/, ''), stop: () => stopChild(child) };
}

// ---- the sound server ----

// A PulseAudio server of our own: a `speaker` sink the browsers play into and
// the tests record, and a `mic` source the browsers hear. The microphone is the
// monitor of a null sink `micfeed` that paplay plays a file into, remapped to a
// source of its own so that it is a real input, not a monitor: browsers leave
// monitors out of their microphone lists or put them last.
export async function startPulse(dir) {
  const folder = fs.mkdtempSync(path.join(dir, 'uke-pulse-'));
  for (const sub of ['home/.config', 'run/pulse', 'state']) fs.mkdirSync(path.join(folder, sub), { recursive: true });
  const socket = path.join(folder, 'native');
  // Everything a client could use to find another server or the user's files.
  const env = {
    ...process.env,
    HOME: path.join(folder, 'home'),
    XDG_RUNTIME_DIR: path.join(folder, 'run'),
    XDG_CONFIG_HOME: path.join(folder, 'home/.config'),
    PULSE_RUNTIME_PATH: path.join(folder, 'run/pulse'),
    PULSE_STATE_PATH: path.join(folder, 'state'),
    PULSE_SERVER: `unix:${socket}`,
    DBUS_SESSION_BUS_ADDRESS: 'disabled:',
  };
  delete env.PULSE_SINK;
  delete env.PULSE_SOURCE;
  // No default script (-n): only these modules, so nothing probes real
  // hardware, D-Bus or the network; ".fail" makes a module that does not load fatal.
  const script = path.join(folder, 'server.pa');
  fs.writeFileSync(script, [
    '.fail',
    `load-module module-native-protocol-unix socket=${socket} auth-anonymous=1`,
    `load-module module-null-sink sink_name=speaker format=float32le channels=1 rate=${RATE}`,
    `load-module module-null-sink sink_name=micfeed format=float32le channels=1 rate=${RATE}`,
    'load-module module-remap-source source_name=mic master=micfeed.monitor channels=1',
    'set-default-sink speaker',
    'set-default-source mic',
    '',
  ].join('\n'));
  const server = own('pulseaudio', ['-n', '--daemonize=no', '--exit-idle-time=-1', '--disallow-exit', '--use-pid-file=no',
    '--enable-memfd=no', '--realtime=no', '--high-priority=no', '--log-target=stderr', '-F', script], { env });
  const pactl = (...args) => spawnSync('pactl', args, { env, encoding: 'utf8', timeout: 5000 }).stdout || '';
  await until('pulseaudio to answer', () => {
    if (server.exitCode !== null) throw new Error(`pulseaudio exited: ${server.log}`);
    return /\bmic\b/.test(pactl('list', 'short', 'sources'));
  }, 10000, 50);

  let player = null, playing = null;
  // Plays `wav` into the microphone over and over, as a player plucks again and again.
  function loop(wav) {
    const child = own('paplay', ['--device=micfeed', wav], { env });
    child.once('exit', () => {
      if (player === child && playing === wav) player = loop(wav);
    });
    return child;
  }
  return {
    env,
    rate: RATE,
    play(wav) {
      const old = player;
      playing = wav;
      player = wav ? loop(wav) : null;
      if (old) stopChild(old);
    },
    silence() { this.play(null); },
    // The names of the sources the browsers record from.
    heardFrom() {
      const json = (list) => JSON.parse(pactl('-f', 'json', 'list', list) || '[]');
      const names = Object.fromEntries(json('sources').map((d) => [d.index, d.name]));
      return json('source-outputs').map((s) => names[s.source]);
    },
    // What the speaker plays from now on, as float samples, until the promise
    // `until` settles (and then its error, if any).
    async record(until) {
      const rec = own('parec', ['--device=speaker.monitor', '--raw', '--format=float32le', '--channels=1', `--rate=${RATE}`,
        '--latency-msec=20'], { env });
      const chunks = [];
      rec.stdout.on('data', (d) => chunks.push(d));
      const ended = once(rec, 'exit').then(() => { throw new Error(`parec ended early: ${rec.log}`); });
      ended.catch(() => {});
      try {
        await Promise.race([until, ended]);
      } finally {
        await stopChild(rec);
      }
      const bytes = Buffer.concat(chunks);
      return new Float32Array(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length - (bytes.length % 4)));
    },
    async stop() {
      playing = null;
      await stopChild(player);
      await stopChild(server);
      fs.rmSync(folder, { recursive: true, force: true });
    },
  };
}

// ---- what was heard ----

// The `seconds` of `samples` where they are loudest.
export function loudest(samples, rate, seconds) {
  const n = Math.min(samples.length, Math.round(rate * seconds));
  let sum = 0;
  for (let i = 0; i < n; ++i) sum += samples[i] * samples[i];
  let best = sum, at = 0;
  for (let i = n; i < samples.length; ++i) {
    sum += samples[i] * samples[i] - samples[i - n] * samples[i - n];
    if (sum > best) [best, at] = [sum, i - n + 1];
  }
  return samples.subarray(at, at + n);
}

export function rms(samples) {
  let sum = 0;
  for (const v of samples) sum += v * v;
  return Math.sqrt(sum / Math.max(1, samples.length));
}

// The fundamental of a steady tone by normalised autocorrelation: the first
// lag whose correlation comes near the best one, refined between samples, so
// that a strong second harmonic is not taken for the note.
export function pitch(samples, rate, low = 50, high = 2000) {
  const n = Math.min(samples.length, Math.round(rate * 0.25));
  const x = samples.subarray(samples.length - n);
  const minLag = Math.floor(rate / high), maxLag = Math.ceil(rate / low);
  const w = n - maxLag;
  if (w <= 0) return 0;
  const r = new Float64Array(maxLag + 2);
  for (let lag = minLag; lag <= maxLag + 1; ++lag) {
    let xy = 0, xx = 0, yy = 0;
    for (let i = 0; i < w; ++i) {
      xy += x[i] * x[i + lag];
      xx += x[i] * x[i];
      yy += x[i + lag] * x[i + lag];
    }
    r[lag] = xx && yy ? xy / Math.sqrt(xx * yy) : 0;
  }
  let best = 0;
  for (let lag = minLag + 1; lag <= maxLag; ++lag) best = Math.max(best, r[lag]);
  if (best < 0.5) return 0;
  for (let lag = minLag + 1; lag <= maxLag; ++lag) {
    if (r[lag] >= 0.9 * best && r[lag] >= r[lag - 1] && r[lag] >= r[lag + 1]) {
      const a = r[lag - 1], b = r[lag], c = r[lag + 1];
      const shift = a - 2 * b + c ? (a - c) / (2 * (a - 2 * b + c)) : 0;
      return rate / (lag + shift);
    }
  }
  return 0;
}

// ---- the browsers ----

// Environment every browser gets: our display (none: headless), our sound server, a home of its own.
function browserEnv({ display, pulse, home }) {
  fs.mkdirSync(home, { recursive: true });
  const env = { ...(pulse ? pulse.env : process.env), HOME: home, XDG_CONFIG_HOME: path.join(home, '.config'),
    XDG_CACHE_HOME: path.join(home, '.cache'), XDG_DATA_HOME: path.join(home, '.local/share') };
  if (display) env.DISPLAY = display.display;
  delete env.WAYLAND_DISPLAY;
  delete env.MOZ_HEADLESS;
  return env;
}

// What all three pages offer the tests.
class Page {
  constructor(engine) {
    this.engine = engine;
    this.errors = [];   // uncaught exceptions and unhandled rejections
    this.console = [];  // everything the page logged, for the report of a failure
  }

  // Waits until `fn`, run in the page, gives something truthy; returns it.
  waitFor(fn, { timeout = 10000, what = fn.toString() } = {}) {
    return until(what, () => this.evaluate(fn), timeout, 100);
  }

  // Where `selector` sits in the viewport once it is shown, has come to rest
  // (panels slide in) and nothing covers its middle.
  async settled(selector, timeout = 20000) {
    let last = '';
    return until(`${selector} to be shown and at rest`, async () => {
      const box = await this.evaluate((selector) => {
        const el = document.querySelector(selector);
        // A panel still sliding in would take the press somewhere else (a
        // browser that misses frames under load can look still between two looks).
        if (!el || el.closest('[hidden]') || document.getAnimations().some((a) => a.playState !== 'finished')) return null;
        const r = el.getBoundingClientRect();
        if (!r.width || !r.height) return null;
        const x = r.x + r.width / 2, y = r.y + r.height / 2;
        const top = document.elementFromPoint(x, y);
        return top && (el === top || el.contains(top)) ? { x, y, key: `${r.x},${r.y},${r.width},${r.height}` } : null;
      }, selector);
      const steady = box && box.key === last;
      last = box ? box.key : '';
      return steady && box;
    }, timeout, 100);
  }

  // The page's errors so far; `console` is brought up to date too. Engines with
  // no events for them ask the page's own collector.
  async collectErrors() {
    return this.errors;
  }

  // The point (target, y), or where the selector `target` has settled.
  at(target, y) { return typeof target === 'number' ? { x: target, y } : this.settled(target); }

  async tap(target, y) {
    const p = await this.at(target, y);
    return this.touchAt(p.x, p.y);
  }

  async click(target, y) {
    const p = await this.at(target, y);
    return this.clickAt(p.x, p.y);
  }
}

class PuppeteerPage extends Page {
  constructor(engine, browser, page, viewport) {
    super(engine);
    Object.assign(this, { browser, page, viewport });
    page.on('pageerror', (e) => this.errors.push(e.message));
    page.on('console', (m) => this.console.push(`${m.type()}: ${m.text()}`));
  }

  goto(url) { return this.page.goto(url); }
  evaluate(fn, ...args) { return this.page.evaluate(fn, ...args); }

  async setViewport(width, height) {
    // Firefox's WebDriver BiDi has no touch or mobile emulation; the size and
    // pixel ratio it does set.
    const v = { ...this.viewport, width, height };
    if (this.engine === 'firefox') delete v.isMobile, delete v.hasTouch;
    await this.page.setViewport(v);
  }

  async touchAt(x, y) {
    try {
      await this.page.touchscreen.tap(x, y);
    } catch (e) {
      this.console.push(`harness: touch refused (${e.message}); clicked instead`);
      await this.page.mouse.click(x, y);
    }
  }

  clickAt(x, y) { return this.page.mouse.click(x, y); }
  screenshot(file) { return this.page.screenshot({ path: file }); }
  close() { return this.browser.close().catch(() => {}); }
}

// Chromium, or Firefox over WebDriver BiDi. With no `display` Chromium runs
// headless on its fake microphone, which plays the file `microphone` in a loop.
async function launchPuppeteer(engine, { display, pulse, viewport, dir, microphone }) {
  const denied = microphone === 'denied';
  const browser = await puppeteer.launch({
    executablePath: engine === 'firefox' ? FIREFOX : CHROMIUM,
    headless: !display,
    userDataDir: fs.mkdtempSync(path.join(dir, `${engine}-`)),
    env: browserEnv({ display, pulse, home: path.join(dir, `${engine}-home`) }),
    defaultViewport: null,
    ...(engine === 'firefox' ? {
      browser: 'firefox',
      protocol: 'webDriverBiDi',
      extraPrefsFirefox: {
        // Grants the microphone with no prompt, or refuses it as a player's
        // "Block" remembered for every site does. The device is PulseAudio's
        // default source, and the sound goes to its default sink: Firefox's
        // cubeb picks PulseAudio by itself.
        'media.navigator.permission.disabled': !denied,
        ...(denied ? { 'permissions.default.microphone': 2 } : {}),
        // Sound may start before a gesture: the tests, not the browser, decide
        // when the page has been touched.
        'media.autoplay.default': 0,
      },
      args: ['--width=1200', '--height=1000'],
    } : {
      args: [
        // Root in a container has no user namespaces for the sandbox.
        '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
        '--disable-component-update', '--disable-sync', '--password-store=basic', '--window-position=0,0',
        '--window-size=1200,1000',
        // Answers the microphone prompt with yes, or every prompt with no; the
        // device itself is PulseAudio's default source, or the fake one.
        denied ? '--deny-permission-prompts' : '--use-fake-ui-for-media-stream',
        ...(display ? [] : ['--autoplay-policy=no-user-gesture-required', '--use-fake-device-for-media-stream',
          ...(microphone ? [`--use-file-for-fake-audio-capture=${microphone}`] : [])]),
      ],
    }),
  });
  const [page] = await browser.pages();
  const p = new PuppeteerPage(engine, browser, page, viewport || {});
  if (viewport) await p.setViewport(viewport.width, viewport.height);
  return p;
}

// WebKitGTK's WebDriver over plain HTTP: its MiniBrowser in automation mode,
// which grants getUserMedia to automated pages by itself (no prompt). Capture
// and playback go through GStreamer's PulseAudio elements.
class WebKitPage extends Page {
  constructor(driver, base, session, framing) {
    super('webkit');
    Object.assign(this, { driver, base, session, framing });
  }

  async command(method, route, body) {
    const { ok, value } = await webDriver(method, `${this.base}/session/${this.session}${route}`, body);
    if (!ok) throw new Error(`WebDriver ${route}: ${value?.error}: ${value?.message}`);
    return value;
  }

  async goto(url) {
    await this.collectErrors();
    await this.command('POST', '/url', { url: this.framing ? this.framing.url(url) : url });
    if (this.framing) await this.command('POST', '/frame', { id: 0 });
    // Classic WebDriver reports no page errors and runs nothing before the
    // page's own scripts: errors are collected from the load on. One during
    // the start shows as a page that never becomes ready.
    await this.evaluate(() => {
      if (window.__engine) return;
      const seen = window.__engine = { errors: [], console: [] };
      addEventListener('error', (e) => seen.errors.push(e.message));
      addEventListener('unhandledrejection', (e) => seen.errors.push(`unhandled rejection: ${e.reason && (e.reason.message || e.reason)}`));
      for (const level of ['log', 'info', 'warn', 'error']) {
        const was = console[level];
        console[level] = (...args) => {
          seen.console.push(`${level}: ${args.join(' ')}`);
          was.apply(console, args);
        };
      }
    });
  }

  async evaluate(fn, ...args) {
    const script = `const done = arguments[arguments.length - 1];
      Promise.resolve().then(() => (${fn.toString()})(...Array.prototype.slice.call(arguments, 0, -1)))
        .then((v) => done({ value: v === undefined ? null : v }), (e) => done({ error: String(e && (e.stack || e.message) || e) }));`;
    const out = await this.command('POST', '/execute/async', { script, args });
    if (out && 'error' in out) throw new Error(`in the page: ${out.error}`);
    return out ? out.value : null;
  }

  // WebDriver sizes the window; the page's viewport is what the window leaves
  // once its toolbar is taken off, so it is measured and the window corrected.
  // The pixel ratio stays the screen's (1).
  async setViewport(width, height) {
    for (let i = 0; i < 3; ++i) {
      const inner = await this.evaluate(() => [innerWidth, innerHeight]);
      if (inner[0] === width && inner[1] === height) return;
      const rect = await this.command('GET', '/window/rect');
      await this.command('POST', '/window/rect', { width: rect.width + width - inner[0], height: rect.height + height - inner[1] });
      await sleep(200);
    }
  }

  pointer(type, x, y) {
    return this.command('POST', '/actions', {
      actions: [{
        type: 'pointer', id: type, parameters: { pointerType: type },
        actions: [{ type: 'pointerMove', x: Math.round(x), y: Math.round(y), origin: 'viewport', duration: 0 },
          { type: 'pointerDown', button: 0 }, { type: 'pause', duration: 50 }, { type: 'pointerUp', button: 0 }],
      }],
    });
  }

  // WebKitGTK's WebDriver takes a touch action but hands the page mouse
  // events (pointerType "mouse"): the page sees a click either way.
  touchAt(x, y) { return this.pointer('touch', x, y); }
  clickAt(x, y) { return this.pointer('mouse', x, y); }

  async screenshot(file) {
    fs.writeFileSync(file, Buffer.from(await this.command('GET', '/screenshot'), 'base64'));
  }

  async collectErrors() {
    const seen = await this.evaluate(() => {
      const s = window.__engine || { errors: [], console: [] };
      return { errors: s.errors.splice(0), console: s.console.splice(0) };
    }).catch(() => ({ errors: [], console: [] }));
    this.errors.push(...seen.errors);
    this.console.push(...seen.console);
    return this.errors;
  }

  async close() {
    await fetch(`${this.base}/session/${this.session}`, { method: 'DELETE' }).catch(() => {});
    await stopChild(this.driver);
    this.framing?.close();
  }
}

// One WebDriver request: whether it was answered with success, and the answer's value.
async function webDriver(method, url, body) {
  const res = await fetch(url, { method, headers: body ? { 'content-type': 'application/json' } : {}, body: body && JSON.stringify(body) });
  return { ok: res.ok, value: (await res.json()).value };
}

function freePort() {
  return new Promise((resolve, reject) => {
    const s = net.createServer();
    s.once('error', reject);
    s.listen(0, '127.0.0.1', () => {
      const { port } = s.address();
      s.close(() => resolve(port));
    });
  });
}

// WebKitGTK's WebDriver grants every automated page the microphone and has no
// command that refuses it. What the engine does refuse is a page framed by
// another origin whose frame leaves the microphone out of its allow list, with
// the NotAllowedError a player's "Deny" gives: a refused page is shown so,
// filling the window, and the session works inside the frame.
async function refusingFrame() {
  const server = http.createServer((req, res) => {
    const src = new URL(req.url, 'http://127.0.0.1').searchParams.get('src') || 'about:blank';
    res.setHeader('content-type', 'text/html');
    res.end('<!doctype html><style>html, body, iframe { margin: 0; border: 0; width: 100%; height: 100%; display: block }</style>'
      + `<iframe allow="microphone 'none'" src="${src.replace(/[&"<>]/g, (c) => `&#${c.charCodeAt(0)};`)}"></iframe>`);
  });
  await new Promise((resolve) => server.listen(0, '127.0.0.1', resolve));
  return {
    url: (src) => `http://127.0.0.1:${server.address().port}/?src=${encodeURIComponent(src)}`,
    close: () => server.close(),
  };
}

async function launchWebKit({ display, pulse, viewport, dir, microphone }) {
  const binary = miniBrowser();
  if (!binary) throw new Error('no MiniBrowser: install webkit2gtk-driver');
  const port = await freePort();
  const home = path.join(dir, 'webkit-home');
  // MiniBrowser's toolbar sets the narrowest its window goes (447 pixels):
  // tighter buttons let the page have a phone's width.
  fs.mkdirSync(path.join(home, '.config/gtk-3.0'), { recursive: true });
  fs.writeFileSync(path.join(home, '.config/gtk-3.0/gtk.css'),
    'button, entry { padding: 0; margin: 0; min-width: 0; min-height: 0; border-width: 0; } entry { min-width: 0; }\n');
  const env = {
    ...browserEnv({ display, pulse, home }),
    // The web process sandbox (bubblewrap) needs user namespaces that many
    // containers do not give. Tests only: the page here is our own.
    WEBKIT_DISABLE_SANDBOX_THIS_IS_DANGEROUS: '1',
  };
  const driver = own(WEBKIT_DRIVER, [`--port=${port}`, '--host=local'], { env, group: true });
  const base = `http://127.0.0.1:${port}`;
  await until('WebKitWebDriver to answer', async () => {
    if (driver.exitCode !== null) throw new Error(`WebKitWebDriver exited: ${driver.log}`);
    return (await fetch(`${base}/status`)).ok;
  }, 10000, 100);
  // getUserMedia is off in WebKitGTK unless asked for. An automated page is
  // granted it with no prompt; the device is GStreamer's PulseAudio source (not
  // a mock one: those are off by default).
  const { ok, value } = await webDriver('POST', `${base}/session`, {
    capabilities: { alwaysMatch: { 'webkitgtk:browserOptions': { binary, args: ['--automation', '--enable-media-stream=true'] } } },
  });
  if (!ok) {
    await stopChild(driver);
    throw new Error(`WebKitWebDriver session: ${value?.message} ${driver.log}`);
  }
  const page = new WebKitPage(driver, base, value.sessionId, microphone === 'denied' ? await refusingFrame() : null);
  await page.command('POST', '/timeouts', { script: 30000, pageLoad: 30000 });
  if (viewport) {
    await page.command('POST', '/url', { url: 'about:blank' });
    await page.setViewport(viewport.width, viewport.height);
  }
  return page;
}

// One engine's browser on `display`, hearing and playing through `pulse`, with
// one page of `viewport` ({ width, height, deviceScaleFactor, isMobile, hasTouch }:
// what the engine cannot emulate it leaves out). Profiles and scratch files go
// under `dir`. `microphone: 'denied'` refuses the page the microphone, as a player can.
export function launch(engine, options) {
  if (!ENGINES.includes(engine)) throw new Error(`no engine ${engine}: one of ${ENGINES.join(', ')}`);
  return engine === 'webkit' ? launchWebKit(options) : launchPuppeteer(engine, options);
}
