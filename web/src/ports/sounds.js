// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The recorded string sounds and the confirmation beep: the same MP3 files as the
// desktop's, fetched and decoded once, each play a new source on one context.
export class SoundPlayers {
  // `env`: { AudioContext, fetch, files: names that exist ("A4.mp3", ...), log }
  constructor(env) {
    this.env = env;
    this.files = new Set(env.files);
    this.context = null;
    this.decoded = new Map(); // path -> Promise<AudioBuffer>
    this.playing = new Map(); // player id -> source node
    this.failed = new Set();
  }

  setFiles(files) { this.files = new Set(files); }

  has(path) { return this.files.has(path.split('/').pop()); }

  // Inside the player's first gesture: the only moment some browsers let a
  // context start. It sleeps again once it has started, unless a sound came meanwhile.
  unlock() {
    this.ensureContext();
    this.context.resume().then(() => this.idle(), () => {});
  }

  ensureContext() {
    if (!this.context) this.context = new this.env.AudioContext();
    return this.context;
  }

  play(id, path) {
    this.ensureContext();
    // The new sound is counted as playing before the old one stops, so that the
    // context is not put to sleep between the two.
    const token = {};
    const old = this.playing.get(id);
    this.playing.set(id, token);
    if (old && old.stop) old.stop();
    this.context.resume();
    this.buffer(path).then((buffer) => {
      // Stopped (or played again) while it was still loading.
      if (this.playing.get(id) !== token) return;
      const source = this.context.createBufferSource();
      source.buffer = buffer;
      source.connect(this.context.destination);
      source.onended = () => {
        if (this.playing.get(id) === source) this.playing.delete(id);
        this.idle();
      };
      this.playing.set(id, source);
      source.start();
    }, (e) => {
      if (!this.failed.has(path)) this.env.log(`Sounds: "${path}" cannot be played (${e.message || e})`);
      this.failed.add(path);
      if (this.playing.get(id) === token) this.playing.delete(id);
      this.idle();
    });
  }

  stop(id) {
    const source = this.playing.get(id);
    this.playing.delete(id);
    if (source && source.stop) source.stop();
    this.idle();
  }

  // A running context keeps the audio thread and the device busy even in silence:
  // it sleeps when nothing plays or is loading to play.
  idle() {
    if (this.context && this.playing.size === 0) this.context.suspend();
  }

  buffer(path) {
    if (!this.decoded.has(path)) {
      const loading = this.env.fetch(path)
        .then((r) => { if (!r.ok) throw new Error(`HTTP ${r.status}`); return r.arrayBuffer(); })
        .then((bytes) => this.context.decodeAudioData(bytes));
      // A failed load is tried again at the next play (the network may be back).
      loading.catch(() => this.decoded.delete(path));
      this.decoded.set(path, loading);
    }
    return this.decoded.get(path);
  }
}
