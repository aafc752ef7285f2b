#include "menu/widgets.h"

#include <GL/glew.h>
#include <cmath>
#include <cstring>

#include "base/numbers.h"
#include "platform/glfw.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/window.h"

const uint8_t noItem = 255;

bool MenuButton::holds(float px, float py) const
{
    if (!fullRow && !(px > pixelX - pixelHalfWidth && px < pixelX + pixelHalfWidth)) return false;
    return py > pixelY - pixelHalfHeight && py < pixelY + pixelHalfHeight;
}

ButtonList::ButtonList(float virtualWidth) : virtualWidth(virtualWidth)
{
    // A mouse resting where a new page puts a button must not select it.
    int mouseX = 0, mouseY = 0;
    glfwGetMousePos(&mouseX, &mouseY);
    lastMouseX = mouseX;
    lastMouseY = mouseY;
}

void ButtonList::addButton(const char* text, float x, float y, float size, uint8_t align,
                           bool fullRow)
{
    MenuButton button{};
    std::strncpy(button.text, text, sizeof button.text - 1);
    button.x = x;
    button.y = y;
    button.size = size;
    button.align = align;
    button.pixelX = x / virtualWidth * windowWidth;
    button.pixelY = y / 600 * windowHeight;
    button.pixelHalfWidth = windowHeight * 0.2f;
    button.pixelHalfHeight = size * 0.5f / virtualWidth * windowWidth;
    button.fullRow = fullRow;
    buttons.push_back(button);
}

uint8_t ButtonList::itemCount() const { return static_cast<uint8_t>(buttons.size()); }

void ButtonList::itemPosition(uint8_t index, float* x, float* y) const
{
    if (index >= buttons.size()) {
        *x = -200;
        *y = -200;
        return;
    }
    *x = buttons[index].x;
    *y = buttons[index].y;
}

uint8_t ButtonList::itemAt(float px, float py) const
{
    for (size_t i = 0; i < buttons.size(); ++i) {
        if (buttons[i].holds(px, py)) return static_cast<uint8_t>(i);
    }
    return noItem;
}

uint8_t ButtonList::hoveredItem()
{
    int mouseX = 0, mouseY = 0;
    glfwGetMousePos(&mouseX, &mouseY);
    // A still mouse does not fight the keys.
    if (mouseX == lastMouseX && mouseY == lastMouseY) return noItem;
    lastMouseX = mouseX;
    lastMouseY = mouseY;
    return itemAt(static_cast<float>(mouseX), static_cast<float>(mouseY));
}

uint8_t ButtonList::clickedItem() const
{
    if (glfwGetMouseButton(GLFW_MOUSE_BUTTON_LEFT) != GLFW_PRESS) return noItem;
    return itemAt(static_cast<float>(lastMouseX), static_cast<float>(lastMouseY));
}

void ButtonList::draw() const
{
    for (const MenuButton& button : buttons) {
        float shift = button.align == 0 ? -115.0f : button.align == 1 ? 0.0f : 115.0f;
        drawText(button.text, button.x + shift, button.y - button.size * 0.5f, button.size,
                 button.align);
    }
}

SelectionMarker::SelectionMarker(float x, float y) : x(x), y(y) {}

void SelectionMarker::moveTo(float targetX, float targetY)
{
    float angle = angleTo(x, y, targetX, targetY);
    if (distanceSquared(x, y, targetX, targetY) <= 100) {
        x = targetX;
        y = targetY;
    } else {
        x += std::cos(angle) * 10;
        y += std::sin(angle) * 10;
        size += 0.2f;
    }
    size -= 0.1f;
    size = clampFloat(size, 1, 2);
}

void SelectionMarker::draw() const
{
    useProgram(colorProgram);
    float alpha = mapRange(2, 1, 0.2f, 0.7f, size);  // strongest at rest
    for (int wing = 0; wing < 4; ++wing) {
        float base = wing < 2 ? x - 120 : x + 120;
        float s = wing < 2 ? -size : size;
        float v = wing % 2 == 0 ? -1.0f : 1.0f;
        const float points[8][3] = {
            {base + s * 180, y, 0},          {base + s * 160, y - 10 * v * size, 0},
            {base + s * 160, y, alpha},      {base + s * 80, y - 10 * v * size, 0},
            {base + s * 80, y, alpha},       {base + s * 50, y - 15 * v * size, 0},
            {base + s * 50, y, alpha},       {base + s * 10, y, 0},
        };
        glBegin(GL_TRIANGLE_STRIP);
        for (const auto& p : points) {
            glColor4f(1, 0, 0, p[2]);
            glVertex2f(p[0], p[1]);
        }
        glEnd();
    }
    glColor4f(1, 1, 1, 1);
    useProgram(basicProgram);
}

bool RowHighlight::update(int selection)
{
    int step = 1;
    if (row != selection) {
        row = -1;  // once lost, the frame stays on its way out
        step = -1;
    }
    frames = static_cast<uint8_t>(clampInt(frames + step, 0, 15));
    return frames == 0;
}

void RowHighlight::draw() const
{
    float f = frames;
    glColor4f(1, 1, 1, mapRange(0, 15, 0, 0.75f, f));
    float grow = mapRange(0, 15, 300, 0, f);
    float squeeze = mapRange(0, 15, 12, 0, f);
    float left = inset - 130 - grow, right = virtualWidth + 170 + grow - inset;
    float top = y + squeeze, bottom = y + 24 - squeeze;
    glBegin(GL_LINES);
    glVertex2f(left, top);
    glVertex2f(right, top);
    glVertex2f(right, top);
    glVertex2f(right, bottom);
    glVertex2f(right, bottom);
    glVertex2f(left, bottom);
    glVertex2f(left, bottom);
    glVertex2f(left, top);
    glEnd();
}
