// What the pages look like, read back from screenshots the F12 key takes in
// the loop: the title letters, the marker, the locked maps in red, the row
// frame, the credits' lines and the how-to-play picture's place. When
// GORVAN_MENU_SHOTS names a folder, the pictures are copied there for a look.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "data/scores.h"
#include "menu/menu.h"
#include "menu_script.h"

namespace {

class MenuPictures : public ::testing::Test {
protected:
    void SetUp() override { session.open(); }

    // F12 after the wait; the picture is written over the next rounds.
    void shootAfter(MenuScript& script, unsigned rounds)
    {
        script.wait(rounds);
        testBackend::keyAt(script.next, GLFW_KEY_F12, true);
        testBackend::keyAt(script.next + 1, GLFW_KEY_F12, false);
        script.wait(12);
    }

    Screenshot keep(const char* name)
    {
        const std::string path = "screenshots/0000.bmp";
        if (const char* folder = std::getenv("GORVAN_MENU_SHOTS")) {
            std::filesystem::copy_file(path, std::string(folder) + "/" + name + ".bmp",
                                       std::filesystem::copy_options::overwrite_existing);
        }
        return Screenshot(path);
    }

    PlaySession session;
};

}  // namespace

TEST_F(MenuPictures, TheMainPageShowsTitleButtonsAndMarker)
{
    MenuScript script;
    shootAfter(script, 150);
    script.closeWindow();
    Menu menu(menuEntryMain);
    Screenshot shot = keep("main");
    ASSERT_TRUE(shot.valid());
    EXPECT_GT(shot.brightest(500 - 172, 10, 500 + 173, 138), 150);  // the title letters
    EXPECT_GT(shot.brightest(420, 148, 580, 172), 150);             // "1 player game"
    // The marker's red wings on both sides of the first button.
    EXPECT_TRUE(shot.hasRed(190, 140, 380, 180));
    EXPECT_TRUE(shot.hasRed(620, 140, 810, 180));
    EXPECT_FALSE(shot.hasRed(190, 190, 380, 230));
}

TEST_F(MenuPictures, LockedMapsAreRedAndBarsRunFromRedToGreen)
{
    saveStageScore(1, 400);  // above the par of map 1: 100 points, a full green bar
    saveStageScore(2, 200);  // half the par of 400: 50 points, a yellow bar half as long
    MenuScript script;       // 150 points open maps 1 to 3
    shootAfter(script, 60);
    script.closeWindow();
    Menu menu(menuEntryStage);
    Screenshot shot = keep("levels");
    ASSERT_TRUE(shot.valid());
    ASSERT_EQ(menu.unlockedMaps, 3);
    const int left = menu.columnOffset - 115;
    const int right = 1000 - menu.columnOffset;
    EXPECT_FALSE(shot.hasRed(left, 36, left + 150, 54));  // "1.  First Light"
    EXPECT_GT(shot.brightest(left, 36, left + 150, 54), 150);
    EXPECT_FALSE(shot.hasRed(left, 84, left + 150, 102));    // map 3, open
    EXPECT_TRUE(shot.hasRed(left, 108, left + 150, 126));    // map 4, locked
    EXPECT_TRUE(shot.hasRed(left, 492, left + 150, 510));    // map 20
    int rgb[3];
    shot.pixel(right + 155 - 190, 44, rgb);  // map 1's bar, near its far end
    EXPECT_EQ(rgb[0], 0);
    EXPECT_NEAR(rgb[1], 178, 2);
    shot.pixel(right + 155 - 90, 68, rgb);   // map 2's bar
    EXPECT_NEAR(rgb[0], 178, 2);
    EXPECT_NEAR(rgb[1], 178, 2);
    shot.pixel(right + 155 - 110, 68, rgb);  // beyond map 2's bar
    EXPECT_EQ(rgb[1], 0);
    // The frame on the first row, beyond the score column, white and faint.
    EXPECT_GT(shot.brightest(right + 160, 31, right + 168, 36), 60);
    EXPECT_EQ(shot.brightest(right + 160, 80, right + 168, 90), 0);
}

TEST_F(MenuPictures, TheCreditsLinesHaveAllComeUp)
{
    // A slow machine: the clock leaves out two frames of three, which spares
    // the test most of its drawing and changes nothing of the lines' timing.
    testBackend::setFrameCost(0.05);
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 5);
    script.press(GLFW_KEY_ENTER);
    shootAfter(script, 520);
    script.closeWindow();
    Menu menu(menuEntryMain);
    Screenshot shot = keep("credits");
    ASSERT_TRUE(shot.valid());
    EXPECT_GT(shot.brightest(400, 55, 600, 80), 150);    // "Game created by Kelvarin"
    EXPECT_GT(shot.brightest(420, 408, 580, 432), 150);  // "OpenGL Framework (glfw)", the last
    EXPECT_GT(shot.brightest(420, 488, 580, 512), 150);  // the web address button
}

TEST_F(MenuPictures, TheHowToPlayPictureIsCentredAndAtMost800Wide)
{
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 4);
    script.press(GLFW_KEY_ENTER);
    shootAfter(script, 60);
    script.closeWindow();
    Menu menu(menuEntryMain);
    Screenshot shot = keep("howtoplay");
    ASSERT_TRUE(shot.valid());
    // Window 1000 x 600: the picture spans x 100 to 900, y 0 to 550.
    EXPECT_EQ(shot.brightest(0, 0, 96, 500), 0);
    EXPECT_EQ(shot.brightest(904, 0, 1000, 500), 0);
    EXPECT_GT(shot.brightest(100, 0, 900, 550), 100);
}

TEST_F(MenuPictures, SettingsShowTheStoredValues)
{
    MenuScript script;
    script.press(GLFW_KEY_DOWN, 3);
    script.press(GLFW_KEY_ENTER);
    shootAfter(script, 60);
    script.closeWindow();
    Menu menu(menuEntryMain);
    Screenshot shot = keep("settings");
    ASSERT_TRUE(shot.valid());
    // The values stand right of the centre, one row per setting.
    for (int row = 0; row < 5; ++row)
        EXPECT_GT(shot.brightest(650, 97 + 50 * row, 720, 123 + 50 * row), 150) << row;
}

// A minute and a quarter on the main page: the title breaks up and the
// hidden word shows over it. Long, so only when pictures are asked for.
TEST_F(MenuPictures, TheHiddenWordAfterTheLongWait)
{
    if (!std::getenv("GORVAN_MENU_SHOTS")) GTEST_SKIP() << "GORVAN_MENU_SHOTS is not set";
    testBackend::setFrameCost(0.05);
    MenuScript script;
    shootAfter(script, 4700);
    script.closeWindow();
    Menu menu(menuEntryMain);
    Screenshot shot = keep("hidden_word");
    ASSERT_TRUE(shot.valid());
    EXPECT_GT(shot.brightest(500 - 172, 10, 500 + 173, 138), 150);
}
