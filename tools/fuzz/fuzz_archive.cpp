// libFuzzer target: Archive::readEntry on any bytes, looking up a few names;
// the first and last byte of the entry found are read, so a short buffer
// shows (the address sanitizer checks each access).
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
            if (entrySize > 0) {
                volatile unsigned char ends = entry[0] + entry[entrySize - 1];
                (void)ends;
            }
            delete[] entry;
        }
    }
    return 0;
}
