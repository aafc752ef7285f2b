// libFuzzer target: a settings file of any bytes, read through every getter
// with the volumes read afresh, then one setter chosen by the input.
#include <cstdint>

#include "data/settings.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    placeInput("content/settings.dat", data, size);
    forgetCachedVolumes();
    uint16_t width = 0, height = 0;
    getResolution(&width, &height);
    volatile int seen = width + height + isFullscreen() + isTutorialEnabled() +
                        getMusicVolume() + getSoundVolume();
    (void)seen;
    if (size >= 2) {
        switch (data[0] % 5) {
        case 0: setResolution(data[1], static_cast<uint16_t>(data[1] << 8)); break;
        case 1: setFullscreen(data[1] & 1); break;
        case 2: setTutorialEnabled(data[1] & 1); break;
        case 3: setMusicVolume(data[1]); break;
        default: setSoundVolume(data[1]); break;
        }
    }
    return 0;
}
