// The game's small files (scores, settings, the fps switch): opening one for
// reading, made with its defaults when it is missing, and rewriting it so that
// a crash in the middle never leaves it broken.
#pragma once

#include <cstddef>
#include <cstdio>

// The lines a file prints when it is made or can't be opened.
struct SmallFileLines {
    const char* created;       // standard output
    const char* cannotCreate;  // standard error, as the two below
    const char* cannotOpen;
};

// Opens path for reading. Only a missing file is made, with the given bytes: a
// file that exists but can't be read is left alone, and the caller goes on
// with its defaults for this run. Null when there is nothing to read.
FILE* openSmallFile(const char* path, const unsigned char* defaults, size_t size,
                    const SmallFileLines& lines);

// Puts the bytes in place of the file's contents. They go to "<path>.tmp", are
// flushed to disk, and the temporary file is renamed over the old one; where
// the folder refuses the temporary file, the file itself is rewritten. An
// existing file that can't be both read and written is never replaced. False
// (with the old file as it was) when the bytes could not be stored.
bool replaceFileContents(const char* path, const unsigned char* bytes, size_t size);
