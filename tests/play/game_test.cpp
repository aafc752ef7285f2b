// Whole play-throughs on virtual time, on the short maps of
// tests/data_files/short_maps and small windows: what a Game hands back, how
// many rounds it ran, which hints it left and which rounds it showed.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "data/settings.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "play/hint.h"
#include "sim/player.h"
#include "support/play_session.h"

namespace {

const unsigned closingRounds = 71;  // the closing transition after every game

// The rounds in which a frame was shown.
struct SwapLog {
    SwapLog() { testBackend::watchFrames([this](unsigned round) { rounds.insert(round); }); }
    ~SwapLog() { testBackend::watchFrames(nullptr); }
    // How many rounds up to `last` showed a frame, one after another.
    unsigned runEndingAt(unsigned last) const
    {
        unsigned n = 0;
        while (rounds.count(last - n)) ++n;
        return n;
    }
    std::set<unsigned> rounds;
};

void press(unsigned round, int key)
{
    testBackend::keyAt(round, key, true);
    testBackend::keyAt(round + 2, key, false);
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
    press(100, 'P');           // the pause opens in round 100, ...
    press(105, GLFW_KEY_ESC);  // ... resumes in its 6th and plays back 6: 12 rounds
    SwapLog swaps;
    Game game(session.music(), 1, false, map.c_str(), 1);

    EXPECT_EQ(game.result, resultChangeLevel);
    EXPECT_EQ(game.finalEndMessage, 1);  // "Stage Completed", no record
    EXPECT_EQ(game.framesPlayed, 61u + 500u);
    EXPECT_EQ(testBackend::round(), 561u + 12u + closingRounds);
    // Countdown 150 to 0 shows the static in every round, whatever the clock
    // says; the round before was one the clock left out.
    EXPECT_EQ(swaps.runEndingAt(561 + 12), 151u);
    // The title went at tick 550, when the first tutorial row came.
    ASSERT_EQ(game.hints.size(), 1u);
    EXPECT_STREQ(game.hints[0]->text, "Set the amount of cannons");
    EXPECT_EQ(game.hints[0]->age, 12u);
    EXPECT_EQ(game.hints[0]->x, game.fieldOriginX + 10);
    EXPECT_EQ(game.hints[0]->y, game.fieldOriginY + 480);
    EXPECT_EQ(game.virtualWidth, 1000);
    EXPECT_TRUE(isTutorialEnabled());
}

TEST(GameLoop, TwoPlayersTheFirstFatalBreachLosesAndTheHintsShowAnyway)
{
    PlaySession session;
    session.open(3, 160, 90);  // 16:9: the wide space is 1066 across
    const std::string map = placeShortMap("rush.txt", 4);
    setTutorialEnabled(false);
    testBackend::setFrameCost(0.05);
    testBackend::closeAt(100);  // player 2's second breach came in round 86
    Game game(session.music(), 2, true, map.c_str(), 4);

    EXPECT_EQ(game.tutorialMode, 3);
    EXPECT_EQ(game.result, resultQuit);
    EXPECT_EQ(game.finalEndMessage, 5);  // "Player 1 wins"
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
        uint8_t mapNumber;
        bool survival, tutorialSetting;
        std::function<void()> script;
        uint8_t result, tutorialMode;
        uint32_t frames;
    };
    const Case cases[] = {
        {"closed in round 30", 1, true, true, [] { testBackend::closeAt(30); },
         resultQuit, 1, 30},
        {"focus lost with the keys held, closed while paused", 3, false, true,
         [] {
             testBackend::setKey(GLFW_KEY_ESC, true);
             testBackend::focusAt(7, false);
             testBackend::closeAt(15);
         },
         resultQuit, 0, 7},
        {"paused, resumed, then closed", 2, false, false,
         [] {
             press(5, 'P');  // the pause opens in round 6 to 11, plays back in 12 to 17
             press(10, 'P');
             testBackend::closeAt(40);
         },
         resultResume, 0, 40 - 12},
        {"restart chosen in the pause", 2, false, true,
         [] {
             press(5, GLFW_KEY_ESC);
             press(9, GLFW_KEY_DOWN);
             press(13, GLFW_KEY_ENTER);
         },
         resultRestart, 2, 5},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        PlaySession session;
        session.open(1, 100, 60);
        const std::string map = placeShortMap("clear_sky.txt", c.mapNumber);
        setTutorialEnabled(c.tutorialSetting);
        c.script();
        Game game(session.music(), 1, c.survival, map.c_str(), c.mapNumber);
        EXPECT_EQ(game.result, c.result);
        EXPECT_EQ(game.tutorialMode, c.tutorialMode);
        EXPECT_EQ(game.framesPlayed, c.frames);
        EXPECT_EQ(game.finalEndMessage, 0);
    }
}
