// A real GL window of the test backend with the state the game keeps between
// drawing routines (blending, white, clear black) and fixed-function
// texturing; pixels read back, and text read through a colour-coded font.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Rgba {
    uint8_t r = 0, g = 0, b = 0, a = 0;
    bool operator==(const Rgba& o) const { return r == o.r && g == o.g && b == o.b; }
};

void openTestWindow(int width, int height);  // also sets the screen geometry
void closeTestWindow();
Rgba pixelAt(int x, int yFromTop);  // of the back buffer
// A nearest-filtered RGBA texture, rows bottom first.
uint32_t makeNearestTexture(int width, int height, const std::vector<unsigned char>& rgba);

// fontTexture becomes a picture whose every cell is a flat colour naming it:
// red 4 * column (4 * 52 past the last), green 40 * row from the top, blue 200.
void useCodedFont();
int codeAt(int x, int yFromTop);  // the code of the cell shown there, -1 for none
// n characters of text drawn left-aligned at (x, y) with the given size, one
// unit a pixel, read at each quad's centre ('?' for none).
std::string readText(float x, float y, float size, int n);
