#include "sim/panel_button.h"

#include "platform/glfw.h"

PanelButton::PanelButton(int16_t x, int16_t y, const char* label, int32_t key)
    : x(x), y(y), key(key)
{
    if (label)
        this->label[0] = label[0];
}

PanelButton::PanelButton(int16_t x, int16_t y, const char* label, int32_t key,
                         int16_t viewX, int16_t viewY, int16_t viewWidth, int16_t viewHeight)
    : PanelButton(x, y, label, key)
{
    mouseEnabled = true;
    pixelX = static_cast<int16_t>(static_cast<int>(viewWidth / 800.0f * x) + viewX);
    pixelWidth = static_cast<int16_t>(viewWidth / 800.0f * 32);
    pixelY = static_cast<int16_t>(static_cast<int>(viewHeight / 600.0f * y) + viewY);
    pixelHeight = static_cast<int16_t>(viewHeight / 600.0f * 32);
}

void PanelButton::answerToPad(int seat, int button)
{
    padSeat = seat;
    padButton = button;
}

bool PanelButton::poll()
{
    bool down = key != 0 && glfwGetKey(key) == GLFW_PRESS;
    if (padButton >= 0) {
        const bool padDown = glfwGetPadButton(padSeat, padButton) == GLFW_PRESS;
        if (!padDown) padReleased = true;
        down = down || (padReleased && padDown);
    }
    if (!down && mouseEnabled && glfwGetMouseButton(GLFW_MOUSE_BUTTON_LEFT) == GLFW_PRESS) {
        int mouseX = 0, mouseY = 0;
        glfwGetMousePos(&mouseX, &mouseY);
        down = mouseX > pixelX && mouseX < pixelX + pixelWidth && mouseY > pixelY &&
               mouseY < pixelY + pixelHeight;
    }
    if (down)
        heldFrames += 1;
    else
        heldFrames = 0;
    return down;
}
