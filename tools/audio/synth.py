"""Small synthesis kit shared by make_sounds.py and compose_music.py.

Plain Python lists of floats (-1..1) at SAMPLE_RATE; only the standard library.
Every random draw goes through a seeded random.Random, so the output is the
same on every run.
"""
import array
import math
import os
import subprocess
import sys
import wave

SAMPLE_RATE = 44100
TWO_PI = 2.0 * math.pi


def seconds(n):
    return int(round(n * SAMPLE_RATE))


def midi_to_hz(note):
    return 440.0 * 2.0 ** ((note - 69) / 12.0)


# ---- oscillators -----------------------------------------------------------

def _poly_blep(t, dt):
    """Band-limits the jump of a saw or square at phase 0 (t in 0..1)."""
    if t < dt:
        t /= dt
        return t + t - t * t - 1.0
    if t > 1.0 - dt:
        t = (t - 1.0) / dt
        return t * t + t + t + 1.0
    return 0.0


def _freq_list(freq, n):
    return freq if isinstance(freq, list) else [freq] * n


def sine(freq, n, phase=0.0):
    out = [0.0] * n
    for i, f in enumerate(_freq_list(freq, n)):
        out[i] = math.sin(TWO_PI * phase)
        phase += f / SAMPLE_RATE
        phase -= int(phase)
    return out


def saw(freq, n, phase=0.0):
    out = [0.0] * n
    for i, f in enumerate(_freq_list(freq, n)):
        dt = f / SAMPLE_RATE
        out[i] = 2.0 * phase - 1.0 - _poly_blep(phase, dt)
        phase += dt
        phase -= int(phase)
    return out


def square(freq, n, width=0.5, phase=0.0):
    out = [0.0] * n
    for i, f in enumerate(_freq_list(freq, n)):
        dt = f / SAMPLE_RATE
        v = 1.0 if phase < width else -1.0
        v += _poly_blep(phase, dt)
        t2 = phase - width
        if t2 < 0.0:
            t2 += 1.0
        v -= _poly_blep(t2, dt)
        out[i] = v
        phase += dt
        phase -= int(phase)
    return out


def triangle(freq, n, phase=0.0):
    out = [0.0] * n
    for i, f in enumerate(_freq_list(freq, n)):
        out[i] = 4.0 * abs(phase - 0.5) - 1.0
        phase += f / SAMPLE_RATE
        phase -= int(phase)
    return out


def noise(n, rng):
    r = rng.random
    return [2.0 * r() - 1.0 for _ in range(n)]


# ---- envelopes -------------------------------------------------------------

def adsr(n, attack, decay, sustain, release):
    """Attack, decay and release in seconds; the release ends at sample n."""
    a, d, r = seconds(attack), seconds(decay), seconds(release)
    out = [0.0] * n
    hold_end = max(0, n - r)
    for i in range(n):
        if i < a:
            v = i / a
        elif i < a + d:
            v = 1.0 - (1.0 - sustain) * (i - a) / d
        else:
            v = sustain
        if i >= hold_end and r > 0:
            v *= 1.0 - (i - hold_end) / r
        out[i] = v
    return out


def exp_decay(n, time_constant, attack=0.002):
    """A quick linear rise, then exp(-t / time_constant), ending at 0."""
    a = max(1, seconds(attack))
    k = math.exp(-1.0 / (time_constant * SAMPLE_RATE))
    out = [0.0] * n
    v = 1.0
    for i in range(n):
        if i < a:
            out[i] = i / a
        else:
            out[i] = v
            v *= k
    fade = min(n, seconds(0.004))   # no click at the cut
    for j in range(fade):
        out[n - 1 - j] *= j / fade
    return out


def sweep(n, start, end, curve=1.0):
    """Exponential glide from start to end (both > 0) over n samples."""
    if n <= 1:
        return [start] * n
    ratio = end / start
    return [start * ratio ** ((i / (n - 1)) ** curve) for i in range(n)]


def line(n, start, end):
    if n <= 1:
        return [start] * n
    step = (end - start) / (n - 1)
    return [start + step * i for i in range(n)]


# ---- filters ---------------------------------------------------------------

def lowpass1(x, cutoff):
    a = 1.0 - math.exp(-TWO_PI * cutoff / SAMPLE_RATE)
    y, out = 0.0, [0.0] * len(x)
    for i, v in enumerate(x):
        y += a * (v - y)
        out[i] = y
    return out


def highpass1(x, cutoff):
    low = lowpass1(x, cutoff)
    return [a - b for a, b in zip(x, low)]


def svf(x, cutoff, resonance=0.5, mode="low"):
    """State-variable filter in its trapezoidal form, stable at any cutoff.
    cutoff in Hz, a number or a list; resonance 0 (none) .. 0.95;
    mode low, band or high."""
    cut = _freq_list(cutoff, len(x))
    k = 2.0 * (1.0 - resonance)
    ic1 = ic2 = 0.0
    out = [0.0] * len(x)
    nyquist_guard = SAMPLE_RATE * 0.49
    last_c = None
    for i, v0 in enumerate(x):
        c = cut[i]
        if c != last_c:
            last_c = c
            g = math.tan(math.pi * min(c, nyquist_guard) / SAMPLE_RATE)
            a1 = 1.0 / (1.0 + g * (g + k))
            a2 = g * a1
            a3 = g * a2
        v3 = v0 - ic2
        v1 = a1 * ic1 + a2 * v3
        v2 = ic2 + a2 * ic1 + a3 * v3
        ic1 = 2.0 * v1 - ic1
        ic2 = 2.0 * v2 - ic2
        out[i] = v2 if mode == "low" else v1 if mode == "band" else v0 - k * v1 - v2
    return out


# ---- buffers ---------------------------------------------------------------

def mul(a, b):
    return [x * y for x, y in zip(a, b)]


def scale(a, g):
    return [x * g for x in a]


def mix(*parts):
    """Sums buffers of any lengths into one as long as the longest."""
    out = [0.0] * max(len(p) for p in parts)
    for p in parts:
        add_into(out, p, 0)
    return out


def add_into(buf, part, offset, gain=1.0, wrap=False):
    """Adds part*gain into buf from offset. With wrap, what runs past the end
    continues at the start (for loops); otherwise it is cut."""
    n = len(buf)
    pos = offset % n if wrap else offset
    idx = 0
    while idx < len(part) and pos < n:
        take = min(len(part) - idx, n - pos)
        seg = part[idx:idx + take]
        buf[pos:pos + take] = [a + b * gain for a, b in zip(buf[pos:pos + take], seg)]
        idx += take
        pos = 0 if wrap else n
    return buf


def peak(x):
    return max(abs(v) for v in x) if x else 0.0


def normalize(x, target_peak):
    p = peak(x)
    return scale(x, target_peak / p) if p > 0 else x


def fade_out(x, length):
    n = min(len(x), seconds(length))
    for j in range(n):
        x[len(x) - n + j] *= 1.0 - (j + 1) / n
    return x


def fade_in(x, length):
    n = min(len(x), seconds(length))
    for j in range(n):
        x[j] *= j / n
    return x


def soft_clip(x, drive=1.0):
    """tanh saturation, scaled so that small signals pass at unit gain."""
    return [math.tanh(v * drive) / drive for v in x]


# ---- files -----------------------------------------------------------------

def write_wav(path, channels):
    """channels: one list per channel, equal lengths, values -1..1."""
    count = len(channels)
    frames = array.array("h", bytes(2 * count * len(channels[0])))
    for c, ch in enumerate(channels):
        frames[c::count] = array.array("h", (
            int(round((1.0 if v > 1.0 else -1.0 if v < -1.0 else v) * 32767)) for v in ch))
    if sys.byteorder != "little":
        frames.byteswap()
    with wave.open(path, "wb") as w:
        w.setnchannels(len(channels))
        w.setsampwidth(2)
        w.setframerate(SAMPLE_RATE)
        w.writeframes(frames.tobytes())


def encode_ogg(wav_path, ogg_path, quality):
    os.makedirs(os.path.dirname(ogg_path), exist_ok=True)
    subprocess.run(["oggenc", "--quiet", "-q", str(quality), "-o", ogg_path, wav_path],
                   check=True)
