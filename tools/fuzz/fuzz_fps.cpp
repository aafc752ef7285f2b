// libFuzzer target: an fps file of any bytes, or none, read as the start-up
// reads it.
#include <cstdint>

#include "data/settings.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    placeInput("content/fps.dat", data, size);
    volatile bool on = isFpsCounterEnabled();
    (void)on;
    return 0;
}
