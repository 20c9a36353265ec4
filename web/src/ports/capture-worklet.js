// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The capture's audio thread: the microphone at the context's rate in, capture
// blocks at the tuner's rate out, posted to the page.
import { Blocker, Resampler } from './resampler.js';

class CaptureProcessor extends AudioWorkletProcessor {
  constructor(options) {
    super();
    const { targetRate, blockSamples } = options.processorOptions;
    this.resampler = new Resampler(sampleRate, targetRate);
    this.blocker = new Blocker(blockSamples);
  }

  process(inputs) {
    // An input with no channels is a microphone that sends nothing: time still
    // passes for the tuner, and what it hears is silence.
    const channel = (inputs[0] && inputs[0][0]) || this.silence || (this.silence = new Float32Array(128));
    this.blocker.push(this.resampler.push(channel), (block) => this.port.postMessage(block, [block.buffer]));
    return true;
  }
}

registerProcessor('uke-capture', CaptureProcessor);
