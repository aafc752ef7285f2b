#include "sim_fixture.h"

#include "sim/score_signs.h"

namespace {

using ScoreSignsTest = SimTest;

TEST_F(ScoreSignsTest, NothingInTheFirstTwoPercent)
{
    ScoreSigns signs;
    signs.applyRules(20, 0, 1000);
    EXPECT_FALSE(signs.sign1On || signs.sign2On || signs.sign3On);
    // With no hi-score, 21 of a par of 1000 brings signs 1 and 3 together.
    signs.applyRules(21, 0, 1000);
    EXPECT_TRUE(signs.sign1On);
    EXPECT_TRUE(signs.sign3On);
    EXPECT_EQ(signs.sign1X, 430);
    EXPECT_EQ(signs.sign3X, 449);

    // Survival without a hi-score shows the record at once.
    ScoreSigns survival;
    survival.applyRules(0, 0, 0);
    EXPECT_FALSE(survival.sign3On);
    survival.applyRules(1, 0, 0);
    EXPECT_TRUE(survival.sign3On);
    EXPECT_FALSE(survival.sign1On);
    EXPECT_EQ(survival.sign3X, 539);
}

TEST_F(ScoreSignsTest, HiScoreAheadThenParAheadThenRecord)
{
    ScoreSigns signs;
    signs.applyRules(2, 100, 1000);  // 2 % of 100 isn't past the start
    EXPECT_FALSE(signs.sign2On);
    signs.applyRules(3, 100, 1000);
    EXPECT_TRUE(signs.sign2On);
    EXPECT_EQ(signs.sign2X, 430);
    signs.sign2X = 470;
    signs.applyRules(100, 100, 1000);  // still on: its place stays
    EXPECT_EQ(signs.sign2X, 470);
    EXPECT_FALSE(signs.sign3On);
    signs.applyRules(101, 100, 1000);  // hi-score beaten, par ahead
    EXPECT_TRUE(signs.sign1On);
    EXPECT_FALSE(signs.sign2On);
    EXPECT_TRUE(signs.sign3On);
    EXPECT_EQ(signs.sign3X, 449);
    signs.applyRules(1001, 100, 1000);  // par beaten too
    EXPECT_FALSE(signs.sign1On);
    EXPECT_FALSE(signs.sign2On);
    EXPECT_TRUE(signs.sign3On);  // never switched off
}

TEST_F(ScoreSignsTest, SlidesAndPlaces)
{
    ScoreSigns signs;
    signs.update();
    EXPECT_FLOAT_EQ(signs.sign1Slide, -1);
    EXPECT_FLOAT_EQ(signs.sign3Slide, -2);
    EXPECT_EQ(signs.sign1X, 1);
    EXPECT_EQ(signs.sign3X, 65535);  // off: falls, in 16 bits
    signs.sign1On = true;
    signs.sign1X = 479;
    signs.sign3On = true;
    signs.sign3X = 376;
    for (int i = 0; i < 60; ++i)
        signs.update();
    EXPECT_EQ(signs.sign1X, 480);  // stops while on
    EXPECT_EQ(signs.sign3X, 374);  // next to sign 1
    EXPECT_FLOAT_EQ(signs.sign1Slide, 1);
    EXPECT_NEAR(signs.sign3Slide, 0.4f, 1e-4);  // held at -2 while off, then 60 steps up
    signs.sign1On = false;
    signs.sign3X = 470;
    for (int i = 0; i < 10; ++i)
        signs.update();
    EXPECT_EQ(signs.sign3X, 464);  // alone: towards 464 from above
    signs.sign3X = 460;
    for (int i = 0; i < 10; ++i)
        signs.update();
    EXPECT_EQ(signs.sign3X, 464);
}

}  // namespace
