// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The reference tone: a worklet at 44100 Hz plays frames the core's render step
// makes, asking for more before it runs out.
export const OUTPUT_RATE = 44100;

export class ToneOutput {
  // `env`: { AudioContext, workletUrl, render(frames) -> Int16Array (interleaved stereo) }
  constructor(env) {
    this.env = env;
    this.context = null;
    this.playing = false;
    this.ready = null;
    // What the worklet last said it played: frames and their level (for tests).
    this.heard = { frames: 0, rms: 0 };
  }

  // Inside the player's first gesture: the only moment some browsers let a
  // context start. It sleeps again once it has started, unless the tone came meanwhile.
  unlock() {
    const context = this.ensureContext();
    context.resume().then(() => { if (!this.playing) context.suspend(); }, () => {});
  }

  ensureContext() {
    if (!this.context) this.context = new this.env.AudioContext({ sampleRate: OUTPUT_RATE, latencyHint: 'interactive' });
    return this.context;
  }

  start() {
    this.playing = true;
    this.ensureContext().resume();
    if (!this.ready) this.ready = this.open();
    this.ready.then(() => {
      if (this.playing) this.node.port.postMessage({ play: true });
    }, (e) => this.env.log?.(`Tone: cannot be played (${e.message || e})`));
  }

  stop() {
    this.playing = false;
    if (this.node) this.node.port.postMessage({ play: false });
    // A running context keeps the audio thread and the device busy even in silence.
    if (this.context) this.context.suspend();
  }

  async open() {
    const context = this.ensureContext();
    await context.audioWorklet.addModule(this.env.workletUrl);
    this.node = new AudioWorkletNode(context, 'uke-tone', { numberOfInputs: 0, outputChannelCount: [2] });
    this.node.port.onmessage = (e) => {
      const m = e.data;
      if (m.need) {
        // Frames are made only while the tone plays: a stopped tone's phase stays put.
        if (!this.playing) return;
        this.node.port.postMessage({ frames: this.env.render(m.need).slice() });
      } else if (m.heard) {
        this.heard = m.heard;
      }
    };
    this.node.connect(context.destination);
  }
}
