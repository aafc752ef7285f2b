// Scripted input for a Menu on the test backend: presses spaced so that each
// one is seen once and let go before the next, counted in rounds of the loop.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "support/play_session.h"

class MenuScript {
public:
    // Starts after the rounds the loop needs to see that nothing is held.
    MenuScript() : start(testBackend::round()), next(start + 2) {}

    // The key goes down, is seen for two rounds, and is up again before the
    // next press.
    void press(int key)
    {
        testBackend::keyAt(next, key, true);
        testBackend::keyAt(next + 2, key, false);
        next += 4;
    }
    void press(int key, int times)
    {
        for (int i = 0; i < times; ++i) press(key);
    }
    void wait(unsigned rounds) { next += rounds; }
    void moveMouse(int x, int y)
    {
        testBackend::mouseMoveAt(next, x, y);
        next += 2;
    }
    void click()
    {
        testBackend::mouseButtonAt(next, GLFW_MOUSE_BUTTON_LEFT, true);
        testBackend::mouseButtonAt(next + 2, GLFW_MOUSE_BUTTON_LEFT, false);
        next += 4;
    }
    // Ends a loop that the script has not ended.
    void closeWindow() { testBackend::closeAt(next + 2); }
    // The round of the loop that sees what is scripted next.
    unsigned loopRound() const { return next - start + 1; }

    unsigned start;
    unsigned next;
};

// 24-bit BMP screenshots, as F12 writes them, read back by pixel.
struct Screenshot {
    explicit Screenshot(const std::string& path);
    bool valid() const { return width > 0; }
    // Red, green and blue at x, y, y counted from the top.
    void pixel(int x, int y, int rgb[3]) const;
    // The brightest channel within a rectangle, and whether any pixel in it
    // is clearly red (red well above green and blue).
    int brightest(int left, int top, int right, int bottom) const;
    bool hasRed(int left, int top, int right, int bottom) const;

    std::string bytes;
    int width = 0, height = 0, rowBytes = 0;
};

// A game environment for a menu, on a slow machine: the clock leaves out most
// drawing, which the loop's rules don't depend on, and the tests run faster.
class SlowMenuTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        session.open();
        testBackend::setFrameCost(0.05);
    }
    PlaySession session;
};
