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
