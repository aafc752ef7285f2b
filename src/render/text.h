// Text from the one bitmap font (font.spg: 2048 x 512, cells of 39 x 76, 52 to
// a row, cell n holding character code n), and the small key-cap of the panel.
//
// A string is a row of equal quads that touch: each is size * 0.3848684211
// wide (three quarters of the cell's proportions), so the width of n
// characters is n * size * 0.3848684211. Text takes the current colour under
// the current program.
//
// align: 0 left (starts at x), 1 centred on x, any other value right (ends at x).
#pragma once

#include <cstdint>

class PanelButton;

// Advance (and quad width) of one character per unit of text height.
constexpr float textAdvancePerSize = 0.3848684211f;

extern uint32_t fontTexture;
extern uint32_t panelButtonTexture;

void loadFont();
void deleteFont();
void loadPanelButtonTexture();
void deletePanelButtonTexture();

// `y` is the top of the row and `size` its height. Binds fontTexture and
// leaves it bound, also for an empty string.
void drawText(const char* text, float x, float y, float size, uint8_t align);
// The same text turned a quarter turn anticlockwise, reading upward: `x` is
// the glyphs' tops, `x + size` their feet; align 0 begins at `y` and runs up.
void drawTextVertical(const char* text, float x, float y, float size, uint8_t align);
// "%i" of the value.
void drawInt(int32_t value, float x, float y, float size, uint8_t align);
// The value with `decimals` digits behind the point.
void drawFloat(float value, uint8_t decimals, float x, float y, float size, uint8_t align);
// The 32 x 32 key-cap at the button's place with its letter in black.
void drawPanelButton(const PanelButton& button);
