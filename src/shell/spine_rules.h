// The small rules of the program's spine, kept apart so they can be tested.
#pragma once

#include <cstdint>

const uint8_t noTrack = 255;
extern const char* const playTrackFiles[3];

// Draws a play track, never the one of the game before.
uint8_t chooseNextTrack(uint8_t lastTrack);
// Where the next menu opens after a game with this result.
uint8_t menuEntryAfter(uint8_t result, uint8_t playerCount, bool survival);
