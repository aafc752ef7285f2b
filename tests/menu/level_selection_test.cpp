// The campaign's progress rule on map files and a score file in a scratch
// folder; the level selection page's row frame; and what the pages show, read
// back from their frames.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "data/scores.h"
#include "menu/level_progress.h"
#include "menu/menu.h"
#include "menu_script.h"
#include "support/play_session.h"

namespace {

// Twenty maps of 28 lines, each with a par of 100 and its unlock value (2000,
// never reached, beyond the given ones).
void writeCampaign(const std::vector<uint32_t>& unlockValues)
{
    std::filesystem::create_directories("content/maps");
    for (size_t m = 1; m <= campaignMapCount; ++m) {
        std::ofstream out("content/maps/map" + std::to_string(m) + ".txt");
        out << "Map " << m << "\n";
        for (int line = 2; line <= 26; ++line) out << "0\n";
        out << "100\n" << (m <= unlockValues.size() ? unlockValues[m - 1] : 2000) << "\n";
    }
}

// The frames of a 500 x 300 window shown at or after the given rounds, read
// back before their swap. Places are in the wide space, 1000 x 600.
struct Shots {
    explicit Shots(std::vector<unsigned> rounds) : wanted(std::move(rounds))
    {
        testBackend::watchFrames([this](unsigned round) {
            if (taken.size() == wanted.size() || round < wanted[taken.size()]) return;
            taken.emplace_back(500 * 300 * 4);
            glReadPixels(0, 0, 500, 300, GL_RGBA, GL_UNSIGNED_BYTE, taken.back().data());
        });
    }
    ~Shots() { testBackend::watchFrames(nullptr); }
    const uint8_t* at(size_t shot, int x, int y) const
    {
        return &taken[shot][((299 - y / 2) * 500 + x / 2) * 4];
    }
    // The brightest channel in a rectangle, or whether a pixel is clearly red.
    int brightest(size_t shot, int left, int top, int right, int bottom) const
    {
        int best = 0;
        for (int y = top; y < bottom; y += 2)
            for (int x = left; x < right; x += 2)
                for (int c = 0; c < 3; ++c) best = std::max(best, int(at(shot, x, y)[c]));
        return best;
    }
    bool hasRed(size_t shot, int left, int top, int right, int bottom) const
    {
        for (int y = top; y < bottom; y += 2)
            for (int x = left; x < right; x += 2) {
                const uint8_t* p = at(shot, x, y);
                if (p[0] > 100 && p[0] > 2 * p[1] + 20 && p[0] > 2 * p[2] + 20) return true;
            }
        return false;
    }
    std::vector<unsigned> wanted;
    std::vector<std::vector<uint8_t>> taken;
};

}  // namespace

TEST(UnlockRule, SharesTotalsAndTheMapsTheyOpen)
{
    struct Share {
        uint32_t score, par;
        uint8_t share;
    };
    for (Share s : {Share{0, 325, 0}, Share{325, 325, 100}, Share{488, 325, 100},
                    Share{999, 1000, 99}, Share{1, 3, 33}, Share{4000000000u, 1, 100}})
        EXPECT_EQ(unlockShare(s.score, s.par), s.share) << s.score << " of " << s.par;

    ScratchDir dir;
    writeCampaign({0, 50, 20, 120});
    EXPECT_EQ(countOpenMaps(totalUnlockPoints()), 1);
    saveStageScore(1, 30);
    saveStageScore(2, 20);          // a locked map's score counts too
    saveSurvivalScore(3, 100000);   // survival scores don't
    EXPECT_EQ(totalUnlockPoints(), 50);
    EXPECT_EQ(countOpenMaps(50), 3);  // a value reached exactly opens its map
    EXPECT_EQ(countOpenMaps(49), 1);  // map 3 needs less but waits behind map 2
    saveStageScore(3, 150);           // 100 points, not 150
    EXPECT_EQ(totalUnlockPoints(), 150);
    std::filesystem::remove("content/maps/map5.txt");  // par 1, needs nothing
    EXPECT_EQ(countOpenMaps(150), 5);
    saveStageScore(5, 1);
    EXPECT_EQ(totalUnlockPoints(), 250);
    writeCampaign({5});  // when map 1 needs points, nothing is open
    EXPECT_EQ(countOpenMaps(4), 0);
}

TEST(LevelSelection, TheRowFrameFollowsTheSelectionOnOneSidePagesOnly)
{
    PlaySession session;
    session.open(1, 200, 120);
    testBackend::setFrameCost(0.05);
    saveStageScore(1, 400);  // map 1 full, map 2 half: 150 points open maps 1 to 3
    saveStageScore(2, 200);
    MenuScript s;
    s.press(GLFW_KEY_DOWN, 3);  // to "Back": each frame goes and none comes
    s.wait(20);
    s.press(GLFW_KEY_UP);     // map 3: a new frame
    s.press(GLFW_KEY_ENTER);  // chosen while it comes
    Menu stage(menuEntryStage);
    EXPECT_EQ(stage.unlockedMaps, 3);
    EXPECT_EQ(stage.getMapNumber(), 3);
    ASSERT_EQ(stage.rowHighlights.size(), 1u);
    EXPECT_EQ(stage.rowHighlights[0].row, 2);
    EXPECT_FLOAT_EQ(stage.rowHighlights[0].y, 2 * 24 + 33);
    EXPECT_LT(stage.rowHighlights[0].frames, 15);

    MenuScript two;
    two.press(GLFW_KEY_UP, 2);  // "Back", then map 3: the marker alone moves
    two.press(GLFW_KEY_ENTER);
    Menu versus(menuEntryTwoPlayers);
    EXPECT_EQ(versus.getMapNumber(), 3);
    EXPECT_TRUE(versus.rowHighlights.empty());
}

TEST(MenuPictures, TitleMarkerLevelTableSettingsAndHowToPlay)
{
    PlaySession session;
    session.open(1, 500, 300);
    testBackend::setFrameCost(0.05);
    saveStageScore(1, 400);
    saveStageScore(2, 200);
    MenuScript s;
    s.wait(100);  // the title has come in
    const unsigned mainShot = s.next;
    s.press(GLFW_KEY_DOWN, 3);
    s.press(GLFW_KEY_ENTER);
    s.wait(45);
    const unsigned settingsShot = s.next;
    s.press(GLFW_KEY_ESC);
    s.press(GLFW_KEY_DOWN, 4);
    s.press(GLFW_KEY_ENTER);
    s.wait(45);
    const unsigned infoShot = s.next;
    s.press(GLFW_KEY_ESC);
    s.press(GLFW_KEY_ENTER);
    s.wait(45);
    const unsigned levelShot = s.next;
    s.closeWindow();
    Shots shots({mainShot, settingsShot, infoShot, levelShot});
    Menu menu(menuEntryMain);
    ASSERT_EQ(shots.taken.size(), 4u);

    EXPECT_GT(shots.brightest(0, 500 - 172, 10, 500 + 173, 138), 150);  // the title
    EXPECT_GT(shots.brightest(0, 420, 148, 580, 172), 150);             // "1 player game"
    EXPECT_TRUE(shots.hasRed(0, 190, 140, 380, 180));  // the marker's wings on both sides
    EXPECT_TRUE(shots.hasRed(0, 620, 140, 810, 180));
    EXPECT_FALSE(shots.hasRed(0, 190, 190, 380, 230));

    for (int row = 0; row < 5; ++row)  // the stored values right of the centre
        EXPECT_GT(shots.brightest(1, 650, 97 + 50 * row, 720, 123 + 50 * row), 150) << row;

    EXPECT_EQ(shots.brightest(2, 0, 0, 96, 500), 0);  // the picture: 800 wide, centred
    EXPECT_EQ(shots.brightest(2, 904, 0, 1000, 500), 0);
    EXPECT_GT(shots.brightest(2, 100, 0, 900, 550), 100);

    const int left = menu.columnOffset - 115, right = 1000 - menu.columnOffset;
    EXPECT_FALSE(shots.hasRed(3, left, 36, left + 150, 54));  // map 1, open
    EXPECT_FALSE(shots.hasRed(3, left, 84, left + 150, 102));  // map 3, open
    EXPECT_TRUE(shots.hasRed(3, left, 108, left + 150, 126));  // map 4, locked
    EXPECT_TRUE(shots.hasRed(3, left, 492, left + 150, 510));  // map 20
    const uint8_t* bar = shots.at(3, right + 155 - 190, 44);  // map 1's bar, green
    EXPECT_EQ(bar[0], 0);
    EXPECT_NEAR(bar[1], 178, 2);
    bar = shots.at(3, right + 155 - 90, 68);  // map 2's, yellow and half as long
    EXPECT_NEAR(bar[0], 178, 2);
    EXPECT_NEAR(bar[1], 178, 2);
    EXPECT_EQ(shots.at(3, right + 155 - 110, 68)[1], 0);
    // The frame on the first row, at both ends.
    EXPECT_GT(shots.brightest(3, left - 17, 38, left - 13, 52), 60);
    EXPECT_GT(shots.brightest(3, right + 168, 38, right + 172, 52), 60);
}
