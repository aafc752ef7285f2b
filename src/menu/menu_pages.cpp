// The main page, the settings page and the five pages that each choose one
// setting, with what an activation does on each of them.
#include <GL/glew.h>
#include <cstdio>

#include "data/settings.h"
#include "menu/menu.h"
#include "render/primitives.h"
#include "render/text.h"
#include "shell/frame_clock.h"
#include "shell/window.h"
#include "sound/sound.h"

void Menu::showMainPage()
{
    beginPage(MenuPage::Main);
    const float c = static_cast<float>(virtualWidth / 2);
    buttons->addButton("1 player game", c, 160, 30, 1, false);
    buttons->addButton("1 player survival", c, 210, 30, 1, false);
    buttons->addButton("2 player game", c, 260, 30, 1, false);
    buttons->addButton("Settings", c, 340, 30, 1, false);
    buttons->addButton("How to play", c, 390, 30, 1, false);
    buttons->addButton("Credits", c, 440, 30, 1, false);
    buttons->addButton("Quit game", c, 520, 30, 1, false);
    finishPage();
    captureScreenSlot(2);
}

bool Menu::activateMain(bool escape)
{
    if (escape || selection == 6) {
        startRequested = false;
        return true;
    }
    switch (selection) {
    case 0:
    case 1:
    case 2:
        playerCount = selection == 2 ? 2 : 1;
        survivalRules = selection != 0;
        showLevelSelectionPage();
        break;
    case 3: showSettingsPage(); break;
    case 4: showHowToPlayPage(); break;
    case 5: showCreditsPage(); break;
    }
    return false;
}

void Menu::showSettingsPage()
{
    beginPage(MenuPage::Settings);
    const int c = virtualWidth / 2;
    const float left = static_cast<float>(c - 150);
    buttons->addButton("Resolution:", left, 110, 30, 0, true);
    buttons->addButton("Window type:", left, 160, 30, 0, true);
    buttons->addButton("Tutorial:", left, 210, 30, 0, true);
    buttons->addButton("Music volume:", left, 260, 30, 0, true);
    buttons->addButton("Sound volume:", left, 310, 30, 0, true);
    buttons->addButton("Back", static_cast<float>(c), 390, 30, 1, false);
    finishPage();

    // The current values, right of their buttons, belong to the still picture.
    selectWideSpace();
    const float valueX = static_cast<float>(c + 150);
    uint16_t width = 0, height = 0;
    getResolution(&width, &height);
    char resolution[24];
    if (width == 0)
        std::snprintf(resolution, sizeof resolution, "Auto");
    else
        std::snprintf(resolution, sizeof resolution, "%i x %i", width, height);
    drawText(resolution, valueX, 95, 30, 0);
    drawText(isFullscreen() ? "Fullscreen" : "Windowed", valueX, 145, 30, 0);
    drawText(isTutorialEnabled() ? "Enabled" : "Disabled", valueX, 195, 30, 0);
    drawInt(getMusicVolume(), valueX, 245, 30, 0);
    drawInt(getSoundVolume(), valueX, 295, 30, 0);
    captureScreenSlot(2);
}

void Menu::activateSettings(bool escape)
{
    if (escape || selection == 5) {
        showMainPage();
        return;
    }
    switch (selection) {
    case 0: showResolutionPage(); break;
    case 1: showWindowTypePage(); break;
    case 2: showTutorialPage(); break;
    case 3: showMusicVolumePage(); break;
    case 4: showSoundVolumePage(); break;
    }
}

void Menu::showResolutionPage()
{
    beginPage(MenuPage::Resolution);
    const float c = static_cast<float>(virtualWidth / 2);
    buttons->addButton("Auto", c, 45, 23, 1, false);
    const int n = static_cast<int>(videoModes.size());
    for (int i = 0; i < n; ++i) {
        char text[24];
        std::snprintf(text, sizeof text, "%i x %i", videoModes[i].first, videoModes[i].second);
        buttons->addButton(text, c, 30.0f * i + 75, 23, 1, false);
    }
    buttons->addButton("Cancel", c, 30.0f * n + 118, 30, 1, false);
    finishPage();
    captureScreenSlot(2);
}

void Menu::activateResolution(bool escape, FrameClock& clock)
{
    const int n = static_cast<int>(videoModes.size());
    if (!escape && selection <= n) {
        uint16_t wantedWidth = 0, wantedHeight = 0;  // "Auto"
        if (selection > 0) {
            wantedWidth = static_cast<uint16_t>(videoModes[selection - 1].first);
            wantedHeight = static_cast<uint16_t>(videoModes[selection - 1].second);
        }
        uint16_t width = 0, height = 0;
        getResolution(&width, &height);
        const bool changed = wantedWidth != width || wantedHeight != height;
        if (changed) setResolution(wantedWidth, wantedHeight);
        applyDisplayChoice(changed, &runDisplay.sizeGiven, clock);
    }
    showSettingsPage();
}

// The window type and tutorial pages: two choices and "Cancel".
void Menu::showTwoChoicePage(MenuPage choicePage, const char* first, const char* second)
{
    beginPage(choicePage);
    const float c = static_cast<float>(virtualWidth / 2);
    buttons->addButton(first, c, 160, 30, 1, false);
    buttons->addButton(second, c, 210, 30, 1, false);
    buttons->addButton("Cancel", c, 290, 30, 1, false);
    finishPage();
    captureScreenSlot(2);
}

void Menu::showWindowTypePage() { showTwoChoicePage(MenuPage::WindowType, "Windowed", "Fullscreen"); }

// A new window for a changed setting, or for this run's choice from the
// command line, which gives way to the player's.
void Menu::applyDisplayChoice(bool settingChanged, bool* runChoiceGiven, FrameClock& clock)
{
    const bool runChoiceDropped = *runChoiceGiven;
    *runChoiceGiven = false;
    if (settingChanged || runChoiceDropped) {
        rebuildDisplay();
        clock.resync();  // the time the new window took is no lateness
    }
}

void Menu::activateWindowType(bool escape, FrameClock& clock)
{
    if (!escape && selection <= 1) {
        const bool wantFullscreen = selection == 1;
        const bool changed = wantFullscreen != isFullscreen();
        if (changed) setFullscreen(wantFullscreen);
        applyDisplayChoice(changed, &runDisplay.typeGiven, clock);
    }
    showSettingsPage();
}

void Menu::showTutorialPage() { showTwoChoicePage(MenuPage::Tutorial, "Enable", "Disable"); }

void Menu::activateTutorial(bool escape)
{
    if (!escape && selection <= 1) {
        const bool enable = selection == 0;
        if (enable != isTutorialEnabled()) setTutorialEnabled(enable);
    }
    showSettingsPage();
}

void Menu::showMusicVolumePage() { showVolumeList(MenuPage::MusicVolume); }
void Menu::showSoundVolumePage() { showVolumeList(MenuPage::SoundVolume); }

void Menu::showVolumeList(MenuPage volumePage)
{
    beginPage(volumePage);
    const float c = static_cast<float>(virtualWidth / 2);
    const char* const levels[6] = {"100 ", " 80 ", " 60 ", " 40 ", " 20 ", "  0 "};
    for (int i = 0; i < 6; ++i) buttons->addButton(levels[i], c, 120.0f + 35 * i, 27, 1, false);
    buttons->addButton("Cancel", c, 370, 30, 1, false);
    finishPage();
    captureScreenSlot(2);
}

void Menu::activateVolume(bool escape)
{
    if (!escape && selection <= 5) {
        const uint8_t volume = static_cast<uint8_t>(100 - 20 * selection);
        if (page == MenuPage::MusicVolume)
            setMusicVolume(volume);
        else
            setSoundVolume(volume);
    }
    // The new music volume is heard at once; effects take theirs when played.
    if (page == MenuPage::MusicVolume && music) music->applyVolume();
    showSettingsPage();
}
