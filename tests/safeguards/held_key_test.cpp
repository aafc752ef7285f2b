// A key held through a rebuild of the window counts as held in the new one:
// ENTER that chose a new resolution, held past the keyboard's repeat delay,
// activates nothing in the new window.
#include <gtest/gtest.h>

#include "menu/menu.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "shell/window.h"
#include "support/play_session.h"

TEST(HeldKeys, EnterHeldThroughANewResolutionActivatesNothing)
{
    PlaySession session;
    session.open();
    videoModes = {{1280, 720}, {800, 600}};
    const unsigned opened = testBackend::window().openCount;
    unsigned round = testBackend::round() + 2;
    // Down to "Settings", ENTER, ENTER on "Resolution", down to "800 x 600".
    for (int key : {GLFW_KEY_DOWN, GLFW_KEY_DOWN, GLFW_KEY_DOWN, GLFW_KEY_ENTER, GLFW_KEY_ENTER,
                    GLFW_KEY_DOWN, GLFW_KEY_DOWN}) {
        testBackend::keyAt(round, key, true);
        testBackend::keyAt(round + 2, key, false);
        round += 4;
    }
    testBackend::keyAt(round, GLFW_KEY_ENTER, true);  // chooses it, and stays down
    testBackend::keyAt(round + 90, GLFW_KEY_ENTER, false);  // a second and a half later
    testBackend::closeAt(round + 100);
    Menu menu(menuEntryMain);
    EXPECT_EQ(testBackend::window().openCount, opened + 1);
    EXPECT_EQ(menu.pagesOpened, (std::vector<MenuPage>{MenuPage::Main, MenuPage::Settings,
                                                       MenuPage::Resolution, MenuPage::Settings}));
}
