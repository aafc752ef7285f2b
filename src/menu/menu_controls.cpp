#include "menu/menu_controls.h"

#include "platform/glfw.h"

namespace {

bool keyDown(int key) { return glfwGetKey(key) == GLFW_PRESS; }
bool padDown(int button) { return glfwGetPadButton(GLFW_ANY_PAD, button) == GLFW_PRESS; }

}  // namespace

MenuControls readMenuControls()
{
    MenuControls controls;
    controls.next = keyDown(GLFW_KEY_DOWN) || keyDown(GLFW_KEY_RIGHT) || padDown(GLFW_PAD_DPAD_DOWN) ||
                    padDown(GLFW_PAD_DPAD_RIGHT);
    controls.previous = keyDown(GLFW_KEY_UP) || keyDown(GLFW_KEY_LEFT) || padDown(GLFW_PAD_DPAD_UP) ||
                        padDown(GLFW_PAD_DPAD_LEFT);
    controls.choose = keyDown(GLFW_KEY_ENTER) || padDown(GLFW_PAD_A);
    controls.back = keyDown(GLFW_KEY_ESC) || padDown(GLFW_PAD_B);
    return controls;
}
