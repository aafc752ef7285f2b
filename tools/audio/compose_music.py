#!/usr/bin/env python3
"""Composes the game's four music tracks and writes them to assets/music/*.ogg.

    python3 tools/audio/compose_music.py [--wav-only DIR] [track number ...]

Each track is a function below: a key, a chord per bar, note lines written as
scale degrees, drum patterns, and an arrangement by bar. The sequencer makes
every track a seamless loop (see sequencer.py).
"""
import argparse
import math
import os
import sys
import tempfile
import time

sys.dont_write_bytecode = True      # keep the source folder clean
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import instruments as ins
from sequencer import HARMONIC_MINOR, MAJOR, MINOR, PHRYGIAN, Key, Song, parse_line
from synth import SAMPLE_RATE, encode_ogg, write_wav

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
OUT_DIR = os.path.join(REPO, "assets", "music")

HIT_LEVELS = {"x": 1.0, "X": 1.3, "g": 0.4}


def drums(song, bar, patterns, kit):
    """patterns: name -> 16 characters ('x' hit, 'X' accent, 'g' ghost, '.')."""
    for name, pattern in patterns.items():
        sound, gain, pan, room = kit[name]
        for step, ch in enumerate(pattern.replace(" ", "")):
            if ch in HIT_LEVELS:
                song.place(sound, bar * 16 + step, gain * HIT_LEVELS[ch], pan, room=room)


def notes(song, bar, text, key, voice, gain=1.0, pan=0.0, echo=0.0, room=0.0,
          octave=0, base=0, pump=False):
    """Places a line of scale degrees (see parse_line), base added to each."""
    parsed, _ = parse_line(text)
    for step, degree, shift, held in parsed:
        note = key.note(degree + base, octave) + shift
        sound = voice(note, round(song.seconds_of(held), 4))
        song.place(sound, bar * 16 + step, gain, pan, echo, room, pump)


def chord_pad(song, bar, chord, bars, gain=1.0, room=0.3, pump=False, **voice):
    left, right = ins.pad(chord, round(song.seconds_of(16 * bars), 4), **voice)
    song.place_stereo(left, right, bar * 16, gain, gain, room=room, pump=pump)


def arpeggio(song, bar, chord, pattern, voice, gain=1.0, pan=0.0, echo=0.0, room=0.0,
             length=1):
    """pattern: 16 tokens, each an index into the chord ('.' rest); an index
    past the chord's top repeats it an octave up."""
    for step, token in enumerate(pattern.split()):
        if token == ".":
            continue
        k = int(token)
        note = chord[k % len(chord)] + 12 * (k // len(chord))
        song.place(voice(note, round(song.seconds_of(length), 4)), bar * 16 + step,
                   gain, pan, echo, room)


# ---- Brackwyn: the menu, calm ------------------------------------------------

def brackwyn():
    song = Song(bpm=80, bars=32)
    key = Key(62, MAJOR)                                  # D major
    progression = [0, 5, 3, 4, 0, 2, 3, 4]
    kit = {"kick": (ins.kick(0.6, 45.0), 0.55, 0.0, 0.0),
           "rim": (ins.rim(), 0.22, 0.25, 0.4),
           "shaker": (ins.shaker(), 0.18, -0.35, 0.2),
           "hat": (ins.hat(False, 9000.0), 0.12, 0.4, 0.1)}
    beat = {"kick": "x . . . . . . . . . x . . . . .",
            "rim": ". . . . x . . . . . . . x . . .",
            "shaker": "x . g . x . g . x . g . x . g g"}
    full = dict(beat, hat="g g x g g g x g g g x g g g x g")
    melody_a = ["4 - - - - - 2 - 1 - - - 0 - - -", "5 - - - - - - - 4 - 2 - 1 - - -",
                "3 - - - - - 2 - 3 - 4 - 5 - - -", "4 - - - - - - - - - - - . . . .",
                "4 - - - - - 2 - 1 - - - 0 - - -", "2 - - - - - 4 - 6 - - - 5 - - -",
                "5 - - - 4 - 3 - 2 - - - 3 - - -", "1 - - - - - - - - - - - . . . ."]
    melody_b = ["7 - - - - - 6 - 7 - - - 9 - - -", "8 - - - - - 7 - 5 - - - - - - -",
                "5 - - - 7 - - - 8 - - - 7 - - -", "6 - - - - - - - 4 - - - - - - -",
                "7 - - - - - 6 - 7 - - - 9 - - -", "8 - - - - - 9 - 11 - - - 9 - - -",
                "10 - - - 9 - 8 - 7 - - - 5 - - -", "4 - - - - - - - - - - - - - . ."]
    for bar in range(song.bars):
        section, phrase_bar = divmod(bar, 8)
        degree = progression[phrase_bar]
        chord = key.chord(degree, 4, -1)
        chord_pad(song, bar, chord, 1, gain=0.8, room=0.45, cutoff=1400.0,
                  attack=0.9, release=1.2)
        arpeggio(song, bar, key.chord(degree, 4, 0),
                 "0 . 1 . 2 . 3 . 4 . 3 . 2 . 1 ." if section % 2 == 0 else
                 "0 . 2 . 1 . 3 . 2 . 4 . 3 . 5 .",
                 lambda n, s: ins.bell(n, 1.2, 0.45), gain=0.2, pan=0.3, echo=0.35, room=0.4)
        bass_line = "0 - - - - - - - - - - - - - - -" if section == 0 else \
                    "0 - - - - - - - - - 4 - - - - -"
        notes(song, bar, bass_line, key, ins.sub_bass, 0.7, octave=-2, base=degree)
        fading = bar == song.bars - 1          # let the last bar breathe into the start
        if section >= 1 and not fading:
            drums(song, bar, beat if section != 2 else full, kit)
        if section in (1, 3):
            notes(song, bar, melody_a[phrase_bar], key, ins.soft_lead, 0.5,
                  pan=-0.1, echo=0.3, room=0.5, octave=1)
        elif section == 2:
            notes(song, bar, melody_b[phrase_bar], key, ins.soft_lead, 0.45,
                  pan=-0.1, echo=0.3, room=0.5, octave=1)
    # Calmer and a little quieter than the play tracks.
    return song.mixdown(echo_steps=(6, 8), echo_feedback=0.4, room_size=1.2, drive=1.0,
                        target_peak=0.7)


# ---- Nothing Less: steady four-on-the-floor ----------------------------------

def nothing_less():
    song = Song(bpm=126, bars=52)
    key = Key(57, MINOR)                                  # A minor
    progression = [0, 5, 2, 6]
    kit = {"kick": (ins.kick(1.0, 48.0), 0.95, 0.0, 0.0),
           "clap": (ins.clap(), 0.5, 0.0, 0.25),
           "hat": (ins.hat(False, 8500.0), 0.22, 0.3, 0.0),
           "ohat": (ins.hat(True, 7500.0), 0.2, -0.3, 0.1),
           "snare": (ins.snare(200.0, 1.0), 0.45, 0.0, 0.2)}
    four = {"kick": "x . . . x . . . x . . . x . . .",
            "hat": "x g x g x g x g x g x g x g x g",
            "ohat": ". . x . . . x . . . x . . . x ."}
    full = dict(four, clap=". . . . x . . . . . . . x . . .")
    fill = dict(full, snare=". . . . . . . . x . x g x x X X")
    hook = ["4 - - 4 . . 2 - 4 - - 7 - - 6 -", "5 - - - . . 4 - 2 - - 0 - - 2 -",
            "4 - - 4 . . 2 - 4 - - 7 - - 9 -", "8 - - - - - 6 - 4 - - - . . . .",
            "4 - - 4 . . 2 - 4 - - 7 - - 6 -", "5 - - - . . 4 - 2 - - 0 - - 2 -",
            "4 - - 4 . . 7 - 9 - - 11 - - 9 -", "8 - - - 7 - - - 7 - - - . . . ."]
    for bar in range(song.bars):
        degree = progression[bar % 4]
        intro, a, brk, b = bar < 4, 4 <= bar < 20, 20 <= bar < 28, 28 <= bar < 44
        outro = bar >= 44
        chord = key.chord(degree, 4, 0)
        if not outro:
            chord_pad(song, bar, key.chord(degree, 4, -1), 1, gain=0.9 if not brk else 1.4, room=0.3,
                      pump=not brk, cutoff=2200.0 if not brk else 1500.0,
                      attack=0.05 if not brk else 0.6, release=0.3)
        if not brk:
            pattern = four if intro else fill if bar % 8 == 7 else full
            drums(song, bar, pattern, kit)
            notes(song, bar, "0 . 0 0 . 0 0 . 0 . 0 0 . 0 7 0", key, ins.bass, 0.55,
                  octave=-2, base=degree)
        if not intro:
            arpeggio(song, bar, chord, "0 1 2 3 4 3 2 1 0 1 2 3 4 5 4 2",
                     lambda n, s: ins.pluck(n, 0.25, 3000.0 if not brk else 1800.0, 0.12),
                     gain=0.45, pan=0.35, echo=0.3, room=0.15)
        if brk and bar == 27:
            song.place(ins.riser(song.seconds_of(16)), bar * 16, 0.25)
        if b:
            notes(song, bar, hook[(bar - 28) % 8], key, ins.lead, 0.42,
                  pan=-0.15, echo=0.3, room=0.2, octave=1)
        if bar in (4, 28, 44):
            song.place(ins.crash(), bar * 16, 0.3, -0.2, room=0.2)
    return song.mixdown(echo_steps=(3, 4), echo_feedback=0.3, pump_depth=0.6, drive=1.4)


# ---- The Race: fast breakbeat in harmonic minor ------------------------------

def the_race():
    song = Song(bpm=150, bars=60)
    key = Key(64, HARMONIC_MINOR)                         # E harmonic minor
    progression = [0, 5, 3, 4]
    kit = {"kick": (ins.kick(1.1, 52.0), 0.95, 0.0, 0.0),
           "snare": (ins.snare(210.0, 1.1), 0.6, 0.05, 0.2),
           "hat": (ins.hat(False, 9000.0), 0.2, 0.35, 0.0),
           "ohat": (ins.hat(True, 8000.0), 0.2, 0.35, 0.1),
           "tom": (ins.tom(130.0), 0.5, -0.3, 0.2),
           "tom2": (ins.tom(90.0), 0.5, 0.3, 0.2)}
    brk = {"kick": "x . . . . . x . . . x . . . . .",
           "snare": ". . . . x . . g . g . . x . . g",
           "hat": "x . x x x . x . x . x x x . . .",
           "ohat": ". . . . . . . . . . . . . . x ."}
    fill = dict(brk, tom="x x . . x . . . . . . . . . . .",
                tom2=". . . . . . x x . x . x . . . .",
                snare=". . . . x . . . . . . . x x X X")
    half = {"kick": "x . . . . . . . . . x . . . . .",
            "snare": ". . . . . . . . x . . . . . . .",
            "hat": "x . x . x . x . x . x . x . x ."}
    lead_line = ["7 - 6 - 7 - 4 - 2 - 4 - 0 - - -", "5 - 4 - 5 - 2 - 0 - 2 - -2 - - -",
                 "3 - 2 - 3 - 0 - -2 - 0 - 3 - 5 -", "4 - - - 6 - - - 8 - - - 6 - 4 -",
                 "7 - 9 - 7 - 6 - 7 - 4 - 2 - 4 -", "5 - 7 - 5 - 4 - 5 - 2 - 0 - 2 -",
                 "3 - 5 - 7 - 8 - 10 - 9 - 7 - 5 -", "6 - - - - - - - 4 - 6 - 8 - 11 -"]
    for bar in range(song.bars):
        degree = progression[bar % 4]
        intro, a, b = bar < 4, 4 <= bar < 20, (20 <= bar < 36) or bar >= 44
        bridge = 36 <= bar < 44
        chord = key.chord(degree, 3, 0)
        if bridge:
            drums(song, bar, half, kit)
        else:
            drums(song, bar, fill if bar % 8 == 7 else brk, kit)
        gallop = "0 . 0 0 0 . 0 0 0 . 0 0 7 . 0 0" if not bridge else \
                 "0 - - - - - - - 0 - - - 4 - - -"
        notes(song, bar, gallop, key, lambda n, s: ins.bass(n, s, 400.0, 1800.0, 0.45, 0.08),
              0.5, octave=-2, base=degree)
        if not intro:
            chord_pad(song, bar, key.chord(degree, 3, -1), 1, gain=0.6, room=0.3,
                      cutoff=1600.0, attack=0.2, release=0.3)
            arpeggio(song, bar, chord, "0 1 2 3 0 1 2 3 0 1 2 3 2 1 2 3",
                     lambda n, s: ins.pluck(n, 0.16, 1800.0 + 150.0 * (bar % 8), 0.08),
                     gain=0.3, pan=0.4, echo=0.2, room=0.1)
        if b:
            notes(song, bar, lead_line[bar % 8], key,
                  lambda n, s: ins.lead(n, s, 3400.0, 0.5, 0.4), 0.4,
                  pan=-0.2, echo=0.25, room=0.15, octave=1)
        if bar in (4, 20, 44):
            song.place(ins.crash(), bar * 16, 0.3, 0.2, room=0.2)
        if bar == 43:
            song.place(ins.riser(song.seconds_of(16)), bar * 16, 0.22)
    return song.mixdown(echo_steps=(3, 6), echo_feedback=0.3, drive=1.4)


# ---- Setarip Ecaps: dark sequencer music among the stars ---------------------

def setarip_ecaps():
    song = Song(bpm=118, bars=48)
    key = Key(61, PHRYGIAN)                               # C sharp Phrygian
    progression = [0, 0, 1, 1, 0, 0, 6, 6]
    kit = {"kick": (ins.kick(0.9, 44.0), 0.95, 0.0, 0.0),
           "snare": (ins.snare(170.0, 0.9), 0.5, 0.0, 0.35),
           "shaker": (ins.shaker(), 0.25, 0.4, 0.1),
           "tom": (ins.tom(100.0), 0.45, -0.4, 0.3),
           "tom2": (ins.tom(75.0), 0.45, 0.4, 0.3)}
    drive = {"kick": "x . . . . . x . x . . . . . . .",
             "snare": ". . . . x . . . . . . . x . . .",
             "shaker": "x g g x x g g x x g g x x g x g"}
    fill = dict(drive, tom=". . . . . . . . x . x . . . . .",
                tom2=". . . . . . . . . . . . x . x x")
    pulse = {"tom": "x . . . . . . . x . . . . . . .",
             "tom2": ". . . . . . . . . . . . x . . ."}
    bells = ["7 - - - - - 4 - - - 5 - - - 4 -", "3 - - - - - - - 2 - - - - - - -",
             "8 - - - - - 5 - - - 3 - - - 5 -", "4 - - - - - - - - - - - . . . .",
             "7 - - - - - 4 - - - 5 - - - 7 -", "9 - - - - - 8 - - - 7 - - - - -",
             "6 - - - - - 3 - - - 4 - - - 6 -", "4 - - - - - - - - - - - . . . ."]
    for bar in range(song.bars):
        degree = progression[bar % 8]
        intro, a, b = bar < 8, 8 <= bar < 24, 24 <= bar < 32
        brk, a2 = 32 <= bar < 40, bar >= 40
        chord = key.chord(degree, 4, -1)
        if bar % 2 == 0:
            chord_pad(song, bar, chord, 2, gain=0.85, room=0.5, cutoff=1200.0 if intro else 1700.0,
                      attack=0.8, release=1.0)
        # The sequence brightens and darkens over eight bars.
        bright = 700.0 + 2600.0 * (0.5 - 0.5 * math.cos(2 * math.pi * (bar % 8) / 8.0))
        arpeggio(song, bar, key.chord(degree, 4, 0), "0 2 1 3 0 2 1 3 0 2 1 3 4 3 2 1",
                 lambda n, s: ins.pluck(n, 0.2, bright, 0.1),
                 gain=0.32, pan=-0.35, echo=0.35, room=0.2)
        if intro:
            drums(song, bar, {"kick": "x . . . x . . . x . . . x . . ."}, kit)
        elif brk:
            drums(song, bar, pulse, kit)
        else:
            drums(song, bar, fill if bar % 8 == 7 else drive, kit)
        if not brk and not intro:
            notes(song, bar, "0 0 7 0 0 7 0 0 7 0 0 7 0 7 0 7", key,
                  lambda n, s: ins.bass(n, s, 300.0, 900.0, 0.5, 0.06), 0.45,
                  octave=-2, base=degree)
        if b or brk or a2:
            notes(song, bar, bells[bar % 8], key, lambda n, s: ins.bell(n, s + 0.6, 0.4),
                  0.4, pan=0.15, echo=0.45, room=0.5, octave=1)
        if bar in (8, 24, 40):
            song.place(ins.crash(), bar * 16, 0.3, -0.2, room=0.3)
        if bar == 39:
            song.place(ins.riser(song.seconds_of(16)), bar * 16, 0.25)
    return song.mixdown(echo_steps=(3, 4), echo_feedback=0.4, room_size=1.3, drive=1.3)


TRACKS = [
    ("Brackwyn.ogg", brackwyn),
    ("Tobrelle, Dunmarrow - Nothing Less remix.ogg", nothing_less),
    ("Fennick - The Race.ogg", the_race),
    ("Ondrevia - Setarip Ecaps.ogg", setarip_ecaps),
]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--wav-only", metavar="DIR",
                        help="write WAV files to DIR and do not encode")
    parser.add_argument("tracks", nargs="*", type=int,
                        help="only these tracks, counted from 1 in the order above")
    args = parser.parse_args()
    for number in args.tracks or range(1, len(TRACKS) + 1):
        name, compose = TRACKS[number - 1]
        began = time.time()
        channels = compose()
        stem = os.path.splitext(name)[0]
        if args.wav_only:
            os.makedirs(args.wav_only, exist_ok=True)
            write_wav(os.path.join(args.wav_only, stem + ".wav"), channels)
        else:
            with tempfile.TemporaryDirectory() as tmp:
                wav = os.path.join(tmp, "track.wav")
                write_wav(wav, channels)
                encode_ogg(wav, os.path.join(OUT_DIR, name), 3)
        print("%-46s %.2f s (made in %.0f s)" % (name, len(channels[0]) / SAMPLE_RATE,
                                                 time.time() - began))


if __name__ == "__main__":
    main()
