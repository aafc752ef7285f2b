// Recorded games give the same state round for round when played again: a two-player game from the
// window (keys, clicks, a controller, two pauses) in the window on a slower machine and headless,
// and thirty minutes of survival headless.
#include <gtest/gtest.h>

#include <cstdlib>

#include "golden_trace.h"
#include "platform/testing/test_backend.h"
#include "replay/game_recording.h"
#include "rules_match.h"
#include "runner_policies.h"
#include "sim/player.h"
#include "support/play_session.h"

namespace {

using Rounds = std::vector<std::string>;

const std::string runMaps = std::string(GORVAN_RUN_DIR) + "/content/maps/";

// A round as the rule tests describe the sides; the sparks and the sounds'
// times are left out, since they follow the drawn frames and the clock.
std::string describeRound(const Player* left, const Player* right)
{
    return describeSide(*left) + (right ? " | " + describeSide(*right) : "");
}

// Every round of play of the Games built while it lives.
struct RoundLog {
    RoundLog() { Game::roundWatcher = [this](const Game& g) { rounds.push_back(describeRound(g.player1, g.player2)); }; }
    ~RoundLog() { Game::roundWatcher = nullptr; }
    Rounds rounds;
};

void expectSameRounds(const Rounds& recorded, const Rounds& replayed)
{
    for (size_t i = 0; i < recorded.size() && i < replayed.size(); ++i)
        ASSERT_EQ(recorded[i], replayed[i]) << "first difference in round " << i + 1;
    EXPECT_EQ(recorded.size(), replayed.size()) << "the replay ran a different length";
}

// The replay without a window, as headless_runner --replay plays it.
Rounds playHeadless(const Replay& replay, const std::string& map)
{
    Rounds rounds;
    const ReplayOutcome outcome = playReplayHeadless(
        replay, map, [&](const RulesMatch& match) { rounds.push_back(describeRound(match.left, match.right)); });
    EXPECT_EQ(outcome.scores[0], replay.scores[0]);
    EXPECT_EQ(outcome.endCode, replay.endCode);
    return rounds;
}

// Two players in a 1000 x 600 window: the right side's view stands at 500,
// 112, 500 x 375; the pause menu's buttons at x 500, y 225 + 50 a button.
void scriptTwoPlayerGame()
{
    auto press = [](unsigned round, int key) {
        testBackend::keyAt(round, key, true);
        testBackend::keyAt(round + 2, key, false);
    };
    auto click = [](unsigned round, int x, int y) {
        testBackend::mouseMoveAt(round, x, y);
        testBackend::mouseButtonAt(round, GLFW_MOUSE_BUTTON_LEFT, true);
        testBackend::mouseButtonAt(round + 2, GLFW_MOUSE_BUTTON_LEFT, false);
    };
    press(5, '3');
    click(20, 695, 470);  // the right side's 3
    testBackend::padPluggedAt(30, 0, true);
    testBackend::padButtonAt(40, 0, GLFW_PAD_B, true);  // the left side's 2
    testBackend::padButtonAt(42, 0, GLFW_PAD_B, false);
    press(60, GLFW_KEY_ESC);  // pauses
    testBackend::mouseMoveAt(70, 500, 275);  // hovers over "Restart level"
    press(80, GLFW_KEY_ESC);  // resumes all the same
    for (unsigned round = 130; round < 180; ++round) testBackend::mouseMoveAt(round, round, 300);
    click(190, 960, 203);  // the right side's Q
    press(220, 'P');
    click(235, 500, 375);  // "Exit to menu"
}

}  // namespace

TEST(ReplayGames, ATwoPlayerGamePlaysAgainInTheWindowOnASlowMachineAndHeadless)
{
    setenv("ALSOFT_DRIVERS", "null", 1);  // sounds that load and play, as on a player's machine
    Replay replay;
    Rounds recorded;
    {
        PlaySession session;
        session.open(5);
        scriptTwoPlayerGame();
        RoundLog log;
        GameRecording recording(2, true, "content/maps/map1.txt", 1, 2);
        Game game(session.music(), 2, true, "content/maps/map1.txt", 1);
        replay = recording.finish(game);
        recorded = log.rounds;
        EXPECT_EQ(game.result, resultExitToMenu);
        ASSERT_EQ(replay.pauses.size(), 2u);
        std::string reason;
        ASSERT_TRUE(decodeReplay(encodeReplay(replay), replay, reason)) << reason;  // played from its file
    }
    {
        PlaySession session;
        session.open(99);  // the replay's own state decides
        testBackend::setFrameCost(1 / 25.0);  // a slow machine: frames are left out
        RoundLog log;
        ReplayPlayback playback(replay, true);
        Game game(session.music(), 2, true, "content/maps/map1.txt", 1);
        expectSameRounds(recorded, log.rounds);
        EXPECT_EQ(game.result, resultExitToMenu);
    }
    expectSameRounds(recorded, playHeadless(replay, runMaps + "map1.txt"));
}

// A busy player: keys all along, the mouse wandering and clicking, the A button now and then.
TEST(ReplayGames, ThirtyMinutesOfSurvivalPlayAgainHeadlessFromAFewKilobytes)
{
    const uint32_t thirtyMinutes = 30 * 60 * 60;
    ScratchDir scratch;
    Rounds recorded;
    openHeadlessTable(1);
    Replay replay = beginReplay(replaySurvival, 1, runMaps + "map1.txt", 0);
    {
        InputRecorder recorder(false);
        RulesMatch match(survivalMatch, runMaps + "map1.txt", 1);
        PolicyMemory memory;
        for (bool going = true; going;) {
            const uint32_t round = match.round + 1;
            pressPolicyKeys(smartPolicy, *match.left, round, memory);
            testBackend::setMousePos(700 + static_cast<int>(round % 80), 300 + static_cast<int>(round % 60));
            testBackend::setMouseButton(GLFW_MOUSE_BUTTON_LEFT, round % 200 < 4);
            going = match.playRound(thirtyMinutes);
            recorded.push_back(describeRound(match.left, nullptr));
        }
        recorder.finish(replay);
        replay.gameRounds = match.round;
        replay.scores[0] = match.left->score;
    }
    closeHeadlessTable();
    ASSERT_EQ(replay.gameRounds, thirtyMinutes) << "the game ended early";
    const size_t size = encodeReplay(replay).size();
    std::printf("thirty minutes of survival: %zu bytes\n", size);
    EXPECT_LT(size, 50u * 1024) << "a few hundred kilobytes at most; an unchanged round costs nothing";
    expectSameRounds(recorded, playHeadless(replay, runMaps + "map1.txt"));
}
