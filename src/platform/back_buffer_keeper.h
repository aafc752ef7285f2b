// Keeps the last frame in the back buffer across a swap.
//
// The game copies the back buffer right after a swap and expects the frame it
// has just shown there. Mesa's software renderer keeps it; many GPU drivers
// flip buffers and leave something else behind. The window layer asks once,
// when the window opens, and where the frame is lost it saves the finished
// frame before each swap and draws it back afterwards.
#pragma once

#include <cstdint>
#include <vector>

class BackBufferKeeper {
public:
    // Draws a marker, swaps, reads the back buffer; twice, with two colours.
    // Needs the window's context current; leaves the back buffer cleared to
    // black. True when the back buffer held the last frame both times.
    static bool swapKeepsBackBuffer();

    // Decides whether swaps need the save and restore (after the probe, or
    // forced by a test).
    void setNeeded(bool needed) { isNeeded = needed; }
    bool needed() const { return isNeeded; }

    // Around the real swap: the finished frame is read before it and drawn
    // back after it, when needed. Leaves every piece of GL state as it was.
    void beforeSwap(int width, int height);
    void afterSwap();

    // The two halves, usable on their own.
    void saveFrame(int width, int height);
    void restoreFrame();

private:
    bool isNeeded = false;
    int savedWidth = 0, savedHeight = 0;
    std::vector<uint8_t> savedPixels;
};
