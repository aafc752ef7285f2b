// For the fuzz targets of the readers of files: each input is written where
// the game reads it, inside a scratch folder in memory (/dev/shm) that the
// process enters on its first input and keeps.
#pragma once

#include <cstddef>
#include <cstdint>

// Writes the input as the file at path (relative to the scratch folder, which
// holds content/ and content/maps/). An empty input removes the file instead,
// so that the readers' way with a missing file is fuzzed too.
void placeInput(const char* path, const uint8_t* data, size_t size);
