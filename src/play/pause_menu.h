// STAND-IN until the pause menu is built: a loop that holds the game while it
// is paused, with the result a pause menu hands back. ESC, P or the right
// mouse button (pressed anew) resume; ENTER leaves for the main menu; a closed
// window leaves the result at 0 (Quit). Nothing is drawn: the paused picture
// stays on screen.
#pragma once

#include <cstdint>

class PauseMenu {
public:
    PauseMenu();
    uint8_t result = 0;  // GameResult
};
