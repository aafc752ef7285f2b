// libFuzzer target: a score file of any bytes, read for maps in and out of
// range, then a save of a score taken from the input (which rewrites it).
#include <cstdint>
#include <initializer_list>

#include "data/scores.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    placeInput("content/scores.dat", data, size);
    volatile uint32_t sum = 0;
    for (int map : {0, 1, 7, 20, 21}) sum = sum + getStageScore(map) + getSurvivalScore(map);
    if (size >= 5) {
        const uint32_t score = uint32_t(data[1]) << 24 | uint32_t(data[2]) << 16 |
                               uint32_t(data[3]) << 8 | data[4];
        const int map = data[0] % 22;  // 0 and 21 lie outside
        if (data[0] & 0x80)
            saveSurvivalScore(map, score);
        else
            saveStageScore(map, score);
    }
    return 0;
}
