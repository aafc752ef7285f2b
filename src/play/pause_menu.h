// The pause: the last picture of the play frozen behind a panel of four
// buttons. The constructor runs the whole loop and leaves the answer in
// `result` (a GameResult; 0 when the window closed). The caller pauses the
// music and resyncs its clock.
#pragma once

#include <cstdint>

#include "menu/widgets.h"

class ButtonList;
class Sound;

// The controls that pause a game and resume it: ESC, P, the right mouse
// button, a controller's Start.
bool pauseControlDown();

class PauseMenu {
public:
    PauseMenu();
    ~PauseMenu();
    PauseMenu(const PauseMenu&) = delete;
    PauseMenu& operator=(const PauseMenu&) = delete;

    Sound* moveSound = nullptr;
    Sound* staticSound = nullptr;
    ButtonList* list = nullptr;
    SelectionMarker marker{0, 0};
    uint32_t panelTexture = 0;
    uint8_t result = 0;
    int16_t virtualWidth = 0;

    // What the loop left behind, for tests.
    uint32_t roundsRun = 0;
    uint8_t finalSelection = 0;

private:
    void run();
    void drawFrame(uint32_t animFrame);
};
