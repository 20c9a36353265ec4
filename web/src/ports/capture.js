// The microphone: getUserMedia into an AudioContext, blocks cut by the capture
// worklet, handed to the core's listener. Browsers open a microphone only after
// the player has touched the page, so a start before that waits for the first touch.
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
  // `env`: { mediaDevices, AudioContext, workletUrl, whenTouched(fn), onBlock(Int16Array), onFailure(kind, detail) }
  constructor(env) {
    this.env = env;
    this.wanted = false;
    this.opening = null;
    this.context = null;
    this.stream = null;
  }

  start() {
    this.wanted = true;
    if (this.context) {
      this.context.resume();
      return;
    }
    if (!this.opening) this.opening = new Promise((resolve) => this.env.whenTouched(resolve)).then(() => this.open());
  }

  stop() {
    this.wanted = false;
    if (this.context) this.context.suspend();
  }

  async open() {
    const { mediaDevices, onFailure } = this.env;
    if (!mediaDevices || !mediaDevices.getUserMedia) {
      onFailure('unsupported', 'no getUserMedia');
      return;
    }
    try {
      // The tuner wants the string as it sounds: no processing meant for voices.
      this.stream = await mediaDevices.getUserMedia({
        audio: { echoCancellation: false, noiseSuppression: false, autoGainControl: false },
      });
    } catch (e) {
      onFailure(failureOf(e), `${e.name}: ${e.message}`);
      return;
    }
    for (const track of this.stream.getAudioTracks()) {
      track.addEventListener('ended', () => onFailure('gone', 'the microphone was disconnected'));
    }
    try {
      await this.connect();
    } catch (e) {
      onFailure('unavailable', `${e.name}: ${e.message}`);
      return;
    }
    if (!this.wanted) this.context.suspend();
  }

  // A context at the capture rate where the browser allows one, else at its own
  // rate with the worklet resampling.
  async connect() {
    const { AudioContext } = this.env;
    let context = null, source = null;
    try {
      // Blocks are 0.29 s long: the larger buffers of a 'playback' context cost
      // the reading nothing noticeable and wake the audio thread far less often.
      context = new AudioContext({ sampleRate: CAPTURE_RATE, latencyHint: 'playback' });
      source = context.createMediaStreamSource(this.stream);
    } catch {
      if (context) context.close();
      context = new AudioContext({ latencyHint: 'playback' });
      source = context.createMediaStreamSource(this.stream);
    }
    await context.audioWorklet.addModule(this.env.workletUrl);
    // No outputs: the browser pulls a worklet that is a sink of its own.
    const node = new AudioWorkletNode(context, 'uke-capture', {
      numberOfInputs: 1,
      numberOfOutputs: 0,
      channelCount: 1,
      channelCountMode: 'explicit',
      processorOptions: { targetRate: CAPTURE_RATE, blockSamples: BLOCK_SAMPLES },
    });
    node.port.onmessage = (e) => this.env.onBlock(e.data);
    source.connect(node);
    this.context = context;
    this.node = node;
    await context.resume();
  }
}
