// The Menu's life: loading, the loop of rounds, and the geometry and textures
// that hang on the window.
#include "menu/menu.h"

#include <GL/glew.h>
#include <cstdio>

#include "base/numbers.h"
#include "data/images.h"
#include "menu/menu_controls.h"
#include "platform/glfw.h"
#include "render/primitives.h"
#include "render/transitions.h"
#include "shell/frame_clock.h"
#include "shell/hotkeys.h"
#include "shell/startup.h"
#include "shell/window.h"
#include "sound/sound.h"

std::string hiddenLetterPicture(int spot)
{
    return "hidden" + std::to_string(spot + 1) + ".spg";
}

Menu::Menu(uint8_t menuEntry)
{
    music = new Sound("content/music/Brackwyn.ogg", true, true);
    music->play();
    focusSound = new Sound("content/sound/button4.ogg", false, false);
    pressSound = new Sound("content/sound/static1.ogg", false, false);
    leaveSound = new Sound("content/sound/static2.ogg", false, false);

    updateGeometry();
    buttons = nullptr;
    unlockedMaps = 0;
    loadTextures();

    if (menuEntry == menuEntryMain) {
        showMainPage();
    } else {
        playerCount = menuEntry < menuEntryTwoPlayers ? 1 : 2;
        survivalRules = menuEntry != menuEntryStage;
        showLevelSelectionPage();
    }

    pressSound->play();
    run();
    leaveSound->play();
    runClosingTransition();
}

Menu::~Menu()
{
    delete buttons;
    deleteTextures();
    stopMusic();
    delete focusSound;
    delete pressSound;
    delete leaveSound;
}

void Menu::stopMusic()
{
    delete music;
    music = nullptr;
}

void Menu::run()
{
    // Keys and buttons held when the menu begins (or a page changes) act only
    // after they have been let go.
    bool arrowsLocked = true;
    bool activationLocked = true;
    FrameClock clock(60);
    startRequested = true;

    bool leaving = false;
    while (!leaving) {
        ++roundsRun;
        ++pageFrames;
        if (infoFade != 0) --infoFade;
        const uint8_t oldSelection = selection;

        const MenuControls controls = readMenuControls();
        const bool next = controls.next;
        const bool previous = controls.previous;
        const uint8_t count = buttons->itemCount();
        if (!arrowsLocked) {
            // Both in one round cancel out; one press is one step, no repeat.
            if (next) selection = selection + 1 >= count ? 0 : selection + 1;
            if (previous) selection = selection == 0 ? count - 1 : selection - 1;
        }
        arrowsLocked = next || previous;

        const uint8_t hovered = buttons->hoveredItem();
        if (hovered != 255) selection = hovered;

        if (selection != oldSelection) {
            focusSound->play();
            if (page == MenuPage::LevelSelection && playerCount == 1 && selection < unlockedMaps) {
                rowHighlights.push_back(RowHighlight{selection * 24.0f + 33, float(virtualWidth),
                                                     float(columnOffset), 0,
                                                     static_cast<int8_t>(selection)});
            }
        }

        const bool enter = controls.choose;
        const bool escape = controls.back;
        if (!activationLocked && (enter || escape || buttons->clickedItem() != 255)) {
            // The action is on the selection, never on whatever the mouse is over.
            leaving = activate(escape, clock);
            if (!leaving) pressSound->play();
            activationLocked = true;
        } else if (!enter && !escape &&
                   glfwGetMouseButton(GLFW_MOUSE_BUTTON_LEFT) != GLFW_PRESS) {
            activationLocked = false;
        }

        float targetX, targetY;
        buttons->itemPosition(selection, &targetX, &targetY);
        marker.moveTo(targetX, targetY);

        for (size_t i = 0; i < rowHighlights.size();) {
            if (rowHighlights[i].update(selection))
                rowHighlights.erase(rowHighlights.begin() + static_cast<long>(i));
            else
                ++i;
        }

        if (clock.shouldDraw()) {
            draw();
            clock.drawStats();
            glfwSwapBuffers();
        } else {
            glfwPollEvents();
        }
        pollHotkeys();
        if (glfwGetWindowParam(GLFW_OPENED) == 0) {
            startRequested = false;
            leaving = true;
        }
        updateAudio();
        clock.tick();
    }
}

bool Menu::activate(bool escape, FrameClock& clock)
{
    switch (page) {
    case MenuPage::Main: return activateMain(escape);
    case MenuPage::Settings: activateSettings(escape); return false;
    case MenuPage::LevelSelection: return activateLevelSelection(escape);
    case MenuPage::Resolution: activateResolution(escape, clock); return false;
    case MenuPage::WindowType: activateWindowType(escape, clock); return false;
    case MenuPage::Tutorial: activateTutorial(escape); return false;
    case MenuPage::MusicVolume:
    case MenuPage::SoundVolume: activateVolume(escape); return false;
    case MenuPage::HowToPlay: activateHowToPlay(escape); return false;
    case MenuPage::Credits: activateCredits(escape, clock); return false;
    }
    return false;
}

void Menu::updateGeometry()
{
    virtualWidth = static_cast<int16_t>(windowWidth * 600 / windowHeight);
    // The level table's columns move in on narrow screens: 170 at 5:4, 250 at 5:3.
    const float aspect = static_cast<float>(windowWidth) / static_cast<float>(windowHeight);
    columnOffset = static_cast<int16_t>(mapRange(1.25f, 1.6666666f, 170, 250, aspect));
}

void Menu::loadTextures()
{
    char name[16];
    for (int i = 0; i < 6; ++i) {
        std::snprintf(name, sizeof name, "letter%i.spg", i + 1);
        loadTexture(&letterTextures[i], name);
        loadTexture(&hiddenTextures[i], hiddenLetterPicture(i).c_str());
    }
    for (int i = 0; i < 5; ++i) {
        std::snprintf(name, sizeof name, "info%i.spg", i + 1);
        loadTexture(&infoTextures[i], name);
    }
}

void Menu::deleteTextures()
{
    glDeleteTextures(6, letterTextures);
    glDeleteTextures(6, hiddenTextures);
    glDeleteTextures(5, infoTextures);
}

// A new window: everything on the old GL context goes with it, ours included.
void Menu::rebuildDisplay()
{
    deleteTextures();
    reopenDisplay();
    updateGeometry();
    loadTextures();
}

void Menu::selectWideSpace() const
{
    setOrtho(virtualWidth, 600);
    glViewport(0, 0, windowWidth, windowHeight);
}

void Menu::beginPage(MenuPage newPage)
{
    delete buttons;
    buttons = nullptr;
    selection = 0;
    pageFrames = 0;
    captureScreenSlot(1);  // the page before, for the transition
    rowHighlights.clear();
    page = newPage;
    buttons = new ButtonList(virtualWidth);
    pagesOpened.push_back(newPage);
}

void Menu::finishPage()
{
    float x, y;
    buttons->itemPosition(0, &x, &y);
    marker = SelectionMarker(x, y);
    glClear(GL_COLOR_BUFFER_BIT);
}
