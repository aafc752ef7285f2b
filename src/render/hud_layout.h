// The measures of the HUD's bars, in screen units (800 x 600 per side), for
// the drawing and for the tests that read the picture back.
#pragma once

#include <cstdint>

// What the score bar measures against: the hi-score, or once that is beaten
// the par if it is still ahead; at least 1.
float scoreBarTarget(uint32_t score, uint32_t hiScore, uint32_t parScore);
// Green part of the combo bar (at most 210): 25 units per unit of comboTimer.
float comboBarWidth(float comboTimer);
// Coloured part of the score bar for the shown score against the target.
float scoreBarWidth(uint32_t shownScore, float target);
// Red part of the disturb bar: the charge of 0 to 200 over 210 units.
float disturbBarWidth(int16_t disturbCharge);
// Red part of the balance bar: 96 units for each point the rate lies below 4.
float balanceBarRedWidth(float resourceRate);

// One stat bar, 30 x 150 from y 380 down to 530: the permanent part from the
// bottom, the temporary bonus above it in the light colour, limited by what
// remains, and white for the rest.
struct StatBarParts {
    float permanent, temporary, rest;
};
StatBarParts statBarParts(float permanent, float temporary);
