#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "base/random.h"
#include "sim/effects.h"

namespace {

TEST(BoltTest, ShortBoltsAreCutInTwoStepsLongOnesIn15UnitSteps)
{
    // 10 units long: two steps of 5 straight down.
    Bolt shortBolt(0, 0, 1, 100, 100, 100, 110, 10, true);
    EXPECT_FLOAT_EQ(shortBolt.points[3][1], 103.5f);  // 0.7 of a step from the start
    EXPECT_FLOAT_EQ(shortBolt.points[4][0], 105);     // x1 + dy + dx
    EXPECT_FLOAT_EQ(shortBolt.points[4][1], 105);     // y1 + dy - dx
    EXPECT_FLOAT_EQ(shortBolt.points[8][0], 95);      // x1 + dx - dy

    // 150 units long: ten steps of 15 across.
    Bolt longBolt(0, 0, 1, 0, 0, 150, 0, 10, true);
    const float expected[10][2] = {{0, 0},   {150, 0},   {0, 0},   {10.5f, 0}, {15, -15},
                                   {139.5f, 0}, {135, -15}, {150, 0}, {15, 15},  {135, 15}};
    for (int i = 0; i < 10; ++i) {
        EXPECT_NEAR(longBolt.points[i][0], expected[i][0], 1e-4) << i;
        EXPECT_NEAR(longBolt.points[i][1], expected[i][1], 1e-4) << i;
    }
}

TEST(BoltTest, LivesItsLifetimeAndAgeingAListDropsTheSpentInOrder)
{
    Bolt bolt(1, 0, 0, 0, 0, 10, 10, 50, false);
    int frames = 1;
    while (bolt.age())
        ++frames;
    EXPECT_EQ(frames, 50);

    std::vector<Bolt> bolts;
    for (int lifetime : {3, 1, 2, 1, 5})
        bolts.emplace_back(0.1f * lifetime, 0, 0, 0, 0, 1, 1, lifetime, false);
    ageBolts(bolts);
    ASSERT_EQ(bolts.size(), 3u);
    EXPECT_EQ(bolts[0].lifetime, 3);
    EXPECT_EQ(bolts[1].lifetime, 2);
    EXPECT_EQ(bolts[2].lifetime, 5);
    ageBolts(bolts);
    ASSERT_EQ(bolts.size(), 2u);
    EXPECT_EQ(bolts[0].lifetime, 3);
    EXPECT_EQ(bolts[1].lifetime, 5);
}

TEST(SparkTest, DropletDrawsDriftLifetimeAndRedInThatOrder)
{
    seedRandom(77);
    const float dx = randomFloat(-0.1f, 0.1f);
    const float dy = randomFloat(-0.1f, 0.1f);
    const int frames = randomInt(31, 165);
    const float red = randomFloat(0.5f, 1);
    seedRandom(77);
    Spark droplet(10, 20);
    EXPECT_EQ(droplet.size, 1.5f);
    EXPECT_EQ(droplet.dx, dx);
    EXPECT_EQ(droplet.dy, dy);
    EXPECT_EQ(droplet.framesLeft, frames);
    EXPECT_EQ(droplet.red, red);
}

TEST(PointLightTest, AgesAndIsDroppedInOrder)
{
    std::vector<PointLight> lights;
    lights.emplace_back(nullptr, 7, 0, 0, 192, 600, 400, 250);
    lights.emplace_back(nullptr, 0, 0, 40, 5, 6, 100, 1);
    lights.emplace_back(nullptr, 1.5f, 0, 0, 7, 8, 65, 2);
    ageLights(lights);  // the light of lifetime 1 goes in its first ageing
    ASSERT_EQ(lights.size(), 2u);
    EXPECT_EQ(lights[0].framesLeft, 249);
    EXPECT_EQ(lights[1].lifetime, 2);
    ageLights(lights);
    ASSERT_EQ(lights.size(), 1u);
    EXPECT_EQ(lights[0].lifetime, 250);
}

TEST(ShardTest, JumpDrawsDirectionSpeedAndSpinThenFollowsDragGravityMoveAndSpin)
{
    seedRandom(3);
    const float direction = randomInt(0, 1) == 0 ? 1.0f : -1.0f;
    const float dx = direction * randomFloat(0.2f, 0.5f);
    const float dy = randomFloat(-1, -0.6f);
    const float spin = randomFloat(-0.5f, -0.1f) * direction;
    seedRandom(3);
    Shard shard(40, 50);
    EXPECT_EQ(shard.spinDirection, direction);
    EXPECT_EQ(shard.dx, dx);
    EXPECT_EQ(shard.dy, dy);
    EXPECT_EQ(shard.spin, spin);

    const float nextDx = dx * 0.99f;
    const float nextDy = (dy + 0.01f) * 0.99f;
    EXPECT_TRUE(shard.update());
    EXPECT_FLOAT_EQ(shard.dx, nextDx);
    EXPECT_FLOAT_EQ(shard.dy, nextDy);
    EXPECT_FLOAT_EQ(shard.x, 40 + nextDx);
    EXPECT_FLOAT_EQ(shard.y, 50 + nextDy);
    EXPECT_FLOAT_EQ(shard.spin, spin + std::fabs(nextDy) * direction * 0.01f);
}

TEST(ShardTest, FliesUpTurnsOverAndEndsFallingAtHalfAUnitAFrame)
{
    for (uint32_t seed = 1; seed <= 50; ++seed) {
        seedRandom(seed);
        Shard shard(100, 100);
        const float startX = shard.x, direction = shard.spinDirection;
        int frames = 1;
        float previousDy = shard.dy;
        while (shard.update()) {
            ASSERT_GT(shard.dy, previousDy);  // gravity beats drag all the way
            previousDy = shard.dy;
            ++frames;
        }
        EXPECT_GE(shard.dy, 0.5f);
        EXPECT_GE(frames, 120) << seed;
        EXPECT_LE(frames, 140) << seed;
        EXPECT_GT((shard.x - startX) * direction, 0);
    }
}

}  // namespace
