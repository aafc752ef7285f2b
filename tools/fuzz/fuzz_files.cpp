#include "fuzz_files.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string scratchFolder;

// The folder goes with the process, so that runs leave nothing in /dev/shm.
void removeScratchFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(scratchFolder, ignored);
}

void enterScratchFolder()
{
    scratchFolder = "/dev/shm/gorvan-fuzz-" + std::to_string(getpid());
    mkdir(scratchFolder.c_str(), 0700);
    std::atexit(removeScratchFolder);
    if (chdir(scratchFolder.c_str()) != 0) std::abort();
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
