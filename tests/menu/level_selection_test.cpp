// The campaign's progress rule, on map files and a score file written in a
// scratch folder, and the level selection page that shows it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "data/scores.h"
#include "menu/level_progress.h"
#include "menu/menu.h"
#include "menu_script.h"
#include "support/scratch_dir.h"

namespace {

// A map of 28 lines with the two numbers the rule reads.
void writeMap(int number, uint32_t par, uint32_t unlock)
{
    std::ofstream out("content/maps/map" + std::to_string(number) + ".txt");
    out << "Map " << number << "\n";
    for (int line = 2; line <= 26; ++line) out << "0\n";
    out << par << "   par score\n" << unlock << "   unlock points\n";
}

// Twenty maps with the given unlock values (the rest 2000, never reached),
// each with a par of 100.
void writeCampaign(const std::vector<uint32_t>& unlockValues)
{
    std::filesystem::create_directories("content/maps");
    for (int m = 1; m <= campaignMapCount; ++m)
        writeMap(m, 100, m <= static_cast<int>(unlockValues.size()) ? unlockValues[m - 1] : 2000);
}

}  // namespace

TEST(UnlockRule, AMapsShareIsTruncatedAndHeldToAHundred)
{
    EXPECT_EQ(unlockShare(0, 325), 0);
    EXPECT_EQ(unlockShare(325, 325), 100);
    EXPECT_EQ(unlockShare(488, 325), 100);   // 1.5 times the par
    EXPECT_EQ(unlockShare(999, 1000), 99);   // 99.9 % is 99
    EXPECT_EQ(unlockShare(1, 3), 33);
    EXPECT_EQ(unlockShare(4000000000u, 1), 100);  // far above, never more
}

TEST(UnlockRule, AFreshScoreFileOpensTheMapsThatNeedNothing)
{
    ScratchDir dir;
    writeCampaign({0, 0, 10, 0});
    EXPECT_EQ(totalUnlockPoints(), 0);
    EXPECT_EQ(countOpenMaps(0), 2);  // map 4 needs nothing but stands behind map 3
}

TEST(UnlockRule, MapsOpenInOrderAndATotalThatReachesAValueOpensIt)
{
    ScratchDir dir;
    writeCampaign({0, 50, 20, 120});
    saveStageScore(1, 30);  // 30 % of the par: 30 points
    saveStageScore(2, 20);  // a locked map's score counts too
    EXPECT_EQ(totalUnlockPoints(), 50);
    EXPECT_EQ(countOpenMaps(50), 3);  // 50 reaches map 2's value exactly
    EXPECT_EQ(countOpenMaps(49), 1);  // map 3's 20 waits behind map 2
    saveStageScore(3, 150);           // adds 100, not 150
    EXPECT_EQ(totalUnlockPoints(), 150);
    EXPECT_EQ(countOpenMaps(150), 4);
}

TEST(UnlockRule, OnlyStageScoresCountAndAMissingMapIsOpen)
{
    ScratchDir dir;
    writeCampaign({0, 40, 0});
    saveSurvivalScore(1, 100000);
    EXPECT_EQ(totalUnlockPoints(), 0);
    // A map that can't be read has a par of 1 and needs nothing.
    std::filesystem::remove("content/maps/map2.txt");
    EXPECT_EQ(countOpenMaps(0), 3);
    saveStageScore(2, 1);
    EXPECT_EQ(totalUnlockPoints(), 100);
}

TEST(UnlockRule, AFirstMapThatNeedsPointsLocksTheWholeCampaign)
{
    ScratchDir dir;
    writeCampaign({5});
    EXPECT_EQ(countOpenMaps(totalUnlockPoints()), 0);
}

namespace {

class LevelSelection : public SlowMenuTest {};

}  // namespace

TEST_F(LevelSelection, AnEarnedMapCanBeChosenAndStartsWithItsPath)
{
    saveStageScore(1, 325);  // most of map 1's par: the points open map 2, not map 3
    MenuScript script;
    script.press(GLFW_KEY_DOWN);
    script.press(GLFW_KEY_ENTER);
    Menu menu(menuEntryStage);
    EXPECT_EQ(menu.unlockedMaps, 2);
    EXPECT_TRUE(menu.isStartRequested());
    EXPECT_EQ(menu.getMapNumber(), 2);
    EXPECT_STREQ(menu.getMapPath(), "content/maps/map2.txt");
    EXPECT_STREQ(menu.buttons->buttons[1].text, "2.  Slow Rain");
}

TEST_F(LevelSelection, SurvivalAndTwoPlayersOfferOnlyWhatStagePlayOpened)
{
    saveStageScore(1, 325);
    saveSurvivalScore(2, 999999);
    for (uint8_t entry : {menuEntrySurvival, menuEntryTwoPlayers}) {
        SCOPED_TRACE(entry);
        MenuScript script;
        script.press(GLFW_KEY_DOWN, 2);  // past both maps to "Back"
        script.press(GLFW_KEY_ENTER);
        script.press(GLFW_KEY_ESC);  // and on Main: quit
        Menu menu(entry);
        EXPECT_EQ(menu.unlockedMaps, 2);
        EXPECT_EQ(menu.pagesOpened, (std::vector<MenuPage>{MenuPage::LevelSelection, MenuPage::Main}));
        EXPECT_FALSE(menu.isStartRequested());
    }
}

TEST_F(LevelSelection, TheFirstRowIsFramedFromTheStart)
{
    MenuScript script;
    script.wait(20);
    script.closeWindow();
    Menu menu(menuEntryStage);
    ASSERT_EQ(menu.rowHighlights.size(), 1u);
    EXPECT_EQ(menu.rowHighlights[0].frames, 15);  // and stays at full strength
    EXPECT_EQ(menu.rowHighlights[0].row, 0);
    EXPECT_FLOAT_EQ(menu.rowHighlights[0].y, 33);
}

TEST_F(LevelSelection, TheFrameFadesOnBackAndANewOneComesOnTheMap)
{
    MenuScript script;
    script.press(GLFW_KEY_DOWN);  // "Back": the frame goes and none comes
    script.wait(20);
    script.press(GLFW_KEY_UP);
    testBackend::closeAt(script.next - 1);
    Menu menu(menuEntryStage);
    EXPECT_EQ(menu.selection, 0);
    ASSERT_EQ(menu.rowHighlights.size(), 1u);  // the old one has faded out
    EXPECT_EQ(menu.rowHighlights[0].row, 0);
    EXPECT_LT(menu.rowHighlights[0].frames, 15);
}

TEST_F(LevelSelection, ATwoPlayerPageHasNoFrames)
{
    MenuScript script;
    script.press(GLFW_KEY_UP);  // "Back"
    script.press(GLFW_KEY_UP);  // back on the first map: the marker alone moves
    script.closeWindow();
    Menu menu(menuEntryTwoPlayers);
    EXPECT_EQ(menu.selection, 0);
    EXPECT_TRUE(menu.rowHighlights.empty());
}
