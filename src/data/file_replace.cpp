#include "data/file_replace.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#ifdef _WIN32
#include <io.h>
#include <windows.h>
#endif

#include "base/log.h"

namespace {

#ifdef _WIN32
int syncToDisk(int descriptor) { return _commit(descriptor); }

// A file's only permission on Windows, read-only, has already refused the
// save (see replaceFileContents).
void keepPermissions(FILE*, const struct stat&) {}

// Windows' rename refuses an existing target; this one replaces it.
bool moveOver(const char* from, const char* to)
{
    return MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}
#else
int syncToDisk(int descriptor) { return fsync(descriptor); }

void keepPermissions(FILE* file, const struct stat& old) { fchmod(fileno(file), old.st_mode & 07777); }

bool moveOver(const char* from, const char* to) { return std::rename(from, to) == 0; }
#endif

// Writes all bytes and makes sure they reached the disk; closes the file.
bool writeAndClose(FILE* file, const unsigned char* bytes, size_t size)
{
    bool written = std::fwrite(bytes, 1, size, file) == size;
    written = std::fflush(file) == 0 && written;
    written = ftruncate(fileno(file), static_cast<off_t>(size)) == 0 && written;
    written = syncToDisk(fileno(file)) == 0 && written;
    return std::fclose(file) == 0 && written;
}

}  // namespace

FILE* openSmallFile(const char* path, const unsigned char* defaults, size_t size,
                    const SmallFileLines& lines)
{
    FILE* file = std::fopen(path, "rb");
    if (file) return file;
    if (errno == ENOENT) {
        if (replaceFileContents(path, defaults, size))
            logInfo("%s", lines.created);
        else
            logError("%s", lines.cannotCreate);
        file = std::fopen(path, "rb");
    }
    if (!file) logError("%s", lines.cannotOpen);
    return file;
}

bool replaceFileContents(const char* path, const unsigned char* bytes, size_t size)
{
    // Permissions mean what they say: the rename below would get past a file
    // that may not be read or written.
    struct stat old;
    const bool exists = stat(path, &old) == 0;
    if (exists) {
        int probe = open(path, O_RDWR);
        if (probe < 0) return false;
        close(probe);
    }

    std::string temporaryPath = std::string(path) + ".tmp";
    FILE* file = std::fopen(temporaryPath.c_str(), "wb");
    if (!file) {
        // A folder that may not take a new file: the file itself, where there
        // is one. Anything else in the way (a folder of the temporary name, a
        // full disk) fails the save. Windows gives such a folder as a refusal
        // too, so it is looked for.
        struct stat inTheWay;
        const bool folderRefuses = (errno == EACCES || errno == EPERM) &&
            !(stat(temporaryPath.c_str(), &inTheWay) == 0 && S_ISDIR(inTheWay.st_mode));
        file = exists && folderRefuses ? std::fopen(path, "r+b") : nullptr;
        return file && writeAndClose(file, bytes, size);
    }
    if (exists) keepPermissions(file, old);
    if (!writeAndClose(file, bytes, size) || !moveOver(temporaryPath.c_str(), path)) {
        std::remove(temporaryPath.c_str());
        return false;
    }
    return true;
}
