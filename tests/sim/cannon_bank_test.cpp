#include "sim_fixture.h"

#include "base/random.h"
#include "sim/cannon.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/upgrade_panel.h"

namespace {

class CannonBankTest : public SimTest {
protected:
    void SetUp() override
    {
        SimTest::SetUp();
        path = map.write(1);
        level = new Level(false, path.c_str());
        bank = new CannonBank(level, false, path.c_str(), 1.0f);
    }
    void TearDown() override
    {
        delete bank;
        delete level;
        SimTest::TearDown();
    }
    void run(int frames)
    {
        for (int i = 0; i < frames; ++i)
            bank->update();
    }
    // Runs the bank until its first cannon stands: 1 frame down, the rebuild,
    // then 100 frames up.
    void standUp()
    {
        run(102);
        ASSERT_EQ(bank->progress, 100);
        ASSERT_EQ(bank->cannons.size(), 1u);
    }
    Enemy* addEnemy(float x, float y, float hitPoints)
    {
        Enemy* enemy = new Enemy{x, y, 0, 4, hitPoints, hitPoints, hitPoints};
        level->enemies.push_back(enemy);
        return enemy;
    }

    TestMap map;
    std::string path;
    Level* level = nullptr;
    CannonBank* bank = nullptr;
};

TEST_F(CannonBankTest, ReadsAndScalesTheStartingStats)
{
    CannonBank scaled(level, true, path.c_str(), 1.2f);
    EXPECT_FLOAT_EQ(scaled.damage, 4 * 1.2f);
    EXPECT_FLOAT_EQ(scaled.reload, 40 / 1.2f);
    EXPECT_FLOAT_EQ(scaled.range, 250 * 1.2f);
    EXPECT_EQ(scaled.wantedCannons, 1);
    EXPECT_EQ(scaled.progress, 1);
    EXPECT_FLOAT_EQ(scaled.resourceRate, 3.0f);
}

TEST_F(CannonBankTest, NewGameStandsOneCannonAfterAHundredFrames)
{
    bank->update();  // progress 1 -> 0
    EXPECT_EQ(bank->progress, 0);
    EXPECT_TRUE(bank->cannons.empty());
    bank->update();  // rebuilt
    ASSERT_EQ(bank->cannons.size(), 1u);
    EXPECT_EQ(bank->cannons[0]->x, 192);
    EXPECT_EQ(bank->progress, 0);
    run(99);
    EXPECT_EQ(bank->progress, 99);
    bank->update();
    EXPECT_EQ(bank->progress, 100);
    EXPECT_FLOAT_EQ(bank->resourceRate, 3.0f);
}

TEST_F(CannonBankTest, ChangeTakesTheRowDownInAHundredFramesAndUpInAHundred)
{
    standUp();
    bank->setCannons(3);
    EXPECT_FLOAT_EQ(bank->resourceRateBefore, 3.0f);
    for (int i = 0; i < 100; ++i) {
        bank->update();
        EXPECT_EQ(bank->cannons.size(), 1u);
        EXPECT_FLOAT_EQ(bank->resourceRate, 3.0f);
    }
    EXPECT_EQ(bank->progress, 0);
    bank->update();  // the rebuild frame
    ASSERT_EQ(bank->cannons.size(), 3u);
    EXPECT_EQ(bank->cannons[0]->x, 64);
    EXPECT_EQ(bank->cannons[1]->x, 192);
    EXPECT_EQ(bank->cannons[2]->x, 320);
    EXPECT_EQ(bank->progress, 0);
    run(50);
    // The rate moves evenly from 3 to 4 - 3.
    EXPECT_EQ(bank->progress, 50);
    EXPECT_FLOAT_EQ(bank->resourceRate, 2.0f);
    run(50);
    EXPECT_EQ(bank->progress, 100);
    EXPECT_FLOAT_EQ(bank->resourceRate, 1.0f);

    // Two stand at the thirds.
    bank->setCannons(2);
    run(201);
    ASSERT_EQ(bank->cannons.size(), 2u);
    EXPECT_EQ(bank->cannons[0]->x, 96);
    EXPECT_EQ(bank->cannons[1]->x, 288);
}

TEST_F(CannonBankTest, TheStandingNumberDoesNothingAndChangingBackTurnsTheRowAround)
{
    standUp();
    bank->setCannons(1);
    bank->update();
    EXPECT_EQ(bank->progress, 100);
    bank->setCannons(2);
    run(30);
    EXPECT_EQ(bank->progress, 70);
    bank->setCannons(1);
    bank->update();
    EXPECT_EQ(bank->progress, 71);
    EXPECT_EQ(bank->cannons.size(), 1u);
}

TEST_F(CannonBankTest, NoCannonsRaiseTheResourceRateToFour)
{
    bank->setCannons(0);
    EXPECT_EQ(bank->progress, 1);
    run(99);
    EXPECT_EQ(bank->progress, 100);
    EXPECT_TRUE(bank->cannons.empty());
    EXPECT_FLOAT_EQ(bank->resourceRate, 4.0f);
}

TEST_F(CannonBankTest, NoShotWhileTheRowIsChanging)
{
    standUp();
    Enemy* enemy = addEnemy(192, 300, 1000);
    bank->setCannons(2);
    run(201);
    EXPECT_EQ(enemy->hitPoints, 1000);
    EXPECT_EQ(bank->progress, 100);
    run(200);
    EXPECT_LT(enemy->hitPoints, 1000);
}

TEST_F(CannonBankTest, TemporaryUpgradesAddAndWearOffIn1500Frames)
{
    EXPECT_FALSE(bank->useTemporary());
    bank->panel->temporary.push_back(new Upgrade(6, 0));
    bank->panel->temporary.push_back(new Upgrade(8, 1));
    bank->panel->temporary.push_back(new Upgrade(7, 2));
    EXPECT_TRUE(bank->useTemporary());
    EXPECT_FLOAT_EQ(bank->tempDamage, 2.5f);
    EXPECT_TRUE(bank->useTemporary());
    EXPECT_FLOAT_EQ(bank->tempReload, -15);
    EXPECT_TRUE(bank->useTemporary());
    EXPECT_FLOAT_EQ(bank->tempRange, 225);
    run(1499);
    EXPECT_GT(bank->tempDamage, 0);
    EXPECT_GT(bank->tempRange, 0);
    EXPECT_LT(bank->tempReload, 0);
    run(2);
    EXPECT_EQ(bank->tempDamage, 0);
    EXPECT_EQ(bank->tempRange, 0);
    EXPECT_EQ(bank->tempReload, 0);
}

TEST_F(CannonBankTest, ResourceRateFeedsThePanelByTheShare)
{
    bank->addShare(-200);
    EXPECT_FLOAT_EQ(bank->permanentShare, 0);
    bank->addShare(60.7f);
    EXPECT_FLOAT_EQ(bank->permanentShare, 60.7f);
    bank->setCannons(0);
    bank->addShare(50);  // held at 100: all to permanent upgrades
    EXPECT_FLOAT_EQ(bank->permanentShare, 100);
    run(99);
    float progressBefore = bank->panel->permanentProgress;
    bank->update();
    // rate 4, share 100: 4 * 100 * 0.000003 a frame
    EXPECT_NEAR(bank->panel->permanentProgress - progressBefore, 0.0012f, 1e-6);
    EXPECT_EQ(bank->panel->temporaryProgress, 0);
}

TEST_F(CannonBankTest, ReticleHurriesAsTheFrontEnemyComesNear)
{
    addEnemy(192, 200, 1000);
    bank->update();
    EXPECT_FLOAT_EQ(bank->reticle.y, 1);  // one step straight down
    level->enemies[0]->y = 400;
    float before = bank->reticle.y;
    bank->update();
    EXPECT_FLOAT_EQ(bank->reticle.y - before, 3);  // past 326 and 388
    level->enemies[0]->y = 500;
    before = bank->reticle.y;
    bank->update();
    EXPECT_FLOAT_EQ(bank->reticle.y - before, 4);
}

TEST(Reticle, ClosesInWhileStillAndOpensWhenMovingSideways)
{
    Reticle reticle;
    reticle.x = 100;
    reticle.y = 100;
    reticle.size = 30;
    reticle.step(100.5f, 100, false);  // within a unit: no move
    EXPECT_FLOAT_EQ(reticle.size, 29.9f);
    EXPECT_FLOAT_EQ(reticle.x, 100);
    reticle.step(200, 100, false);
    EXPECT_FLOAT_EQ(reticle.x, 101);
    EXPECT_NEAR(reticle.size, 29.8f + 0.2f, 1e-5);
    reticle.step(200, 100, true);
    EXPECT_NEAR(reticle.size, 35.1f, 1e-4);  // moving sideways again, and the shot
    reticle.size = 10;
    reticle.step(101, 100, false);
    EXPECT_FLOAT_EQ(reticle.size, 10);
    reticle.angle = 1.5707f;
    reticle.step(101, 100, false);
    EXPECT_NEAR(reticle.angle, 1.5807f - 1.570796325f, 1e-6);
}

}  // namespace
