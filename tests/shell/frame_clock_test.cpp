#include <gtest/gtest.h>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "shell/frame_clock.h"

namespace {

class FrameClockOnVirtualTime : public ::testing::Test {
protected:
    void SetUp() override { testBackend::reset(); }

    // One round whose work takes the given seconds.
    static void round(FrameClock& clock, double work)
    {
        testBackend::advanceTime(work);
        clock.tick();
    }
};

}  // namespace

TEST_F(FrameClockOnVirtualTime, ANewClockTakesTheMachineForAFastOne)
{
    FrameClock clock(60);
    EXPECT_EQ(clock.measuredRate, 0.0);
    EXPECT_EQ(clock.workTimes.size(), 60u);
    round(clock, 0.011);
    EXPECT_NEAR(clock.measuredRate, 1 / (0.66 / 60), 1e-6);  // 90.9
    // The window holds one second of frames: one quick frame moves it a little.
    round(clock, 0);
    EXPECT_NEAR(clock.measuredRate, 60 / (59 * 0.011), 1e-6);
    EXPECT_EQ(clock.lag, 0.0);
    EXPECT_EQ(clock.skipState, 0);

    // A rate of one sleeps a second; of a thousand, a millisecond.
    for (int rate : {1, 1000}) {
        const double start = testBackend::now();
        FrameClock paced(rate);
        paced.tick();
        EXPECT_NEAR(testBackend::now() - start, 1.0 / rate, 1e-9) << rate;
    }
}

TEST_F(FrameClockOnVirtualTime, AFastMachineStaysAtZeroLagAndDrawsEveryFrame)
{
    FrameClock clock(60);
    for (int i = 0; i < 600; ++i) {
        round(clock, 0.004);
        ASSERT_EQ(clock.lag, 0.0);
        ASSERT_TRUE(clock.shouldDraw());
    }
    EXPECT_NEAR(testBackend::now(), 10.0, 1e-6);  // paced at exactly 60 a second
    EXPECT_NEAR(clock.measuredRate, 250, 1e-6);
}

TEST_F(FrameClockOnVirtualTime, RowsOfTheSkipTableByLag)
{
    FrameClock clock(60);
    // Each row: lag before the tick and the skip state it starts from and ends in.
    // -3 and above draws every frame; down to -6 every other; below, every third.
    struct Row {
        double lag;
        int before, after;
    };
    const Row rows[] = {{-3.0, 0, 0}, {-6.0, 0, 1}, {-6.0, 1, 0}, {-4.0, 2, 0},
                        {-7.0, 0, 1}, {-7.0, 1, 2}, {-7.0, 2, 0}};
    for (const Row& row : rows) {
        clock.skipState = row.before;
        clock.lag = row.lag;
        clock.nextFrameTime = testBackend::now() - clock.frameInterval;  // delta exactly 0
        clock.measuredRate = 0;  // no recovery
        clock.tick();
        EXPECT_EQ(clock.skipState, row.after) << row.lag << " from " << row.before;
        EXPECT_EQ(clock.previousSkipState, row.before);
    }

    // Just above -12 the schedule is kept; below, it starts over from now.
    for (double late : {0.005, 0.02}) {
        clock.lag = -11.99;
        clock.nextFrameTime = testBackend::now() - clock.frameInterval - late;
        clock.measuredRate = 0;
        clock.tick();
        EXPECT_NEAR(clock.lag, late < 0.01 ? -11.995 : -12.0, 1e-9);
        EXPECT_NEAR(clock.nextFrameTime, testBackend::now() - (late < 0.01 ? late : 0), 1e-9);
    }
}

TEST_F(FrameClockOnVirtualTime, RecoveryAddsFourHundredthsWhenTheMachineHasHeadroom)
{
    FrameClock clock(60);
    round(clock, 0.011);  // measuredRate now 90.9, above 79.8
    // A frame a little over budget: the delta is taken, and recovery adds 0.04.
    clock.lag = -1.0;
    round(clock, 1.0 / 60 + 0.01);
    EXPECT_NEAR(clock.lag, -1.0 - 0.01 + 0.04, 1e-9);
}

TEST_F(FrameClockOnVirtualTime, ATwentySecondStallResetsTheScheduleAndDrawsEveryThirdFrame)
{
    FrameClock clock(60);
    round(clock, 0.005);
    testBackend::advanceTime(20.0);
    clock.tick();
    EXPECT_EQ(clock.lag, -12.0);
    EXPECT_NEAR(clock.nextFrameTime, testBackend::now(), 1e-9);
    EXPECT_FALSE(clock.shouldDraw());

    // No catching up: the next frames are paced at the normal rate.
    double start = testBackend::now();
    int drawn = 0;
    for (int i = 0; i < 30; ++i) {
        if (clock.shouldDraw()) ++drawn;
        round(clock, 0.005);
    }
    EXPECT_NEAR(testBackend::now() - start, 0.5, 1e-6);
    EXPECT_EQ(drawn, 10);
    EXPECT_LT(clock.lag, -6.0);
}

TEST_F(FrameClockOnVirtualTime, ASlowMachineLosesItsLagAndLeavesFramesOut)
{
    FrameClock clock(60);
    // 0.1 s behind in every frame: lag falls by about 0.1 a tick.
    for (int i = 0; i < 35; ++i)
        round(clock, 1.0 / 60 + 0.1);
    EXPECT_LT(clock.lag, -3.0);
    EXPECT_GE(clock.lag, -12.0);
    EXPECT_LT(clock.measuredRate, 60);
}

TEST_F(FrameClockOnVirtualTime, ResyncAfterALongPauseKeepsLagAndTheWindow)
{
    FrameClock clock(60);
    for (int i = 0; i < 5; ++i) round(clock, 0.005);
    clock.lag = -2.5;
    double rate = clock.measuredRate;
    testBackend::advanceTime(300.0);  // five minutes in a pause menu
    clock.resync();
    EXPECT_EQ(clock.lag, -2.5);
    EXPECT_EQ(clock.measuredRate, rate);
    round(clock, 0.005);
    // One frame's spare time plus the recovery.
    EXPECT_NEAR(clock.lag, -2.5 + (1.0 / 60 - 0.005) + 0.04, 1e-9);
}
