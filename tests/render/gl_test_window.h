// A real GL window of the test backend for the drawing tests, with the
// drawing state the game keeps between routines (blending on, white, clear
// black) but fixed-function texturing, and helpers to read pixels back and to
// read text drawn with a coded font.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Rgba {
    uint8_t r = 0, g = 0, b = 0, a = 0;
    bool operator==(const Rgba& o) const { return r == o.r && g == o.g && b == o.b; }
};

// Opens the window at this size and sets the screen geometry.
void openTestWindow(int width, int height);
void closeTestWindow();
// The back buffer's pixel at x, y counted from the window's top left.
Rgba pixelAt(int x, int yFromTop);
// A nearest-filtered, repeating RGBA texture, rows bottom first; and one of
// 2 x 2 texels.
uint32_t makeNearestTexture(int width, int height, const std::vector<unsigned char>& rgba);
uint32_t makeTinyTexture(Rgba bottomLeft, Rgba bottomRight, Rgba topLeft, Rgba topRight);

// Replaces fontTexture by a picture whose every cell is one flat colour that
// names it: red = 4 * column, green = 40 * row from the top, blue 200 (red
// 4 * 52 beyond the last column). A pixel inside a glyph then tells its cell.
void useCodedFont();
// The character code of the cell shown at that pixel, or -1 for none.
int codeAt(int x, int yFromTop);
// n characters of text drawn left-aligned at (x, y) with the given size, one
// unit a pixel, sampled at each quad's centre ('?' for none).
std::string readText(float x, float y, float size, int n);
