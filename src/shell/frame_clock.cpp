#include "shell/frame_clock.h"

#include "data/settings.h"
#include "platform/glfw.h"

bool fpsDisplayEnabled = false;

void refreshFpsDisplaySwitch() { fpsDisplayEnabled = isFpsCounterEnabled(); }

FrameClock::FrameClock(int16_t rate)
    : frameInterval(1.0 / rate), nextFrameTime(glfwGetTime())
{
    // A new clock takes the machine for a fast one: 66 % of the frame budget.
    workTimes.assign(rate > 0 ? rate : 0, frameInterval * 0.66);
}

void FrameClock::resync() { nextFrameTime = glfwGetTime(); }

void FrameClock::tick()
{
    nextFrameTime += frameInterval;
    double delta = nextFrameTime - glfwGetTime();  // positive: finished early
    lag += delta;
    if (delta > 0) glfwSleep(delta);

    // Recovery with more than a third of headroom, judged by the last tick.
    if (measuredRate > 1.33 / frameInterval) lag += 0.04;

    if (lag > 0) {
        lag = 0;
    } else if (lag < -12) {
        // Give up the frames owed and start the schedule over from now.
        nextFrameTime = glfwGetTime();
        lag = -12;
    }

    previousSkipState = skipState;
    if (lag >= -3)
        skipState = 0;
    else if (lag >= -6)
        skipState = skipState == 0 ? 1 : 0;
    else
        skipState = static_cast<uint8_t>((skipState + 1) % 3);

    if (!workTimes.empty()) {
        workTimes.pop_front();
        workTimes.push_back(frameInterval - delta);
    }
    double sum = 0;
    for (double t : workTimes) sum += t;
    measuredRate = (sum == 0 || workTimes.empty()) ? 10000 : workTimes.size() / sum;
}
