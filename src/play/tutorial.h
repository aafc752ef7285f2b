// The tutorial's timed hints: which hint appears on which round of a game.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class Hint;

struct TutorialPlace {
    int16_t fieldOriginX, fieldOriginY;  // player 1's view in the wide space
    int16_t virtualWidth;
    int16_t player1ViewY, player2ViewY;  // window pixels, for the two-player hints
};

// Appends the hint (or hints) of this round, if the script of tutorialMode has
// one. Mode 0 does nothing; mode 2 turns the tutorial setting off at 2800.
void runTutorialScript(uint8_t tutorialMode, uint32_t frameNumber, const TutorialPlace& place,
                       std::vector<Hint*>& hints);
