// Scripted input for a Menu on the test backend, counted in rounds of the
// loop: each press is seen once and let go before the next.
#pragma once

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"

struct MenuScript {
    void press(int key, int times = 1)
    {
        for (int i = 0; i < times; ++i, next += 4) {
            testBackend::keyAt(next, key, true);
            testBackend::keyAt(next + 2, key, false);
        }
    }
    void wait(unsigned rounds) { next += rounds; }
    void moveMouse(int x, int y) { testBackend::mouseMoveAt(next++, x, y); }
    void mouseButton(bool down) { testBackend::mouseButtonAt(next++, GLFW_MOUSE_BUTTON_LEFT, down); }
    void click() { mouseButton(true), wait(2), mouseButton(false), wait(2); }
    void closeWindow() { testBackend::closeAt(next + 2); }

    unsigned next = testBackend::round() + 2;  // after the rounds that see nothing held
};
