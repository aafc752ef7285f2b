// A game environment on the test backend at a chosen window size, for the
// HUD's pictures (a play session). Pixels are read back from the back buffer.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "support/play_session.h"

class Player;

struct Pixel {
    uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Pixel& o) const { return r == o.r && g == o.g && b == o.b; }
};

class HudWindow {
public:
    HudWindow(int width, int height);

    std::string mapPath() const;

private:
    PlaySession session;
};

// The back buffer's pixel, counted from the window's top left.
Pixel pixelAt(int x, int yFromTop);

// A 1 x 1 texture of one colour; alpha 0 makes it invisible.
uint32_t makeFlatTexture(uint8_t r, uint8_t g, uint8_t b, uint8_t a);
// Gives every picture of the HUD (the player's, the bank's, the panel's and
// the signs') a flat texture of its own in place of the content's pictures,
// so that what is read back is the bars and not the art: transparent, or the
// colour given.
void flattenHudPictures(Player& player, uint8_t r = 0, uint8_t g = 0, uint8_t b = 0,
                        uint8_t a = 0);
// Replaces one texture name in place, deleting the old texture.
void replaceTexture(uint32_t& texture, uint32_t replacement);
