#include "sim_fixture.h"

#include "data/scores.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/panel_button.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"

namespace {

class PlayerTest : public SimTest {
protected:
    void SetUp() override
    {
        SimTest::SetUp();
        path = map.write(1);
    }
    void TearDown() override
    {
        delete player;
        SimTest::TearDown();
    }
    Player* make(uint8_t side, bool survival)
    {
        delete player;
        player = new Player(side, survival, path.c_str(), 1);
        return player;
    }
    // An enemy placed by hand, standing still.
    void addEnemy(float x, float y, float maxHitPoints, float hitPoints)
    {
        player->level->enemies.push_back(
            new Enemy{x, y, 0, 4, maxHitPoints, hitPoints, hitPoints});
    }
    void run(int frames)
    {
        for (int i = 0; i < frames; ++i)
            player->update();
    }

    TestMap map;
    std::string path;
    Player* player = nullptr;
};

// The breach rule: a second breach fewer than 120 frames after the first is
// fatal; otherwise breaches only fill the static, which drains a unit a frame.
TEST_F(PlayerTest, SecondBreachWithin119FramesIsFatalAt120ItIsNot)
{
    for (int gap : {119, 120}) {
        make(0, false);
        addEnemy(100, 600, 4, 4);
        player->update();
        EXPECT_EQ(player->noise, 300);
        EXPECT_EQ(player->noiseRoll, 85);  // truncate(300 / 3.5)
        run(gap - 1);
        addEnemy(100, 600, 4, 4);
        player->update();
        EXPECT_EQ(player->noise, gap == 119 ? 481 : 480);
        EXPECT_EQ(player->endState, gap == 119 ? 3 : 0);
        EXPECT_EQ(player->endCode(), gap == 119 ? 3 : 0);
    }
    run(480);
    EXPECT_EQ(player->noise, 0);
    EXPECT_EQ(player->endState, 0);
}

TEST_F(PlayerTest, KillsBuildComboScoreAndLightning)
{
    make(0, false);
    for (int i = 0; i < 10; ++i)
        addEnemy(50 + i * 10, 200, 4, 0);  // dead, not overkilled
    player->update();
    EXPECT_EQ(player->combo, 10);
    EXPECT_EQ(player->score, 30u);  // 1 1 2 2 3 3 4 4 5 5
    float timer = 0;
    for (int c = 1; c <= 10; ++c)
        timer += 1 / (0.5f + 0.15f * c);
    EXPECT_NEAR(player->comboTimer, timer, 1e-4);
    ASSERT_EQ(player->arcOrders.size(), 1u);  // frame 1 is odd: the order waits
    EXPECT_EQ(player->arcOrders[0].count, 2);
    EXPECT_FLOAT_EQ(player->arcOrders[0].x, 140);
    int blots = 0;
    for (const Spark& spark : player->sparks)
        blots += spark.framesLeft == 1 && spark.size == 4;
    EXPECT_EQ(blots, 10);
    EXPECT_GE(player->sparks.size(), 10u + 30u);
    EXPECT_LE(player->sparks.size(), 10u + 50u);
    player->update();  // even frame: the lightning goes out
    EXPECT_TRUE(player->arcOrders.empty());
    ASSERT_FALSE(player->lights.empty());
    EXPECT_FLOAT_EQ(player->lights.back().blue, 40.0f);
}

TEST_F(PlayerTest, OverkillCountsTwiceWithOneShard)
{
    make(0, false);
    addEnemy(100, 200, 4, -4);  // exactly -maxHitPoints
    player->update();
    EXPECT_EQ(player->combo, 2);
    EXPECT_EQ(player->score, 2u);
    EXPECT_EQ(player->shards.shards.size(), 1u);
}

TEST_F(PlayerTest, ComboLivesAtExactlyZeroAndEndsBelow)
{
    make(0, false);
    player->combo = 5;
    player->comboTimer = 0.04f;
    player->update();
    EXPECT_EQ(player->combo, 5);
    player->comboTimer = 0.02f;
    player->update();
    EXPECT_EQ(player->combo, 5);
    EXPECT_EQ(player->comboTimer, 0);
    player->update();
    EXPECT_EQ(player->combo, 0);
}

TEST_F(PlayerTest, ShownScoreRunsAfterScoreAndNeverOvershoots)
{
    make(0, false);
    player->score = 1000;
    run(2);
    EXPECT_EQ(player->shownScore, 0u);
    run(1);
    EXPECT_EQ(player->shownScore, 1u + 1000 / 15);
    run(3000);
    EXPECT_EQ(player->shownScore, 1000u);
}

TEST_F(PlayerTest, EndCodeMarksNewHiScoresAndHiScoreAndParComeFromTheirTables)
{
    make(0, false);
    player->hiScore = 10;
    player->score = 11;
    player->endState = 1;
    EXPECT_EQ(player->endCode(), 2);
    player->endState = 3;
    EXPECT_EQ(player->endCode(), 3);  // a stage lost is never a record
    player->score = 10;
    player->endState = 1;
    EXPECT_EQ(player->endCode(), 1);
    make(0, true);
    player->hiScore = 10;
    player->score = 11;
    player->endState = 3;
    EXPECT_EQ(player->endCode(), 4);
    make(1, true);
    player->score = 11;
    player->endState = 3;
    EXPECT_EQ(player->endCode(), 3);
    player->concede();
    EXPECT_EQ(player->endState, 1);

    saveStageScore(1, 123);
    saveSurvivalScore(1, 456);
    make(0, false);
    EXPECT_EQ(player->hiScore, 123u);
    EXPECT_EQ(player->parScore, 1000u);
    make(0, true);
    EXPECT_EQ(player->hiScore, 456u);
    EXPECT_EQ(player->parScore, 0u);
}

TEST_F(PlayerTest, DestructorStoresTheScoreByTheRules)
{
    make(0, false);
    player->score = 50;
    player->endState = 3;
    make(0, false);  // a lost stage isn't stored
    EXPECT_EQ(getStageScore(1), 0u);
    player->score = 70;
    player->endState = 1;
    make(0, true);
    EXPECT_EQ(getStageScore(1), 70u);
    player->score = 40;  // survival: stored at any end, also while playing
    make(1, true);
    EXPECT_EQ(getSurvivalScore(1), 40u);
    player->score = 90;  // two players: never
    delete player;
    player = nullptr;
    EXPECT_EQ(getSurvivalScore(1), 40u);
}

TEST_F(PlayerTest, SpeedUpSignLastsWholeBlinks)
{
    const std::pair<const char*, uint16_t> rows[] = {{"15", 0}, {"16", 50}, {"65", 50}, {"66", 100}};
    for (const auto& [line, frames] : rows) {
        map.speedUpFrames = line;
        path = map.write(1);
        make(0, false);
        EXPECT_EQ(player->speedUpFrames, frames) << line;
    }
}

TEST(PlayerView, BarsKeepTheShape)
{
    PlayerView one = playerView(800, 600, true, 1);
    EXPECT_EQ(one.x, 0);
    EXPECT_EQ(one.width, 800);
    PlayerView pillar = playerView(1920, 1080, true, 1);
    EXPECT_EQ(pillar.x, 240);
    EXPECT_EQ(pillar.y, 0);
    EXPECT_EQ(pillar.width, 1440);
    EXPECT_EQ(pillar.height, 1080);
    PlayerView left = playerView(1920, 1080, false, 1);
    PlayerView right = playerView(1920, 1080, false, 2);
    EXPECT_EQ(left.x, 0);
    EXPECT_EQ(left.y, 180);
    EXPECT_EQ(left.width, 960);
    EXPECT_EQ(left.height, 720);
    EXPECT_EQ(right.x, 960);  // the two views touch in the middle
    PlayerView narrow = playerView(1000, 600, false, 2);
    EXPECT_EQ(narrow.y, 112);
    EXPECT_EQ(narrow.x, 500);
}

TEST_F(PlayerTest, KeysOnTheLeftMouseOnTheRight)
{
    make(0, false);
    EXPECT_EQ(player->cannonButtons[2]->key, '2');
    EXPECT_TRUE(player->cannonButtons[2]->mouseEnabled);
    EXPECT_EQ(player->cannonButtons[2]->pixelX, 202);
    EXPECT_EQ(player->disturbButton, nullptr);
    make(1, true);
    EXPECT_FALSE(player->shareUpButton->mouseEnabled);
    ASSERT_NE(player->disturbButton, nullptr);
    EXPECT_EQ(player->disturbButton->key, 'W');
    make(2, true);
    EXPECT_EQ(player->shareUpButton->key, 0);
    EXPECT_TRUE(player->shareUpButton->mouseEnabled);
    EXPECT_STREQ(player->cannonButtons[3]->label, "3");
    EXPECT_STREQ(player->useTemporaryButton->label, "");
    testBackend::setKey('3', true);
    player->update();
    EXPECT_EQ(player->bank->heldCannons, 1);  // the right side has no keys

    make(0, false);  // and no input after the end
    player->endState = 1;
    run(3);
    EXPECT_EQ(player->bank->heldCannons, 1);
    EXPECT_EQ(player->cannonButtons[3]->heldFrames, 0);
}

TEST_F(PlayerTest, CannonKeyAndClickChooseTheRow)
{
    make(0, false);
    testBackend::setKey('3', true);
    testBackend::setKey('0', true);
    player->update();
    EXPECT_EQ(player->bank->heldCannons, 0);  // the first button down wins
    testBackend::setKey('3', false);
    testBackend::setKey('0', false);
    // A click strictly inside the 32 x 32 area of "2" at (202, 563).
    testBackend::setMousePos(203, 564);
    testBackend::setMouseButton(0, true);
    player->update();
    EXPECT_EQ(player->bank->heldCannons, 2);
    testBackend::setMousePos(202, 564);  // on the edge: outside
    player->update();
    EXPECT_EQ(player->cannonButtons[2]->heldFrames, 0);
}

TEST_F(PlayerTest, OnePressUsesOneTemporaryUpgradeAndShareKeysMoveBySevenTenths)
{
    make(0, false);
    std::vector<Upgrade*>& queue = player->bank->panel->temporary;
    for (int i = 0; i < 3; ++i)
        queue.push_back(new Upgrade(6, static_cast<float>(i)));
    testBackend::setKey('S', true);
    run(10);
    EXPECT_EQ(queue.size(), 2u);
    EXPECT_GT(player->bank->tempDamage, 2.4f);
    testBackend::setKey('S', false);
    player->update();
    EXPECT_FALSE(player->useTemporaryHeld);
    testBackend::setKey('S', true);
    player->update();
    EXPECT_EQ(queue.size(), 1u);
    testBackend::setKey('S', false);

    testBackend::setKey('Q', true);
    run(10);
    EXPECT_NEAR(player->bank->permanentShare, 57, 1e-3);
    testBackend::setKey('Q', false);
    testBackend::setKey('A', true);
    run(100);
    EXPECT_EQ(player->bank->permanentShare, 0);
}

}  // namespace
