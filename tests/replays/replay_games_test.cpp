// Recorded games played again give the same state round for round: a game
// recorded in the window (keys, clicks, a controller, two pause menus) played
// again in the window on a slower machine and headless, and a two-player
// game recorded headless played again headless.
#include <gtest/gtest.h>

#include <cstdlib>

#include "golden_trace.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "replay/game_recording.h"
#include "rules_match.h"
#include "runner_policies.h"
#include "sim/player.h"
#include "support/play_session.h"

namespace {

using Rounds = std::vector<std::string>;

const std::string runMap1 = std::string(GORVAN_RUN_DIR) + "/content/maps/map1.txt";

// A round as the rule tests describe the sides (the sparks and the sounds'
// times are left out: they follow the drawn frames and the clock).
std::string describeRound(const Player* left, const Player* right)
{
    return describeSide(*left) + (right ? " | " + describeSide(*right) : "");
}

// Every round of play of the Games built while it lives.
struct RoundLog {
    RoundLog()
    {
        Game::roundWatcher = [this](const Game& game) {
            rounds.push_back(describeRound(game.player1, game.player2));
        };
    }
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
Rounds playHeadless(const Replay& replay, const std::string& mapPath,
                    const std::function<std::string(const RulesMatch&)>& describe)
{
    Rounds rounds;
    openHeadlessTable(replay.randomState, replay.windowWidth, replay.windowHeight);
    {
        ReplayPlayback playback(replay, false);
        RulesMatch match(static_cast<MatchMode>(replay.mode), mapPath, replay.mapNumber);
        playReplayedGame(match, replay, playback, [&] { rounds.push_back(describe(match)); });
        EXPECT_EQ(match.left->score, replay.scores[0]);
        EXPECT_EQ(match.endMessage, replay.endCode);
    }
    closeHeadlessTable();
    return rounds;
}

void press(unsigned round, int key)
{
    testBackend::keyAt(round, key, true);
    testBackend::keyAt(round + 2, key, false);
}

void click(unsigned round, int x, int y)
{
    testBackend::mouseMoveAt(round, x, y);
    testBackend::mouseButtonAt(round, GLFW_MOUSE_BUTTON_LEFT, true);
    testBackend::mouseButtonAt(round + 2, GLFW_MOUSE_BUTTON_LEFT, false);
}

// Map 1 in a 1000 x 600 window: the view stands at x 100, the pause menu's
// buttons at x 500, y 225 + 50 a button.
void scriptWindowGame()
{
    press(5, '3');
    click(40, 830, 145);  // the Q button
    testBackend::padPluggedAt(50, 0, true);
    testBackend::padButtonAt(60, 0, GLFW_PAD_B, true);  // two cannons
    testBackend::padButtonAt(62, 0, GLFW_PAD_B, false);
    press(80, GLFW_KEY_ESC);  // pauses
    testBackend::mouseMoveAt(90, 500, 275);  // hovers over "Restart level"
    press(100, GLFW_KEY_ESC);  // resumes all the same
    for (unsigned round = 150; round < 200; ++round) testBackend::mouseMoveAt(round, round, 300);
    press(210, 'S');
    press(240, 'P');
    click(255, 500, 375);  // "Exit to menu"
}

}  // namespace

TEST(ReplayGames, AWindowGamePlaysAgainInTheWindowOnASlowMachineAndHeadless)
{
    setenv("ALSOFT_DRIVERS", "null", 1);  // sounds that load and play, as on a player's machine
    Replay replay;
    Rounds recorded;
    {
        PlaySession session;
        session.open(5);
        scriptWindowGame();
        RoundLog log;
        GameRecording recording(1, false, "content/maps/map1.txt", 1, 2);
        Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
        replay = recording.finish(game);
        recorded = log.rounds;
        EXPECT_EQ(game.result, resultExitToMenu);
        ASSERT_EQ(replay.pauses.size(), 2u);

        keepReplay(replay);  // as the last game; a stage left early is nobody's best
        Replay kept;
        std::string reason;
        ASSERT_TRUE(readReplayFile(lastReplayPath(), kept, reason)) << reason;
        EXPECT_EQ(encodeReplay(kept), encodeReplay(replay));
        EXPECT_FALSE(readReplayFile(bestReplayPath(replayStage, 1), kept, reason));
    }
    {
        PlaySession session;
        session.open(99);  // the replay's own state decides
        testBackend::setFrameCost(1 / 25.0);  // a slow machine: frames are left out
        RoundLog log;
        ReplayPlayback playback(replay, true);
        Game game(session.music(), 1, false, "content/maps/map1.txt", 1);
        expectSameRounds(recorded, log.rounds);
        EXPECT_EQ(game.result, resultExitToMenu);
        EXPECT_FALSE(playback.stoppedByViewer());
    }
    expectSameRounds(recorded, playHeadless(replay, runMap1, [](const RulesMatch& match) {
                         return describeRound(match.left, match.right);
                     }));
}

TEST(ReplayGames, AHeadlessTwoPlayerGamePlaysAgainHeadless)
{
    // Each round's digest of the whole state of both sides, as the golden runs
    // take it; the sparks only feed the picture.
    uint64_t hash = 14695981039346656037ull;
    auto digest = [&hash](const RulesMatch& match) {
        for (Player* side : {match.left, match.right}) {
            hashSide(*side, hash);
            side->sparks.clear();
        }
        return std::to_string(hash);
    };
    const std::string map = std::string(GORVAN_RUN_DIR) + "/content/maps/map12.txt";
    ScratchDir scratch;
    Rounds recorded;
    openHeadlessTable(3);
    Replay replay = beginReplay(replayVersus, 12, map, 0);
    {
        InputRecorder recorder(false);
        RulesMatch match(versusMatch, map, 12);
        PolicyMemory memory;
        for (bool going = true; going;) {
            pressPolicyKeys(smartPolicy, *match.left, match.round + 1, memory);
            clickSimplePolicy(*match.right, match.round + 1);
            going = match.playRound(6000);
            recorded.push_back(digest(match));
        }
        recorder.finish(replay);
        replay.gameRounds = match.round;
        replay.scores[0] = match.left->score;
        replay.scores[1] = match.right->score;
        replay.endCode = match.endMessage;
    }
    closeHeadlessTable();
    hash = 14695981039346656037ull;
    expectSameRounds(recorded, playHeadless(replay, map, digest));
}
