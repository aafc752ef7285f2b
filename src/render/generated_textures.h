// The ground of the play field, computed afresh at every start of the game
// (sandy noise, speckles, a few dozen stones), the texture of its slopes that
// the light programs read as a normal map, and the "Speed up!" sign.
#pragma once

#include <cstdint>

class BootConsole;

constexpr int surfaceSize = 512;

// 512 x 512 pixels of red, green, blue, rows one after the other. Every
// Player's scene texture starts as a copy. Lives until freeSurfaceData and
// survives a window re-creation.
extern uint8_t* surfaceData;
// The ground's slopes: red = 127 + slope along x (to the right), green =
// 127 + slope along y (up the screen, as rows count), blue = 200.
extern uint32_t surfaceTexture;

// generateSurfaceData, a dot, buildSurfaceTexture, the end of the dots.
void generateTextures(BootConsole* console);
// Base noise, softening, speckles and 52 stones into a new surfaceData.
void generateSurfaceData(BootConsole* console);
// One stone into surfaceData: a ragged darker patch.
void stampStone();
// Derives surfaceTexture from surfaceData; draws no random numbers, so a
// rebuild after a window re-creation gives the same texture. console may be null.
void buildSurfaceTexture(BootConsole* console);
void deleteSurfaceTexture();
// Frees surfaceData if it is set, and deletes surfaceTexture.
void freeSurfaceData();

// The steps of the ground, exposed for tests.
// Each channel of each pixel from (left + right + above + below + 2 * centre) / 6,
// edges taken from the edge pixel itself. Both buffers 512 x 512 x 3.
void softenSurface(const uint8_t* from, uint8_t* to);
// 127 + truncate(40 * (|d| / 40)^1.2 * sign(d)), as a byte; 127 for d = 0.
uint8_t surfaceSlope(int8_t heightDifference);
// The slope picture (512 x 512 x 3) of a ground (512 x 512 x 3); console may be null.
void computeSurfaceSlopes(const uint8_t* ground, uint8_t* slopes, BootConsole* console);

// The "Speed up!" sign of a Player, 256 x 64 RGB: green letters with a soft
// red glow on black. Draws in the back buffer's corner as scratch space, so
// it runs before the game's first frame; leaves screen space and white colour.
void buildSpeedUpTexture(uint32_t* speedUpTexture);
