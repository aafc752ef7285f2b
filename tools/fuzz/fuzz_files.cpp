#include "fuzz_files.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void enterScratchFolder()
{
    const std::string folder = "/dev/shm/gorvan-fuzz-" + std::to_string(getpid());
    mkdir(folder.c_str(), 0700);
    if (chdir(folder.c_str()) != 0) std::abort();
    mkdir("content", 0700);
    mkdir("content/maps", 0700);
}

}  // namespace

void placeInput(const char* path, const uint8_t* data, size_t size)
{
    static const bool entered = (enterScratchFolder(), true);
    (void)entered;
    if (size == 0) {
        std::remove(path);
        return;
    }
    FILE* file = std::fopen(path, "wb");
    if (!file) std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);
}
