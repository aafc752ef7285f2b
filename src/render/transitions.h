// The two transitions that belong to a game: the opening effect over its first
// 40 frames and the closing dissolve after its loop.
#pragma once

#include <cstdint>

// Blocks for 71 frames, dissolving what the back buffer holds.
void runClosingTransition();
// One step of the opening, the last picture step of a frame.
void drawOpeningEffect(uint32_t frameNumber);
