#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "base/random.h"
#include "map_text.h"
#include "sim/director.h"
#include "sim/level.h"
#include "support/scratch_dir.h"

namespace {

class LevelTest : public ::testing::Test {
protected:
    // A plain map with a short wave clock: 10 frames of spawning, 5 of pause.
    MapText shortClock()
    {
        MapText text;
        text.set(11, "10").set(12, "5").set(13, "3");
        return text;
    }

    std::unique_ptr<Level> build(const MapText& text, bool survival = false)
    {
        seedRandom(1);
        return std::make_unique<Level>(survival, text.write(1).c_str());
    }

    // One frame as the Player runs it: step, (the bank), advance.
    static uint8_t frame(Level& level)
    {
        const uint8_t report = level.step();
        level.advance();
        return report;
    }

    static void frames(Level& level, int count)
    {
        for (int i = 0; i < count; ++i)
            frame(level);
    }

    static int enemyCount(const Level& level)
    {
        int count = 0;
        for (const Enemy* enemy : level.enemies)
            count += enemy ? 1 : 0;
        return count;
    }

    // Removes every enemy as if it had been killed.
    static void killAll(Level& level)
    {
        for (Enemy* enemy : level.enemies)
            if (enemy)
                enemy->hitPoints = enemy->reservedHitPoints = 0;
        float x, y, size;
        while (level.popDeadEnemy(x, y, size) != 0) {
        }
    }

    ScratchDir scratch;
};

TEST_F(LevelTest, ReadsLinesTwoToFourteen)
{
    MapText text;
    text.set(2, "120").set(3, "6.5").set(4, "0.01").set(5, "0.7").set(6, "0.0001");
    text.set(7, "45").set(8, "-0.02").set(9, "12").set(10, "15").set(11, "1500");
    text.set(12, "300").set(13, "7").set(14, "1");
    auto level = build(text);
    EXPECT_EQ(level->speedUpFrames, 120);
    EXPECT_FLOAT_EQ(level->enemyHitPoints, 6.5f);
    EXPECT_FLOAT_EQ(level->enemyHitPointsGrowth, 0.01f);
    EXPECT_FLOAT_EQ(level->enemySpeed, 0.7f);
    EXPECT_FLOAT_EQ(level->enemySpeedGrowth, 0.0001f);
    EXPECT_FLOAT_EQ(level->spawnInterval, 45);
    EXPECT_FLOAT_EQ(level->spawnIntervalGrowth, -0.02f);
    EXPECT_FLOAT_EQ(level->minSpawnInterval, 12);
    EXPECT_FLOAT_EQ(level->bigEnemyPercent, 15);
    EXPECT_EQ(level->waveFrames, 1500);
    EXPECT_EQ(level->pauseFrames, 300);
    EXPECT_EQ(level->waveCount, 7);
    EXPECT_TRUE(level->directed);
    EXPECT_EQ(level->totalFrames(), 1800u * 7);
    ASSERT_NE(level->director, nullptr);
    EXPECT_FLOAT_EQ(level->director->baseBigPercent, 15);
}

TEST_F(LevelTest, MissingMapSaysSoAndRunsAPlainStage)
{
    testing::internal::CaptureStdout();
    Level level(false, "content/maps/map19.txt");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Couldn't load map 'content/maps/map19.txt'!\n");
    EXPECT_GT(level.waveFrames + level.pauseFrames, 0);
    EXPECT_GT(level.waveCount, 0);
    EXPECT_GT(level.spawnInterval, 0);
    EXPECT_FALSE(level.directed);
    ASSERT_NE(level.director, nullptr);
    frames(level, 3000);
    EXPECT_GT(enemyCount(level), 0);
}

TEST_F(LevelTest, ShortMapKeepsDefaultsFromTheFirstMissingLineOnAndAZeroPeriodToo)
{
    MapText text;
    text.set(7, "33");
    text.lines.resize(9);
    testing::internal::CaptureStderr();
    auto level = build(text);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Map 'content/maps/map1.txt' can't be read from line 10 on; the stage's values keep "
              "their defaults\n");
    EXPECT_FLOAT_EQ(level->spawnInterval, 33);
    EXPECT_FLOAT_EQ(level->minSpawnInterval, 1);
    EXPECT_GT(level->waveFrames + level->pauseFrames, 0);

    // A wave period of zero falls back to the default clock.
    testing::internal::CaptureStderr();
    level = build(MapText().set(11, "0").set(12, "0"));
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
    EXPECT_GT(level->waveFrames + level->pauseFrames, 0);
    frame(*level);
}

TEST_F(LevelTest, CreditEqualToTheIntervalSpawnsNothing)
{
    auto level = build(shortClock().set(11, "100").set(7, "5"));
    frames(*level, 5);
    EXPECT_FLOAT_EQ(level->spawnCredit, 5);
    EXPECT_EQ(enemyCount(*level), 0);
    frame(*level);
    EXPECT_EQ(enemyCount(*level), 1);
    EXPECT_FLOAT_EQ(level->spawnCredit, 1);
}

TEST_F(LevelTest, LastSpawningFrameIsWaveFramesAndThePauseZeroesTheCredit)
{
    auto level = build(shortClock().set(7, "0.5").set(9, "0.5"));
    for (int i = 1; i <= 10; ++i) {
        const int before = enemyCount(*level);
        frame(*level);
        EXPECT_GT(enemyCount(*level), before) << "frame " << i;
    }
    const int spawned = enemyCount(*level);
    EXPECT_EQ(spawned, 19);  // one in the first frame, two in each later one
    for (int i = 11; i <= 14; ++i) {
        frame(*level);
        EXPECT_EQ(enemyCount(*level), spawned) << "frame " << i;
        EXPECT_EQ(level->spawnCredit, 0);
    }
    EXPECT_EQ(level->waveIndex, 0);
    frame(*level);  // frame 15 opens the second period and spawns again
    EXPECT_EQ(level->waveIndex, 1);
    EXPECT_EQ(enemyCount(*level), spawned + 1);
}

TEST_F(LevelTest, StageEndsAfterTheLastPeriodOnceTheFieldIsEmptySurvivalNever)
{
    auto level = build(shortClock().set(13, "1").set(7, "0.5").set(9, "0.5").set(4, "1"));
    EXPECT_EQ(level->totalFrames(), 15u);
    for (int i = 1; i <= 15; ++i)  // the clock stops at frame 15
        EXPECT_EQ(frame(*level), STEP_NOTHING);
    EXPECT_EQ(level->waveIndex, 1);
    const float hitPoints = level->enemyHitPoints;
    const int enemies = enemyCount(*level);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(frame(*level), STEP_NOTHING);
    EXPECT_EQ(level->enemyHitPoints, hitPoints);  // advance is idle
    EXPECT_EQ(enemyCount(*level), enemies);
    killAll(*level);
    EXPECT_EQ(frame(*level), STEP_FINISHED);
    EXPECT_EQ(frame(*level), STEP_FINISHED);
    EXPECT_EQ(level->elapsedFrames(), 67u);

    // Survival runs past the last wave and never finishes.
    level = build(shortClock().set(13, "1"), true);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(frame(*level), STEP_NOTHING);
    EXPECT_EQ(level->waveIndex, 6);
}

TEST_F(LevelTest, FastStartDoublesSpeedAndCreditButNotGrowth)
{
    auto level = build(shortClock().set(2, "3").set(4, "1").set(7, "100").set(11, "100"));
    const int32_t slot = level->spawnEnemy(ENEMY_KIND_SMALL, false);
    Enemy& enemy = *level->enemies[slot];
    const float speed = enemy.speed;
    const float hitPoints = level->enemyHitPoints;
    for (float steps : {2.0f, 4.0f, 5.0f}) {  // frame 3 is no longer below 3
        frame(*level);
        EXPECT_FLOAT_EQ(enemy.y, -25 + steps * speed);
        EXPECT_FLOAT_EQ(level->spawnCredit, steps);
    }
    EXPECT_FLOAT_EQ(level->enemyHitPoints, hitPoints + 3);
}

TEST_F(LevelTest, OneBreachAFrameAndTheLineIsStrict)
{
    auto level = build(shortClock().set(11, "100"));
    for (int i = 0; i < 3; ++i)
        level->spawnEnemy(ENEMY_KIND_SMALL, false);
    level->enemies[0]->y = 515 - level->enemies[0]->speed;  // reaches 515 exactly
    level->enemies[1]->y = 600;
    level->enemies[2]->y = 700;
    EXPECT_EQ(level->step(), STEP_BREACH);
    EXPECT_EQ(level->enemies[1], nullptr);
    EXPECT_NE(level->enemies[2], nullptr);
    // The first one is past 515 now and comes first in slot order.
    EXPECT_EQ(level->step(), STEP_BREACH);
    EXPECT_EQ(level->enemies[0], nullptr);
    EXPECT_NE(level->enemies[2], nullptr);
    EXPECT_EQ(level->step(), STEP_BREACH);
    EXPECT_EQ(level->enemies[2], nullptr);
    EXPECT_EQ(level->enemies.size(), 3u);  // slots are never compacted
    EXPECT_EQ(level->step(), STEP_NOTHING);
}

TEST_F(LevelTest, LastEnemyBreakingThroughReportsTheBreachThenTheEnd)
{
    auto level = build(shortClock().set(13, "1").set(7, "1000"));
    frames(*level, 15);
    level->spawnEnemy(ENEMY_KIND_SMALL, false);
    level->enemies[0]->y = 516;
    EXPECT_EQ(level->step(), STEP_BREACH);
    EXPECT_EQ(level->step(), STEP_FINISHED);
}

TEST_F(LevelTest, SpawnIntervalStopsAtItsFloorExactly)
{
    auto level = build(shortClock().set(7, "10").set(8, "-3").set(9, "5"));
    for (float expected : {7.0f, 5.0f, 5.0f}) {
        frame(*level);
        EXPECT_EQ(level->spawnInterval, expected);
    }
}

TEST_F(LevelTest, DirectedClockOnlyEarnsAndTheDirectorReleases)
{
    auto level = build(shortClock().set(14, "1").set(7, "0.5").set(9, "0.5").set(10, "0"));
    Director& director = *level->director;
    director.phaseFrames = 10000;
    director.interval = 1e6f;
    frame(*level);
    EXPECT_EQ(director.earnedSmall, 1);
    EXPECT_EQ(enemyCount(*level), 0);

    director.interval = 0.25f;
    director.credit = 0;  // the next update releases 3: 1 -> 0.75 -> 0.5 -> 0.25
    frame(*level);
    EXPECT_EQ(director.releasedSmall, 3);
    EXPECT_EQ(enemyCount(*level), 3);
    EXPECT_TRUE(director.pending.empty());
    EXPECT_EQ(director.earnedSmall, 3);  // 1 in the first frame, 2 in the second
}

TEST_F(LevelTest, DirectedEarningDrawsTheKindByTheMapsShare)
{
    auto level = build(shortClock().set(14, "1").set(7, "0.5").set(9, "0.5").set(10, "30"));
    level->director->phaseFrames = 10000;
    level->director->interval = 1e6f;
    seedRandom(11);
    level->director->releasing = false;
    const bool big = 30 > randomFloat(0, 100);
    seedRandom(11);
    frame(*level);
    EXPECT_EQ(level->director->earnedBig, big ? 1 : 0);
    EXPECT_EQ(level->director->earnedSmall, big ? 0 : 1);
}

TEST_F(LevelTest, DisturbanceEnemyComesAfterThreeAverageSpawnsOfThePeriod)
{
    auto level = build(MapText().set(7, "10").set(11, "100").set(12, "20"));
    // t = 10 / 100 * 120 * 3 = 36: the tick that takes the credit above it spawns.
    float x = 0, y = 0;
    for (int i = 1; i <= 36; ++i) {
        level->disturbTick(x, y);
        ASSERT_EQ(y, NO_ENEMY) << i;
        ASSERT_EQ(x, NO_ENEMY);
    }
    level->disturbTick(x, y);
    ASSERT_EQ(enemyCount(*level), 1);
    EXPECT_EQ(x, level->enemies[0]->x);
    EXPECT_EQ(y, level->enemies[0]->y);
    EXPECT_GE(y, 0);
    EXPECT_LE(y, 50);
    EXPECT_NEAR(level->disturbCredit, 1, 1e-4);
}

TEST_F(LevelTest, DirectedReleaseStaysTiedToTheClockOverALongGame)
{
    auto level = build(MapText().set(14, "1").set(7, "20").set(9, "20").set(10, "25")
                           .set(11, "1000").set(12, "200"),
                       true);
    const Director& director = *level->director;
    int lowest = 0, highest = 0, big = 0, all = 0;
    for (int i = 0; i < 30000; ++i) {
        frame(*level);
        for (Enemy* enemy : level->enemies) {
            if (enemy && enemy->y == -25.0f) {  // born this frame
                big += enemy->size > 6 ? 1 : 0;
                all += 1;
            }
        }
        killAll(*level);
        if (i > 2000) {
            lowest = std::min<int>(lowest, director.backlog());
            highest = std::max<int>(highest, director.backlog());
        }
    }
    EXPECT_GE(lowest, -30);
    EXPECT_LE(highest, 30);
    EXPECT_EQ(all, director.releasedSmall + director.releasedBig);
    EXPECT_NEAR(static_cast<double>(big) / all, 0.25, 0.08);
}

}  // namespace
