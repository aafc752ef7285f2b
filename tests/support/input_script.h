// Scripted input on the test backend, by rounds from a given one: each press
// is down for two rounds and let go two rounds before the next. What is
// scripted for a round comes with that round's pump, so the loop round after
// it sees it.
#pragma once

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"

struct InputScript {
    explicit InputScript(unsigned first = testBackend::round() + 2) : next(first) {}

    InputScript& press(int key, int times = 1)
    {
        for (int i = 0; i < times; ++i, next += 4) {
            testBackend::keyAt(next, key, true);
            testBackend::keyAt(next + 2, key, false);
        }
        return *this;
    }
    InputScript& wait(unsigned rounds)
    {
        next += rounds;
        return *this;
    }
    InputScript& moveMouse(int x, int y)
    {
        testBackend::mouseMoveAt(next++, x, y);
        return *this;
    }
    InputScript& button(bool down, int which = GLFW_MOUSE_BUTTON_LEFT)
    {
        testBackend::mouseButtonAt(next++, which, down);
        return *this;
    }
    InputScript& click(int which = GLFW_MOUSE_BUTTON_LEFT)
    {
        return button(true, which).wait(2).button(false, which).wait(2);
    }

    unsigned next;
};
