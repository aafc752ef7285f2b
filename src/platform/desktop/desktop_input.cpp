// The 2.7 input, video-mode and timer calls on GLFW 3, for the game.
#include <cerrno>
#include <cmath>
#include <ctime>
#include <sched.h>
#ifdef _WIN32
#include <windows.h>
#endif

#include "platform/glfw.h"
#include "platform/glfw3_bridge.h"
#include "platform/input_tape.h"
#include "platform/video_mode_order.h"

namespace {

GLFWvidmode toVidMode(const glfw3Bridge::ModeInfo& mode)
{
    GLFWvidmode result;
    result.Width = mode.width;
    result.Height = mode.height;
    result.RedBits = mode.redBits;
    result.GreenBits = mode.greenBits;
    result.BlueBits = mode.blueBits;
    return result;
}

}  // namespace

int glfwGetVideoModes(GLFWvidmode* list, int maxCount)
{
    if (!list || maxCount <= 0) {
        return 0;
    }
    std::vector<glfw3Bridge::ModeInfo> modes = orderModesAsLegacy(glfw3Bridge::primaryMonitorModes());
    int count = 0;
    for (const glfw3Bridge::ModeInfo& mode : modes) {
        if (count == maxCount) {
            break;
        }
        list[count++] = toVidMode(mode);
    }
    return count;
}

void glfwGetDesktopMode(GLFWvidmode* mode)
{
    if (mode) {
        *mode = toVidMode(glfw3Bridge::desktopMode());
    }
}

void glfwPollEvents()
{
    glfw3Bridge::pollEvents();
    inputTape::pumped(inputTape::liveInput);
}

int glfwGetKey(int key)
{
    if (inputTape::playing()) return inputTape::keyState(inputTape::replayed(), key);
    return glfw3Bridge::keyDown(key) ? GLFW_PRESS : GLFW_RELEASE;
}

int glfwGetMouseButton(int button)
{
    if (inputTape::playing()) return inputTape::mouseButtonState(inputTape::replayed(), button);
    return glfw3Bridge::mouseButtonDown(button) ? GLFW_PRESS : GLFW_RELEASE;
}

int glfwGetPadButton(int seat, int button)
{
    if (inputTape::playing()) return inputTape::padButtonState(inputTape::replayed(), seat, button);
    return glfw3Bridge::padButtonDown(seat, button) ? GLFW_PRESS : GLFW_RELEASE;
}

void glfwGetMousePos(int* x, int* y)
{
    inputTape::mousePositionRead();
    double cursorX = 0, cursorY = 0;
    glfw3Bridge::cursorPosition(&cursorX, &cursorY);
    if (inputTape::playing()) {
        cursorX = inputTape::replayed().mouseX;
        cursorY = inputTape::replayed().mouseY;
    }
    if (x) *x = static_cast<int>(cursorX);
    if (y) *y = static_cast<int>(cursorY);
}

RoundInput inputTape::liveInput()
{
    RoundInput input;
    for (int key = 0; key <= GLFW_KEY_LAST; ++key) input.keys[key] = glfw3Bridge::keyDown(key);
    for (int button = 0; button <= GLFW_MOUSE_BUTTON_LAST; ++button)
        input.mouseButtons[button] = glfw3Bridge::mouseButtonDown(button);
    double cursorX = 0, cursorY = 0;
    glfw3Bridge::cursorPosition(&cursorX, &cursorY);
    input.mouseX = static_cast<int>(cursorX);
    input.mouseY = static_cast<int>(cursorY);
    input.focused = glfw3Bridge::focused();
    input.closeRequested = glfw3Bridge::closeRequested();
    for (int seat = 0; seat < GLFW_PAD_SEATS; ++seat) {
        for (int button = 0; button <= GLFW_PAD_BUTTON_LAST; ++button)
            input.padButtons[seat] |= uint32_t(glfw3Bridge::padButtonDown(seat, button)) << button;
    }
    return input;
}

double glfwGetTime() { return glfw3Bridge::seconds(); }

void glfwSleep(double seconds)
{
    if (!(seconds > 0)) {
        sched_yield();
        return;
    }
#ifdef _WIN32
    // Windows sleeps by its timer's period, 15.6 ms unless a finer one is
    // asked for: the rest of a frame would often become a whole frame more.
    timeBeginPeriod(1);
    Sleep(static_cast<DWORD>(seconds * 1000 + 0.5));
    timeEndPeriod(1);
#else
    timespec wait;
    wait.tv_sec = static_cast<time_t>(seconds);
    wait.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    if (wait.tv_nsec >= 1000000000L) {
        wait.tv_nsec = 999999999L;
    }
    // A signal cuts a sleep short; sleep the rest.
    while (nanosleep(&wait, &wait) == -1 && errno == EINTR) {
    }
#endif
}
