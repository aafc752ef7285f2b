// Player rules at their edges, where a whole game rarely lands exactly: the
// breach rule's 119 and 120 frames, and the bookkeeping of one frame's kills
// (combo, score, lightning strokes, the chain's extra strokes).
#include <gtest/gtest.h>

#include <vector>

#include "map_text.h"
#include "platform/testing/test_backend.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"
#include "support/scratch_dir.h"

namespace {

class PlayerRules : public ::testing::Test {
protected:
    void SetUp() override { testBackend::reset(); }
    Player& make()
    {
        player.reset(new Player(0, true, MapText().write(1).c_str(), 1));
        return *player;
    }
    void addEnemy(float y, float hitPoints)
    {
        player->level->enemies.push_back(new Enemy{100, y, 0, 4, 4, hitPoints, hitPoints});
    }
    ScratchDir scratch;
    std::unique_ptr<Player> player;
};

// A second breach fewer than 120 frames after the first is fatal; otherwise
// breaches only fill the static, which drains a unit a frame.
TEST_F(PlayerRules, SecondBreachWithin119FramesIsFatalAt120ItIsNot)
{
    for (int gap : {119, 120}) {
        Player& p = make();
        addEnemy(600, 4);
        p.update();
        EXPECT_EQ(p.noise, 300);
        EXPECT_EQ(p.noiseRoll, 85);  // truncate(300 / 3.5)
        for (int i = 1; i < gap; ++i) p.update();
        addEnemy(600, 4);
        p.update();
        EXPECT_EQ(p.noise, gap == 119 ? 481 : 480);
        EXPECT_EQ(p.endState, gap == 119 ? 3 : 0);
        EXPECT_EQ(p.endCode(), gap == 119 ? 3 : 0);
    }
    for (int i = 0; i < 480; ++i) player->update();
    EXPECT_EQ(player->noise, 0);
    EXPECT_EQ(player->endState, 0);
}

// Forty kills in one frame: every tenth orders lightning of combo / 20 + 2
// strokes; with the chain on, every even combo orders one stroke more.
TEST_F(PlayerRules, KillsOfOneFrameBuildComboScoreAndLightning)
{
    for (bool chain : {false, true}) {
        Player& p = make();
        p.bank->panel->chainFrames = chain ? 100 : 0;
        for (int i = 0; i < 40; ++i) addEnemy(200, 0);  // dead, not overkilled
        p.update();
        EXPECT_EQ(p.combo, 40);
        EXPECT_EQ(p.score, 420u);  // (combo + 1) / 2 each: 1 1 2 2 ... 20 20 20
        float timer = 0;
        for (int c = 1; c <= 40; ++c) timer += 1 / (0.5f + 0.15f * c);
        EXPECT_NEAR(p.comboTimer, timer, 1e-3);
        std::vector<int> strokes;
        for (const ArcOrder& order : p.arcOrders) strokes.push_back(order.count);
        std::vector<int> expected;
        for (int c = 1; c <= 40; ++c) {
            if (c % 10 == 0) expected.push_back(c / 20 + 2);
            if (chain && c % 2 == 0) expected.push_back(1);
        }
        EXPECT_EQ(strokes, expected) << "frame 1 is odd: no order is carried out yet";
        p.update();  // frame 2 carries out the first order, with its light
        EXPECT_EQ(p.arcOrders.size(), expected.size() - 1);
        EXPECT_EQ(p.lights.size(), 1u);
    }
}

}  // namespace
