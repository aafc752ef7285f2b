// The three signs of a one-player HUD: the hi-score still ahead (sign 2), the
// par still ahead of a beaten hi-score (sign 1), a new hi-score (sign 3).
#pragma once

#include <cstdint>

struct ScoreSigns {
    ScoreSigns();
    ~ScoreSigns();
    ScoreSigns(const ScoreSigns&) = delete;
    ScoreSigns& operator=(const ScoreSigns&) = delete;

    // Slides and places, one frame.
    void update();
    // Which signs are wanted for the score, hi-score and par of this frame.
    void applyRules(uint32_t score, uint32_t hiScore, uint32_t parScore);
    void draw();

    uint32_t sign1Texture = 0, sign2Texture = 0, sign3Texture = 0;
    bool sign1On = false, sign2On = false, sign3On = false;
    uint16_t sign1X = 0, sign2X = 0, sign3X = 0;
    float sign1Slide = -1, sign2Slide = -1;
    float sign3Slide = -2;  // from further down: it comes later
};
