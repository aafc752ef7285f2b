// A real GL window of the test backend for the drawing tests, with the
// drawing state the game keeps between routines (blending on, white, clear
// black) but fixed-function texturing instead of the programs, and helpers to
// read pixels back and to read text drawn with a coded font.
#pragma once

#include <cstdint>
#include <string>

struct Rgba {
    uint8_t r = 0, g = 0, b = 0, a = 0;
    bool operator==(const Rgba& o) const { return r == o.r && g == o.g && b == o.b; }
};

// Opens (or reopens) the window at this size and sets the screen geometry.
void openTestWindow(int width, int height);
void closeTestWindow();

// The back buffer's pixel at x, y counted from the window's top left.
Rgba pixelAt(int x, int yFromTop);

// A texture of 2 x 2 texels, nearest filtered, rows given bottom row first.
uint32_t makeTinyTexture(Rgba bottomLeft, Rgba bottomRight, Rgba topLeft, Rgba topRight);

// A font picture whose every cell is one flat colour that names the cell:
// red = 4 * column, green = 40 * row from the top; beyond the last column
// red is 4 * 52. Nearest filtered, so a pixel inside a glyph quad tells which
// cell was drawn there. Replaces fontTexture.
void useCodedFont();
// The character code of the cell whose colour is at that pixel, or -1 for a
// pixel that shows no cell (blue is not 200).
int codeAt(int x, int yFromTop);
// Reads back n characters of text drawn left-aligned at (x, y) with the given
// size in a projection of one unit per pixel, sampling each quad's centre.
std::string readText(float x, float y, float size, int n);
