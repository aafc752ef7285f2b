#include <gtest/gtest.h>

#include <memory>

#include "base/random.h"
#include "map_text.h"
#include "sim/level.h"
#include "support/scratch_dir.h"

namespace {

class EnemyTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        // Enemies of 10 hit points at speed 1, 20 % of them big; nothing spawns by itself.
        MapText text;
        text.set(3, "10").set(5, "1").set(10, "20");
        seedRandom(1);
        level = std::make_unique<Level>(false, text.write(1).c_str());
    }

    // An enemy placed by hand with the given strength.
    Enemy& place(float x, float y, float hitPoints = 10)
    {
        const int32_t slot = level->spawnEnemy(ENEMY_KIND_SMALL, false);
        Enemy& enemy = *level->enemies[slot];
        enemy.x = x;
        enemy.y = y;
        enemy.maxHitPoints = enemy.hitPoints = enemy.reservedHitPoints = hitPoints;
        return enemy;
    }

    ScratchDir scratch;
    std::unique_ptr<Level> level;
};

// A drawn kind draws speed, kind, hit points and place in that order; a
// given kind draws no share and starts above the field.
TEST_F(EnemyTest, CreationDrawsSpeedKindHitPointsAndPlaceInThatOrder)
{
    for (bool drawn : {true, false}) {
        seedRandom(5);
        const float speed = randomFloat(0.8f, 1.2f);
        const bool big = drawn ? 20 > randomFloat(0, 100) : true;
        const float hitPoints = randomFloat(8, 12);
        const float x = randomFloat(4, 380);
        const float y = drawn ? randomFloat(0, 50) : -25;
        const int next = gameRand();
        seedRandom(5);
        const Enemy& enemy = *level->enemies[level->spawnEnemy(
            drawn ? ENEMY_KIND_DRAWN : ENEMY_KIND_BIG, drawn)];
        EXPECT_EQ(gameRand(), next) << drawn;
        EXPECT_EQ(enemy.size, big ? 8 : 4);
        EXPECT_FLOAT_EQ(enemy.speed, big ? speed * 0.5f : speed);
        EXPECT_FLOAT_EQ(enemy.maxHitPoints, big ? hitPoints * 10 : hitPoints);
        EXPECT_EQ(enemy.hitPoints, enemy.maxHitPoints);
        EXPECT_EQ(enemy.reservedHitPoints, enemy.maxHitPoints);
        EXPECT_FLOAT_EQ(enemy.x, x);
        EXPECT_FLOAT_EQ(enemy.y, y);
    }
}

TEST_F(EnemyTest, SlotsAreRefilledFromTheLowestAndNeverCompacted)
{
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(level->spawnEnemy(ENEMY_KIND_SMALL, false), i);
    delete level->enemies[1];
    level->enemies[1] = nullptr;
    delete level->enemies[3];
    level->enemies[3] = nullptr;
    EXPECT_EQ(level->spawnEnemy(ENEMY_KIND_SMALL, false), 1);
    EXPECT_EQ(level->spawnEnemy(ENEMY_KIND_SMALL, false), 3);
    EXPECT_EQ(level->spawnEnemy(ENEMY_KIND_SMALL, false), 4);
    EXPECT_EQ(level->enemies.size(), 5u);
}

TEST_F(EnemyTest, AliveDeadAndOverkillThresholds)
{
    Enemy enemy{};
    enemy.maxHitPoints = 10;
    enemy.hitPoints = 0.0099f;
    enemy.reservedHitPoints = 0;
    EXPECT_FALSE(enemy.isAlive());  // the threshold is 0.01, not 0
    enemy.hitPoints = 0.01f;
    EXPECT_TRUE(enemy.isAlive());
    enemy.hitPoints = 5;
    EXPECT_TRUE(enemy.isAlive());  // a cannon already on it still fires
    enemy.hitPoints = -3;
    enemy.reservedHitPoints = 0.001f;
    EXPECT_TRUE(enemy.isAlive());
    enemy.reservedHitPoints = 0;
    EXPECT_FALSE(enemy.isOverkilled());
    enemy.hitPoints = -10;
    EXPECT_TRUE(enemy.isOverkilled());  // exactly -maxHitPoints counts
    enemy.hitPoints = -9.99f;
    EXPECT_FALSE(enemy.isOverkilled());
}

TEST_F(EnemyTest, TargetIsTheFurthestDownInRangeAndTheDamageIsReserved)
{
    place(192, 300);                // slot 0
    place(192, 400);                // slot 1, furthest down
    place(192, 400);                // slot 2, a tie: the first found wins
    Enemy& far = place(380, 480);   // slot 3, 190.7 away: out of range of 150
    EXPECT_EQ(level->selectTarget(192, 150, 4), 1);
    EXPECT_FLOAT_EQ(level->enemies[1]->reservedHitPoints, 6);
    EXPECT_FLOAT_EQ(level->enemies[1]->hitPoints, 10);
    EXPECT_EQ(far.reservedHitPoints, 10);
    // Range is strict: 112 units to the side at the cannons' line is exactly 112.
    for (int slot = 0; slot < 3; ++slot)
        level->enemies[slot]->reservedHitPoints = 0;
    far.x = 192 + 112;
    far.y = 512;
    EXPECT_EQ(level->selectTarget(192, 112, 1), -1);
    EXPECT_EQ(level->selectTarget(192, 112.01f, 1), 3);
}

TEST_F(EnemyTest, NothingAboveMinus100IsTakenAndAnEmptyFieldGivesMinusOne)
{
    EXPECT_EQ(level->selectTarget(192, 10000, 4), -1);
    place(192, -100);
    place(192, -150);
    EXPECT_EQ(level->selectTarget(192, 10000, 4), -1);
    float x, y;
    level->frontEnemy(x, y);
    EXPECT_EQ(x, NO_ENEMY);
    EXPECT_EQ(y, NO_ENEMY);
}

TEST_F(EnemyTest, ReservationsShareTargetsOutAmongCannons)
{
    place(192, 400, 10);  // slot 0
    place(192, 300, 10);  // slot 1
    // Three shots of 4 are planned on slot 0 by the time it is fully reserved.
    EXPECT_EQ(level->selectTarget(192, 500, 4), 0);
    EXPECT_EQ(level->selectTarget(192, 500, 4), 0);
    EXPECT_EQ(level->selectTarget(192, 500, 4), 0);
    EXPECT_FLOAT_EQ(level->enemies[0]->reservedHitPoints, -2);
    EXPECT_EQ(level->selectTarget(192, 500, 4), 1);  // no double reservation on 0

    // A shot lands: hit points go down by the reserved amount, the reservation stays.
    EXPECT_TRUE(level->hitEnemy(0, 4));
    EXPECT_FLOAT_EQ(level->enemies[0]->hitPoints, 6);
    EXPECT_FLOAT_EQ(level->enemies[0]->reservedHitPoints, -2);
    level->reserveDamage(0, 4);
    EXPECT_FLOAT_EQ(level->enemies[0]->reservedHitPoints, -6);

    // After a rebuild of the row the planned shots are void.
    level->resetReservations();
    EXPECT_FLOAT_EQ(level->enemies[0]->reservedHitPoints, 6);
    EXPECT_FLOAT_EQ(level->enemies[1]->reservedHitPoints, 10);
    EXPECT_EQ(level->selectTarget(192, 500, 4), 0);
}

TEST_F(EnemyTest, LostTargetsReadAs1000AndShotsAtThemDontHappen)
{
    Enemy& enemy = place(100, 200, 4);
    float x, y;
    level->enemyPosition(0, x, y);
    EXPECT_EQ(x, 100);
    EXPECT_EQ(y, 200);
    enemy.reservedHitPoints = 0;
    EXPECT_TRUE(level->hitEnemy(0, 4));  // dead now: hit points 0
    level->enemyPosition(0, x, y);
    EXPECT_EQ(x, NO_ENEMY);
    EXPECT_EQ(y, NO_ENEMY);
    EXPECT_FALSE(level->hitEnemy(0, 4));
    level->reserveDamage(0, 4);
    EXPECT_EQ(enemy.reservedHitPoints, 0);
    for (int32_t slot : {-1, 1, 1000}) {
        EXPECT_FALSE(level->hitEnemy(slot, 1));
        level->enemyPosition(slot, x, y);
        EXPECT_EQ(y, NO_ENEMY);
        level->reserveDamage(slot, 1);
    }
    float size;
    EXPECT_EQ(level->popDeadEnemy(x, y, size), 1);
    EXPECT_FALSE(level->hitEnemy(0, 4));  // a free slot
}

TEST_F(EnemyTest, DeadAreCollectedInSlotOrderAndOnlyTheAliveAreListed)
{
    place(10, 100, 5);
    Enemy& second = place(20, 200, 5);
    Enemy& third = place(30, 300, 5);
    second.size = 8;
    second.hitPoints = -5;
    second.reservedHitPoints = -5;
    third.hitPoints = 0;
    third.reservedHitPoints = 0;

    float x = 0, y = 0, size = 0;
    level->frontEnemy(x, y);  // the dead stay in the front search
    EXPECT_EQ(y, 300);
    EXPECT_EQ(level->popDeadEnemy(x, y, size), 2);
    EXPECT_EQ(x, 20);
    EXPECT_EQ(y, 200);
    EXPECT_EQ(size, 8);
    EXPECT_EQ(level->enemies[1], nullptr);
    EXPECT_EQ(level->popDeadEnemy(x, y, size), 1);
    EXPECT_EQ(x, 30);
    x = y = size = -7;
    EXPECT_EQ(level->popDeadEnemy(x, y, size), 0);
    EXPECT_EQ(x, -7);  // nothing written
    EXPECT_NE(level->enemies[0], nullptr);

    Enemy& dead = place(20, 100);  // refills slot 1
    place(30, 100);
    dead.hitPoints = dead.reservedHitPoints = 0;
    std::vector<Enemy*> list;
    level->liveEnemies(list);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0], level->enemies[0]);
    EXPECT_EQ(list[1], level->enemies[2]);
}

TEST_F(EnemyTest, BlastTakesThirtyPercentPlusALittleFromEveryLivingEnemy)
{
    place(50, 100, 10);
    Enemy& dead = place(60, 200, 10);
    place(70, 300, 2);
    dead.hitPoints = dead.reservedHitPoints = 0;
    level->blastAllEnemies();
    EXPECT_FLOAT_EQ(level->enemies[0]->hitPoints, 10 - 3.7f);
    EXPECT_FLOAT_EQ(level->enemies[0]->reservedHitPoints, 10 - 3.7f);
    EXPECT_EQ(dead.hitPoints, 0);
    EXPECT_FLOAT_EQ(level->enemies[2]->hitPoints, 2 - 1.3f);
    ASSERT_EQ(level->bolts.size(), 2u);
    const Bolt& bolt = level->bolts[1];
    EXPECT_TRUE(bolt.wide);
    EXPECT_EQ(bolt.lifetime, 200);
    EXPECT_EQ(bolt.red, 1);
    EXPECT_EQ(bolt.green, 0);
    EXPECT_EQ(bolt.points[0][0], 192);
    EXPECT_EQ(bolt.points[0][1], 600);
    EXPECT_EQ(bolt.points[1][0], 70);
    EXPECT_EQ(bolt.points[1][1], 300);
}

TEST_F(EnemyTest, ChainStrikesRandomLivingEnemiesFromAListMadeOnce)
{
    place(50, 100, 3);
    place(60, 200, 3);
    place(70, 300, 3);
    seedRandom(21);
    int hits[3] = {0, 0, 0};
    for (int i = 0; i < 7; ++i)
        hits[randomInt(0, 2)] += 1;
    seedRandom(21);
    level->chainLightning(7, 5, 6);
    for (int i = 0; i < 3; ++i)
        EXPECT_FLOAT_EQ(level->enemies[i]->hitPoints, 3 - 2.0f * hits[i]) << i;
    ASSERT_EQ(level->bolts.size(), 7u);
    EXPECT_EQ(level->bolts[0].lifetime, 100);
    EXPECT_EQ(level->bolts[0].blue, 1.0f);
    EXPECT_EQ(level->bolts[0].red, 0.5f);
    EXPECT_EQ(level->bolts[0].points[0][0], 5);
    EXPECT_EQ(level->bolts[0].points[0][1], 6);
}

TEST_F(EnemyTest, ChainOnAnEmptyFieldDrawsNothing)
{
    seedRandom(21);
    const int next = gameRand();
    seedRandom(21);
    level->chainLightning(5, 0, 0);
    EXPECT_EQ(gameRand(), next);
    EXPECT_TRUE(level->bolts.empty());
}

}  // namespace
