"""The voices of the music: drums made from noise and swept sines, and tonal
voices made from oscillators, envelopes and filters.

Each voice returns a mono list (pads return a left and a right list). Notes are
cached, so a pattern that repeats costs one rendering.
"""
import functools
import math
import random

from synth import (SAMPLE_RATE, adsr, exp_decay, midi_to_hz, mix,
                   mul, noise, saw, scale, seconds, sine, square, svf, sweep,
                   triangle)


def _rng(*key):
    """The same noise for the same call, so cached and uncached runs agree."""
    return random.Random(repr(key))


# ---- drums -----------------------------------------------------------------

@functools.lru_cache(maxsize=None)
def kick(punch=1.0, low=48.0):
    n = seconds(0.4)
    drop = seconds(0.07)
    pitch = sweep(drop, 170.0 * punch, low, 0.5) + [low] * (n - drop)
    body = mul(sine(pitch, n), exp_decay(n, 0.13, 0.001))
    click = mul(svf(noise(seconds(0.004), _rng("kick")), 4000.0, 0.2, "band"),
                exp_decay(seconds(0.004), 0.001, 0.0002))
    return mix(body, scale(click, 0.35 * punch))


@functools.lru_cache(maxsize=None)
def snare(tone=190.0, snap=1.0):
    n = seconds(0.28)
    body = mul(triangle(sweep(seconds(0.05), tone * 1.4, tone) + [tone] * (n - seconds(0.05)), n),
               exp_decay(n, 0.05, 0.001))
    hiss = svf(noise(n, _rng("snare", tone)), 3200.0, 0.15, "band")
    hiss = mix(hiss, scale(svf(noise(n, _rng("snare2", tone)), 7000.0, 0.0), 0.4))
    hiss = mul(hiss, exp_decay(n, 0.09, 0.001))
    return mix(scale(body, 0.7), scale(hiss, 1.3 * snap))


@functools.lru_cache(maxsize=None)
def clap():
    n = seconds(0.25)
    out = [0.0] * n
    src = svf(noise(n, _rng("clap")), 1400.0, 0.35, "band")
    env = [0.0] * n
    for k, at in enumerate((0.0, 0.011, 0.022)):
        s = seconds(at)
        for i in range(s, n):
            t = (i - s) / SAMPLE_RATE
            v = math.exp(-t / (0.006 if k < 2 else 0.07))
            if v > env[i]:
                env[i] = v
    out = mul(src, env)
    return scale(out, 1.6)


@functools.lru_cache(maxsize=None)
def hat(open_=False, tone=8000.0):
    n = seconds(0.3 if open_ else 0.07)
    hiss = svf(noise(n, _rng("hat", open_, tone)), tone, 0.3, "high")
    hiss = svf(hiss, 13000.0, 0.0)          # keep it soft, not fizzy
    return mul(hiss, exp_decay(n, 0.12 if open_ else 0.018, 0.0005))


@functools.lru_cache(maxsize=None)
def shaker():
    n = seconds(0.09)
    hiss = svf(noise(n, _rng("shaker")), 6500.0, 0.2, "band")
    env = adsr(n, 0.015, 0.03, 0.3, 0.04)
    return mul(hiss, env)


@functools.lru_cache(maxsize=None)
def rim():
    n = seconds(0.06)
    knock = mix(sine(820.0, n), scale(sine(1750.0, n), 0.4))
    return mul(knock, exp_decay(n, 0.012, 0.0005))


@functools.lru_cache(maxsize=None)
def tom(pitch=110.0):
    n = seconds(0.45)
    body = sine(sweep(n, pitch * 1.6, pitch, 0.3), n)
    return mul(body, exp_decay(n, 0.16, 0.001))


@functools.lru_cache(maxsize=None)
def crash():
    n = seconds(1.8)
    hiss = svf(noise(n, _rng("crash")), 5000.0, 0.1, "high")
    hiss = svf(hiss, 11000.0, 0.0)
    return mul(hiss, exp_decay(n, 0.5, 0.002))


@functools.lru_cache(maxsize=None)
def riser(length):
    """Filtered noise that rises over the given seconds into the next bar."""
    n = seconds(length)
    hiss = svf(noise(n, _rng("riser", length)), sweep(n, 400.0, 9000.0, 1.5), 0.5, "band")
    return mul(hiss, [(i / n) ** 2 for i in range(n)])


# ---- tonal voices ----------------------------------------------------------

@functools.lru_cache(maxsize=None)
def bass(note, length, cutoff=500.0, env_amount=1500.0, resonance=0.4, decay=0.12):
    """A saw bass with a filter that snaps open on each note."""
    n = seconds(length)
    f = midi_to_hz(note)
    osc = mix(saw(f, n), scale(square(f * 0.5, n), 0.5))
    env = exp_decay(n, decay, 0.001)
    cut = [cutoff + env_amount * e for e in env]
    out = svf(osc, cut, resonance)
    return mul(out, adsr(n, 0.003, 0.08, 0.85, 0.03))


@functools.lru_cache(maxsize=None)
def sub_bass(note, length):
    n = seconds(length)
    f = midi_to_hz(note)
    osc = mix(sine(f, n), scale(triangle(f * 2.0, n), 0.15))
    return mul(osc, adsr(n, 0.02, 0.2, 0.8, 0.12))


@functools.lru_cache(maxsize=None)
def pluck(note, length, brightness=2500.0, decay=0.18):
    n = seconds(length)
    f = midi_to_hz(note)
    osc = mix(saw(f * 1.004, n), saw(f * 0.996, n, 0.3))
    env = exp_decay(n, decay * 0.6, 0.001)
    out = svf(osc, [300.0 + brightness * e for e in env], 0.3)
    return scale(mul(out, exp_decay(n, decay, 0.002)), 0.5)


@functools.lru_cache(maxsize=None)
def lead(note, length, cutoff=3000.0, width=0.35, vibrato=0.25):
    """A square-and-saw lead with delayed vibrato."""
    n = seconds(length)
    f = midi_to_hz(note)
    start = seconds(0.18)
    freq = [f * (1.0 + (0.006 * vibrato * min(1.0, (i - start) / 8000.0) *
                         math.sin(2 * math.pi * 5.2 * i / SAMPLE_RATE) if i > start else 0.0))
            for i in range(n)]
    osc = mix(square(freq, n, width), scale(saw([v * 1.003 for v in freq], n), 0.5))
    out = svf(osc, cutoff, 0.25)
    return scale(mul(out, adsr(n, 0.008, 0.1, 0.75, min(0.08, length * 0.3))), 0.5)


@functools.lru_cache(maxsize=None)
def soft_lead(note, length):
    """A round, flute-like voice for the calm music."""
    n = seconds(length)
    f = midi_to_hz(note)
    freq = [f * (1.0 + 0.004 * math.sin(2 * math.pi * 4.6 * i / SAMPLE_RATE) *
                 min(1.0, i / 20000.0)) for i in range(n)]
    osc = mix(triangle(freq, n), scale(sine([v * 2.0 for v in freq], n), 0.2))
    breath = svf(noise(n, _rng("breath", note)), f * 2.0, 0.6, "band")
    osc = mix(osc, scale(breath, 0.04))
    return scale(mul(osc, adsr(n, 0.06, 0.2, 0.8, min(0.25, length * 0.4))), 0.6)


@functools.lru_cache(maxsize=None)
def bell(note, length, decay=0.5):
    n = seconds(length)
    f = midi_to_hz(note)
    body = mix(sine(f, n), scale(sine(f * 2.0, n), 0.3), scale(sine(f * 3.01, n), 0.1),
               scale(sine(f * 4.2, n), 0.05))
    return scale(mul(body, exp_decay(n, decay, 0.002)), 0.6)


@functools.lru_cache(maxsize=None)
def pad(notes, length, cutoff=1800.0, attack=0.5, release=0.8):
    """A wide chord: each note is two detuned saws, one on each side."""
    n = seconds(length)
    left, right = [0.0] * n, [0.0] * n
    for k, note in enumerate(notes):
        f = midi_to_hz(note)
        left = mix(left, saw(f * 1.0045, n, 0.13 * k))
        right = mix(right, saw(f * 0.9955, n, 0.57 * k + 0.2))
    # A slow breath in the filter keeps a held chord alive.
    cut = [cutoff * (1.0 + 0.25 * math.sin(2 * math.pi * 0.3 * i / SAMPLE_RATE)) for i in range(n)]
    env = adsr(n, attack, 0.3, 0.85, release)
    g = 0.35 / max(1, len(notes)) ** 0.5
    left = scale(mul(svf(left, cut, 0.15), env), g)
    right = scale(mul(svf(right, cut, 0.15), env), g)
    return left, right
