// The menu's page graph in a 200 x 120 window (the wide space 1000 x 600, five
// units a pixel) on a slow clock: which key or click leads where, the locks on
// held keys, what the settings pages store and what the spine reads back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/scores.h"
#include "data/settings.h"
#include "menu/menu.h"
#include "shell/window.h"
#include "support/input_script.h"
#include "support/play_session.h"

namespace {

using P = MenuPage;
using Pages = std::vector<MenuPage>;
const int up = GLFW_KEY_UP, down = GLFW_KEY_DOWN, enter = GLFW_KEY_ENTER, escape = GLFW_KEY_ESC;

class MenuLoop : public ::testing::Test {
protected:
    void SetUp() override
    {
        session.open(1, 200, 120);
        testBackend::setFrameCost(0.05);  // most frames left out; the rules don't mind
    }
    PlaySession session;
};

}  // namespace

TEST_F(MenuLoop, EveryPageByMouseAndKeyboardWithEscapeAsTheWayBack)
{
    const uint8_t soundVolume = getSoundVolume();
    videoModes = {{300, 240}, {200, 150}};
    const unsigned start = testBackend::round();
    testBackend::setKey(enter, true);  // held from the game before: nothing until let go
    testBackend::setKey(down, true);
    InputScript s;
    testBackend::keyAt(s.wait(10).next, enter, false);
    testBackend::keyAt(s.next, down, false);
    s.moveMouse(100, 32);           // on "1 player game"
    s.press(down, 3).press(enter);  // Settings, where the still mouse is on "Window type:"
    s.press(enter).press(escape).press(escape);  // the first button: Resolution
    s.moveMouse(2, 2).button(true).wait(6);      // a press beside the buttons takes no lock,
    s.moveMouse(100, 68).wait(4).button(false);  // and dragging on to "Settings" opens it
    s.press(escape).moveMouse(100, 104);         // on "Quit game"
    s.press(up).click().press(escape);  // the click opens the keyboard's "Credits"
    s.press(up).press(GLFW_KEY_RIGHT);  // wraps to "Quit game" and back
    InputScript(s.next).press(up);      // with down in one round: no move
    s.press(down, 4).press(enter);      // Settings
    for (int setting = 0; setting < 5; ++setting) s.press(down, setting).press(enter).press(escape);
    s.press(down, 2).press(enter).press(down).press(enter);     // Tutorial: "Disable"
    s.press(down, 3).press(enter).press(down, 3).press(enter);  // Music volume: " 40 "
    s.press(down, 4).press(enter).press(up).press(enter);       // Sound volume: "Cancel"
    s.press(down).press(enter).press(enter);                    // Window type: "Windowed"
    s.press(escape).press(enter).press(escape);                 // level selection and back
    s.press(down, 4).press(enter).press(down).press(enter);     // how to play, picture 2
    s.press(enter).wait(30);  // within the fade: nothing
    for (int picture = 3; picture <= 5; ++picture) s.press(enter).wait(30);
    s.press(enter);  // on picture 5 "Back" is selected: leaves
    s.press(down, 5).press(enter).press(enter).press(escape);  // credits: the address opens
    s.press(down, 3).press(enter).press(enter).press(down, 2).press(enter);  // "200 x 150"
    s.press(escape);
    const unsigned quitRound = s.next - start + 1;
    s.press(escape);  // quits at once
    const unsigned opened = testBackend::window().openCount;
    Menu menu(menuEntryMain);

    EXPECT_EQ(menu.pagesOpened,
              (Pages{P::Main, P::Settings, P::Resolution, P::Settings, P::Main, P::Settings, P::Main,
                     P::Credits, P::Main, P::Settings, P::Resolution, P::Settings, P::WindowType, P::Settings,
                     P::Tutorial, P::Settings, P::MusicVolume, P::Settings, P::SoundVolume,
                     P::Settings, P::Tutorial, P::Settings, P::MusicVolume, P::Settings,
                     P::SoundVolume, P::Settings, P::WindowType, P::Settings, P::Main,
                     P::LevelSelection, P::Main, P::HowToPlay, P::Main, P::Credits, P::Main,
                     P::Settings, P::Resolution, P::Settings, P::Main}));
    EXPECT_EQ(menu.roundsRun, quitRound);
    EXPECT_FALSE(menu.isStartRequested());
    EXPECT_FALSE(isTutorialEnabled());
    EXPECT_EQ(getMusicVolume(), 40);
    EXPECT_EQ(getSoundVolume(), soundVolume);
    EXPECT_EQ(menu.infoPage, 5);
    EXPECT_EQ(menu.previousInfoPage, 4);
    EXPECT_EQ(testBackend::webAddresses(), std::vector<std::string>{authorWebAddress});
    // Only the new resolution made a new window, and the pages fit it.
    EXPECT_EQ(testBackend::window().openCount, opened + 1);
    EXPECT_FALSE(isFullscreen());
    uint16_t width = 0, height = 0;
    getResolution(&width, &height);
    EXPECT_EQ(width, 200);
    EXPECT_EQ(height, 150);
    EXPECT_EQ(windowWidth, 200);
    EXPECT_EQ(menu.virtualWidth, 800);
    EXPECT_EQ(menu.columnOffset, 186);  // 4:3
    EXPECT_FLOAT_EQ(menu.buttons->buttons[5].x, 400);
}

TEST_F(MenuLoop, EachModeAndEntryReachesTheGameWithItsRules)
{
    saveStageScore(1, 325);        // most of map 1's par: map 2 opens, map 3 doesn't
    saveSurvivalScore(2, 999999);  // survival opens nothing
    // Entry, downs on the main page (-1: none) and on the maps, then players,
    // survival and the map chosen (0: "Back", and Escape quits).
    const int cases[][6] = {{menuEntryMain, 0, 1, 1, 0, 2},  {menuEntryMain, 1, 0, 1, 1, 1},
                            {menuEntryMain, 2, 1, 2, 1, 2},  {menuEntryStage, -1, 0, 1, 0, 1},
                            {menuEntrySurvival, -1, 1, 1, 1, 2}, {menuEntryTwoPlayers, -1, 2, 2, 1, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c[0] * 10 + c[1]);
        InputScript s;
        if (c[1] >= 0) s.press(down, c[1]).press(enter);
        s.press(down, c[2]).press(enter).press(escape);
        Menu menu(static_cast<uint8_t>(c[0]));
        EXPECT_EQ(menu.unlockedMaps, 2);
        EXPECT_EQ(menu.isStartRequested(), c[5] != 0);
        EXPECT_EQ(menu.getPlayerCount(), c[3]);
        EXPECT_EQ(menu.isSurvivalRules(), c[4] != 0);
        if (c[5] == 0) continue;
        EXPECT_EQ(menu.getMapNumber(), c[5]);
        EXPECT_EQ(menu.getMapPath(), "content/maps/map" + std::to_string(c[5]) + ".txt");
        EXPECT_EQ(menu.rowHighlights.empty(), c[3] == 2);  // two players: no row frame
    }
}
