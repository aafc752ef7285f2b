// libFuzzer target: Archive::readEntry on any bytes, looking up a few names;
// the entry found is read to its last byte, so a short buffer shows.
#include <cstdint>
#include <initializer_list>

#include "data/archive.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    placeInput("x.sfa", data, size);
    for (const char* name : {"a", "", "font.spg", "\xff"}) {
        uint32_t entrySize = 0;
        unsigned char* entry = Archive::readEntry("x.sfa", name, &entrySize);
        if (entry) {
            volatile unsigned char sum = 0;
            for (uint32_t i = 0; i < entrySize; ++i) sum = sum + entry[i];
            delete[] entry;
        }
    }
    return 0;
}
