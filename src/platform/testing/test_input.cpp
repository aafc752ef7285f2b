// The 2.7 input, video-mode and timer calls of the test backend: the script's
// state and the virtual clock.
#include <algorithm>
#include <iterator>

#include "platform/input_tape.h"
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

namespace {

// What the window says of a key: one held as the window opened only once the
// keyboard's repeat comes, and keys carried through a rebuild.
bool keyDown(testBackend::BackendState& s, int key)
{
    // Only upper-case letters are keys, as 2.7 reports them.
    if (!s.record.open || key < 0 || key > GLFW_KEY_LAST || (key >= 'a' && key <= 'z')) return false;
    const bool repeatCame = s.clock >= s.windowOpenedAt + testBackend::keyRepeatDelay;
    const bool windowSees = s.keys[key] && (!s.awaitingRepeat[key] || repeatCame);
    return s.carriedKeys.isDown(key, windowSees, s.clock);
}

bool padHeld(const testBackend::BackendState& s, int seat, int button)
{
    return s.pads.holds(seat, button, [&s](int joystick, int b) { return s.padButtons[joystick][b]; });
}

}  // namespace

int glfwGetKey(int key)
{
    if (inputTape::playing()) {
        if (!state().record.open) return GLFW_RELEASE;
        return inputTape::keyState(inputTape::replayed(), key);
    }
    return keyDown(state(), key) ? GLFW_PRESS : GLFW_RELEASE;
}

int glfwGetMouseButton(int button)
{
    const auto& s = state();
    if (!s.record.open || button < 0 || button > GLFW_MOUSE_BUTTON_LAST) {
        return GLFW_RELEASE;
    }
    if (inputTape::playing()) return inputTape::mouseButtonState(inputTape::replayed(), button);
    return s.buttons[button] ? GLFW_PRESS : GLFW_RELEASE;
}

int glfwGetPadButton(int seat, int button)
{
    const auto& s = state();
    if (button < 0 || button > GLFW_PAD_BUTTON_LAST) return GLFW_RELEASE;
    if (inputTape::playing()) return inputTape::padButtonState(inputTape::replayed(), seat, button);
    return padHeld(s, seat, button) ? GLFW_PRESS : GLFW_RELEASE;
}

void glfwGetMousePos(int* x, int* y)
{
    inputTape::mousePositionRead();
    const bool replayed = inputTape::playing();
    if (x) *x = replayed ? inputTape::replayed().mouseX : state().mouseX;
    if (y) *y = replayed ? inputTape::replayed().mouseY : state().mouseY;
}

RoundInput inputTape::liveInput()
{
    auto& s = state();
    RoundInput input;
    for (int key = 0; key <= GLFW_KEY_LAST; ++key) input.keys[key] = keyDown(s, key);
    std::copy(std::begin(s.buttons), std::end(s.buttons), input.mouseButtons);
    input.mouseX = s.mouseX;
    input.mouseY = s.mouseY;
    input.focused = s.focused;
    input.closeRequested = s.closed;
    for (int seat = 0; seat < GLFW_PAD_SEATS; ++seat) {
        for (int button = 0; button <= GLFW_PAD_BUTTON_LAST; ++button)
            input.padButtons[seat] |= uint32_t(padHeld(s, seat, button)) << button;
    }
    return input;
}

double glfwGetTime() { return state().clock; }

void glfwSleep(double seconds)
{
    if (seconds > 0) {
        state().clock += seconds;
        state().sleepTotal += seconds;
    }
}
