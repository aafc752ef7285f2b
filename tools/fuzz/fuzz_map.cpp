// libFuzzer target: a map file of any bytes, read as the game reads maps: the
// numbered title, the par and unlock points, and every line of the layout
// with the reading rules of MapReader.
#include <cstdint>

#include "data/map_file.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    placeInput("content/maps/map1.txt", data, size);
    char title[MAP_TITLE_CAPACITY];
    readMapTitle(title, 1, true);
    volatile uint32_t points = getMapParScore(1) + getMapUnlockPoints(1);
    (void)points;

    MapReader map(mapFilePath(1));
    uint16_t speedUpFrames = 0;
    float value = 0;
    int32_t frames = 0;
    bool directed = false;
    uint32_t score = 0;
    map.skipLines(1);
    map.readLine(speedUpFrames);
    for (int line = 3; line <= 10; ++line) map.readLine(value);
    for (int line = 11; line <= 13; ++line) map.readLine(frames);
    map.readLine(directed);
    for (int line = 15; line <= 26; ++line) map.readLine(value);
    map.readLine(score);
    map.readLine(score);
    map.reportShort("the values");
    return 0;
}
