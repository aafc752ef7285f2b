#include "menu/level_progress.h"

#include "base/numbers.h"
#include "data/map_file.h"
#include "data/scores.h"

uint8_t unlockShare(uint32_t score, uint32_t par)
{
    // Worked out in double from the two whole numbers, then held as a float.
    const float percent = static_cast<float>(static_cast<double>(score) / par * 100);
    return static_cast<uint8_t>(clampFloat(percent, 0, 100));
}

uint16_t totalUnlockPoints()
{
    uint16_t total = 0;
    for (int m = 1; m <= campaignMapCount; ++m)
        total = static_cast<uint16_t>(total + unlockShare(getStageScore(m), getMapParScore(m)));
    return total;
}

uint8_t countOpenMaps(uint16_t totalPoints)
{
    uint8_t open = 0;
    for (int m = 1; m <= campaignMapCount; ++m) {
        if (getMapUnlockPoints(m) > totalPoints) break;
        ++open;
    }
    return open;
}
