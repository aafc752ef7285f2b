// The frame hotkeys: F5 and F12 take a screenshot in every loop. The work is
// cut into six stages, one a frame, so that saving never stalls the game.
#pragma once

#include <cstdint>
#include <fstream>

// Polled once a frame by every loop, after drawing.
void pollHotkeys();

class ScreenshotTaker {
public:
    ScreenshotTaker() = default;
    ~ScreenshotTaker();  // completes a screenshot under way
    ScreenshotTaker(const ScreenshotTaker&) = delete;
    ScreenshotTaker& operator=(const ScreenshotTaker&) = delete;

    void poll(bool keyDown);

    std::ofstream outputFile;
    std::ifstream probeFile;
    unsigned char* pixels = nullptr;
    char fileName[24] = {};
    int32_t width = 0, height = 0;
    int32_t halfHeight = 0;
    uint8_t rowPadding = 0;
    uint8_t stage = 0;  // next stage to run, 0 when idle
    bool keyHeld = false;

private:
    bool step();
    bool runStage();
    void finish();
    void writeRows(int32_t first, int32_t end);
};

extern ScreenshotTaker screenshotTaker;
