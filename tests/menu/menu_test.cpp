// The menus on the test backend, on a slow clock (most frames left out; the
// rules don't mind): the page graph by mouse and keyboard, what the settings
// pages store and what the spine reads back; the campaign's progress rule;
// and what the pages show, read back from their frames.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "data/scores.h"
#include "data/settings.h"
#include "menu/level_progress.h"
#include "menu/menu.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/text.h"
#include "shell/window.h"
#include "support/input_script.h"
#include "support/play_session.h"

namespace {

using P = MenuPage;
using Pages = std::vector<MenuPage>;
const int up = GLFW_KEY_UP, down = GLFW_KEY_DOWN, enter = GLFW_KEY_ENTER, escape = GLFW_KEY_ESC;

// At 200 x 120 the wide space is 1000 x 600 at five units a pixel.
void openSlow(PlaySession& session, uint16_t width, uint16_t height)
{
    session.open(1, width, height);
    testBackend::setFrameCost(0.05);
}

}  // namespace

TEST(MenuLoop, EveryPageByMouseAndKeyboardWithEscapeAsTheWayBack)
{
    PlaySession session;
    openSlow(session, 200, 120);
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
    s.wait(40).press(escape);  // the ENTER carried into the new window counts as held a while
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
    EXPECT_EQ(menu.infoPage, 5);
    EXPECT_EQ(testBackend::webAddresses(), std::vector<std::string>{authorWebAddress});
    // Only the new resolution made a new window, and the pages fit it.
    EXPECT_EQ(testBackend::window().openCount, opened + 1);
    uint16_t width = 0, height = 0;
    getResolution(&width, &height);
    EXPECT_EQ(width, 200);
    EXPECT_EQ(height, 150);
    EXPECT_EQ(menu.virtualWidth, 800);
    EXPECT_EQ(menu.columnOffset, 186);  // 4:3
    EXPECT_FLOAT_EQ(menu.buttons->buttons[5].x, 400);
    for (uint32_t texture : {fontTexture, panelButtonTexture, screenTexture, surfaceTexture})
        EXPECT_TRUE(glIsTexture(texture));  // all made again for the new window
}

TEST(MenuLoop, EachModeAndEntryReachesTheGameWithItsRules)
{
    PlaySession session;
    openSlow(session, 200, 120);
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

TEST(UnlockRule, SharesTotalsAndTheMapsTheyOpen)
{
    const uint32_t shares[][3] = {{0, 325, 0},    {325, 325, 100}, {488, 325, 100},
                                  {999, 1000, 99}, {1, 3, 33},      {4000000000u, 1, 100}};
    for (const auto& s : shares) EXPECT_EQ(unlockShare(s[0], s[1]), s[2]) << s[0] << " of " << s[1];
    ScratchDir dir;  // twenty maps with a par of 100, needing 0, 50, 20, 120, then 2000
    std::filesystem::create_directories("content/maps");
    const uint32_t unlock[] = {0, 50, 20, 120};
    for (int m = 1; m <= campaignMapCount; ++m)
        std::ofstream("content/maps/map" + std::to_string(m) + ".txt")
            << "Map\n" << std::string(25, '\n') << "100\n" << (m <= 4 ? unlock[m - 1] : 2000) << "\n";
    EXPECT_EQ(countOpenMaps(totalUnlockPoints()), 1);
    saveStageScore(1, 30);
    saveStageScore(2, 20);         // a locked map's score counts too
    saveSurvivalScore(3, 100000);  // survival scores don't
    EXPECT_EQ(totalUnlockPoints(), 50);
    EXPECT_EQ(countOpenMaps(50), 3);  // a value reached exactly opens its map
    EXPECT_EQ(countOpenMaps(49), 1);  // map 3 needs less but waits behind map 2
    saveStageScore(3, 150);           // 100 points, not 150
    EXPECT_EQ(totalUnlockPoints(), 150);
}

// One run through the pages in a 500 x 300 window, each page read back from a
// frame shown after it opened. Places are given in the
// wide space, 1000 x 600; a rectangle counts the pixels a test holds true.
TEST(MenuPictures, TitleMarkerSettingsCreditsAndTheLevelTable)
{
    PlaySession session;
    openSlow(session, 500, 300);
    saveStageScore(1, 400);  // map 1 full, map 2 half, map 3 at 3 %: maps 1 to 3 open
    saveStageScore(2, 200);
    saveStageScore(3, 12);
    InputScript s;
    std::vector<unsigned> wanted;  // the rounds of the pictures, each before a pause
    const auto shootAfter = [&](unsigned rounds) {
        wanted.push_back(s.wait(rounds).next);
        s.wait(4);
    };
    shootAfter(4415);  // a minute and a quarter idle: the title glitches
    s.press(down, 3).press(enter);  // Settings
    shootAfter(45);
    s.press(escape).press(down, 5).press(enter);  // credits
    shootAfter(150);
    s.press(escape).press(enter);  // level selection
    shootAfter(45);
    s.press(down);  // map 2: the first row's frame widens as it fades
    shootAfter(0);
    s.press(down, 2).wait(20).press(up);  // the frame goes on "Back", comes on map 3
    testBackend::closeAt(s.next - 1);
    std::vector<std::vector<uint8_t>> shots;
    testBackend::watchFrames([&](unsigned round) {
        if (shots.size() == wanted.size() || round < wanted[shots.size()]) return;
        shots.emplace_back(500 * 300 * 4);
        glReadPixels(0, 0, 500, 300, GL_RGBA, GL_UNSIGNED_BYTE, shots.back().data());
    });
    Menu menu(menuEntryMain);
    testBackend::watchFrames(nullptr);
    ASSERT_EQ(shots.size(), 5u);
    const auto pixel = [&](size_t shot, int x, int y) { return &shots[shot][((299 - y / 2) * 500 + x / 2) * 4]; };
    const auto count = [&](size_t shot, int left, int top, int right, int bottom, auto holds) {
        int n = 0;
        for (int y = top; y < bottom; y += 2)
            for (int x = left; x < right; x += 2) n += holds(pixel(shot, x, y));
        return n;
    };
    const auto bright = [](const uint8_t* p) { return p[0] > 150 || p[1] > 150 || p[2] > 150; };
    const auto white = [](const uint8_t* p) { return p[0] > 60 && p[1] > 60 && p[2] > 60; };
    const auto grainy = [](const uint8_t* p) {  // neither the letters' white nor black
        const int most = std::max({p[0], p[1], p[2]});
        return most > 140 && most <= 220;
    };
    const auto red = [](const uint8_t* p) { return p[0] > 100 && p[0] > 2 * p[1] + 20 && p[0] > 2 * p[2] + 20; };

    EXPECT_GT(count(0, 328, 10, 673, 138, bright), 0);  // the title, grainy by now
    EXPECT_GT(count(0, 328, 10, 673, 138, grainy), 300);
    EXPECT_GT(count(0, 190, 140, 380, 180, red), 0);     // the marker's wings on both sides
    EXPECT_GT(count(0, 620, 140, 810, 180, red), 0);
    for (int row = 0; row < 5; ++row)  // the stored values right of the centre
        EXPECT_GT(count(1, 650, 97 + 50 * row, 720, 123 + 50 * row, bright), 0) << row;
    EXPECT_GT(count(2, 400, 55, 600, 80, bright), 0);    // "Game created by Kelvarin"
    EXPECT_GT(count(2, 420, 100, 580, 130, bright), 0);  // "Music by:"
    const int left = menu.columnOffset - 115, right = 1000 - menu.columnOffset;
    EXPECT_GT(count(3, left, 108, left + 150, 126, red), 0);  // map 4, locked
    EXPECT_EQ(pixel(3, right + 155 - 190, 44)[0], 0);  // map 1's bar: green
    const uint8_t* bar = pixel(3, right + 155 - 90, 68);  // map 2's: yellow, half as long
    EXPECT_NEAR(bar[0], 178, 2);
    EXPECT_NEAR(bar[1], 178, 2);
    EXPECT_EQ(pixel(3, right + 155 - 110, 68)[1], 0);
    EXPECT_GT(count(3, right + 148, 88, right + 150, 96, red), 0);  // map 3's: a sliver
    EXPECT_GT(count(3, right + 168, 38, right + 172, 52, white), 0);  // the first row's frame
    EXPECT_GT(count(4, 10, 38, 110, 52, white), 0);  // widening both ways as it fades
    ASSERT_EQ(menu.rowHighlights.size(), 1u);  // the old frame has faded
    EXPECT_EQ(menu.rowHighlights[0].row, 2);
    EXPECT_FLOAT_EQ(menu.rowHighlights[0].y, 2 * 24 + 33);
    EXPECT_LT(menu.rowHighlights[0].frames, 15);
}
