// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the app in the page: reads what the build wrote, gives the core its
// ports, lets it build the window, and from then on carries the player's actions
// in and the screens' changes out.
import { createViews } from './views/index.js';
import { Capture } from './ports/capture.js';
import { PageClock } from './ports/clock.js';
import { LocalSettings } from './ports/settings.js';
import { SoundPlayers } from './ports/sounds.js';
import { StringTables, chooseLanguage } from './ports/strings.js';
import { ToneOutput } from './ports/output.js';
import { ScreenLight, deviceOf, onFirstGesture, openLink, startFetch } from './ports/browser.js';

const MESSAGES = {
  refused: 'Microphone access was refused. Allow the microphone for this page in the browser\'s settings, then reload.',
  none: 'No microphone was found. Connect one, then reload the page.',
  gone: 'The microphone was disconnected. Connect one, then reload the page.',
  unsupported: 'This browser cannot open the microphone here. Open the page over https, or on this device at http://127.0.0.1.',
  unavailable: 'The microphone could not be opened. Close other apps that use it, then reload the page.',
};

const json = (path) => fetch(path).then((r) => {
  if (!r.ok) throw new Error(`${path}: HTTP ${r.status}`);
  return r.json();
});

const Context = window.AudioContext || window.webkitAudioContext;
const log = (line) => console.log(line);

// What the page knows before the core has loaded: the ports that make sound and
// listen exist from the first moment, so that a tap however early opens the
// microphone and lets the sounds play, inside that tap as Safari requires.
let app = null, views = null, clock = null, micOpen = false, failure = null;
const show = (changes) => { if (changes) views.apply(JSON.parse(changes)); };
const strings = { tr: (context, source) => source };
const say = (kind) => views && views.say(kind ? strings.tr('WebPage', MESSAGES[kind]) : null);

function captureFailed(kind, detail) {
  if (!app) {
    failure = [kind, detail];
    return;
  }
  clock.catchUp();
  app.captureFailed(`${kind} (${detail})`);
  say(kind);
  show(app.changes());
  clock.poke();
}

const capture = new Capture({
  mediaDevices: navigator.mediaDevices,
  AudioContext: Context,
  workletUrl: 'ports/capture-worklet.js',
  onOpen: () => {
    micOpen = true;
    if (app) {
      app.captureOpened();
      show(app.changes());
    }
  },
  // Blocks before the core is there are dropped: nothing could read them.
  onBlock: (block) => {
    if (!app) return;
    clock.catchUp();
    app.deliver(block);
    clock.poke();
  },
  onFailure: captureFailed,
});
const output = new ToneOutput({
  AudioContext: Context,
  workletUrl: 'ports/output-worklet.js',
  render: (frames) => app.render(frames),
  log,
});
const sounds = new SoundPlayers({ AudioContext: Context, fetch: (path) => fetch(path), files: [], log });
let touched = false;
onFirstGesture(() => {
  touched = true;
  capture.unlock();
  output.unlock();
  sounds.unlock();
});

async function boot() {
  const [build, layouts, geometry] = await Promise.all([json('build.json'), json('layouts.json'), json('geometry.json')]);
  const language = chooseLanguage(navigator.languages || [navigator.language], build.languages);
  const tables = new StringTables(await json(`strings/${language}.json`));
  strings.tr = (context, source) => tables.tr(context, source);
  const core = await createUkeCore();
  document.documentElement.lang = language;
  sounds.setFiles(build.sounds);

  const light = new ScreenLight();

  const host = {
    epoch: Date.now() / 1000,
    resourcePath: 'sounds',
    log,
    settings: new LocalSettings(window.localStorage, log),
    lookup: (key, table) => tables.lookup(key, table),
    device: { ...deviceOf(window.screen, window.location.search), systemVersion: '17.0' },
    capture,
    output,
    sounds,
    openUrl: (url) => openLink(url),
    online: () => navigator.onLine,
    fetch: (url, timeout) => startFetch(url, timeout),
    alert: {
      present: (title, message, buttons) => views.alert.present(title, message, buttons),
      dismiss: () => views.alert.dismiss(),
    },
    keepAwake: (on) => light.set(on),
    buildWindow: (storyboard) => {
      const size = JSON.parse(app.layoutSize());
      const act = (fn) => (...args) => {
        clock.catchUp();
        fn(...args);
        show(app.changes());
        clock.poke();
      };
      views = createViews(document.getElementById('app'), {
        storyboard,
        layout: { ...layouts[storyboard], name: storyboard, width: size.width, height: size.height },
        geometry,
        isPad: host.device.idiom === 'pad',
        tr: strings.tr,
        art: (name) => `art/${name.replace(/\.png$/, '.svg')}`,
        // A screen's action by the core's name, with the control's values (a
        // switch's on as 1); the core refuses what it does not know.
        tuner: act((name, ...args) => app.act('tuner', name, args.map(Number))),
        chord: act((name, ...args) => app.act('chords', name, args.map(Number))),
        alertChosen: act((index) => app.alertChosen(index)),
      });
      return true;
    },
  };
  app = new core.WebApp(host);
  clock = new PageClock(app, (changes) => views.apply(changes));
  app.start();
  // A microphone opened or refused before the core was there is said now.
  if (micOpen) app.captureOpened();
  if (failure) captureFailed(...failure);
  show(app.changes());
  clock.start();
  // For the browser tests and the curious: the running app's parts.
  window.uke = { app, views, capture, output, sounds, clock, language, device: host.device, readyAt: performance.now() };
  // Offline after the first visit. Browsers run workers only on secure origins,
  // which include this machine's own addresses.
  if ('serviceWorker' in navigator && window.isSecureContext) {
    // A returning visitor's page came from the offline copy. A newer build found
    // on the way takes over at once if the player has not started yet, and
    // otherwise at the next visit.
    const returning = !!navigator.serviceWorker.controller;
    navigator.serviceWorker.addEventListener('controllerchange', () => {
      if (returning && !touched) window.location.reload();
    });
    navigator.serviceWorker.register('sw.js').catch((e) => log(`Offline copy: not installed (${e.message})`));
  }
  document.body.dataset.ready = 'true';
}

boot().catch((e) => {
  const p = document.createElement('p');
  p.className = 'fatal';
  p.textContent = `The tuner could not start: ${e.message}`;
  document.body.append(p);
  console.error(e);
});
