// Whole play-throughs on virtual time, on the short maps of
// tests/data_files/short_maps in tiny windows on a slow clock: what a Game
// hands back, the rounds it ran, the hints it left and the rounds it showed.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "data/settings.h"
#include "play/game.h"
#include "play/hint.h"
#include "sim/player.h"
#include "support/input_script.h"
#include "support/play_session.h"

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
    testBackend::watchFrames([&](unsigned round) { shown.insert(round); });
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
    // The title went at tick 550, when the first tutorial row came.
    ASSERT_EQ(game.hints.size(), 1u);
    EXPECT_STREQ(game.hints[0]->text, "Set the amount of cannons");
    EXPECT_EQ(game.hints[0]->age, 12u);
    EXPECT_EQ(game.hints[0]->x, game.fieldOriginX + 10);
    EXPECT_EQ(game.hints[0]->y, game.fieldOriginY + 480);
    EXPECT_TRUE(isTutorialEnabled());
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
    ASSERT_EQ(game.hints.size(), 3u);  // the title and the two of round 60
    EXPECT_STREQ(game.hints[1]->text, "Use keyboard");
    EXPECT_EQ(game.hints[1]->x, 1066 / 4 - 66);
    EXPECT_EQ(game.hints[1]->y, game.player1->viewY + 210);
    EXPECT_STREQ(game.hints[2]->text, "Use mouse");
    EXPECT_EQ(game.hints[2]->x, 1066 * 3 / 4 - 55);
    EXPECT_EQ(game.hints[2]->y, game.player2->viewY + 210);
    EXPECT_EQ(game.hints[2]->age, 41u);
}

TEST(GameLoop, LeavingEarlyByTheWindowOrThePause)
{
    struct Case {
        const char* what;
        uint8_t map;
        bool survival, tutorialSetting;
        std::function<void()> script;
        uint8_t result, tutorialMode;
        uint32_t frames;
    };
    const Case cases[] = {
        {"closed in round 30", 1, true, true, [] { testBackend::closeAt(30); }, resultQuit, 1, 30},
        {"focus lost with the keys held, closed while paused", 3, false, true,
         [] {
             testBackend::setKey(GLFW_KEY_ESC, true);
             testBackend::focusAt(7, false);
             testBackend::closeAt(15);
         },
         resultQuit, 0, 7},
        {"paused in round 5 for 12 rounds, resumed, closed", 2, false, false,
         [] {
             InputScript(5).press('P').wait(1).press('P');
             testBackend::closeAt(40);
         },
         resultResume, 0, 40 - 12},
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
        EXPECT_EQ(game.finalEndMessage, 0);
    }
}
