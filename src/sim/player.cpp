// STAND-IN: see player.h.
#include "sim/player.h"

#include "shell/window.h"

Player::Player(uint8_t side, bool survival, const char*, uint8_t)
    : side(side), survival(survival)
{
    // A 4:3 view centred in the window (one side) or in its half (two sides).
    int16_t viewWidth = static_cast<int16_t>(windowHeight * 4 / 3);
    if (side == 0) viewX = static_cast<int16_t>((windowWidth - viewWidth) / 2);
    if (side == 2) viewX = static_cast<int16_t>(windowWidth / 2);
}

void Player::update() {}
void Player::drawField() {}
void Player::drawView() {}

uint8_t Player::endCode() const
{
    if (side != 0) return endState;
    if (endState == 1 && score > hiScore) return 2;
    if (survival && endState == 3 && score > hiScore) return 4;
    return endState;
}
