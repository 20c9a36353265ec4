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
import { ScreenLight, openLink, startFetch } from './ports/browser.js';

// Phones are narrower than this in CSS pixels, tablets wider.
const PAD_WIDTH = 600;

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

function firstTouch(fn) {
  const events = ['pointerdown', 'keydown', 'touchend'];
  const once = () => {
    for (const e of events) document.removeEventListener(e, once, true);
    fn();
  };
  for (const e of events) document.addEventListener(e, once, true);
}

async function boot() {
  const log = (line) => console.log(line);
  const [build, layouts, geometry] = await Promise.all([json('build.json'), json('layouts.json'), json('geometry.json')]);
  const language = chooseLanguage(navigator.languages || [navigator.language], build.languages);
  const strings = new StringTables(await json(`strings/${language}.json`));
  const core = await createUkeCore();
  document.documentElement.lang = language;

  let app = null, views = null, clock = null;
  const show = (changes) => { if (changes) views.apply(JSON.parse(changes)); };
  const say = (kind) => views && views.say(kind ? strings.tr('WebPage', MESSAGES[kind]) : null);

  const capture = new Capture({
    mediaDevices: navigator.mediaDevices,
    AudioContext: window.AudioContext || window.webkitAudioContext,
    workletUrl: 'ports/capture-worklet.js',
    whenTouched: firstTouch,
    onBlock: (block) => {
      clock.catchUp();
      app.deliver(block);
      clock.poke();
    },
    onFailure: (kind, detail) => {
      clock.catchUp();
      app.captureFailed(`${kind} (${detail})`);
      say(kind);
      show(app.changes());
      clock.poke();
    },
  });
  const output = new ToneOutput({
    AudioContext: window.AudioContext || window.webkitAudioContext,
    workletUrl: 'ports/output-worklet.js',
    render: (frames) => app.render(frames),
  });
  const sounds = new SoundPlayers({
    AudioContext: window.AudioContext || window.webkitAudioContext,
    fetch: (path) => fetch(path),
    files: build.sounds,
    log,
  });
  const light = new ScreenLight();
  const width = window.innerWidth, height = window.innerHeight;

  const host = {
    epoch: Date.now() / 1000,
    resourcePath: 'sounds',
    log,
    settings: new LocalSettings(window.localStorage, log),
    lookup: (key, table) => strings.lookup(key, table),
    device: { idiom: width >= PAD_WIDTH ? 'pad' : 'phone', height, systemVersion: '17.0' },
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
        tr: (context, source) => strings.tr(context, source),
        art: (name) => `art/${name.replace(/\.png$/, '.svg')}`,
        tuner: act((name, arg = 0) => app.tunerAction(name, Number(arg))),
        chord: act((name, tag = 0, row = 0) => app.chordAction(name, tag, row)),
        openChords: act(() => app.openChords()),
        closeChords: act(() => app.closeChords()),
        alertChosen: act((index) => app.alertChosen(index)),
      });
      return true;
    },
  };
  app = new core.WebApp(host);
  clock = new PageClock(app, (changes) => views.apply(changes));
  app.start();
  show(app.changes());
  clock.start();
  // For the browser tests and the curious: the running app's parts.
  window.uke = { app, views, capture, output, sounds, clock, language, readyAt: performance.now() };
  // Offline after the first visit. Browsers run workers only on secure origins,
  // which include this machine's own addresses.
  if ('serviceWorker' in navigator && window.isSecureContext) {
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
