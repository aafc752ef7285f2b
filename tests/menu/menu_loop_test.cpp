// The menu's page graph on the test backend, in a 200 x 120 window (the wide
// space 1000 x 600, a unit a fifth of a pixel) on a slow machine: which key or
// click leads where, the locks on held keys, what the settings pages store,
// and what the spine reads back when the loop is over.
#include <gtest/gtest.h>

#include <vector>

#include "data/scores.h"
#include "data/settings.h"
#include "menu/menu.h"
#include "menu_script.h"
#include "shell/window.h"
#include "support/play_session.h"

namespace {

using P = MenuPage;
using Pages = std::vector<MenuPage>;

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

TEST_F(MenuLoop, EveryPageByKeyboardWithEscapeAsTheWayBack)
{
    const uint8_t soundVolume = getSoundVolume();
    videoModes = {{300, 240}, {200, 150}};
    const unsigned start = testBackend::round();
    MenuScript s;
    s.press(GLFW_KEY_UP);    // wraps to "Quit game"
    s.press(GLFW_KEY_RIGHT); // and back to the first
    testBackend::keyAt(s.next, GLFW_KEY_UP, true);  // with down in one round: no move
    testBackend::keyAt(s.next + 2, GLFW_KEY_UP, false);
    s.press(GLFW_KEY_DOWN, 4);
    s.press(GLFW_KEY_ENTER);  // Settings
    for (int setting = 0; setting < 5; ++setting) {
        s.press(GLFW_KEY_DOWN, setting);
        s.press(GLFW_KEY_ENTER);
        s.press(GLFW_KEY_ESC);  // back on Settings, the first button selected
    }
    const int downs[][2] = {{2, 1}, {3, 3}, {4, -1}, {1, 0}};  // Disable, " 40 ", Cancel, Windowed
    for (const auto& choice : downs) {
        s.press(GLFW_KEY_DOWN, choice[0]);
        s.press(GLFW_KEY_ENTER);
        s.press(choice[1] < 0 ? GLFW_KEY_UP : GLFW_KEY_DOWN, choice[1] < 0 ? 1 : choice[1]);
        s.press(GLFW_KEY_ENTER);
    }
    s.press(GLFW_KEY_ESC);    // Main
    s.press(GLFW_KEY_ENTER);  // level selection
    s.press(GLFW_KEY_ESC);
    s.press(GLFW_KEY_DOWN, 4);
    s.press(GLFW_KEY_ENTER);  // how to play, "Back" selected
    s.press(GLFW_KEY_DOWN);   // "Next page"
    for (int turn = 0; turn < 5; ++turn) {
        s.press(GLFW_KEY_ENTER);  // pictures 2 to 5, the second press within a fade
        s.wait(turn == 0 ? 0 : 30);
    }
    s.press(GLFW_KEY_ENTER);  // on 5 the selection is on "Back": leaves
    s.press(GLFW_KEY_DOWN, 5);
    s.press(GLFW_KEY_ENTER);  // credits, the address selected
    s.press(GLFW_KEY_ENTER);  // opens it; the page stays
    s.press(GLFW_KEY_ESC);
    s.press(GLFW_KEY_DOWN, 3);
    s.press(GLFW_KEY_ENTER);
    s.press(GLFW_KEY_ENTER);     // Resolution
    s.press(GLFW_KEY_DOWN, 2);
    s.press(GLFW_KEY_ENTER);     // "200 x 150": a new window
    s.press(GLFW_KEY_ESC);
    const unsigned quitRound = s.next - start + 1;
    s.press(GLFW_KEY_ESC);  // quits at once
    const unsigned opened = testBackend::window().openCount;
    Menu menu(menuEntryMain);

    EXPECT_EQ(menu.pagesOpened,
              (Pages{P::Main, P::Settings, P::Resolution, P::Settings, P::WindowType, P::Settings,
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
    saveStageScore(1, 325);  // most of map 1's par: map 2 opens, map 3 doesn't
    saveSurvivalScore(2, 999999);  // survival opens nothing
    struct Case {
        uint8_t entry;
        int modeDowns, mapDowns;
        uint8_t players;
        bool survival;
        uint8_t map;  // 0: "Back", then Escape quits
    };
    for (Case c : {Case{menuEntryMain, 0, 1, 1, false, 2}, Case{menuEntryMain, 1, 0, 1, true, 1},
                   Case{menuEntryMain, 2, 1, 2, true, 2}, Case{menuEntryStage, -1, 0, 1, false, 1},
                   Case{menuEntrySurvival, -1, 1, 1, true, 2},
                   Case{menuEntryTwoPlayers, -1, 2, 2, true, 0}}) {
        SCOPED_TRACE(c.entry * 10 + c.modeDowns);
        MenuScript s;
        if (c.modeDowns >= 0) {
            s.press(GLFW_KEY_DOWN, c.modeDowns);
            s.press(GLFW_KEY_ENTER);
        }
        s.press(GLFW_KEY_DOWN, c.mapDowns);
        s.press(GLFW_KEY_ENTER);
        s.press(GLFW_KEY_ESC);
        Menu menu(c.entry);
        EXPECT_EQ(menu.unlockedMaps, 2);
        EXPECT_EQ(menu.isStartRequested(), c.map != 0);
        EXPECT_EQ(menu.getPlayerCount(), c.players);
        EXPECT_EQ(menu.isSurvivalRules(), c.survival);
        if (c.map != 0) {
            EXPECT_EQ(menu.getMapNumber(), c.map);
            EXPECT_EQ(menu.getMapPath(), "content/maps/map" + std::to_string(c.map) + ".txt");
        }
        EXPECT_EQ(menu.pagesOpened.back(), c.map ? P::LevelSelection : P::Main);
    }
}

TEST_F(MenuLoop, HeldKeysWaitAndTheMouseActsOnlyWhenItMoves)
{
    testBackend::setKey(GLFW_KEY_ENTER, true);  // held from the game before
    testBackend::setKey(GLFW_KEY_DOWN, true);
    MenuScript s;
    s.wait(10);
    testBackend::keyAt(s.next, GLFW_KEY_ENTER, false);
    testBackend::keyAt(s.next, GLFW_KEY_DOWN, false);
    s.moveMouse(100, 32);  // "1 player game"
    s.press(GLFW_KEY_DOWN, 3);
    s.press(GLFW_KEY_ENTER);  // Settings: the resting mouse is on "Window type:"
    s.press(GLFW_KEY_ENTER);  // and the first button still selected: Resolution
    s.press(GLFW_KEY_ESC);
    s.press(GLFW_KEY_ESC);
    s.moveMouse(2, 2);        // a press beside the buttons takes no lock,
    s.mouseButton(true);
    s.wait(6);
    s.moveMouse(100, 68);     // and dragging on to "Settings" activates it
    s.wait(4);
    s.mouseButton(false);
    s.press(GLFW_KEY_ESC);
    s.moveMouse(100, 88);     // "Credits"
    s.press(GLFW_KEY_DOWN);   // "Quit game", the mouse resting on "Credits"
    s.click();                // the keyboard's selection: quits
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.pagesOpened, (Pages{P::Main, P::Settings, P::Resolution, P::Settings, P::Main,
                                       P::Settings, P::Main}));
    EXPECT_FALSE(menu.isStartRequested());
    EXPECT_EQ(menu.selection, 6);
}
