// The play-through on virtual time, in tiny windows. Whole games on the short
// maps of tests/data_files/short_maps on a slow clock: what a Game hands back,
// the rounds it ran, the hints it left and the rounds it showed. The pause
// menu on its own, one script a row. The tutorial's timed hints, round by
// round, and the plate each hint is drawn on.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "data/settings.h"
#include "play/game.h"
#include "play/hint.h"
#include "play/pause_menu.h"
#include "play/tutorial.h"
#include "png_io.h"
#include "render/primitives.h"
#include "sim/player.h"
#include "support/input_script.h"
#include "support/play_session.h"

namespace {

using Rows = std::vector<std::string>;

// Every hint the script of a mode adds: round, text, place, size, arrow and
// plate width. Player 1's field at 7, 11; the views at 13 and 17.
Rows scriptOf(uint8_t mode, uint32_t rounds)
{
    const TutorialPlace place{7, 11, 1000, 13, 17};
    Rows rows;
    std::vector<Hint*> hints;
    for (uint32_t round = 1; round <= rounds; ++round) {
        runTutorialScript(mode, round, place, hints);
        for (Hint* hint : hints) {
            char row[160];
            std::snprintf(row, sizeof row, "%u %s @%u,%u size %g arrow %g width %u", round, hint->text,
                          hint->x, hint->y, hint->size, hint->arrowAngle, hint->plateWidth);
            rows.push_back(row);
            delete hint;
        }
        hints.clear();
    }
    return rows;
}

}  // namespace

TEST(GameLoop, AWonStageFadesForFiveHundredRoundsWithStaticInTheLast)
{
    PlaySession session;
    session.open(1, 100, 60);
    const std::string map = placeShortMap("clear_sky.txt", 1);  // won in round 61
    testBackend::setFrameCost(0.05);          // a slow machine: frames are left out
    testBackend::setKey(GLFW_KEY_ESC, true);  // held from the menu: no pause
    testBackend::keyAt(3, GLFW_KEY_ESC, false);
    InputScript(100).press('P').wait(1).press(GLFW_KEY_ESC);  // a pause of 12 rounds
    std::set<unsigned> shown;
    int messageLeft = 100;  // the first column of "Stage Completed", faded in
    testBackend::watchFrames([&](unsigned round) {
        shown.insert(round);
        std::vector<uint8_t> band(100 * 6 * 3);  // rows 24 to 29 from the top
        glReadPixels(0, 30, 100, 6, GL_RGB, GL_UNSIGNED_BYTE, band.data());
        for (size_t i = 0; round / 10 == 38 && i < band.size(); ++i)
            if (band[i] > 150) messageLeft = std::min(messageLeft, static_cast<int>(i % 300 / 3));
    });
    Game game(session.music(), 1, false, map.c_str(), 1);
    testBackend::watchFrames(nullptr);
    EXPECT_EQ(game.result, resultChangeLevel);
    EXPECT_EQ(game.finalEndMessage, 1);  // "Stage Completed", no record
    EXPECT_EQ(game.framesPlayed, 61u + 500u);
    const unsigned last = 561 + 12;
    EXPECT_EQ(testBackend::round(), last + 71);  // then the closing transition
    // From countdown 150 to 0 the static shows in every round, whatever the
    // clock says; it had left out the round before.
    for (unsigned round = last - 150; round <= last; ++round) EXPECT_EQ(shown.count(round), 1u);
    EXPECT_EQ(shown.count(last - 151), 0u);
    EXPECT_NEAR(messageLeft, 22, 2);  // in the whole window, not the field's view (27)
    // The title went at tick 550, when the first tutorial row came.
    ASSERT_EQ(game.hints.size(), 1u);
    EXPECT_STREQ(game.hints[0]->text, "Set the amount of cannons");
    EXPECT_EQ(game.hints[0]->age, 12u);
    EXPECT_EQ(game.hints[0]->x, game.fieldOriginX + 10);
    EXPECT_EQ(game.hints[0]->y, game.fieldOriginY + 480);
}

TEST(GameLoop, TwoPlayersTheFirstFatalBreachLosesAndTheirHintsShowAnyway)
{
    PlaySession session;
    session.open(3, 160, 90);  // 16:9: the wide space is 1066 across
    const std::string map = placeShortMap("rush.txt", 4);
    setTutorialEnabled(false);
    testBackend::setFrameCost(0.05);
    testBackend::closeAt(100);  // player 2's second breach comes in round 86
    Game game(session.music(), 2, true, map.c_str(), 4);
    EXPECT_EQ(game.tutorialMode, 3);
    EXPECT_EQ(game.result, resultQuit);
    EXPECT_EQ(game.finalEndMessage, 5);    // "Player 1 wins"
    EXPECT_EQ(game.player1->endState, 1);  // conceded
    EXPECT_EQ(game.player2->endState, 3);
    ASSERT_EQ(game.hints.size(), 3u);  // the title, "Use keyboard" and "Use mouse"
    EXPECT_EQ(game.hints[1]->y, game.player1->viewY + 210);
    EXPECT_STREQ(game.hints[2]->text, "Use mouse");
    EXPECT_EQ(game.hints[2]->x, 1066 * 3 / 4 - 55);
    EXPECT_EQ(game.hints[2]->y, game.player2->viewY + 210);
}

TEST(GameLoop, LeavingEarlyByTheWindowOrThePause)
{
    struct Case {  // the map, its rules and the tutorial setting; the script; what came of it
        const char* what;
        uint8_t map;
        bool survival, tutorialSetting;
        std::function<void()> script;
        uint8_t result, tutorialMode;
        uint32_t frames;
    };
    const Case cases[] = {
        {"closed in round 30", 1, true, true, [] { testBackend::closeAt(30); }, resultQuit, 1, 30},
        {"focus lost with the keys held, closed while paused", 3, false, true, [] {
             testBackend::setKey(GLFW_KEY_ESC, true);
             testBackend::focusAt(7, false);
             testBackend::closeAt(15);
         }, resultQuit, 0, 7},
        {"paused in round 5 for 12 rounds, resumed, closed", 2, false, false, [] {
             InputScript(5).press('P').wait(1).press('P');
             testBackend::closeAt(40);
         }, resultResume, 0, 40 - 12},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        PlaySession session;
        session.open(1, 100, 60);
        const std::string map = placeShortMap("clear_sky.txt", c.map);
        setTutorialEnabled(c.tutorialSetting);
        c.script();
        Game game(session.music(), 1, c.survival, map.c_str(), c.map);
        EXPECT_EQ(game.result, c.result);
        EXPECT_EQ(game.tutorialMode, c.tutorialMode);
        EXPECT_EQ(game.framesPlayed, c.frames);
    }
}

// The answer, the rounds the loop ran (a resume plays the opening back, at
// most 40 rounds) and the button selected at the end. In a 200 x 120 window
// the buttons stand at x 100, y 45 + 10 * index pixels.
TEST(PauseMenu, AnswersByScript)
{
    const int up = GLFW_KEY_UP, down = GLFW_KEY_DOWN, enter = GLFW_KEY_ENTER, escape = GLFW_KEY_ESC;
    struct Case {
        const char* what;
        std::function<void(InputScript&)> script;  // from the menu's third round
        uint8_t result;
        unsigned rounds;
        uint8_t selection;
    };
    const Case cases[] = {
        {"Escape held from the pause does nothing until let go and pressed again",
         [=](InputScript& s) {
             testBackend::setKey(escape, true);
             testBackend::keyAt(s.next + 48, escape, false);
             s.wait(58).press(escape);
         }, 1, 61 + 40, 0},
        {"a quick resume plays back what it played", [](InputScript& s) { s.wait(3).press('P'); }, 1, 6 + 6, 0},
        {"up wraps to the last; down with up in one round nets nothing", [=](InputScript& s) {
             s.press(up);
             InputScript(s.next).press(down);
             s.press(up).press(enter);
         }, 4, 11, 3},
        {"a click confirms the selection, not the button under the mouse", [=](InputScript& s) {
             s.wait(1).moveMouse(100, 55).wait(2).press(down).click();  // on "Restart level"
         }, 3, 11, 2},
        {"a click beside the buttons is no answer",
         [=](InputScript& s) { s.press(down).moveMouse(5, 5).click().press(enter); }, 2, 14, 1},
        {"the right button resumes; arrows while it plays back do nothing",
         [=](InputScript& s) { s.wait(8).click(GLFW_MOUSE_BUTTON_RIGHT).press(down); }, 1, 11 + 11, 0},
    };
    PlaySession session;
    session.open(1, 200, 120);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        InputScript script;
        c.script(script);
        PauseMenu menu;
        EXPECT_EQ(menu.result, c.result);
        EXPECT_EQ(menu.roundsRun, c.rounds);
        EXPECT_EQ(menu.finalSelection, c.selection);
    }
}

TEST(Tutorial, TheRowsOfEachScriptAndTheSwitchOffInRound2800)
{
    PlaySession session;  // hints make textures
    session.open(1, 100, 60);
    EXPECT_EQ(scriptOf(1, 3000),
              (Rows{"550 Set the amount of cannons @17,491 size 30 arrow 1.7 width 358",
                    "920 Using less cannons generate more upgrades @17,104 size 30 arrow 1.5 width 543",
                    "1550 Choose which upgrades to generate... @277,361 size 30 arrow 4.7 width 485",
                    "1870 ...and use temporary upgrades @57,231 size 30 arrow 6.5 width 404",
                    "2570 You can use mouse or keyboard to play the game @12,161 size 30 arrow -1 width 571"}));
    EXPECT_TRUE(isTutorialEnabled());
    EXPECT_EQ(scriptOf(2, 2799),
              (Rows{"600 Upgrades increase cannons' stats @7,461 size 30 arrow 6.3 width 439",
                    "1020 Temporary upgrades are stronger but don't last forever @7,461 size 30 arrow -1 width 663",
                    "1650 Higher combo gives more score @327,116 size 30 arrow 4.5 width 404",
                    "2400 Tutorial disabled @99,161 size 30 arrow -1 width 236"}));
    EXPECT_TRUE(isTutorialEnabled());  // leaving before round 2800 keeps it on
    EXPECT_EQ(scriptOf(2, 3000).back(), "2820 Re-enable tutorial in settings @24,161 size 30 arrow -1 width 386");
    EXPECT_FALSE(isTutorialEnabled());
    EXPECT_EQ(scriptOf(3, 3000), (Rows{"60 Use keyboard @184,223 size 20 arrow -1 width 132",
                                       "60 Use mouse @695,227 size 20 arrow -1 width 109"}));
}

// A hint with its arrow and the selection marker at rest, drawn alone, against
// tests/data_files/play_references/hint_and_marker.png (GORVAN_UPDATE_REFERENCES=1
// writes it afresh; look at it before committing it).
TEST(HintPlate, AHintWithItsArrowAndTheMarkerAsDrawn)
{
    PlaySession session;
    session.open(1, 400, 240);
    glClear(GL_COLOR_BUFFER_BIT);
    setOrtho(600, 360);
    Hint hint("Plate", 20, 20, 30, 1.7f);
    hint.age = 150;
    hint.draw();
    SelectionMarker marker(300, 300);
    marker.size = 1;
    marker.draw();
    RgbaPicture drawn(400, 240);
    glReadPixels(0, 0, 400, 240, GL_RGBA, GL_UNSIGNED_BYTE, drawn.pixels.data());
    drawn.pixels = flipRows(drawn.pixels.data(), 400, 240);
    const std::string path = GORVAN_SOURCE_DIR "/tests/data_files/play_references/hint_and_marker.png";
    if (std::getenv("GORVAN_UPDATE_REFERENCES")) {
        ASSERT_TRUE(writePng(path, drawn, nullptr));
    }
    RgbaPicture reference;
    ASSERT_TRUE(readPng(path, reference, nullptr));
    ASSERT_EQ(reference.pixels.size(), drawn.pixels.size());
    int differing = 0;  // pixels with a channel more than 40 away
    for (size_t i = 0; i < drawn.pixels.size(); i += 4)
        differing += std::abs(drawn.pixels[i] - reference.pixels[i]) > 40 ||
                     std::abs(drawn.pixels[i + 1] - reference.pixels[i + 1]) > 40 ||
                     std::abs(drawn.pixels[i + 2] - reference.pixels[i + 2]) > 40;
    EXPECT_LT(differing, 20);
}
