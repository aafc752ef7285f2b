#include <gtest/gtest.h>

#include <cstdint>

#include "base/numbers.h"
#include "base/random.h"
#include "sim/director.h"

namespace {

// A director in a known state: a mixed map, a long phase ahead, an interval
// too large to release anything unless a test says so.
Director steadyDirector()
{
    seedRandom(1);
    Director director(30, 10);
    director.phaseFrames = 1000;
    director.interval = 1e6f;
    director.bigPercent = 30;
    return director;
}

void setBacklog(Director& director, int small, int big = 0)
{
    director.earnedSmall = small > 0 ? small : 0;
    director.releasedSmall = small < 0 ? -small : 0;
    director.earnedBig = big > 0 ? big : 0;
    director.releasedBig = big < 0 ? -big : 0;
}

// A seed whose first randomInt(0, 2) is not 0: a calm decision is a silent gap.
uint32_t seedForSilentGap()
{
    for (uint32_t seed = 1;; ++seed) {
        seedRandom(seed);
        if (randomInt(0, 2) != 0)
            return seed;
    }
}

// A seed whose calm decision is a change of mood, followed by the given second draw.
uint32_t seedForMood(bool rush)
{
    for (uint32_t seed = 1;; ++seed) {
        seedRandom(seed);
        if (randomInt(0, 2) == 0 && (randomInt(0, 2) == 0) == rush)
            return seed;
    }
}

TEST(DirectorStart, DrawsIntervalThenShareOfBigEnemiesButNotOnPureMaps)
{
    seedRandom(7);
    const float intervalFactor = randomFloat(0.5f, 1.3f);
    const float shareFactor = randomFloat(0.5f, 1.2f);
    seedRandom(7);
    Director director(30, 12);
    EXPECT_FLOAT_EQ(director.interval, intervalFactor * 12);
    EXPECT_FLOAT_EQ(director.bigPercent, clampFloat(shareFactor * 30, 0, 100));
    EXPECT_EQ(director.phaseFrames, 100);
    EXPECT_TRUE(director.releasing);
    EXPECT_EQ(director.credit, 0);

    // Pure maps take their share as it stands, without a draw.
    seedRandom(7);
    Director small(0, 10);
    const int next = gameRand();
    seedRandom(7);
    gameRand();
    EXPECT_EQ(gameRand(), next);  // one draw only: the interval
    EXPECT_EQ(small.bigPercent, 0);
    EXPECT_EQ(Director(100, 10).bigPercent, 100);
}

TEST(DirectorBacklog, CountsBigEnemiesThreeTimesInSixteenBits)
{
    Director director = steadyDirector();
    setBacklog(director, 5, 2);
    EXPECT_EQ(director.backlog(), 11);
    setBacklog(director, -4, 1);
    EXPECT_EQ(director.backlog(), -1);
    // Each difference is cut to 16 bits: 65541 owed small enemies count as 5.
    director.earnedSmall = 65541;
    director.releasedSmall = 0;
    director.earnedBig = director.releasedBig = 0;
    EXPECT_EQ(director.backlog(), 5);
    director.earnedSmall = 40000;
    EXPECT_EQ(director.backlog(), -25536);
}

TEST(DirectorBacklog, TwentyWaitsForThePhaseAndTwentyOneForcesACorrection)
{
    Director director = steadyDirector();
    setBacklog(director, 20);
    director.update();
    EXPECT_EQ(director.phaseFrames, 999);
    EXPECT_EQ(director.interval, 1e6f);

    setBacklog(director, 0, 7);  // 21 in small-enemy equivalents
    for (int frame = 0; frame < 3; ++frame) {
        const float before = director.interval;
        director.update();
        EXPECT_EQ(director.phaseFrames, 200);
        EXPECT_GE(director.interval, before * 0.6f);
        EXPECT_LE(director.interval, before * 0.9f);
    }
}

TEST(DirectorBacklog, TwelveIsCalmAndThirteenACorrection)
{
    const uint32_t seed = seedForSilentGap();
    for (int sign : {1, -1}) {
        Director director = steadyDirector();
        director.phaseFrames = 1;
        setBacklog(director, 12 * sign);
        seedRandom(seed);
        director.update();
        EXPECT_FALSE(director.releasing) << sign;
        EXPECT_EQ(director.phaseFrames, 45) << sign;
        EXPECT_EQ(director.interval, 1e6f) << sign;

        director.phaseFrames = 1;
        setBacklog(director, 13 * sign);
        seedRandom(seed);
        director.update();
        EXPECT_TRUE(director.releasing) << sign;
        EXPECT_EQ(director.phaseFrames, 200) << sign;
        const float low = sign > 0 ? 0.6e6f : 1.1e6f, high = sign > 0 ? 0.9e6f : 1.4e6f;
        EXPECT_GE(director.interval, low) << sign;
        EXPECT_LE(director.interval, high) << sign;
    }
}

TEST(DirectorBacklog, BrakeHoldsTheCreditFromMinusTwentyOn)
{
    Director director = steadyDirector();
    setBacklog(director, -19);
    director.update();
    EXPECT_EQ(director.credit, 1);
    setBacklog(director, -20);
    director.update();
    EXPECT_EQ(director.credit, 1);

    // What is already saved is still spent.
    director.interval = 2;
    director.credit = 5;
    director.update();
    EXPECT_EQ(director.pending.size(), 2u);
    EXPECT_FLOAT_EQ(director.credit, 1);
}

TEST(DirectorRelease, StrictlyAboveTheIntervalKindByDrawAndSilentGapsEarnNoCredit)
{
    Director director = steadyDirector();
    director.interval = 3;
    director.credit = 2;
    director.update();  // credit 3: not above 3
    EXPECT_TRUE(director.pending.empty());

    director.bigPercent = 40;
    const uint32_t seed = 99;
    seedRandom(seed);
    const uint8_t expected = 40 > randomFloat(0, 100) ? 8 : 4;
    seedRandom(seed);
    director.update();  // credit 4
    ASSERT_EQ(director.pending.size(), 1u);
    EXPECT_EQ(director.pending.back(), expected);
    EXPECT_EQ(expected == 8 ? director.releasedBig : director.releasedSmall, 1);

    // A silent gap stops the credit but not the spending.
    director.releasing = false;
    director.credit = 0;
    director.update();
    EXPECT_EQ(director.credit, 0);
    director.interval = 0.5f;
    director.credit = 1.2f;
    director.update();
    EXPECT_EQ(director.pending.size(), 3u);
    EXPECT_EQ(director.releasedSmall + director.releasedBig, 3);
}

TEST(DirectorRelease, FullShareReleasesOnlyBigAndTakePendingWorksFromTheBack)
{
    Director director = steadyDirector();
    director.bigPercent = 100;
    director.interval = 0.25f;
    director.update();  // 1 -> 0.75 -> 0.5 -> 0.25, which is not above 0.25
    EXPECT_EQ(director.releasedBig, 3);
    EXPECT_EQ(director.pending.size(), 3u);
    EXPECT_EQ(director.releasedSmall, 0);

    director.pending.assign({4, 8, 4, 4});
    for (int kind : {4, 4, 8, 4, 0})
        EXPECT_EQ(director.takePending(), kind);
}

TEST(DirectorDecision, CorrectionShrinksTheIntervalThenNudgesByTheSkew)
{
    Director director = steadyDirector();
    director.interval = 10;
    director.earnedSmall = 30;  // owed 30 small, 0 big: backlog 30, skew 0.3
    seedRandom(42);
    const float factor = randomFloat(0.6f, 0.9f);
    const float nudge = randomFloat(0.5f, 1.5f);
    seedRandom(42);
    director.update();
    EXPECT_FLOAT_EQ(director.interval, 10 * factor);
    EXPECT_FLOAT_EQ(director.bigPercent, clampFloat((30 + 1.0f) * (nudge - 0.3f), 0, 100));
}

TEST(DirectorDecision, RushesAreOfOneKindAndTheirLengthFollowsIt)
{
    const uint32_t seed = seedForMood(true);
    Director director = steadyDirector();
    director.bigPercent = 50;
    director.interval = 10;
    director.phaseFrames = 1;
    seedRandom(seed);
    randomInt(0, 2);
    randomInt(0, 2);
    const float nudged = clampFloat((50 + 1.0f) * randomFloat(0.5f, 1.5f), 0, 100);
    const float rushBig = nudged > randomFloat(0, 100) ? 100.0f : 0.0f;
    const float intervalFactor = randomFloat(0.8f, 1.1f);
    const int16_t phase =
        static_cast<int16_t>(randomFloat(0.8f, 1.1f) * ((100 - rushBig) * 5 + 200));
    seedRandom(seed);
    director.update();
    EXPECT_EQ(director.bigPercent, rushBig);
    EXPECT_FLOAT_EQ(director.interval, 10 * intervalFactor);
    EXPECT_EQ(director.phaseFrames, phase);
    if (rushBig == 100) {
        EXPECT_GE(director.phaseFrames, 160);
        EXPECT_LE(director.phaseFrames, 220);
    } else {
        EXPECT_GE(director.phaseFrames, 560);
        EXPECT_LE(director.phaseFrames, 770);
    }
}

TEST(DirectorDecision, AfterARushTheMapsMixComesBackWithANewStretch)
{
    const uint32_t seed = seedForMood(false);
    Director director = steadyDirector();
    director.bigPercent = 100;
    director.interval = 10;
    director.phaseFrames = 1;
    seedRandom(seed);
    randomInt(0, 2);
    const float mix = clampFloat(randomFloat(0.5f, 1.2f) * 30, 0, 100);
    const float nudge = randomFloat(0.5f, 1.5f);
    const float intervalFactor = randomFloat(0.8f, 1.1f);
    const int16_t phase = static_cast<int16_t>(randomFloat(0.8f, 1.2f) * 900);
    seedRandom(seed);
    director.update();
    EXPECT_FLOAT_EQ(director.bigPercent, clampFloat((mix + 1.0f) * nudge, 0, 100));
    EXPECT_FLOAT_EQ(director.interval, 10 * intervalFactor);
    EXPECT_EQ(director.phaseFrames, phase);
    EXPECT_TRUE(director.releasing);
}

TEST(DirectorDecision, PureMapsNeverChangeTheirShare)
{
    seedRandom(3);
    Director director(0, 10);
    director.interval = 1e6f;
    for (int frame = 0; frame < 20000; ++frame) {
        director.earnedSmall += frame % 40 == 0 ? 1 : 0;
        director.update();
        while (director.takePending() != 0) {
        }
        ASSERT_EQ(director.bigPercent, 0);
    }
    EXPECT_EQ(director.releasedBig, 0);
    EXPECT_GT(director.releasedSmall, 0);
}

}  // namespace
