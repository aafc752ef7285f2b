// libFuzzer target: the .spg decoder on any bytes, and encode-decode of what
// it accepts.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "data/spg_format.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    uint16_t width = 0, height = 0;
    std::string damage;
    unsigned char* pixels = decodeSpg(data, size, &width, &height, &damage);
    if (!pixels) return 0;
    size_t bytes = size_t(width) * height * 4;
    std::vector<unsigned char> again = encodeSpg(pixels, width, height);
    uint16_t width2 = 0, height2 = 0;
    unsigned char* pixels2 = decodeSpg(again.data(), again.size(), &width2, &height2, &damage);
    if (!pixels2 || width2 != width || height2 != height || memcmp(pixels, pixels2, bytes) != 0) abort();
    delete[] pixels;
    delete[] pixels2;
    return 0;
}
