#include "play/pause_menu.h"

#include <GL/glew.h>

#include "data/images.h"
#include "menu/menu_controls.h"
#include "platform/glfw.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "shell/frame_clock.h"
#include "shell/hotkeys.h"
#include "shell/window.h"
#include "sound/sound.h"

namespace {

const char* const buttonTexts[4] = {"Resume game", "Restart level", "Change level", "Exit to menu"};
const uint8_t resumeResult = 1;

// Resumes: the controls that pause, and any menu's way back.
bool resumeControlDown(const MenuControls& controls) { return pauseControlDown() || controls.back; }

bool anyConfirmDown(const MenuControls& controls)
{
    return controls.choose || resumeControlDown(controls) ||
           glfwGetMouseButton(GLFW_MOUSE_BUTTON_LEFT) == GLFW_PRESS;
}

}  // namespace

bool pauseControlDown()
{
    return glfwGetKey(GLFW_KEY_ESC) == GLFW_PRESS || glfwGetKey('P') == GLFW_PRESS ||
           glfwGetPadButton(GLFW_ANY_PAD, GLFW_PAD_START) == GLFW_PRESS ||
           glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT) == GLFW_PRESS;
}

PauseMenu::PauseMenu()
{
    virtualWidth = static_cast<int16_t>(windowWidth * 600 / windowHeight);
    captureScreenSlot(0);  // the last frame of the play is the background
    createLinearTexture(&panelTexture);
    result = 0;

    list = new ButtonList(virtualWidth);
    for (int i = 0; i < 4; ++i)
        list->addButton(buttonTexts[i], static_cast<float>(virtualWidth / 2), 225.0f + i * 50, 30, 1,
                        false);
    float x, y;
    list->itemPosition(0, &x, &y);
    marker = SelectionMarker(x, y);

    moveSound = new Sound("content/sound/button4.ogg", false, false);
    staticSound = new Sound("content/sound/static1.ogg", false, false);
    staticSound->play();
    run();
}

PauseMenu::~PauseMenu()
{
    delete list;
    glDeleteTextures(1, &panelTexture);
    delete moveSound;
    delete staticSound;
}

void PauseMenu::run()
{
    FrameClock clock(60);
    uint8_t selected = 0;
    uint32_t animFrame = 0;
    bool closing = false;
    bool navHeld = true;    // the control that opened the menu does not act in it
    bool inputHeld = true;
    bool finish = false;
    const uint8_t count = list->itemCount();

    while (!finish) {
        ++roundsRun;
        if (!closing) {
            animFrame += 1;
        } else {
            animFrame -= 1;
            finish = animFrame == 0;
        }

        uint8_t before = selected;
        const MenuControls controls = readMenuControls();
        bool down = controls.next;
        bool up = controls.previous;
        if (!navHeld && !closing && (down || up)) {
            if (down) selected = static_cast<uint8_t>((selected + 1) % count);
            if (up) selected = static_cast<uint8_t>((selected + count - 1) % count);
            navHeld = true;
        } else if (!down && !up) {
            navHeld = false;
        }

        uint8_t hovered = list->hoveredItem();
        if (hovered != 255 && !closing) selected = hovered;
        if (selected != before) moveSound->play();

        bool confirmed = false;
        if (!inputHeld && !closing) {
            bool resumeControl = resumeControlDown(controls);
            bool choose = controls.choose || list->clickedItem() != 255;
            if (resumeControl || choose) {
                confirmed = true;
                result = resumeControl ? resumeResult : static_cast<uint8_t>(selected + 1);
                inputHeld = true;
                if (result == resumeResult) {
                    // Play the opening backward, at most 40 rounds.
                    if (animFrame > 40) animFrame = 40;
                    staticSound->play();
                    closing = true;
                } else {
                    finish = true;
                }
            }
        }
        if (!confirmed && !anyConfirmDown(controls)) inputHeld = false;

        float targetX, targetY;
        list->itemPosition(selected, &targetX, &targetY);
        marker.moveTo(targetX, targetY);

        if (clock.shouldDraw()) {
            drawFrame(animFrame);
            clock.drawStats();
            glfwSwapBuffers();
        } else {
            glfwPollEvents();
        }
        pollHotkeys();
        if (glfwGetWindowParam(GLFW_OPENED) == 0) finish = true;
        updateAudio();
        clock.tick();
    }
    finalSelection = selected;
}

void PauseMenu::drawFrame(uint32_t animFrame)
{
    const int m = (virtualWidth - 800) / 2;
    glClear(GL_COLOR_BUFFER_BIT);
    setOrtho(virtualWidth, 600);
    glViewport(0, 0, windowWidth, windowHeight);
    glColor4f(0, 0, 0, 1);
    drawRect(static_cast<float>(m), 150, 800, 300);
    glColor4f(1, 1, 1, 1);
    list->draw();
    marker.draw();

    // The panel goes into a texture; the frozen play comes back under it.
    glViewport(0, 0, screenTextureWidth, screenTextureHeight);
    glBindTexture(GL_TEXTURE_2D, panelTexture);
    glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 0, 0, screenTextureWidth, screenTextureHeight, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    useTransition3(static_cast<float>(animFrame));
    drawScreenSlot(0);

    if (animFrame <= 40)
        useTransition1(static_cast<float>(animFrame));
    else
        useProgram(basicProgram);
    setOrthoRect(m / -800.0f, -0.5f, m / 800.0f + 1, 1.5f);
    glViewport(0, 0, windowWidth, windowHeight);
    float fu = (static_cast<float>(windowWidth) / screenTextureWidth) / virtualWidth;
    float fv = (static_cast<float>(windowHeight) / screenTextureHeight) / 600;
    drawTexturedRegion(panelTexture, 0, 0, 1, 1, fu * m, fu * (m + 800), fv * 150, fv * 450);
    useProgram(basicProgram);
}
