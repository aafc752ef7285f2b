// STAND-IN: see menu.h.
#include "menu/menu.h"

#include <GL/glew.h>

#include "platform/glfw.h"
#include "shell/frame_clock.h"
#include "shell/hotkeys.h"
#include "sound/sound.h"

Menu::Menu(uint8_t menuEntry)
{
    if (menuEntry == 2) survivalRules = true;
    if (menuEntry == 3) {
        playerCount = 2;
        survivalRules = true;
    }
    music = new Sound("content/music/Brackwyn.ogg", true, true);
    music->play();

    FrameClock clock(60);
    // Keys still held from the game before do not act at once.
    bool keysHeld = true;
    while (glfwGetWindowParam(GLFW_OPENED) != 0) {
        if (clock.shouldDraw()) {
            glClear(GL_COLOR_BUFFER_BIT);
            clock.drawStats();
            glfwSwapBuffers();
        } else {
            glfwPollEvents();
        }
        pollHotkeys();
        bool enter = glfwGetKey(GLFW_KEY_ENTER) == GLFW_PRESS;
        bool escape = glfwGetKey(GLFW_KEY_ESC) == GLFW_PRESS;
        if (!enter && !escape) keysHeld = false;
        if (!keysHeld && enter) {
            startRequested = true;
            break;
        }
        if (!keysHeld && escape) break;
        updateAudio();
        clock.tick();
    }
}

Menu::~Menu() { stopMusic(); }

void Menu::stopMusic()
{
    delete music;
    music = nullptr;
}
