// The campaign's progress rule on map files and a score file in a scratch
// folder, and what the pages show, read back from their frames.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "data/scores.h"
#include "menu/level_progress.h"
#include "menu/menu.h"
#include "support/input_script.h"
#include "support/play_session.h"

TEST(UnlockRule, SharesTotalsAndTheMapsTheyOpen)
{
    const uint32_t shares[][3] = {{0, 325, 0},    {325, 325, 100}, {488, 325, 100},
                                  {999, 1000, 99}, {1, 3, 33},      {4000000000u, 1, 100}};
    for (const auto& s : shares) EXPECT_EQ(unlockShare(s[0], s[1]), s[2]) << s[0] << " of " << s[1];

    ScratchDir dir;  // twenty maps with a par of 100; those not named need 2000
    const auto writeCampaign = [](std::vector<uint32_t> unlockValues) {
        unlockValues.resize(campaignMapCount, 2000);
        for (int m = 1; m <= campaignMapCount; ++m) {
            std::ofstream out("content/maps/map" + std::to_string(m) + ".txt");
            out << "Map " << m << "\n" << std::string(25, '\n') << "100\n" << unlockValues[m - 1] << "\n";
        }
    };
    std::filesystem::create_directories("content/maps");
    writeCampaign({0, 50, 20, 120});
    EXPECT_EQ(countOpenMaps(totalUnlockPoints()), 1);
    saveStageScore(1, 30);
    saveStageScore(2, 20);         // a locked map's score counts too
    saveSurvivalScore(3, 100000);  // survival scores don't
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

// One run through the pages in a 500 x 300 window, each page read back from
// the frame shown 45 to 150 rounds after it opened. Places are given in the
// wide space, 1000 x 600; a rectangle counts the pixels a test holds true.
TEST(MenuPictures, TitleMarkerSettingsCreditsAndTheLevelTable)
{
    PlaySession session;
    session.open(1, 500, 300);
    testBackend::setFrameCost(0.05);
    saveStageScore(1, 400);  // map 1 full, map 2 half: 150 points open maps 1 to 3
    saveStageScore(2, 200);
    const int down = GLFW_KEY_DOWN, enter = GLFW_KEY_ENTER, escape = GLFW_KEY_ESC;
    InputScript s;
    std::vector<unsigned> wanted;  // the rounds of the pictures, each before a pause
    const auto shootAfter = [&](unsigned rounds) {
        wanted.push_back(s.wait(rounds).next);
        s.wait(4);
    };
    shootAfter(100);
    s.press(down, 3).press(enter);  // Settings
    shootAfter(45);
    s.press(escape).press(down, 5).press(enter);  // credits
    shootAfter(150);
    s.press(escape).press(enter);  // level selection
    shootAfter(45);
    s.press(down, 3).wait(20).press(GLFW_KEY_UP);  // the frame goes on "Back", comes on map 3
    testBackend::closeAt(s.next - 1);
    std::vector<std::vector<uint8_t>> shots;
    testBackend::watchFrames([&](unsigned round) {
        if (shots.size() == wanted.size() || round < wanted[shots.size()]) return;
        shots.emplace_back(500 * 300 * 4);
        glReadPixels(0, 0, 500, 300, GL_RGBA, GL_UNSIGNED_BYTE, shots.back().data());
    });
    Menu menu(menuEntryMain);
    testBackend::watchFrames(nullptr);
    ASSERT_EQ(shots.size(), 4u);
    const auto pixel = [&](size_t shot, int x, int y) { return &shots[shot][((299 - y / 2) * 500 + x / 2) * 4]; };
    const auto count = [&](size_t shot, int left, int top, int right, int bottom,
                           const std::function<bool(const uint8_t*)>& holds) {
        int n = 0;
        for (int y = top; y < bottom; y += 2)
            for (int x = left; x < right; x += 2) n += holds(pixel(shot, x, y));
        return n;
    };
    const auto bright = [](const uint8_t* p) { return p[0] > 150 || p[1] > 150 || p[2] > 150; };
    const auto lit = [](const uint8_t* p) { return p[0] > 60 || p[1] > 60 || p[2] > 60; };
    const auto red = [](const uint8_t* p) { return p[0] > 100 && p[0] > 2 * p[1] + 20 && p[0] > 2 * p[2] + 20; };

    EXPECT_GT(count(0, 328, 10, 673, 138, bright), 0);  // the title
    EXPECT_GT(count(0, 420, 148, 580, 172, bright), 0);  // "1 player game"
    EXPECT_GT(count(0, 190, 140, 380, 180, red), 0);     // the marker's wings on both sides
    EXPECT_GT(count(0, 620, 140, 810, 180, red), 0);
    EXPECT_EQ(count(0, 190, 190, 380, 230, red), 0);
    for (int row = 0; row < 5; ++row)  // the stored values right of the centre
        EXPECT_GT(count(1, 650, 97 + 50 * row, 720, 123 + 50 * row, bright), 0) << row;
    EXPECT_GT(count(2, 400, 55, 600, 80, bright), 0);   // "Game created by Kelvarin"
    EXPECT_GT(count(2, 420, 100, 580, 130, bright), 0);  // "Music by:"

    const int left = menu.columnOffset - 115, right = 1000 - menu.columnOffset;
    EXPECT_EQ(count(3, left, 36, left + 150, 54, red), 0);   // map 1, open
    EXPECT_EQ(count(3, left, 84, left + 150, 102, red), 0);  // map 3, open
    EXPECT_GT(count(3, left, 108, left + 150, 126, red), 0);  // map 4, locked
    EXPECT_GT(count(3, left, 492, left + 150, 510, red), 0);  // map 20
    const uint8_t* bar = pixel(3, right + 155 - 190, 44);  // map 1's bar: green
    EXPECT_EQ(bar[0], 0);
    EXPECT_NEAR(bar[1], 178, 2);
    bar = pixel(3, right + 155 - 90, 68);  // map 2's: yellow, half as long
    EXPECT_NEAR(bar[0], 178, 2);
    EXPECT_NEAR(bar[1], 178, 2);
    EXPECT_EQ(pixel(3, right + 155 - 110, 68)[1], 0);
    EXPECT_GT(count(3, left - 17, 38, left - 13, 52, lit), 0);  // the first row's frame
    EXPECT_GT(count(3, right + 168, 38, right + 172, 52, lit), 0);
    ASSERT_EQ(menu.rowHighlights.size(), 1u);  // the old frame has faded
    EXPECT_EQ(menu.rowHighlights[0].row, 2);
    EXPECT_FLOAT_EQ(menu.rowHighlights[0].y, 2 * 24 + 33);
    EXPECT_LT(menu.rowHighlights[0].frames, 15);
}
