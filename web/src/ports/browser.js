// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The smaller ports: links, the network probe and keeping the screen lit.

// Store links name the store app's scheme; a browser opens the same page over https,
// which the store app takes over on devices that have it.
export function webAddressOf(url) {
  return url.replace(/^itms-apps:\/\//i, 'https://');
}

export function openLink(url, win = globalThis) {
  win.open(webAddressOf(url), '_blank', 'noopener');
}

// Starts a fetch nobody waits for; its answer is never read.
export function startFetch(url, timeoutSeconds, fetchFn = globalThis.fetch) {
  try {
    const controller = new AbortController();
    setTimeout(() => controller.abort(), timeoutSeconds * 1000);
    fetchFn(url, { mode: 'no-cors', cache: 'no-store', signal: controller.signal }).catch(() => {});
    return true;
  } catch {
    return false;
  }
}

// Holds a screen wake lock while the tuner wants the screen lit. Browsers drop the
// lock whenever the page is hidden, so it is asked for again when the page shows.
export class ScreenLight {
  constructor(nav = globalThis.navigator, doc = globalThis.document) {
    this.nav = nav;
    this.doc = doc;
    this.wanted = false;
    this.lock = null;
    if (doc) doc.addEventListener('visibilitychange', () => this.update());
  }

  set(wanted) {
    this.wanted = wanted;
    this.update();
  }

  async update() {
    const visible = !this.doc || this.doc.visibilityState === 'visible';
    if (this.wanted && visible && !this.lock && this.nav && this.nav.wakeLock) {
      try {
        this.lock = await this.nav.wakeLock.request('screen');
        this.lock.addEventListener('release', () => { this.lock = null; });
      } catch { /* refused (battery saver, no permission): the screen may dim */ }
    } else if (!this.wanted && this.lock) {
      const lock = this.lock;
      this.lock = null;
      lock.release();
    }
  }
}

// Phones are narrower than this in CSS pixels, tablets wider.
export const PAD_WIDTH = 600;

// The device class of the screen, not of the window: browser bars, rotation and
// split screens change the viewport but not the device in the player's hand. CSS
// pixels of the screen are points on the devices the classes are named after.
// `?device=phone-844` names a class outright, as the desktop's --device does.
export function deviceOf(screen, search = '') {
  const named = /[?&]device=(phone|pad)-(\d{3,4})(?:&|$)/.exec(search);
  if (named) return { idiom: named[1], height: Number(named[2]) };
  const short = Math.min(screen.width, screen.height), long = Math.max(screen.width, screen.height);
  return { idiom: short < PAD_WIDTH ? 'phone' : 'pad', height: long };
}

// The events a browser counts as the player's own act (a touch lifted, a mouse
// pressed, a key): microphones and sound may start only inside one of them.
const ACTIVATING = ['touchend', 'pointerup', 'mousedown', 'keydown'];

// Calls `fn` inside the first such event, however early it comes; an event that
// does not count (a drag, Escape) waits for the next.
export function onFirstGesture(fn, target = globalThis.document, activation = globalThis.navigator?.userActivation) {
  const once = (event) => {
    if (activation && !activation.isActive) return;
    for (const name of ACTIVATING) target.removeEventListener(name, once, true);
    fn(event);
  };
  for (const name of ACTIVATING) target.addEventListener(name, once, true);
}
