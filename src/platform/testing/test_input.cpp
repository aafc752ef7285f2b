// The 2.7 input, video-mode and timer calls of the test backend: the script's
// state and the virtual clock.
#include "platform/testing/test_state.h"

using testBackend::state;

int glfwGetVideoModes(GLFWvidmode* list, int maxCount)
{
    if (!list || maxCount <= 0) {
        return 0;
    }
    int count = 0;
    for (const GLFWvidmode& mode : state().modes) {
        if (count == maxCount) {
            break;
        }
        list[count++] = mode;
    }
    return count;
}

void glfwGetDesktopMode(GLFWvidmode* mode)
{
    if (mode) {
        *mode = state().desktop;
    }
}

void glfwPollEvents()
{
    state().record.pollCount++;
    testBackend::pump();
}

int glfwGetKey(int key)
{
    auto& s = state();
    // Only upper-case letters are keys, as 2.7 reports them.
    if (!s.record.open || key < 0 || key > GLFW_KEY_LAST || (key >= 'a' && key <= 'z')) {
        return GLFW_RELEASE;
    }
    const bool repeatCame = s.clock >= s.windowOpenedAt + testBackend::keyRepeatDelay;
    const bool windowSees = s.keys[key] && (!s.awaitingRepeat[key] || repeatCame);
    return s.carriedKeys.isDown(key, windowSees, s.clock) ? GLFW_PRESS : GLFW_RELEASE;
}

int glfwGetMouseButton(int button)
{
    const auto& s = state();
    if (!s.record.open || button < 0 || button > GLFW_MOUSE_BUTTON_LAST) {
        return GLFW_RELEASE;
    }
    return s.buttons[button] ? GLFW_PRESS : GLFW_RELEASE;
}

int glfwGetPadButton(int seat, int button)
{
    const auto& s = state();
    if (button < 0 || button > GLFW_PAD_BUTTON_LAST) return GLFW_RELEASE;
    const bool held = s.pads.holds(seat, button, [&s](int joystick, int b) { return s.padButtons[joystick][b]; });
    return held ? GLFW_PRESS : GLFW_RELEASE;
}

void glfwGetMousePos(int* x, int* y)
{
    if (x) *x = state().mouseX;
    if (y) *y = state().mouseY;
}

double glfwGetTime() { return state().clock; }

void glfwSleep(double seconds)
{
    if (seconds > 0) {
        state().clock += seconds;
        state().sleepTotal += seconds;
    }
}
