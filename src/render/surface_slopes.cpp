// The slopes of the ground as a texture: the light programs read it as a
// normal map. Nothing random enters here, so a rebuild after a window
// re-creation gives the same texture.
#include <GL/glew.h>

#include <cmath>
#include <cstdlib>

#include "data/images.h"
#include "render/generated_textures.h"
#include "shell/boot_console.h"

namespace {

constexpr int last = surfaceSize - 1;

// The height of the ground: red plus half the green, in 8 bits.
uint8_t* computeHeights(const uint8_t* ground) {
    uint8_t* heights = new uint8_t[surfaceSize * surfaceSize];
    for (int i = 0; i < surfaceSize * surfaceSize; i++) {
        heights[i] = static_cast<uint8_t>(ground[i * 3] + (ground[i * 3 + 1] >> 1));
    }
    return heights;
}

// Slope of the difference between two heights, taken as a signed byte.
uint8_t slopeBetween(uint8_t a, uint8_t b) {
    return surfaceSlope(static_cast<int8_t>(static_cast<uint8_t>(a - b)));
}

}  // namespace

// Small differences are flattened and big ones stand out. Values beyond the
// byte's range wrap, as a byte does.
uint8_t surfaceSlope(int8_t heightDifference) {
    if (heightDifference == 0) return 127;
    const int d = heightDifference;
    const float magnitude = std::abs(d) / 40.0f;
    const int slope = static_cast<int>(40.0f * std::pow(magnitude, 1.2f) * d / std::abs(d));
    return static_cast<uint8_t>(slope + 127);
}

void computeSurfaceSlopes(const uint8_t* ground, uint8_t* slopes, BootConsole* console) {
    uint8_t* heights = computeHeights(ground);
    auto h = [heights](int x, int y) { return heights[y * surfaceSize + x]; };
    auto out = [slopes](int x, int y) { return slopes + (y * surfaceSize + x) * 3; };

    for (int i = 0; i < surfaceSize * surfaceSize; i++) slopes[i * 3 + 2] = 200;

    // The rim: one-sided differences at the two borders of each direction.
    for (int y = 0; y < surfaceSize; y++) {
        out(0, y)[0] = slopeBetween(h(0, y), h(1, y));
        out(last, y)[0] = slopeBetween(h(last - 1, y), h(last, y));
    }
    for (int x = 0; x < surfaceSize; x++) {
        out(x, 0)[1] = slopeBetween(h(x, 0), h(x, 1));
        out(x, last)[1] = slopeBetween(h(x, last - 1), h(x, last));
    }
    if (console != nullptr) console->addDot();

    // Everything else: central differences.
    for (int y = 0; y < surfaceSize; y++) {
        for (int x = 1; x < last; x++) out(x, y)[0] = slopeBetween(h(x - 1, y), h(x + 1, y));
    }
    for (int y = 1; y < last; y++) {
        for (int x = 0; x < surfaceSize; x++) out(x, y)[1] = slopeBetween(h(x, y - 1), h(x, y + 1));
    }
    delete[] heights;
}

void buildSurfaceTexture(BootConsole* console) {
    if (surfaceData == nullptr) return;  // nothing generated yet
    uint8_t* slopes = new uint8_t[surfaceSize * surfaceSize * 3];
    computeSurfaceSlopes(surfaceData, slopes, console);
    createLinearTexture(&surfaceTexture);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, surfaceSize, surfaceSize, 0, GL_RGB, GL_UNSIGNED_BYTE,
                 slopes);
    delete[] slopes;
}
