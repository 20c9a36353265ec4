// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The microphone: getUserMedia into an AudioContext, blocks cut by the capture
// worklet, handed to the core's listener. Browsers open a microphone only after
// the player has touched the page, so it opens at the first touch.
export const CAPTURE_RATE = 14039;
export const BLOCK_SAMPLES = 4096;

// Why the microphone cannot be heard, from the error getUserMedia gave.
export function failureOf(error) {
  const name = error && error.name;
  if (name === 'NotAllowedError' || name === 'SecurityError' || name === 'PermissionDeniedError') return 'refused';
  if (name === 'NotFoundError' || name === 'OverconstrainedError' || name === 'DevicesNotFoundError') return 'none';
  if (name === 'NotSupportedError' || name === 'TypeError') return 'unsupported';
  return 'unavailable';
}

export class Capture {
  // `env`: { mediaDevices, AudioContext, workletUrl, onOpen(), onBlock(Int16Array), onFailure(kind, detail) }
  constructor(env) {
    this.env = env;
    this.wanted = false;
    this.opening = null;
    this.context = null;
    this.stream = null;
    this.open = false;
  }

  // The core listens from the start; the microphone itself opens at the player's
  // first gesture (`unlock`), whichever comes first.
  start() {
    this.wanted = true;
    if (this.open) this.context.resume();
  }

  stop() {
    this.wanted = false;
    if (this.context) this.context.suspend();
  }

  // Called inside the player's first gesture. Everything before the first await
  // runs inside it: some browsers (Safari) start a context, or ask for the
  // microphone, only there.
  unlock() {
    if (!this.opening) this.opening = this.openNow();
    return this.opening;
  }

  async openNow() {
    const { mediaDevices, AudioContext, onFailure } = this.env;
    if (!mediaDevices || !mediaDevices.getUserMedia) {
      onFailure('unsupported', 'no getUserMedia');
      return;
    }
    // Blocks are 0.29 s long: the larger buffers of a 'playback' context cost the
    // reading nothing noticeable and wake the audio thread far less often.
    let context = null;
    try {
      context = new AudioContext({ sampleRate: CAPTURE_RATE, latencyHint: 'playback' });
      context.resume();
    } catch {
      context = null;
    }
    try {
      // The tuner wants the string as it sounds: no processing meant for voices.
      this.stream = await mediaDevices.getUserMedia({
        audio: { echoCancellation: false, noiseSuppression: false, autoGainControl: false },
      });
    } catch (e) {
      if (context) context.close();
      onFailure(failureOf(e), `${e.name}: ${e.message}`);
      return;
    }
    for (const track of this.stream.getAudioTracks()) {
      track.addEventListener('ended', () => onFailure('gone', 'the microphone was disconnected'));
    }
    try {
      await this.connect(context);
    } catch (e) {
      onFailure('unavailable', `${e.name}: ${e.message}`);
      return;
    }
    this.open = true;
    if (!this.wanted) this.context.suspend();
    this.env.onOpen?.();
  }

  // At the capture rate where the browser allows a microphone there, else at its
  // own rate with the worklet resampling (older Firefox joins no two rates). A
  // context made after the gesture may start: the page is capturing by then.
  async connect(context) {
    const { AudioContext } = this.env;
    let source = null;
    try {
      source = context.createMediaStreamSource(this.stream);
    } catch {
      if (context) context.close();
      context = new AudioContext({ latencyHint: 'playback' });
      source = context.createMediaStreamSource(this.stream);
    }
    this.context = context;
    await context.audioWorklet.addModule(this.env.workletUrl);
    // No outputs: the browser pulls a worklet that is a sink of its own.
    const Node = this.env.AudioWorkletNode || globalThis.AudioWorkletNode;
    const node = new Node(context, 'uke-capture', {
      numberOfInputs: 1,
      numberOfOutputs: 0,
      channelCount: 1,
      channelCountMode: 'explicit',
      processorOptions: { targetRate: CAPTURE_RATE, blockSamples: BLOCK_SAMPLES },
    });
    node.port.onmessage = (e) => this.env.onBlock(e.data);
    source.connect(node);
    this.node = node;
    await context.resume();
  }
}
