// The ground: sandy noise, softened, with speckles and stones, kept in memory
// for every Player, and the texture of its slopes for the lights.
#include "render/generated_textures.h"

#include <GL/glew.h>

#include <cmath>

#include "base/numbers.h"
#include "base/random.h"
#include "data/images.h"
#include "shell/boot_console.h"

uint8_t* surfaceData = nullptr;
uint32_t surfaceTexture = 0;

namespace {

constexpr int surfaceBytes = surfaceSize * surfaceSize * 3;
constexpr int stoneEdges = 36;
constexpr float degrees = 3.14159265358979f / 180.0f;

void addDot(BootConsole* console) {
    if (console != nullptr) console->addDot();
}

uint8_t* pixelAt(uint8_t* buffer, int row, int column) {
    return buffer + (row * surfaceSize + column) * 3;
}

// Even-odd rule: a point lies inside when a ray to its left crosses the
// outline an odd number of times. An edge touching the row at either end
// counts; one lying along the row gives no valid crossing point (0 / 0) and
// is not counted.
bool insideOutline(const float (&edges)[stoneEdges][4], float x, float y) {
    int crossings = 0;
    for (const auto& edge : edges) {
        float x1 = edge[0], y1 = edge[1], x2 = edge[2], y2 = edge[3];
        if ((y > y1 && y > y2) || (y < y1 && y < y2)) continue;
        float t = mapRange(y2, y1, 0, 1, y);
        float crossX = t * x1 + (1 - t) * x2;
        if (x > crossX) crossings++;
    }
    return crossings % 2 == 1;
}

uint8_t darken(uint8_t value, int amount) {
    return static_cast<uint8_t>(value > amount ? value - amount : 0);
}

}  // namespace

namespace {

// Softens rows firstRow up to (not including) endRow.
void softenRows(const uint8_t* from, uint8_t* to, int firstRow, int endRow) {
    const int last = surfaceSize - 1;
    for (int row = firstRow; row < endRow; row++) {
        const int above = clampInt(row - 1, 0, last), below = clampInt(row + 1, 0, last);
        for (int column = 0; column < surfaceSize; column++) {
            const int left = clampInt(column - 1, 0, last), right = clampInt(column + 1, 0, last);
            for (int channel = 0; channel < 3; channel++) {
                auto at = [&](int r, int c) { return int(from[(r * surfaceSize + c) * 3 + channel]); };
                int sum = at(row, left) + at(row, right) + at(above, column) + at(below, column) +
                          2 * at(row, column);
                to[(row * surfaceSize + column) * 3 + channel] = static_cast<uint8_t>(sum / 6);
            }
        }
    }
}

}  // namespace

void softenSurface(const uint8_t* from, uint8_t* to) {
    softenRows(from, to, 0, surfaceSize);
}

void generateSurfaceData(BootConsole* console) {
    delete[] surfaceData;
    surfaceData = new uint8_t[surfaceBytes];
    uint8_t* scratch = new uint8_t[surfaceBytes];

    for (int i = 0; i < surfaceBytes; i += 3) {
        scratch[i] = static_cast<uint8_t>(randomInt(98, 158));
        scratch[i + 1] = static_cast<uint8_t>(randomInt(49, 79));
        scratch[i + 2] = static_cast<uint8_t>(randomInt(9, 23));
    }
    softenRows(scratch, surfaceData, 0, 226);
    addDot(console);
    softenRows(scratch, surfaceData, 226, surfaceSize);
    delete[] scratch;

    // Speckles: plain 8-bit subtraction; the ground lies high enough that no
    // floor is needed.
    for (int n = 0; n < 2500; n++) {
        int row = randomInt(0, 511);
        int column = randomInt(0, 511);
        uint8_t* pixel = pixelAt(surfaceData, row, column);
        pixel[0] = static_cast<uint8_t>(pixel[0] - randomInt(15, 30));
        pixel[1] = static_cast<uint8_t>(pixel[1] - randomInt(5, 10));
        pixel[2] = static_cast<uint8_t>(pixel[2] - randomInt(0, 2));
    }

    for (int batch = 0; batch < 4; batch++) {
        addDot(console);
        for (int n = 0; n < 13; n++) stampStone();
    }
}

void stampStone() {
    const float r = randomFloat(2, 50);
    const uint8_t side = static_cast<uint8_t>(std::ceil(2.6f * r));
    const float half = side * 0.5f;

    // 36 points at 5, 15, ... 355 degrees, each at its own radius; the first
    // point mixes two radii (ra on x, rb on y).
    float edges[stoneEdges][4];
    const float ra = randomFloat(0.7f, 1.3f) * r;
    const float rb = randomFloat(0.7f, 1.3f) * r;
    edges[0][0] = half + std::cos(5 * degrees) * ra;
    edges[0][1] = half + std::sin(5 * degrees) * rb;
    edges[0][2] = half + std::cos(15 * degrees) * rb;
    edges[0][3] = half + std::sin(15 * degrees) * rb;
    for (int i = 0; i < 34; i++) {
        const float f = randomFloat(0.7f, 1.3f);
        const float a = ((i + 2) * 10 + 5) * degrees;
        edges[i + 1][0] = edges[i][2];
        edges[i + 1][1] = edges[i][3];
        edges[i + 1][2] = half + std::cos(a) * r * f;
        edges[i + 1][3] = half + std::sin(a) * r * f;
    }
    edges[35][0] = edges[34][2];
    edges[35][1] = edges[34][3];
    edges[35][2] = edges[0][0];
    edges[35][3] = edges[0][1];

    const int ox = randomInt(0, surfaceSize - side);
    const int oy = randomInt(0, surfaceSize - side);
    const int dr = randomInt(1, 7);
    const int dg = randomInt(1, 7);
    const int db = randomInt(1, 7);

    for (int j = 0; j < side; j++) {
        for (int i = 0; i < side; i++) {
            if (!insideOutline(edges, float(i), float(j))) continue;
            uint8_t* pixel = pixelAt(surfaceData, oy + j, ox + i);
            pixel[0] = darken(pixel[0], dr);
            pixel[1] = darken(pixel[1], dg);
            pixel[2] = darken(pixel[2], db);
        }
    }
}

void generateTextures(BootConsole* console) {
    generateSurfaceData(console);
    addDot(console);
    buildSurfaceTexture(console);
    if (console != nullptr) console->closeDots();
}

void deleteSurfaceTexture() {
    glDeleteTextures(1, &surfaceTexture);
    surfaceTexture = 0;
}

void freeSurfaceData() {
    if (surfaceData != nullptr) {
        delete[] surfaceData;
        surfaceData = nullptr;
    }
    deleteSurfaceTexture();
}
