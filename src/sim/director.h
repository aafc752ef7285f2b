// The pacing of a directed map: the wave clock only earns enemies, and the
// director decides when the earned ones are released and of which kind. A
// feedback controller on the backlog of earned over released enemies, with
// stretches, rushes, silent gaps and hard corrections.
#pragma once

#include <cstdint>
#include <deque>

class Director {
public:
    // Draws the starting interval and, for a mixed map, the starting share.
    Director(float baseBigPercent, float spawnInterval);

    // One frame: maybe a decision, then releases into pending.
    void update();
    // The newest released kind (4 small, 8 big) from the back; 0 when none.
    uint8_t takePending();

    // Small-enemy equivalents owed: a big enemy counts three. Worked out in
    // signed 16 bits, as the controller sees it.
    int16_t backlog() const;

    float baseBigPercent;   // the map's share of big enemies; never changes
    int32_t earnedSmall = 0;  // raised by the wave clock
    int32_t earnedBig = 0;
    int32_t releasedSmall = 0;
    int32_t releasedBig = 0;
    float interval;         // credit one release costs, in frames
    float bigPercent;       // chance in percent that a release is big
    int16_t phaseFrames = 100;  // frames until the next decision
    float credit = 0;
    bool releasing = true;  // false during a silent gap
    std::deque<uint8_t> pending;

private:
    void decide(int16_t backlog);
    void nudge(float skew);
    float drawMapMix() const;
};
