#include "sim/director.h"

#include "base/numbers.h"
#include "base/random.h"

namespace {
// Backlog limits, in small-enemy equivalents.
constexpr int16_t FORCE_DECISION_ABOVE = 20;
constexpr int16_t CORRECTION_BEYOND = 12;
constexpr int16_t BRAKE_BELOW = -19;
}  // namespace

Director::Director(float baseBigPercent, float spawnInterval)
    : baseBigPercent(baseBigPercent), interval(randomFloat(0.5f, 1.3f) * spawnInterval)
{
    if (baseBigPercent == 0)
        bigPercent = 0;
    else if (baseBigPercent == 100)
        bigPercent = 100;
    else
        bigPercent = drawMapMix();
}

float Director::drawMapMix() const
{
    return clampFloat(randomFloat(0.5f, 1.2f) * baseBigPercent, 0, 100);
}

int16_t Director::backlog() const
{
    const int16_t owedSmall = static_cast<int16_t>(earnedSmall - releasedSmall);
    const int16_t owedBig = static_cast<int16_t>(earnedBig - releasedBig);
    return static_cast<int16_t>(owedSmall + 3 * owedBig);
}

void Director::update()
{
    phaseFrames -= 1;
    // One value for the whole frame, though the release below moves the counters.
    const int16_t owed = backlog();
    if (owed > FORCE_DECISION_ABOVE)
        phaseFrames = 0;
    if (phaseFrames == 0)
        decide(owed);

    // The hard brake: far ahead of the clock, nothing is earned this frame.
    if (!(owed < BRAKE_BELOW) && releasing)
        credit += 1;
    while (credit > interval) {
        const float r = randomFloat(0, 100);
        const uint8_t kind = bigPercent > r ? 8 : 4;
        pending.push_back(kind);
        if (kind == 8)
            releasedBig += 1;
        else
            releasedSmall += 1;
        credit -= interval;
    }
}

uint8_t Director::takePending()
{
    if (pending.empty())
        return 0;
    const uint8_t kind = pending.back();
    pending.pop_back();
    return kind;
}

void Director::decide(int16_t owed)
{
    const int32_t owedSmall = earnedSmall - releasedSmall;
    const int32_t owedBig = earnedBig - releasedBig;
    const float skew = static_cast<float>(owedSmall - owedBig) / 100.0f;
    releasing = true;

    if (owed > CORRECTION_BEYOND) {
        interval *= randomFloat(0.6f, 0.9f);
        nudge(skew);
        phaseFrames = 200;
        return;
    }
    if (owed < -CORRECTION_BEYOND) {
        interval *= randomFloat(1.1f, 1.4f);
        nudge(skew);
        phaseFrames = 200;
        return;
    }

    if (randomInt(0, 2) != 0) {  // a silent gap
        releasing = false;
        phaseFrames = 45;
        return;
    }

    // A change of mood. After a rush the map's own mix comes back first.
    bool newStretch;
    if (bigPercent == 0 || bigPercent == 100) {
        bigPercent = drawMapMix();
        newStretch = true;
    } else {
        newStretch = randomInt(0, 2) != 0;
    }
    if (newStretch) {
        nudge(skew);
        interval *= randomFloat(0.8f, 1.1f);
        phaseFrames = static_cast<int16_t>(randomFloat(0.8f, 1.2f) * 900);
    } else {  // a rush of one kind only
        nudge(skew);
        const float r = randomFloat(0, 100);
        bigPercent = bigPercent > r ? 100.0f : 0.0f;
        interval *= randomFloat(0.8f, 1.1f);
        phaseFrames = static_cast<int16_t>(randomFloat(0.8f, 1.1f) * ((100 - bigPercent) * 5 + 200));
    }
}

void Director::nudge(float skew)
{
    if (baseBigPercent == 0 || baseBigPercent == 100)
        return;
    bigPercent = clampFloat((bigPercent + 1.0f) * (randomFloat(0.5f, 1.5f) - skew), 0, 100);
}
