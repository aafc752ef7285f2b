// What a player can pick in a menu: text buttons in a list that answers where
// the mouse is, what it clicks and where a button stands; and the two
// decorations that go with lists, the selection marker and the row highlight.
// Positions are in the wide space (virtualWidth x 600); hit areas in pixels.
#pragma once

#include <cstdint>
#include <vector>

struct MenuButton {
    char text[28];
    float x, y;  // anchor; y is the text's middle line
    float size;
    uint8_t align;  // 0 starts 115 left of x, 1 centred, 2 ends 115 right of x
    float pixelX, pixelY;
    float pixelHalfWidth, pixelHalfHeight;
    bool fullRow;  // the hit area spans the window's width

    bool holds(float px, float py) const;
};

class ButtonList {
public:
    explicit ButtonList(float virtualWidth);

    void addButton(const char* text, float x, float y, float size, uint8_t align, bool fullRow);
    uint8_t itemCount() const;
    void itemPosition(uint8_t index, float* x, float* y) const;
    uint8_t hoveredItem();  // 255: none, or the mouse has not moved
    uint8_t clickedItem() const;
    void draw() const;

    std::vector<MenuButton> buttons;
    int32_t lastMouseX = 0, lastMouseY = 0;
    float virtualWidth;

private:
    uint8_t itemAt(float px, float py) const;
};

class SelectionMarker {
public:
    SelectionMarker(float x, float y);
    void moveTo(float targetX, float targetY);  // one frame of motion
    void draw() const;

    float x, y;
    float size = 2.0f;  // held within 1 and 2
};

struct RowHighlight {
    float y;
    float virtualWidth;
    float inset;
    uint8_t frames;
    int8_t row;

    bool update(int selection);  // true once faded out
    void draw() const;           // under the color program
};
