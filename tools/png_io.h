// PNG files as 8-bit RGBA pixels, top row first (as PNG stores them), through
// libpng. Shared by the content tools and the picture generators.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct RgbaPicture {
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<unsigned char> pixels;  // width * height * 4, top row first

    RgbaPicture() = default;
    RgbaPicture(uint32_t width, uint32_t height) : width(width), height(height), pixels(size_t(width) * height * 4) {}
    unsigned char* at(uint32_t x, uint32_t y) { return &pixels[(size_t(y) * width + x) * 4]; }
};

// Any PNG (palette, grey, 16-bit, with or without alpha) comes back as 8-bit
// RGBA. On failure returns false and puts the reason in error.
bool readPng(const std::string& path, RgbaPicture& picture, std::string* error);
bool writePng(const std::string& path, const RgbaPicture& picture, std::string* error);
// For the picture generators: writes folder/name.png; on failure prints one
// line as the generator `tool` and returns the exit code 1, else 0.
int writeGeneratedPicture(const RgbaPicture& picture, const char* folder, const char* name,
                          const char* tool);

// The same pixels with the rows in the other order.
std::vector<unsigned char> flipRows(const unsigned char* pixels, uint32_t width, uint32_t height);
