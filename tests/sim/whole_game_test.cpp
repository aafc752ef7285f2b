// Whole games through the Game's loop on the test backend: a short map, a
// fixed seed and scripted keys give the same game every time. The outcomes
// below were taken from a run and pin the rules down as a whole.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"
#include "support/play_session.h"

namespace {

// Two short waves of weak, quick enemies, kept beside the built maps.
std::string writeShortMap(const char* enemySpeed, const char* spawnInterval)
{
    std::string path = "short_map.txt";
    std::ofstream out(path, std::ios::trunc);
    out << "Short Field\n60\n3\n0.002\n" << enemySpeed << "\n0\n" << spawnInterval
        << "\n-0.01\n12\n10\n300\n60\n2\n0\n4\n30\n260\n"
           "0.5\n0.5\n0.7\n0.8\n0.8\n0.8\n0.3\n0.3\n0.3\n200\n0\n";
    return path;
}

class WholeGame : public ::testing::Test {
protected:
    void SetUp() override { session.open(7); }
    PlaySession session;
};

TEST_F(WholeGame, StageWonWithThreeCannons)
{
    std::string path = writeShortMap("1.2", "40");
    testBackend::keyAt(2, '3', true);
    testBackend::keyAt(4, '3', false);
    Game game(session.music(), 1, false, path.c_str(), 1);
    const Player& player = *game.player1;
    EXPECT_EQ(game.result, resultChangeLevel);
    EXPECT_EQ(player.endState, 1);
    EXPECT_EQ(game.finalEndMessage, 2);  // above the stored hi-score of 0
    EXPECT_EQ(player.bank->cannons.size(), 3u);
    EXPECT_EQ(game.framesPlayed, 1396u);  // the end, then 500 closing rounds
    EXPECT_EQ(player.score, 68u);
}

TEST_F(WholeGame, SurvivalLostWithOneCannon)
{
    std::string path = writeShortMap("2.5", "8");
    Game game(session.music(), 1, true, path.c_str(), 1);
    const Player& player = *game.player1;
    EXPECT_EQ(player.endState, 3);
    EXPECT_EQ(game.finalEndMessage, 4);  // survival stores any score above 0
    EXPECT_EQ(game.framesPlayed, 702u);
    EXPECT_EQ(player.score, 4u);
}

TEST_F(WholeGame, VersusLostByTheSideThatGaveUpItsCannons)
{
    std::string path = writeShortMap("1.5", "20");
    testBackend::keyAt(2, 'W', true);  // the left side charges and stays at 200
    testBackend::keyAt(4, 'W', false);
    Game game(session.music(), 2, true, path.c_str(), 1);
    EXPECT_EQ(game.player1->endState, 3);
    EXPECT_EQ(game.player2->endState, 1);  // told to finish by concede
    EXPECT_EQ(game.finalEndMessage, 6);
    EXPECT_EQ(game.player1->disturbCharge, 200);
    EXPECT_TRUE(game.player1->bank->cannons.empty());
    EXPECT_EQ(game.framesPlayed, 832u);
    EXPECT_EQ(game.player2->score, 25u);
}

}  // namespace
