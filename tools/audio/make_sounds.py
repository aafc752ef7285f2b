#!/usr/bin/env python3
"""Synthesises the game's sound effects and writes them to assets/sound/*.ogg.

    python3 tools/audio/make_sounds.py [--wav-only DIR]

Each effect is a short recipe over synth.py. Peaks are set per effect so that
the set is balanced: the shot, heard many times a second, stays quiet; the
blast and the breach are the loudest.
"""
import argparse
import math
import os
import random
import sys
import tempfile

sys.dont_write_bytecode = True      # keep the source folder clean
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from synth import (SAMPLE_RATE, adsr, add_into, encode_ogg, exp_decay, fade_in,
                   fade_out, highpass1, midi_to_hz, mix, mul,
                   noise, normalize, saw, scale, seconds, sine, square, svf,
                   sweep, triangle, write_wav)

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
OUT_DIR = os.path.join(REPO, "assets", "sound")


def bell(note, length, decay, rng_phase=0.0):
    """A soft bell: a sine with two quieter inharmonic partials."""
    n = seconds(length)
    f = midi_to_hz(note)
    body = mix(sine(f, n, rng_phase), scale(sine(f * 2.0, n), 0.35),
               scale(sine(f * 3.01, n), 0.12))
    return mul(body, exp_decay(n, decay))


def crackle(n, rng, density, cutoff=4000.0):
    """Sparse electric sparks: random clicks of random size, band-limited."""
    out = [0.0] * n
    i = 0
    while i < n:
        i += 1 + int(rng.expovariate(density) * SAMPLE_RATE)
        burst = seconds(rng.uniform(0.001, 0.006))
        amp = rng.uniform(0.3, 1.0)
        for j in range(burst):
            if i + j < n:
                out[i + j] += amp * (2.0 * rng.random() - 1.0) * (1.0 - j / burst)
    return svf(out, cutoff, 0.3, "band")


def tv_static(length, rng, start_cutoff, end_cutoff, decay_curve, onset=0.004):
    """Television noise that dissolves: the hiss darkens, thins into sparse
    crackle and fades. decay_curve shapes the fade (larger: longer hold)."""
    n = seconds(length)
    hiss = noise(n, rng)
    cutoff = sweep(n, start_cutoff, end_cutoff, 0.7)
    hiss = svf(hiss, cutoff, 0.1)
    hiss = highpass1(hiss, 150.0)
    # The picture's line rate flickers the level a little (no whine).
    flicker = [0.85 + 0.15 * math.sin(2 * math.pi * 59.94 * i / SAMPLE_RATE) *
               math.sin(2 * math.pi * 3.1 * i / SAMPLE_RATE) for i in range(n)]
    hiss = mul(hiss, flicker)
    sparks = crackle(n, rng, 90.0, 3000.0)
    env_hiss = [(1.0 - i / n) ** decay_curve for i in range(n)]
    # The sparks outlast the hiss: the dissolving tail.
    env_sparks = [min(1.0, 4.0 * i / n) * (1.0 - i / n) ** (decay_curve * 0.5)
                  for i in range(n)]
    out = mix(mul(hiss, env_hiss), scale(mul(sparks, env_sparks), 0.8))
    fade_in(out, onset)
    return fade_out(out, 0.02)


def make_shot(rng):
    n = seconds(0.2)
    zap = mix(triangle(sweep(n, 1700.0, 190.0, 0.6), n),
              scale(square(sweep(n, 850.0, 95.0, 0.6), n, 0.3), 0.25))
    zap = svf(zap, sweep(n, 5000.0, 800.0), 0.2)
    zap = mul(zap, exp_decay(n, 0.045, 0.001))
    tick = svf(noise(seconds(0.012), rng), 3200.0, 0.4, "band")
    tick = mul(tick, exp_decay(len(tick), 0.003, 0.0005))
    return normalize(mix(zap, scale(tick, 0.6)), 0.42)


def make_build(rng):
    n = seconds(1.1)
    # A servo that winds up and settles.
    pitch = [95.0 + 70.0 * math.sin(math.pi * min(1.0, i / (0.85 * n))) for i in range(n)]
    motor = mix(saw(pitch, n), scale(saw([p * 1.5 for p in pitch], n), 0.3))
    motor = svf(motor, [3.2 * p + 300.0 for p in pitch], 0.55)
    motor = mul(motor, adsr(n, 0.06, 0.2, 0.7, 0.25))
    # Ratchet clicks, slowing towards the end.
    clicks = [0.0] * n
    t = 0.02
    while t < 0.88:
        c = svf(noise(seconds(0.008), rng), 2400.0, 0.5, "band")
        add_into(clicks, mul(c, exp_decay(len(c), 0.002, 0.0003)), seconds(t), 0.9)
        t += 0.045 + 0.05 * t
    # The clunk of a cannon locking into place.
    thump_n = seconds(0.22)
    thump = mul(sine(sweep(thump_n, 140.0, 48.0), thump_n), exp_decay(thump_n, 0.06))
    out = mix(scale(motor, 0.55), scale(clicks, 0.5))
    add_into(out, scale(thump, 0.9), seconds(0.86))
    return normalize(fade_out(out, 0.03), 0.58)


def make_button1(rng):
    n = seconds(0.09)
    blip = mix(sine(1046.5, n), scale(sine(1568.0, n), 0.5))
    blip = mul(blip, exp_decay(n, 0.022, 0.001))
    tick = mul(svf(noise(seconds(0.006), rng), 5000.0, 0.3, "band"),
               exp_decay(seconds(0.006), 0.0015, 0.0002))
    return normalize(mix(blip, scale(tick, 0.5)), 0.5)


def make_button2(rng):
    # Refused: two low, falling, slightly buzzy tones.
    def tone(freq, length):
        n = seconds(length)
        t = svf(square(freq, n, 0.4), 1400.0, 0.2)
        return mul(t, adsr(n, 0.004, 0.05, 0.6, 0.03))
    out = [0.0] * seconds(0.26)
    add_into(out, tone(233.1, 0.1), 0)
    add_into(out, tone(174.6, 0.14), seconds(0.12))
    return normalize(svf(out, 1000.0, 0.0), 0.32)


def make_button3(rng):
    # Something gained: two bell notes up a fifth.
    out = [0.0] * seconds(0.42)
    add_into(out, bell(88, 0.3, 0.08), 0, 0.8)
    add_into(out, bell(95, 0.34, 0.11), seconds(0.07))
    return normalize(fade_out(out, 0.02), 0.5)


def make_button4(rng):
    n = seconds(0.06)
    tick = mul(sine(sweep(n, 1500.0, 1100.0), n), exp_decay(n, 0.012, 0.0008))
    return normalize(tick, 0.4)


def make_combo(rng, notes):
    """A chain of lightning: a rising arpeggio of bells over crackle and a
    brightening sweep."""
    length = 0.85
    n = seconds(length)
    out = [0.0] * n
    for k, note in enumerate(notes):
        add_into(out, bell(note, length - 0.055 * k, 0.16 + 0.04 * k),
                 seconds(0.055 * k), 0.55 + 0.12 * k)
    rise_n = seconds(0.3)
    rise = svf(noise(rise_n, rng), sweep(rise_n, 600.0, 5000.0), 0.6, "band")
    rise = mul(rise, [math.sin(math.pi * i / rise_n) ** 2 for i in range(rise_n)])
    add_into(out, scale(rise, 0.25), 0)
    sparks = mul(crackle(n, rng, 60.0, 3500.0), exp_decay(n, 0.2))
    out = mix(out, scale(sparks, 0.5))
    return normalize(fade_out(out, 0.05), 0.6)


def make_combo_big(rng):
    n = seconds(2.3)
    out = [0.0] * n
    # The boom of the blast.
    boom_n = seconds(0.9)
    boom = mix(sine(sweep(boom_n, 110.0, 34.0, 0.5), boom_n),
               scale(svf(noise(boom_n, rng), sweep(boom_n, 2500.0, 200.0), 0.2), 0.6))
    add_into(out, mul(boom, exp_decay(boom_n, 0.22, 0.002)), 0, 1.0)
    # A major chord that swells and rises an octave in brightness.
    chord_n = seconds(2.1)
    chord = [0.0] * chord_n
    for note in (48, 55, 60, 64, 67, 72):
        f = midi_to_hz(note)
        voice = mix(saw(f * 1.003, chord_n), saw(f * 0.997, chord_n))
        add_into(chord, voice, 0, 0.16)
    chord = svf(chord, sweep(chord_n, 300.0, 4500.0, 0.8), 0.35)
    chord = mul(chord, adsr(chord_n, 0.6, 0.4, 0.8, 1.0))
    add_into(out, chord, seconds(0.12), 0.8)
    # A fast shimmer of bells climbing over it.
    for k, note in enumerate((72, 76, 79, 84, 88, 91, 96)):
        add_into(out, bell(note, 1.0, 0.25), seconds(0.5 + 0.07 * k), 0.28)
    sparks = mul(crackle(n, rng, 80.0, 4000.0), exp_decay(n, 0.5))
    out = mix(out, scale(sparks, 0.45))
    return normalize(fade_out(out, 0.2), 0.85)


def make_sounds():
    """Name -> (recipe, seed)."""
    return {
        "shot": (make_shot, 1),
        "build": (make_build, 2),
        "button1": (make_button1, 3),
        "button2": (make_button2, 4),
        "button3": (make_button3, 5),
        "button4": (make_button4, 6),
        "combo1": (lambda r: make_combo(r, (72, 76, 79, 84)), 7),
        "combo2": (lambda r: make_combo(r, (74, 77, 81, 86)), 8),
        "combo_big": (make_combo_big, 9),
        # The breach: a loud burst that dissolves.
        "static": (lambda r: normalize(tv_static(1.6, r, 6500.0, 900.0, 1.6), 0.72), 10),
        # Opening a page or a game: short.
        "static1": (lambda r: normalize(tv_static(0.7, r, 6000.0, 1500.0, 1.2), 0.5), 11),
        # The closing dissolve to black, about 1.2 s.
        "static2": (lambda r: normalize(tv_static(1.25, r, 6000.0, 700.0, 1.4), 0.55), 12),
        # Beside the boot screen: a set warming up, then fading.
        "static3": (lambda r: normalize(tv_static(4.0, r, 5500.0, 500.0, 1.1, 0.25), 0.45), 13),
    }


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--wav-only", metavar="DIR",
                        help="write WAV files to DIR and do not encode")
    parser.add_argument("names", nargs="*", help="only these sounds")
    args = parser.parse_args()
    recipes = make_sounds()
    for name in args.names or sorted(recipes):
        recipe, seed = recipes[name]
        samples = recipe(random.Random(seed))
        if args.wav_only:
            os.makedirs(args.wav_only, exist_ok=True)
            write_wav(os.path.join(args.wav_only, name + ".wav"), [samples])
            continue
        with tempfile.TemporaryDirectory() as tmp:
            wav = os.path.join(tmp, name + ".wav")
            write_wav(wav, [samples])
            encode_ogg(wav, os.path.join(OUT_DIR, name + ".ogg"), 4)
        print("%-10s %.2f s" % (name, len(samples) / SAMPLE_RATE))


if __name__ == "__main__":
    main()
