// Helpers of the shader and ground tests: a real GL window of the test
// backend, the shader archive made from assets/shaders/ in a scratch folder,
// textures from bytes and pixels read back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Opens a 512 x 512 window (8 stencil bits) with the GL state the game keeps
// between drawing routines. The caller is inside a ScratchDir when it wants
// content/ to be found.
void openShaderTestWindow();
void closeShaderTestWindow();

// Writes content/shaders.sfa with every file of assets/shaders/ under its own
// name, and the extra entries after them.
struct ExtraShader {
    std::string name;
    std::string source;
};
void writeShaderArchive(const std::vector<ExtraShader>& extras = {});

// Entry names of assets/shaders/, sorted.
std::vector<std::string> shaderSourceNames();

// An RGBA texture, nearest filtered and repeating, rows bottom first. Stays bound.
uint32_t makeTexture(int width, int height, const std::vector<uint8_t>& rgba);
std::vector<uint8_t> flatRgba(int width, int height, uint8_t r, uint8_t g, uint8_t b,
                              uint8_t a = 255);

// RGBA of the back buffer's lower-left width x height block, bottom row first.
std::vector<uint8_t> readBack(int width, int height);
// Mean of one channel (0 red, 1 green, 2 blue) over an RGBA block.
double channelMean(const std::vector<uint8_t>& rgba, int channel);
