// One control of a Player's panel: a key, a mouse area on the HUD, a game
// controller's button, or several of them.
#pragma once

#include <cstdint>

class PanelButton {
public:
    // Keyboard only.
    PanelButton(int16_t x, int16_t y, const char* label, int32_t key);
    // With a 32 x 32 mouse area, placed by the Player's view in window pixels.
    PanelButton(int16_t x, int16_t y, const char* label, int32_t key, int16_t viewX,
                int16_t viewY, int16_t viewWidth, int16_t viewHeight);

    // The controller's button that works this control too (glfw.h: a seat
    // or GLFW_ANY_PAD, a GLFW_PAD_ button).
    void answerToPad(int seat, int button);
    // A controller's button held now (from a menu) counts only once let go.
    void holdPadUntilReleased() { padReleased = false; }

    // Reads the key, the controller and the mouse; counts the frames that it
    // has been down.
    bool poll();
    bool justPressed() const { return heldFrames == 1; }

    int16_t x, y;                 // place in the 800 x 600 HUD space
    int16_t pixelX = 0, pixelY = 0, pixelWidth = 0, pixelHeight = 0;
    char label[2] = {0, 0};
    int32_t key;
    bool mouseEnabled = false;
    int16_t heldFrames = 0;
    int32_t padSeat = 0;
    int32_t padButton = -1;  // none
    bool padReleased = false;
};
