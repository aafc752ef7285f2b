// STAND-IN: see pause_menu.h.
#include "play/pause_menu.h"

#include "platform/glfw.h"
#include "shell/frame_clock.h"
#include "shell/hotkeys.h"
#include "sound/sound.h"

namespace {
bool resumeControlDown()
{
    return glfwGetKey(GLFW_KEY_ESC) == GLFW_PRESS || glfwGetKey('P') == GLFW_PRESS ||
           glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT) == GLFW_PRESS;
}
}  // namespace

PauseMenu::PauseMenu()
{
    FrameClock clock(60);
    bool resumeHeld = true;  // the control that paused does not at once resume
    bool enterHeld = true;
    while (true) {
        glfwPollEvents();
        pollHotkeys();
        if (glfwGetWindowParam(GLFW_OPENED) == 0) break;
        if (!resumeControlDown()) resumeHeld = false;
        if (glfwGetKey(GLFW_KEY_ENTER) != GLFW_PRESS) enterHeld = false;
        if (!resumeHeld && resumeControlDown()) {
            result = 1;
            break;
        }
        if (!enterHeld && glfwGetKey(GLFW_KEY_ENTER) == GLFW_PRESS) {
            result = 4;
            break;
        }
        updateAudio();
        clock.tick();
    }
}
