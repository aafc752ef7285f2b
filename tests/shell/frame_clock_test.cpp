// The frame clock on virtual time: the pace it keeps, the lag it counts, the
// frames it leaves out and how it recovers.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/testing/test_backend.h"
#include "shell/frame_clock.h"

namespace {

// One round whose work takes the given seconds.
void round(FrameClock& clock, double work)
{
    testBackend::advanceTime(work);
    clock.tick();
}

}  // namespace

TEST(FrameClock, PacesMeasuresAndRecoversWithHeadroom)
{
    testBackend::reset();
    FrameClock clock(60);
    round(clock, 0.011);  // a new clock takes the machine for one that needs 66 %
    EXPECT_NEAR(clock.measuredRate, 1 / (0.66 / 60), 1e-6);
    round(clock, 0);  // a second of frames: one quick frame moves it a little
    EXPECT_NEAR(clock.measuredRate, 60 / (59 * 0.011), 1e-6);
    for (int i = 0; i < 598; ++i) round(clock, 0.004);
    EXPECT_EQ(clock.lag, 0.0);
    EXPECT_EQ(clock.skipState, 0);
    EXPECT_NEAR(testBackend::now(), 10.0, 1e-6);  // 600 rounds at 60 a second
    EXPECT_NEAR(clock.measuredRate, 250, 1e-6);
    clock.lag = -1.0;
    round(clock, 1.0 / 60 + 0.01);  // 0.01 late; more than a third of headroom gives 0.04
    EXPECT_NEAR(clock.lag, -0.97, 1e-9);
    testBackend::advanceTime(300.0);  // five minutes in a pause menu are no lateness
    clock.resync();
    round(clock, 0.005);
    EXPECT_NEAR(clock.lag, -0.97 + (1.0 / 60 - 0.005) + 0.04, 1e-9);
    const double start = testBackend::now();
    FrameClock(1000).tick();  // a clock built and ticked once is a sleep
    EXPECT_NEAR(testBackend::now() - start, 0.001, 1e-9);
}

TEST(FrameClock, LeavesFramesOutByLagAndStartsOverBelowTwelve)
{
    testBackend::reset();
    FrameClock clock(60);
    // Lag, and the skip state before and after an on-time tick: down to -3
    // every frame is drawn, down to -6 every other, below that every third.
    const double rows[][3] = {{-3, 0, 0}, {-6, 0, 1}, {-6, 1, 0}, {-4, 2, 0},
                              {-7, 0, 1}, {-7, 1, 2}, {-7, 2, 0}};
    for (const auto& row : rows) {
        clock.lag = row[0];
        clock.skipState = static_cast<uint8_t>(row[1]);
        clock.nextFrameTime = testBackend::now() - clock.frameInterval;
        clock.measuredRate = 0;  // no recovery
        clock.tick();
        EXPECT_EQ(clock.skipState, row[2]) << row[0] << " from " << row[1];
        EXPECT_EQ(clock.previousSkipState, row[1]);
    }
    for (double late : {0.005, 0.02}) {  // down to -12 the lag counts on; below, it stops
        clock.lag = -11.99;
        clock.nextFrameTime = testBackend::now() - clock.frameInterval - late;
        clock.measuredRate = 0;
        clock.tick();
        EXPECT_NEAR(clock.lag, std::max(-11.99 - late, -12.0), 1e-9);
    }
    testBackend::advanceTime(20.0);  // a stall: the frames owed are given up
    clock.tick();
    EXPECT_EQ(clock.lag, -12.0);
    EXPECT_EQ(clock.nextFrameTime, testBackend::now());
    const double start = testBackend::now();
    int drawn = 0;
    for (int i = 0; i < 30; ++i) {
        drawn += clock.shouldDraw();
        round(clock, 0.005);
    }
    EXPECT_NEAR(testBackend::now() - start, 0.5, 1e-6);
    EXPECT_EQ(drawn, 10);
}
