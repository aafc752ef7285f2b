// The menu's page graph on the test backend: which key leads where, what
// Escape does, the locks on held keys, the mouse, and what the spine reads
// back when the loop is over.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "data/settings.h"
#include "menu/menu.h"
#include "menu_script.h"
#include "shell/window.h"

namespace {

using Pages = std::vector<MenuPage>;

class MenuLoop : public SlowMenuTest {};

}  // namespace

TEST_F(MenuLoop, EscapeOnMainQuitsAtOnceFromAnySelection)
{
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 2);
    script.press(GLFW_KEY_ESC);
    const unsigned escapeRound = script.loopRound() - 4;
    Menu menu(menuEntryMain);
    EXPECT_FALSE(menu.isStartRequested());
    EXPECT_EQ(menu.selection, 2);
    EXPECT_EQ(menu.pagesOpened, Pages{MenuPage::Main});
    EXPECT_EQ(menu.roundsRun, escapeRound);
}

TEST_F(MenuLoop, KeysHeldWhenTheMenuBeginsWaitUntilLetGo)
{
    // Enter and Down still held from the game before.
    testBackend::setKey(GLFW_KEY_ENTER, true);
    testBackend::setKey(GLFW_KEY_DOWN, true);
    MenuScript script;
    script.wait(10);
    testBackend::keyAt(script.next, GLFW_KEY_ENTER, false);
    testBackend::keyAt(script.next, GLFW_KEY_DOWN, false);
    script.wait(10);
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.pagesOpened, Pages{MenuPage::Main});
    EXPECT_EQ(menu.selection, 0);
    EXPECT_FALSE(menu.isStartRequested());  // the window closed
}

TEST_F(MenuLoop, SelectionWrapsBothWaysAndOppositeArrowsCancel)
{
    MenuScript script;
    script.press(GLFW_KEY_UP);  // from the first button to "Quit game"
    script.press(GLFW_KEY_RIGHT);  // and round to the first again
    script.press(GLFW_KEY_LEFT);
    // Down and up in one round: no move.
    testBackend::keyAt(script.next, GLFW_KEY_DOWN, true);
    testBackend::keyAt(script.next, GLFW_KEY_UP, true);
    testBackend::keyAt(script.next + 3, GLFW_KEY_DOWN, false);
    testBackend::keyAt(script.next + 3, GLFW_KEY_UP, false);
    script.wait(6);
    script.press(GLFW_KEY_ENTER);
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.selection, 6);
    EXPECT_FALSE(menu.isStartRequested());  // "Quit game"
    EXPECT_EQ(menu.pagesOpened, Pages{MenuPage::Main});
}

TEST_F(MenuLoop, EachModeOfTheMainPageReachesTheGameWithItsRules)
{
    struct Case {
        int downs;
        uint8_t players;
        bool survival;
    };
    for (Case c : {Case{0, 1, false}, Case{1, 1, true}, Case{2, 2, true}}) {
        SCOPED_TRACE(c.downs);
        MenuScript script;
        script.press(GLFW_KEY_DOWN, c.downs);
        script.press(GLFW_KEY_ENTER);
        script.wait(4);
        script.press(GLFW_KEY_ENTER);  // the first map
        Menu menu(menuEntryMain);
        EXPECT_TRUE(menu.isStartRequested());
        EXPECT_EQ(menu.getPlayerCount(), c.players);
        EXPECT_EQ(menu.isSurvivalRules(), c.survival);
        EXPECT_EQ(menu.getMapNumber(), 1);
        EXPECT_STREQ(menu.getMapPath(), "content/maps/map1.txt");
        EXPECT_EQ(menu.pagesOpened, (Pages{MenuPage::Main, MenuPage::LevelSelection}));
    }
}

TEST_F(MenuLoop, TheEntryFromAFinishedGameOpensLevelSelectionInItsMode)
{
    struct Case {
        uint8_t entry;
        uint8_t players;
        bool survival;
    };
    for (Case c : {Case{1, 1, false}, Case{2, 1, true}, Case{3, 2, true}}) {
        SCOPED_TRACE(c.entry);
        MenuScript script;
        script.press(GLFW_KEY_ENTER);
        Menu menu(c.entry);
        EXPECT_TRUE(menu.isStartRequested());
        EXPECT_EQ(menu.getPlayerCount(), c.players);
        EXPECT_EQ(menu.isSurvivalRules(), c.survival);
        EXPECT_EQ(menu.pagesOpened, Pages{MenuPage::LevelSelection});
    }
}

TEST_F(MenuLoop, EnterHeldThroughAPageChangeDoesNothingFurther)
{
    MenuScript script;
    testBackend::keyAt(script.next, GLFW_KEY_ENTER, true);
    script.wait(30);
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.pagesOpened, (Pages{MenuPage::Main, MenuPage::LevelSelection}));
    EXPECT_FALSE(menu.isStartRequested());
}

TEST_F(MenuLoop, EscapeIsTheWayBackOnEveryPage)
{
    const bool tutorial = isTutorialEnabled();
    const uint8_t musicVolume = getMusicVolume(), soundVolume = getSoundVolume();
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 3);
    script.press(GLFW_KEY_ENTER);  // Settings
    for (int setting = 0; setting < 5; ++setting) {
        if (setting > 0) script.press(GLFW_KEY_DOWN, setting);
        script.press(GLFW_KEY_ENTER);
        script.press(GLFW_KEY_ESC);  // back to Settings, first button selected
    }
    script.press(GLFW_KEY_ESC);  // Main
    script.press(GLFW_KEY_ENTER);  // level selection
    script.press(GLFW_KEY_ESC);
    script.press(GLFW_KEY_DOWN, 4);
    script.press(GLFW_KEY_ENTER);  // how to play
    script.press(GLFW_KEY_ESC);
    script.press(GLFW_KEY_DOWN, 5);
    script.press(GLFW_KEY_ENTER);  // credits
    script.press(GLFW_KEY_ESC);
    script.press(GLFW_KEY_ESC);  // quits
    Menu menu(menuEntryMain);
    using P = MenuPage;
    EXPECT_EQ(menu.pagesOpened,
              (Pages{P::Main, P::Settings, P::Resolution, P::Settings, P::WindowType, P::Settings,
                     P::Tutorial, P::Settings, P::MusicVolume, P::Settings, P::SoundVolume,
                     P::Settings, P::Main, P::LevelSelection, P::Main, P::HowToPlay, P::Main,
                     P::Credits, P::Main}));
    EXPECT_FALSE(menu.isStartRequested());
    EXPECT_EQ(isTutorialEnabled(), tutorial);  // Escape changed nothing
    EXPECT_EQ(getMusicVolume(), musicVolume);
    EXPECT_EQ(getSoundVolume(), soundVolume);
}

TEST_F(MenuLoop, SettingsPagesStoreTheChoiceAndReturn)
{
    const uint8_t soundVolume = getSoundVolume();
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 3);
    script.press(GLFW_KEY_ENTER);  // Settings
    script.press(GLFW_KEY_DOWN, 2);
    script.press(GLFW_KEY_ENTER);  // Tutorial
    script.press(GLFW_KEY_DOWN);
    script.press(GLFW_KEY_ENTER);  // "Disable"
    script.press(GLFW_KEY_DOWN, 3);
    script.press(GLFW_KEY_ENTER);  // Music volume
    script.press(GLFW_KEY_DOWN, 3);
    script.press(GLFW_KEY_ENTER);  // " 40 "
    script.press(GLFW_KEY_DOWN, 4);
    script.press(GLFW_KEY_ENTER);  // Sound volume
    script.press(GLFW_KEY_UP);
    script.press(GLFW_KEY_ENTER);  // "Cancel", the last button
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_FALSE(isTutorialEnabled());
    EXPECT_EQ(getMusicVolume(), 40);
    EXPECT_EQ(getSoundVolume(), soundVolume);
    EXPECT_EQ(menu.page, MenuPage::Settings);
}

TEST_F(MenuLoop, ChoosingTheWindowTypeItAlreadyHasRebuildsNothing)
{
    const unsigned opened = testBackend::window().openCount;
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 3);
    script.press(GLFW_KEY_ENTER);  // Settings
    script.press(GLFW_KEY_DOWN);
    script.press(GLFW_KEY_ENTER);  // Window type
    script.press(GLFW_KEY_ENTER);  // "Windowed"
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(testBackend::window().openCount, opened);
    EXPECT_EQ(menu.page, MenuPage::Settings);
    EXPECT_FALSE(isFullscreen());
}

TEST_F(MenuLoop, ANewResolutionBringsSettingsUpInTheNewWindow)
{
    videoModes = {{1280, 720}, {800, 600}};  // largest first
    const unsigned opened = testBackend::window().openCount;
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 3);
    script.press(GLFW_KEY_ENTER);  // Settings
    script.press(GLFW_KEY_ENTER);  // Resolution
    script.press(GLFW_KEY_DOWN, 2);
    script.press(GLFW_KEY_ENTER);  // "800 x 600"
    script.wait(10);
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(testBackend::window().openCount, opened + 1);
    EXPECT_EQ(windowWidth, 800);
    uint16_t width = 0, height = 0;
    getResolution(&width, &height);
    EXPECT_EQ(width, 800);
    EXPECT_EQ(height, 600);
    EXPECT_EQ(menu.virtualWidth, 800);
    EXPECT_EQ(menu.columnOffset, 186);  // 4:3
    EXPECT_EQ(menu.page, MenuPage::Settings);
    // The new page's buttons are laid out for the new window.
    EXPECT_FLOAT_EQ(menu.buttons->buttons[5].x, 400);
}

TEST_F(MenuLoop, APressAwayFromTheButtonsTakesNoLockAndDraggingOnActivates)
{
    MenuScript script;
    script.moveMouse(30, 30);
    testBackend::mouseButtonAt(script.next, GLFW_MOUSE_BUTTON_LEFT, true);
    script.wait(6);
    script.moveMouse(500, 340);  // "Settings", button still held
    script.wait(4);
    testBackend::mouseButtonAt(script.next, GLFW_MOUSE_BUTTON_LEFT, false);
    script.wait(4);
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.pagesOpened, (Pages{MenuPage::Main, MenuPage::Settings}));
}

TEST_F(MenuLoop, AClickActivatesTheKeyboardsSelectionNotTheButtonUnderTheMouse)
{
    MenuScript script;
    script.moveMouse(500, 440);  // "Credits"
    script.press(GLFW_KEY_DOWN);  // "Quit game", the mouse resting on "Credits"
    script.click();
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.pagesOpened, Pages{MenuPage::Main});
    EXPECT_FALSE(menu.isStartRequested());
}

TEST_F(MenuLoop, AMouseRestingWhereANewPageOpensDoesNotSelect)
{
    MenuScript script;
    script.moveMouse(500, 160);  // "1 player game"
    script.click();  // level selection; "Back" is far below
    script.moveMouse(500, 160);  // the same spot: no movement, no selection
    script.wait(4);
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.pagesOpened, (Pages{MenuPage::Main, MenuPage::LevelSelection}));
    EXPECT_EQ(menu.selection, 0);
}

TEST_F(MenuLoop, HowToPlayTurnsItsPicturesOnlyOnceAFadeIsOver)
{
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 4);
    script.press(GLFW_KEY_ENTER);  // how to play, "Back" selected
    script.press(GLFW_KEY_DOWN);   // "Next page"
    script.press(GLFW_KEY_ENTER);  // picture 2, "Next page" kept
    script.press(GLFW_KEY_ENTER);  // within the fade: only the sound
    script.wait(30);
    script.press(GLFW_KEY_ENTER);  // 3
    script.wait(30);
    script.press(GLFW_KEY_ENTER);  // 4
    script.wait(30);
    script.press(GLFW_KEY_ENTER);  // 5, and the selection on "Back"
    script.wait(30);
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.infoPage, 5);
    EXPECT_EQ(menu.previousInfoPage, 4);
    EXPECT_EQ(menu.selection, 0);
    ASSERT_EQ(menu.buttons->itemCount(), 2);
    EXPECT_STREQ(menu.buttons->buttons[1].text, "Previous page");
}

TEST_F(MenuLoop, HowToPlayGoesBackToTheFirstPictureAndLeavesOnASecondEnter)
{
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 4);
    script.press(GLFW_KEY_ENTER);
    script.press(GLFW_KEY_DOWN);
    script.press(GLFW_KEY_ENTER);  // picture 2: Back, Next, Previous
    script.wait(30);
    script.press(GLFW_KEY_DOWN);   // "Previous page"
    script.press(GLFW_KEY_ENTER);  // picture 1, "Back" selected
    script.wait(30);
    script.press(GLFW_KEY_ENTER);  // leaves
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.infoPage, 1);
    EXPECT_EQ(menu.pagesOpened, (Pages{MenuPage::Main, MenuPage::HowToPlay, MenuPage::Main}));
}

TEST_F(MenuLoop, TheCreditsAddressOpensInTheBrowserAndThePageStays)
{
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 5);
    script.press(GLFW_KEY_ENTER);  // credits, the address selected
    script.press(GLFW_KEY_ENTER);
    script.closeWindow();
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.page, MenuPage::Credits);
    ASSERT_EQ(testBackend::webAddresses().size(), 1u);
    EXPECT_EQ(testBackend::webAddresses()[0], authorWebAddress);
    // The label is the address without its scheme.
    EXPECT_STREQ(menu.buttons->buttons[0].text, authorWebLabel);
    EXPECT_EQ(std::strstr(authorWebLabel, "://"), nullptr);
    EXPECT_NE(std::strstr(authorWebAddress, authorWebLabel), nullptr);
}
