// The fixed-step pacer of every loop: sleeps away the rest of each frame,
// measures what the machine could do, and tells the loop to leave out the
// drawing of some frames when the machine falls behind.
#pragma once

#include <cstdint>
#include <deque>

extern bool fpsDisplayEnabled;

// Reads the frame-counter switch once (content/fps.dat).
void refreshFpsDisplaySwitch();

class FrameClock {
public:
    explicit FrameClock(int16_t rate);

    bool shouldDraw() const { return skipState == 0; }
    void resync();  // after a pause: the time away is not lateness
    void tick();    // closes a frame, last thing in a round
    void drawStats() const;

    double frameInterval;
    double nextFrameTime;
    double lag = 0.0;  // sum of schedule offsets, held between -12 and 0
    double measuredRate = 0.0;
    uint8_t skipState = 0;  // 0 draw the coming frame, 1 or 2 leave it out
    uint8_t previousSkipState = 0;
    std::deque<double> workTimes;  // the last rate frames' work, oldest first
};
