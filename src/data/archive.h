// Reader of .sfa archives: flat containers of named byte strings, every byte
// after the 4-byte header stored complemented.
#pragma once

#include <cstdint>

namespace Archive {
// A newly allocated copy of the entry's bytes (free with delete[]), or null.
// outSize is written only on success.
unsigned char* readEntry(const char* archivePath, const char* entryName, uint32_t* outSize);
}
