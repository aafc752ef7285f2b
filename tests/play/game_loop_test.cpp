// The game loop on the test backend: rounds, pauses, the window's closing and
// the hints, with scripted input and virtual time.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <cstring>

#include "data/settings.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "play/hint.h"
#include "support/play_session.h"

namespace {

class GameLoop : public ::testing::Test {
protected:
    void SetUp() override { session.open(); }
    PlaySession session;
};

}  // namespace

TEST_F(GameLoop, ClosingTheWindowEndsTheGameWithQuit)
{
    testBackend::closeAt(30);
    Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
    EXPECT_EQ(game.result, resultQuit);
    EXPECT_EQ(game.framesPlayed, 30u);
    // The closing transition still runs its 71 rounds after the loop.
    EXPECT_EQ(testBackend::round(), 30u + 71u);
}

TEST_F(GameLoop, RunsAtSixtyRoundsASecondOnVirtualTime)
{
    testBackend::closeAt(600);
    Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
    EXPECT_EQ(game.framesPlayed, 600u);
    EXPECT_NEAR(testBackend::now(), (600 + 71) / 60.0, 0.05);
}

TEST_F(GameLoop, EscapeHeldFromTheMenuDoesNotPause)
{
    testBackend::setKey(GLFW_KEY_ESC, true);
    testBackend::keyAt(10, GLFW_KEY_ESC, false);
    testBackend::closeAt(20);
    Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
    EXPECT_EQ(game.result, resultQuit);
    EXPECT_EQ(game.framesPlayed, 20u);
}

TEST_F(GameLoop, APauseResumedEarlierLeavesResumeWhenTheWindowCloses)
{
    testBackend::keyAt(5, 'P', true);    // pauses in round 5
    testBackend::keyAt(8, 'P', false);   // pumps of the pause loop count as rounds
    testBackend::keyAt(10, 'P', true);   // resumes; the opening plays back
    testBackend::keyAt(12, 'P', false);
    testBackend::closeAt(40);
    Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
    EXPECT_EQ(game.result, resultResume);
    // Pause rounds do not count as game rounds.
    EXPECT_LT(game.framesPlayed, 35u);
    EXPECT_GT(game.framesPlayed, 20u);
}

TEST_F(GameLoop, LosingFocusPausesEvenWithTheKeysHeld)
{
    testBackend::setKey(GLFW_KEY_ESC, true);
    testBackend::focusAt(7, false);
    testBackend::closeAt(15);  // closed while paused: Quit
    Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
    EXPECT_EQ(game.result, resultQuit);
    EXPECT_EQ(game.framesPlayed, 7u);
}

TEST_F(GameLoop, TheTitleHintOpensEveryGame)
{
    testBackend::closeAt(3);
    Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
    ASSERT_EQ(game.hints.size(), 1u);
    EXPECT_EQ(game.hints[0]->age, 3u);  // ticked in the round it was added
    EXPECT_EQ(game.hints[0]->y, 245);
    EXPECT_EQ(game.hints[0]->size, 50.0f);
    EXPECT_EQ(game.virtualWidth, 1000);
}

TEST_F(GameLoop, TheTutorialShowsOnTheFirstTwoMapsInAnyOnePlayerMode)
{
    testBackend::closeAt(2);
    Game game(session.music(), 1, true, "content/maps/map1.txt", 1);
    EXPECT_EQ(game.tutorialMode, 1);  // survival on map 1 shows it too
}

TEST_F(GameLoop, NoTutorialOnLaterMaps)
{
    testBackend::closeAt(2);
    Game game(session.music(), 1, false, "content/maps/map3.txt", 3);
    EXPECT_EQ(game.tutorialMode, 0);
}

TEST_F(GameLoop, TheSettingSwitchesTheTutorialOff)
{
    setTutorialEnabled(false);
    testBackend::closeAt(2);
    Game game(session.music(), 1, false, "content/maps/map2.txt", 2);
    EXPECT_EQ(game.tutorialMode, 0);
}

TEST_F(GameLoop, TwoPlayerGamesAlwaysShowTheirHints)
{
    setTutorialEnabled(false);
    testBackend::closeAt(62);
    Game game(session.music(), 2, true, "content/maps/map1.txt", 1);
    EXPECT_EQ(game.tutorialMode, 3);
    ASSERT_EQ(game.hints.size(), 3u);  // the title and the two of round 60
    EXPECT_STREQ(game.hints[1]->text, "Use keyboard");
    EXPECT_EQ(game.hints[1]->x, 1000 / 4 - 66);
    EXPECT_STREQ(game.hints[2]->text, "Use mouse");
    EXPECT_EQ(game.hints[2]->x, 1000 * 3 / 4 - 55);
}

TEST_F(GameLoop, HintsLiveFiveHundredAndFiftyTicks)
{
    testBackend::closeAt(552);
    Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
    // The title went at tick 550; the first tutorial hint came at round 550.
    ASSERT_EQ(game.hints.size(), 1u);
    EXPECT_STREQ(game.hints[0]->text, "Set the amount of cannons");
    EXPECT_EQ(game.hints[0]->age, 3u);
}

TEST(HintPlate, LayoutByTextSize)
{
    PlateLayout title = plateLayout(50);
    EXPECT_EQ(title.textureHeight, 128);
    EXPECT_EQ(title.top, 29);
    EXPECT_EQ(title.bottom, 89);  // the plate is size + 20 rows: 29 to 98
    PlateLayout script = plateLayout(30);
    EXPECT_EQ(script.textureHeight, 128);
    EXPECT_EQ(script.top, 39);
    EXPECT_EQ(script.bottom, 79);
    PlateLayout small = plateLayout(-60);
    EXPECT_EQ(small.textureHeight, 4);
}
