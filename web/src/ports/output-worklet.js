// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The tone's audio thread: plays the core's frames from a queue and asks the
// page for more while less than LEAD frames wait.
const LEAD = 4096;
const ASK = 2048;

class ToneProcessor extends AudioWorkletProcessor {
  constructor() {
    super();
    this.queue = [];      // Int16Array chunks of interleaved stereo
    this.offset = 0;      // frames used of queue[0]
    this.waiting = 0;     // frames asked for and not yet come
    this.queued = 0;      // frames in the queue
    this.playing = false;
    this.meter = { frames: 0, sum: 0 };
    this.port.onmessage = (e) => {
      const m = e.data;
      if (m.frames) {
        this.queue.push(m.frames);
        this.queued += m.frames.length / 2;
        this.waiting = Math.max(0, this.waiting - m.frames.length / 2);
      } else if ('play' in m) {
        this.playing = m.play;
        if (!m.play) {
          // A stopped tone is silent at once; what was made for it is dropped.
          this.queue = [];
          this.queued = this.offset = this.waiting = 0;
        }
      }
    };
  }

  process(inputs, outputs) {
    const [left, right] = outputs[0];
    let n = 0;
    while (n < left.length && this.queue.length) {
      const chunk = this.queue[0];
      const frames = chunk.length / 2;
      while (n < left.length && this.offset < frames) {
        left[n] = chunk[2 * this.offset] / 32768;
        right[n] = chunk[2 * this.offset + 1] / 32768;
        this.meter.sum += left[n] * left[n];
        ++n;
        ++this.offset;
      }
      if (this.offset === frames) {
        this.queue.shift();
        this.offset = 0;
      }
    }
    this.queued -= n;
    left.fill(0, n);
    right.fill(0, n);
    this.meter.frames += left.length;
    if (this.playing && this.queued + this.waiting < LEAD) {
      this.waiting += ASK;
      this.port.postMessage({ need: ASK });
    }
    if (this.meter.frames >= 11025) {
      this.port.postMessage({ heard: { frames: this.meter.frames, rms: Math.sqrt(this.meter.sum / this.meter.frames) } });
      this.meter = { frames: 0, sum: 0 };
    }
    return true;
  }
}

registerProcessor('uke-tone', ToneProcessor);
