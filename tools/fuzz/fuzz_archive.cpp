// libFuzzer target: Archive::readEntry on any bytes. The input is written to a
// file (the reader reads files), then a few names are looked up.
#include <cstdint>
#include <cstdio>
#include <string>
#include <unistd.h>

#include "data/archive.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string path = "/tmp/gorvan-fuzz-" + std::to_string(getpid()) + ".sfa";
    FILE* file = fopen(path.c_str(), "wb");
    if (!file) return 0;
    fwrite(data, 1, size, file);
    fclose(file);
    for (const char* name : {"a", "", "font.spg", "\xff"}) {
        uint32_t entrySize = 0;
        unsigned char* entry = Archive::readEntry(path.c_str(), name, &entrySize);
        if (entry) {
            // Touch every byte so that a short buffer shows.
            volatile unsigned char sum = 0;
            for (uint32_t i = 0; i < entrySize; ++i) sum = sum + entry[i];
            delete[] entry;
        }
    }
    return 0;
}
