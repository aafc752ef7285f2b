// Rewrites a small file so that a crash in the middle never leaves it broken:
// the new bytes go to "<path>.tmp", are flushed to disk, and the temporary file
// is renamed over the old one.
#pragma once

#include <cstddef>

// Returns false (and leaves the old file as it was) when any step fails.
bool replaceFileContents(const char* path, const unsigned char* bytes, size_t size);
