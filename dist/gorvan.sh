#!/bin/sh
# Starts the installed Gorvan. The program lies at a fixed place relative to
# this launcher (PREFIX/bin/gorvan, PREFIX/lib/gorvan/gorvan), and the program
# finds its content from its own place, so an install runs wherever it is put.
here=$(dirname "$(readlink -f "$0")")
exec "$here/../lib/gorvan/gorvan" "$@"
