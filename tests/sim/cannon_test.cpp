#include "sim_fixture.h"

#include "base/numbers.h"
#include "base/random.h"
#include "sim/cannon.h"
#include "sim/level.h"

namespace {

class CannonTest : public SimTest {
protected:
    void SetUp() override
    {
        SimTest::SetUp();
        path = TestMap().write(1);
        level = new Level(false, path.c_str());
    }
    void TearDown() override
    {
        delete level;
        SimTest::TearDown();
    }
    Enemy* addEnemy(float x, float y, float hitPoints)
    {
        Enemy* enemy = new Enemy{x, y, 0, 4, hitPoints, hitPoints, hitPoints};
        level->enemies.push_back(enemy);
        return enemy;
    }

    std::string path;
    Level* level = nullptr;
};

TEST_F(CannonTest, FindsTheMostAdvancedEnemyInRangeAndReservesOnce)
{
    Enemy* far = addEnemy(192, 100, 10);     // out of range 250
    Enemy* behind = addEnemy(150, 300, 10);
    Enemy* front = addEnemy(250, 400, 10);
    Cannon cannon(192, 0, 0, 0, level);
    EXPECT_FALSE(cannon.update(4, 40, 250));
    EXPECT_EQ(cannon.target, 2);
    EXPECT_FLOAT_EQ(cannon.targetX, 250);
    EXPECT_FLOAT_EQ(cannon.targetY, 400);
    EXPECT_GE(cannon.nextDamage, 4 * 0.8f);
    EXPECT_LE(cannon.nextDamage, 4 * 1.6f);
    EXPECT_FLOAT_EQ(front->reservedHitPoints, 10 - cannon.nextDamage);
    // Further frames before the shot don't reserve again.
    for (int i = 0; i < 5; ++i)
        cannon.update(4, 40, 250);
    EXPECT_FLOAT_EQ(front->reservedHitPoints, 10 - cannon.nextDamage);
    EXPECT_EQ(far->reservedHitPoints, 10);
    EXPECT_EQ(behind->reservedHitPoints, 10);
}

TEST_F(CannonTest, TurnsAtFiveHundredthsAndFiresOnlyWhenOnTarget)
{
    Enemy* enemy = addEnemy(292, 412, 1000);  // up and to the right, at -45 degrees
    Cannon cannon(192, 0, 0, 0, level);
    cannon.reloadTimer = 1000;
    cannon.update(4, 40, 250);  // finds it, doesn't turn
    EXPECT_FLOAT_EQ(cannon.angle, -1.5707964f);
    cannon.update(4, 40, 250);
    EXPECT_FLOAT_EQ(cannon.angle, -1.5707964f + 0.05f);
    // Barrel far off: the shot is given up and the reload runs again.
    cannon.reloadTimer = 0.5f;
    EXPECT_FALSE(cannon.update(4, 40, 250));
    EXPECT_GE(cannon.reloadTimer, -0.5f + 36);
    EXPECT_LE(cannon.reloadTimer, -0.5f + 48);
    EXPECT_EQ(enemy->hitPoints, 1000);
}

TEST_F(CannonTest, AShotHitsAtOnceDecidesTheNextAndLeavesABolt)
{
    Enemy* enemy = addEnemy(192, 300, 1000);  // straight up from the muzzle
    Cannon cannon(192, 0, 0, 0, level);
    cannon.reloadTimer = 1.5f;
    cannon.update(4, 40, 250);
    float shot = cannon.nextDamage;
    EXPECT_TRUE(cannon.update(4, 40, 250));
    EXPECT_FLOAT_EQ(enemy->hitPoints, 1000 - shot);
    EXPECT_FLOAT_EQ(enemy->reservedHitPoints, 1000 - shot - cannon.nextDamage);
    ASSERT_EQ(cannon.bolts.size(), 1u);
    EXPECT_FALSE(cannon.bolts[0].wide);
    EXPECT_EQ(cannon.bolts[0].lifetime, 50);
    EXPECT_NEAR(cannon.bolts[0].red, (shot - 2) / 18, 1e-5);
    EXPECT_GE(cannon.reloadTimer, -0.5f + 36);
    for (int i = 0; i < 50; ++i)
        cannon.ageBolts();
    EXPECT_TRUE(cannon.bolts.empty());
}

TEST_F(CannonTest, LostTargetIsReplacedWithoutFiringThatFrame)
{
    addEnemy(192, 300, 1000);
    Enemy* second = addEnemy(180, 280, 1000);
    Cannon cannon(192, 0, 0, 0, level);
    cannon.update(4, 40, 250);
    ASSERT_EQ(cannon.target, 0);
    delete level->enemies[0];
    level->enemies[0] = nullptr;
    cannon.reloadTimer = -5;  // would fire if it could
    EXPECT_FALSE(cannon.update(4, 40, 250));
    EXPECT_EQ(cannon.target, 1);
    EXPECT_EQ(second->hitPoints, 1000);
    // The reload has been drawn anew in that frame.
    EXPECT_GT(cannon.reloadTimer, 30);
}

TEST_F(CannonTest, ReloadKeepsCyclingWithoutATarget)
{
    Cannon cannon(192, 0, 0, 0, level);
    float start = cannon.reloadTimer;
    EXPECT_GE(start, 10);
    EXPECT_LE(start, 20);
    for (int i = 0; i < 25; ++i)
        cannon.update(4, 10, 250);
    EXPECT_EQ(cannon.target, -1);
    EXPECT_GT(cannon.reloadTimer, start - 25);  // it wrapped round at least once
}

TEST_F(CannonTest, GearDrawsFollowTheirOrderAndTurnFasterWithAShorterReload)
{
    seedRandom(99);
    float reload = randomFloat(10, 20);
    float d = randomFloat(-3, 3);
    float gear1X = randomFloat(5, 13) + d;
    seedRandom(99);
    Cannon cannon(192, 0, 0, 0, level);
    EXPECT_FLOAT_EQ(cannon.reloadTimer, reload);
    EXPECT_FLOAT_EQ(cannon.gear1X, gear1X);
    float l = distance(cannon.gear1X, cannon.gear1Y, cannon.gear2X, cannon.gear2Y);
    EXPECT_NEAR(cannon.gear1Size * cannon.gear2Size, l * l * 1.12f * 1.12f, 1e-3);

    Cannon slow(192, 0, 0, 0, level);
    cannon.update(4, 2.5f, 250);
    slow.update(4, 100, 250);
    EXPECT_FLOAT_EQ(cannon.gearAngle, 0.055f);
    EXPECT_FLOAT_EQ(slow.gearAngle, 0.0075f);
}

}  // namespace
