// The .spg picture format: a palette and run-length coded pixels, shared by the
// game's loader and the content tools.
//
// Layout (big-endian): 4 header bytes, width (2), height (2), hasAlpha (1), the
// palette count as a run-coded number, the palette (RGB or RGBA per entry),
// then pairs of run-coded numbers (palette index, count) up to the end. Runs
// fill the pixels from the first stored row onward, across row ends; the first
// stored row is the bottom of the picture.
//
// A run-coded number: every byte 255 adds 255 and goes on, the first byte
// below 255 is added and ends it (254 = 254, 255 = 255 0, 600 = 255 255 90).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The header our tools put in front; the decoder ignores it.
extern const unsigned char spgHeader[4];

void appendRunCodedNumber(std::vector<unsigned char>& out, uint64_t value);

// Decodes an entry into RGBA pixels, width x height x 4 bytes in stored row
// order (free with delete[]). On damaged content returns null, writes nothing
// through outWidth and outHeight, and puts the reason in error.
unsigned char* decodeSpg(const unsigned char* entry, uint64_t size,
                         uint16_t* outWidth, uint16_t* outHeight, std::string* error);

// Encodes RGBA pixels given in stored row order (first row = bottom of the
// picture). The palette holds every distinct colour, most frequent first, with
// alpha only when some pixel is not opaque.
std::vector<unsigned char> encodeSpg(const unsigned char* rgba, uint16_t width, uint16_t height);
