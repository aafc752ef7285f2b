#!/bin/sh
# Makes the small .ogg files the sound tests play (needs sox with Ogg Vorbis).
# Run it from anywhere; it writes beside itself. The files are committed, so
# the tests need no encoder.
set -e
cd "$(dirname "$0")"

# Effects: mono, 22050 Hz, 0.4 s, at half of full scale.
sox -n -r 22050 -c 1 tone.ogg synth 0.4 sine 440 vol 0.5
sox -n -r 22050 -c 1 tone_high.ogg synth 0.4 sine 880 vol 0.5

# A music loop: stereo, 44100 Hz, 0.25 s of 320 Hz, a whole number of periods
# so that the loop itself has no seam.
sox -n -r 44100 -c 2 loop.ogg synth 0.25 sine 320 vol 0.5
