#include "data/file_replace.h"

#include <cstdio>
#include <string>
#include <unistd.h>

bool replaceFileContents(const char* path, const unsigned char* bytes, size_t size)
{
    std::string temporaryPath = std::string(path) + ".tmp";
    FILE* file = std::fopen(temporaryPath.c_str(), "wb");
    if (!file) return false;

    bool written = std::fwrite(bytes, 1, size, file) == size;
    written = std::fflush(file) == 0 && written;
    written = fsync(fileno(file)) == 0 && written;
    written = std::fclose(file) == 0 && written;

    if (!written || std::rename(temporaryPath.c_str(), path) != 0) {
        std::remove(temporaryPath.c_str());
        return false;
    }
    return true;
}
