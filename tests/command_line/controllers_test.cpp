// Game controllers on the test backend's scripted pads: the seats of two
// players through a plug-out, the panel's buttons, pause and resume, menus.
#include <gtest/gtest.h>

#include <vector>

#include "menu/menu.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "sim/cannon_bank.h"
#include "sim/player.h"
#include "support/play_session.h"

namespace {

class Controllers : public ::testing::Test {
protected:
    void SetUp() override
    {
        session.open();
        testBackend::setFrameCost(0.05);  // a slow machine: most drawing is left out
        start = testBackend::round();
    }
    // The button goes down `round` rounds from now and is let go four later.
    void tap(unsigned round, int joystick, int button)
    {
        testBackend::padButtonAt(start + round, joystick, button, true);
        testBackend::padButtonAt(start + round + 4, joystick, button, false);
    }
    void plug(unsigned round, int joystick, bool in) { testBackend::padPluggedAt(start + round, joystick, in); }

    PlaySession session;
    unsigned start = 0;
};

}  // namespace

TEST_F(Controllers, EachSideKeepsItsControllerWhileTheOtherIsPluggedOutAndIn)
{
    plug(1, 0, true);  // the first controller: the left side
    plug(1, 3, true);  // the second: the right side
    tap(10, 0, GLFW_PAD_Y);
    tap(10, 3, GLFW_PAD_B);
    plug(20, 0, false);
    tap(25, 3, GLFW_PAD_X);  // still the right side's
    testBackend::keyAt(start + 30, '2', true);  // the keyboard still plays the left side
    testBackend::keyAt(start + 34, '2', false);
    plug(40, 0, true);  // back in its seat
    testBackend::padButtonAt(start + 45, 0, GLFW_PAD_LEFT_BUMPER, true);
    testBackend::padButtonAt(start + 55, 0, GLFW_PAD_LEFT_BUMPER, false);
    tap(60, 3, GLFW_PAD_START);  // pause
    // "Resume game", and A still held in play, where it would stand one cannon.
    testBackend::padButtonAt(start + 75, 3, GLFW_PAD_A, true);
    testBackend::padButtonAt(start + 150, 3, GLFW_PAD_A, false);
    testBackend::closeAt(start + 200);
    Game game(session.music(), 2, true, "content/maps/map1.txt", 1);
    EXPECT_EQ(game.result, resultResume);
    EXPECT_EQ(game.player1->bank->heldCannons, 2);
    EXPECT_EQ(game.player2->bank->heldCannons, 0);
    EXPECT_NEAR(game.player1->bank->permanentShare, 50 + 10 * 0.7, 0.01);  // ten rounds held
    EXPECT_NEAR(game.player2->bank->permanentShare, 50, 0.01);
}

TEST_F(Controllers, AnyControllerWalksTheMenusWithTheDpadAAndB)
{
    plug(1, 7, true);
    tap(5, 7, GLFW_PAD_DPAD_DOWN);
    tap(13, 7, GLFW_PAD_DPAD_RIGHT);
    tap(21, 7, GLFW_PAD_A);  // "2 player game"
    tap(60, 7, GLFW_PAD_B);  // back to the main page
    tap(100, 7, GLFW_PAD_DPAD_UP);
    tap(108, 7, GLFW_PAD_A);  // "Quit game"
    Menu menu(menuEntryMain);
    EXPECT_EQ(menu.pagesOpened, (std::vector<MenuPage>{MenuPage::Main, MenuPage::LevelSelection, MenuPage::Main}));
    EXPECT_EQ(menu.getPlayerCount(), 2);
    EXPECT_FALSE(menu.isStartRequested());
}
