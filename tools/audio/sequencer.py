"""A small step sequencer for looping music.

A Song is a stereo buffer exactly `bars` bars long, on a grid of sixteenth
notes of a whole number of samples. Everything placed in it wraps around: a
note that rings past the end continues at the start, and the delay and reverb
work on the buffer as a circle. So the last sample flows into the first and the
track loops without a seam.
"""
import math

from synth import SAMPLE_RATE, add_into, lowpass1, mul, peak, scale

MAJOR = (0, 2, 4, 5, 7, 9, 11)
MINOR = (0, 2, 3, 5, 7, 8, 10)
HARMONIC_MINOR = (0, 2, 3, 5, 7, 8, 11)
PHRYGIAN = (0, 1, 3, 5, 7, 8, 10)
DORIAN = (0, 2, 3, 5, 7, 9, 10)


class Key:
    def __init__(self, root, scale_steps):
        self.root = root
        self.steps = scale_steps

    def note(self, degree, octave=0):
        """Scale degree (0 = root, may be negative or above 6) to a MIDI note."""
        return self.root + 12 * (octave + degree // 7) + self.steps[degree % 7]

    def chord(self, degree, size=3, octave=0):
        """Stacked thirds on a degree: triad, seventh, ninth."""
        return tuple(self.note(degree + 2 * k, octave) for k in range(size))


def parse_line(text):
    """A line of sixteenths: a degree (optionally with # or b), '-' to hold the
    note before, '.' for a rest; '|' marks bars and is ignored.
    Returns (step, degree, semitone shift, steps held)."""
    notes = []
    step = 0
    for token in text.split():
        if token == "|":
            continue
        if token == "-":
            if notes and notes[-1][0] + notes[-1][3] == step:
                s, d, sh, ln = notes[-1]
                notes[-1] = (s, d, sh, ln + 1)
        elif token != ".":
            shift = 1 if token.endswith("#") else -1 if token.endswith("b") else 0
            notes.append((step, int(token.rstrip("#b")), shift, 1))
        step += 1
    return notes, step


def pan_gains(pan):
    """Constant-power pan, -1 left .. 1 right, unity in the centre."""
    angle = (pan + 1.0) * math.pi / 4.0
    return math.cos(angle) * math.sqrt(2.0), math.sin(angle) * math.sqrt(2.0)


def _circular_feedback(x, delay, gain, passes=2):
    """y[n] = x[n] + gain * y[n - delay] on a circular buffer, in blocks."""
    n = len(x)
    y = list(x)
    for _ in range(passes):
        for start in range(0, n, delay):
            end = min(start + delay, n)
            src = _circular_slice(y, start - delay, end - delay)
            y[start:end] = [a + gain * b for a, b in zip(x[start:end], src)]
    return y


def _circular_allpass(x, delay, gain, passes=2):
    """y[n] = -g x[n] + x[n - D] + g y[n - D] on a circular buffer."""
    n = len(x)
    y = [0.0] * n
    for _ in range(passes):
        for start in range(0, n, delay):
            end = min(start + delay, n)
            xs = _circular_slice(x, start - delay, end - delay)
            ys = _circular_slice(y, start - delay, end - delay)
            y[start:end] = [-gain * a + b + gain * c
                            for a, b, c in zip(x[start:end], xs, ys)]
    return y


def _circular_slice(buf, a, b):
    """buf[a:b] with indices taken around the circle (a may be negative)."""
    n = len(buf)
    count = b - a
    a %= n
    if a + count <= n:
        return buf[a:a + count]
    return buf[a:] + buf[:a + count - n]


def circular_lowpass(x, cutoff):
    """A one-pole lowpass whose state at the start is the one at the end."""
    warm = min(len(x), SAMPLE_RATE // 2)
    return lowpass1(x[-warm:] + x, cutoff)[warm:]


class Song:
    def __init__(self, bpm, bars):
        self.step = int(round(SAMPLE_RATE * 60.0 / bpm / 4.0))
        self.bar = 16 * self.step
        self.bars = bars
        self.length = bars * self.bar
        self.dry = [[0.0] * self.length, [0.0] * self.length]
        self.echo = [[0.0] * self.length, [0.0] * self.length]
        self.room = [[0.0] * self.length, [0.0] * self.length]
        self.pumped = [[0.0] * self.length, [0.0] * self.length]

    def seconds_of(self, steps):
        return steps * self.step / SAMPLE_RATE

    def place(self, sound, step, gain=1.0, pan=0.0, echo=0.0, room=0.0, pump=False):
        """Adds a mono sound at a sixteenth (counted from the song's start)."""
        gl, gr = pan_gains(pan)
        self.place_stereo(sound, sound, step, gain * gl, gain * gr, echo, room, pump)

    def place_stereo(self, left, right, step, gl=1.0, gr=1.0, echo=0.0, room=0.0, pump=False):
        at = step * self.step
        target = self.pumped if pump else self.dry
        add_into(target[0], left, at, gl, wrap=True)
        add_into(target[1], right, at, gr, wrap=True)
        if echo > 0:
            add_into(self.echo[0], left, at, gl * echo, wrap=True)
            add_into(self.echo[1], right, at, gr * echo, wrap=True)
        if room > 0:
            add_into(self.room[0], left, at, gl * room, wrap=True)
            add_into(self.room[1], right, at, gr * room, wrap=True)

    def mixdown(self, echo_steps=(6, 4), echo_feedback=0.35, room_size=1.0,
                pump_depth=0.0, target_peak=0.89, drive=1.2):
        """Echo (a tempo-synced delay, different on each side), a small
        circular reverb, the pumping bus, gentle saturation and level."""
        out = []
        pump = self._pump_curve(pump_depth)
        for ch in (0, 1):
            echo = circular_lowpass(self.echo[ch], 3500.0)
            echo = _circular_feedback(echo, echo_steps[ch] * self.step, echo_feedback)
            room = self._reverb(circular_lowpass(self.room[ch], 5000.0), ch, room_size)
            pumped = mul(self.pumped[ch], pump)
            summed = [a + b + c + d for a, b, c, d in zip(self.dry[ch], echo, room, pumped)]
            offset = sum(summed) / len(summed)       # no DC: a constant is seamless too
            out.append([v - offset for v in summed])
        level = max(peak(out[0]), peak(out[1]))
        out = [[math.tanh(v * drive / level) for v in ch] for ch in out]
        level = max(peak(out[0]), peak(out[1]))
        return [scale(ch, target_peak / level) for ch in out]

    def _pump_curve(self, depth):
        """Ducks on every beat, the way a kick pushes a pad aside."""
        beat = 4 * self.step
        shape = [1.0 - depth * math.exp(-i / (0.3 * beat)) for i in range(beat)]
        return shape * (self.length // beat)

    def _reverb(self, x, ch, size):
        combs = (1557, 1617, 1491, 1422) if ch == 0 else (1580, 1640, 1514, 1445)
        wet = [0.0] * len(x)
        for d in combs:
            c = _circular_feedback(x, int(d * size), 0.78)
            wet = [a + b for a, b in zip(wet, c)]
        for d in ((556, 441) if ch == 0 else (579, 464)):
            wet = _circular_allpass(wet, d, 0.5)
        return scale(wet, 0.12)
