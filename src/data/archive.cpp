#include "data/archive.h"

#include <cstdio>
#include <cstring>
#include <new>

#include "base/log.h"

namespace {

// The longest entry handed out: far beyond any picture or shader, and small
// enough to allocate whatever a damaged length asks for. Fuzz builds set a
// smaller one, so that no execution spends its time filling zeros.
#ifndef GORVAN_LONGEST_ENTRY
#define GORVAN_LONGEST_ENTRY (256u << 20)
#endif
constexpr uint32_t longestEntry = GORVAN_LONGEST_ENTRY;

// The archive file read byte by byte from the front. A read that runs past the
// end gives the byte 0 for each missing byte (as a failed single-byte read does
// once complemented) and leaves the stream at its end; from then on a relative
// seek does nothing, so the scan stops at its next end test. Reading exactly up
// to the last byte does not count as hitting the end.
class ArchiveStream {
public:
    ArchiveStream(FILE* file, uint64_t fileSize) : file(file), fileSize(fileSize) {}

    bool hitEnd() const { return atEnd; }
    uint64_t bytesLeft() const { return position < fileSize ? fileSize - position : 0; }

    void seekTo(uint64_t offset) { position = offset; }

    void skip(uint32_t count)
    {
        if (!atEnd) position += count;
    }

    // count bytes, complemented back to their real values.
    void read(unsigned char* out, uint64_t count)
    {
        uint64_t available = count < bytesLeft() ? count : bytesLeft();
        size_t got = 0;
        if (available > 0 && fseeko(file, static_cast<off_t>(position), SEEK_SET) == 0)
            got = fread(out, 1, available, file);
        if (got > available) got = available;  // lets the compiler see the bound
        for (size_t i = 0; i < got; ++i) out[i] = static_cast<unsigned char>(~out[i]);
        memset(out + got, 0, count - got);
        position += got;
        if (got < count) atEnd = true;
    }

    // A 4-byte big-endian length.
    uint32_t readLength()
    {
        unsigned char bytes[4];
        read(bytes, 4);
        return (uint32_t(bytes[0]) << 24) | (uint32_t(bytes[1]) << 16) |
               (uint32_t(bytes[2]) << 8) | uint32_t(bytes[3]);
    }

private:
    FILE* file;
    uint64_t fileSize;
    uint64_t position = 0;
    bool atEnd = false;
};

uint64_t sizeOfFile(FILE* file)
{
    if (fseeko(file, 0, SEEK_END) != 0) return 0;
    off_t end = ftello(file);
    return end > 0 ? static_cast<uint64_t>(end) : 0;
}

void reportNotFound(const char* archivePath, const char* entryName)
{
    logError("Couldn't find %s from %s", entryName, archivePath);
}

}  // namespace

namespace Archive {

unsigned char* readEntry(const char* archivePath, const char* entryName, uint32_t* outSize)
{
    FILE* file = fopen(archivePath, "rb");
    if (!file) {
        logError("Couldn't open %s", archivePath);
        return nullptr;
    }
    ArchiveStream stream(file, sizeOfFile(file));
    stream.seekTo(4);  // the header means nothing to the reader

    while (!stream.hitEnd()) {
        uint32_t nameLength = stream.readLength();
        // A name that runs past the end can only end the scan: whether it matches
        // or not, the stream has then hit its end. Leaving early spares a huge
        // allocation for a damaged length.
        if (nameLength > stream.bytesLeft()) break;
        unsigned char* name = new unsigned char[nameLength + uint64_t(1)];
        stream.read(name, nameLength);
        name[nameLength] = 0;
        bool matches = strcmp(entryName, reinterpret_cast<const char*>(name)) == 0;
        delete[] name;

        if (!matches) {
            stream.skip(stream.readLength());
            continue;
        }
        if (stream.hitEnd()) break;

        uint32_t dataLength = stream.readLength();
        // A block cut short by the end of the file comes back zero-filled at its
        // stated length, up to a length that no content comes near.
        unsigned char* data = nullptr;
        if (dataLength <= longestEntry) data = new (std::nothrow) unsigned char[dataLength];
        if (!data) {
            const char* why = dataLength <= longestEntry        ? "does not fit in memory"
                              : dataLength > stream.bytesLeft() ? "runs far past the end of the file"
                                                                : "is more than an entry may hold";
            logError("Couldn't read %s from %s: its length %u %s", entryName, archivePath,
                     static_cast<unsigned>(dataLength), why);
            fclose(file);
            return nullptr;
        }
        stream.read(data, dataLength);
        *outSize = dataLength;
        fclose(file);
        return data;
    }

    reportNotFound(archivePath, entryName);
    fclose(file);
    return nullptr;
}

}  // namespace Archive
