#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the tuner's reference recordings: one plucked ukulele string per note the
tunings use ("A4.mp3", "FS4.mp3", ...) and the confirmation beep ("beep-full.mp3").

    resources/sounds/make_sounds.py [--out DIR] [--wav]

Everything is synthesised here, in plain Python, so the files can be remade (and
changed) from this script alone; `lame` encodes them. The same script run again
gives the same files.

Strings: a Karplus-Strong loop (Jaffe and Smith's extended form). A delay line holds
one period of a soft finger pluck; each trip round the loop goes through a
symmetric three-tap low-pass (exactly one sample of delay at every frequency, so it
damps the upper partials the way nylon does without bending the pitch), a loss
factor setting the ring time, and a first-order all-pass tuned so that the loop's
delay at the fundamental is exactly 44100 / f0 samples. The pitch is therefore exact
to far better than the tuner's resolution. A few resonators standing for the
ukulele's body (air cavity and top plate) colour the string after the loop; being
outside it they do not move the pitch.

The beep: two short sine chimes (C7 then E7). Both lie above 1000 Hz, as do half
and a third of each, so that the tuner, hearing its own beep through the
microphone, never reads it as a string.
"""

import argparse
import cmath
import math
import os
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import wave

RATE = 44100  # samples per second
A4 = 440.0  # hertz; the files are tuned for the default calibration

# Semitones from A4 of every note a tuning plays; file names write a sharp as S.
NOTES = {
    "D3": -19, "G3": -14, "A3": -12, "AS3": -11, "B3": -10,
    "C4": -9, "CS4": -8, "D4": -7, "DS4": -6, "E4": -5, "F4": -4,
    "FS4": -3, "G4": -2, "GS4": -1, "A4": 0, "AS4": 1, "B4": 2,
}

# --- string model: the editable part -----------------------------------------
LENGTH = 2.1  # seconds of each string recording
FADE = 0.25  # seconds of fade at the end, so the tail never clicks
PLUCK_POSITION = 0.22  # where the finger meets the string, as a fraction of its length
PLUCK_SOFTNESS = 1.55  # partial k of the pluck falls off as 1 / k^softness
PLUCK_NOISE = 0.04  # share of finger noise in the pluck
DAMPING_TAP = 0.16  # outer taps of the loop low-pass: 0 bright (steel) to 0.25 dark
RING_LOW = 3.2  # seconds for the fundamental to fall 60 dB, at D3
RING_HIGH = 2.0  # the same at B4; notes in between are interpolated
PEAK = 0.72  # peak level of every recording, full scale = 1
# Body resonances: (hertz, quality factor, gain). Air cavity, then top-plate modes.
BODY = [(245.0, 9.0, 0.55), (430.0, 7.0, 0.45), (880.0, 5.0, 0.25), (2300.0, 3.0, 0.12)]

# --- beep: the editable part --------------------------------------------------
BEEP_TONES = [(2093.0, 0.00), (2637.0, 0.075)]  # (hertz, start in seconds)
BEEP_LENGTH = 0.42
BEEP_DECAY = 0.085  # seconds per factor e
BEEP_PEAK = 0.5


def note_frequency(semitones):
    return A4 * 2.0 ** (semitones / 12.0)


def allpass_coefficient(delay, omega):
    """Coefficient C of (C + z^-1) / (1 + C z^-1) whose phase delay at omega
    (radians per sample) is `delay` samples, found by bisection."""

    def phase_delay(c):
        z = cmath.exp(-1j * omega)
        return -cmath.phase((c + z) / (1 + c * z)) / omega

    lo, hi = -0.999999, 0.999999  # phase delay falls as C rises
    for _ in range(200):
        mid = 0.5 * (lo + hi)
        if phase_delay(mid) > delay:
            lo = mid
        else:
            hi = mid
    return 0.5 * (lo + hi)


def pluck(period, seed):
    """One period of a finger pluck: a rounded triangle of displacement built from
    its partials, with a little noise for the skin on the string."""
    rng = random.Random(seed)
    partials = int(period // 2)
    shape = [0.0] * period
    for k in range(1, partials + 1):
        amp = math.sin(math.pi * k * PLUCK_POSITION) / k ** PLUCK_SOFTNESS
        if abs(amp) < 1e-5:
            continue
        step = 2.0 * math.pi * k / period
        for n in range(period):
            shape[n] += amp * math.sin(step * n)
    top = max(abs(v) for v in shape)
    noise = [rng.uniform(-1.0, 1.0) for _ in range(period)]
    # The noise is smoothed so it reads as a soft touch, not a hiss.
    smooth, prev = [], 0.0
    for v in noise:
        prev = 0.6 * prev + 0.4 * v
        smooth.append(prev)
    return [v / top + PLUCK_NOISE * s for v, s in zip(shape, smooth)]


def karplus_strong(f0, seconds, ring_time, seed):
    """A string of fundamental f0 hertz, `seconds` long."""
    loop_delay = RATE / f0  # samples round the loop at the fundamental
    omega = 2.0 * math.pi * f0 / RATE
    # The low-pass adds one sample, the all-pass the rest; keep the all-pass's share
    # between 0.5 and 1.5 samples, where it is well behaved.
    line = int(math.floor(loop_delay - 1.0 - 0.5))
    fraction = loop_delay - 1.0 - line
    c = allpass_coefficient(fraction, omega)

    b = DAMPING_TAP
    a = 1.0 - 2.0 * b
    gain_at_f0 = a + 2.0 * b * math.cos(omega)
    # Per trip, the loss that makes the fundamental fall 60 dB in ring_time.
    loss = 10.0 ** (-3.0 / (ring_time * f0)) / gain_at_f0

    buf = pluck(line, seed)
    out = []
    idx = 0
    x1 = x2 = 0.0  # low-pass input history
    ap_x = ap_y = 0.0  # all-pass state
    for _ in range(int(seconds * RATE)):
        x = buf[idx]
        out.append(x)
        lp = loss * (b * x + a * x1 + b * x2)
        x2, x1 = x1, x
        y = c * lp + ap_x - c * ap_y
        ap_x, ap_y = lp, y
        buf[idx] = y
        idx += 1
        if idx == line:
            idx = 0
    return out


def body(signal):
    """The string heard through the body: the direct sound plus band-pass resonators."""
    mixed = list(signal)
    for hz, q, g in BODY:
        w = 2.0 * math.pi * hz / RATE
        alpha = math.sin(w) / (2.0 * q)
        norm = 1.0 + alpha
        b0, b2 = alpha / norm, -alpha / norm
        a1, a2 = -2.0 * math.cos(w) / norm, (1.0 - alpha) / norm
        x1 = x2 = y1 = y2 = 0.0
        for n, x in enumerate(signal):
            y = b0 * x + b2 * x2 - a1 * y1 - a2 * y2
            x2, x1 = x1, x
            y2, y1 = y1, y
            mixed[n] += g * y
    return mixed


def finish(signal, peak, fade):
    top = max(abs(v) for v in signal) or 1.0
    scale = peak / top
    n = len(signal)
    fade_n = int(fade * RATE)
    out = []
    for i, v in enumerate(signal):
        g = scale
        if i >= n - fade_n:
            g *= 0.5 + 0.5 * math.cos(math.pi * (i - (n - fade_n)) / fade_n)
        out.append(v * g)
    return out


def string_recording(name):
    semis = NOTES[name]
    f0 = note_frequency(semis)
    t = (semis - NOTES["D3"]) / (NOTES["B4"] - NOTES["D3"])
    ring = RING_LOW + (RING_HIGH - RING_LOW) * t
    raw = karplus_strong(f0, LENGTH, ring, seed=name)
    return finish(body(raw), PEAK, FADE)


def beep():
    n = int(BEEP_LENGTH * RATE)
    out = [0.0] * n
    attack = int(0.004 * RATE)
    for hz, start in BEEP_TONES:
        s0 = int(start * RATE)
        for i in range(n - s0):
            t = i / RATE
            env = math.exp(-t / BEEP_DECAY)
            if i < attack:
                env *= 0.5 - 0.5 * math.cos(math.pi * i / attack)
            w = 2.0 * math.pi * hz * t
            out[s0 + i] += env * (math.sin(w) + 0.06 * math.sin(2.0 * w))
    return finish(out, BEEP_PEAK, 0.05)


def write_wav(path, samples):
    with wave.open(path, "wb") as w:
        w.setnchannels(1)
        w.setsampwidth(2)
        w.setframerate(RATE)
        frames = bytearray()
        for v in samples:
            frames += struct.pack("<h", max(-32767, min(32767, int(round(v * 32767.0)))))
        w.writeframes(bytes(frames))


def encode(wav_path, mp3_path):
    subprocess.run(["lame", "--quiet", "--noreplaygain", "-m", "m", "-q", "2", "-b", "96", wav_path, mp3_path],
                   check=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--out", default=os.path.dirname(os.path.abspath(__file__)), help="folder for the files")
    parser.add_argument("--wav", action="store_true", help="also keep the WAV masters next to the MP3s")
    args = parser.parse_args()
    if shutil.which("lame") is None:
        sys.exit("make_sounds.py: lame is needed (apt install lame)")
    os.makedirs(args.out, exist_ok=True)

    jobs = [(name + ".mp3", lambda n=name: string_recording(n)) for name in sorted(NOTES)]
    jobs.append(("beep-full.mp3", beep))
    with tempfile.TemporaryDirectory() as tmp:
        for file_name, make in jobs:
            stem = os.path.splitext(file_name)[0]
            wav_path = os.path.join(args.wav and args.out or tmp, stem + ".wav")
            write_wav(wav_path, make())
            encode(wav_path, os.path.join(args.out, file_name))
            print(file_name)


if __name__ == "__main__":
    main()
