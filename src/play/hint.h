// A plate of text on the play screen, often with a turning arrow: the map's
// title at the start of a game and the tutorial's timed hints. Lives 550 ticks.
#pragma once

#include <cstdint>

class Hint {
public:
    Hint(const char* text, uint16_t x, uint16_t y, float size, float arrowAngle);
    ~Hint();
    Hint(const Hint&) = delete;
    Hint& operator=(const Hint&) = delete;

    bool tick();  // true while the hint is still to be shown
    void draw();  // wide space set up, viewport on the whole window

    uint32_t plateMiddleTexture = 0;
    uint32_t plateEndTexture = 0;
    uint32_t arrowTexture = 0;
    char* text = nullptr;
    uint32_t age = 0;
    uint16_t x, y;
    float size;
    float arrowAngle;  // radians at rest; 0 or below: no arrow
    int16_t plateTop = 0;
    uint16_t plateTextureHeight = 4;
    uint16_t plateWidth = 0;
};

// The plate's rows: band and edge positions in a texture of the given height.
struct PlateLayout {
    uint16_t textureHeight;  // H
    int top;                 // t
    int bottom;              // b
};
PlateLayout plateLayout(float size);
