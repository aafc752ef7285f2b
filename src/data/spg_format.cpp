#include "data/spg_format.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <new>

const unsigned char spgHeader[4] = {'S', 'P', 'G', 1};

namespace {

// Reads the entry front to back and never past its end.
class EntryReader {
public:
    EntryReader(const unsigned char* bytes, uint64_t size) : bytes(bytes), size(size) {}

    uint64_t position() const { return offset; }
    uint64_t left() const { return size - offset; }
    bool atEnd() const { return offset == size; }

    bool readByte(unsigned char& value)
    {
        if (offset >= size) return false;
        value = bytes[offset++];
        return true;
    }

    bool readNumber(uint64_t& value)
    {
        value = 0;
        unsigned char byte = 255;
        while (byte == 255) {
            if (!readByte(byte)) return false;
            value += byte;
        }
        return true;
    }

private:
    const unsigned char* bytes;
    uint64_t size;
    uint64_t offset = 0;
};

uint32_t packColour(const unsigned char* rgba)
{
    return (uint32_t(rgba[0]) << 24) | (uint32_t(rgba[1]) << 16) | (uint32_t(rgba[2]) << 8) | rgba[3];
}

}  // namespace

void appendRunCodedNumber(std::vector<unsigned char>& out, uint64_t value)
{
    while (value >= 255) {
        out.push_back(255);
        value -= 255;
    }
    out.push_back(static_cast<unsigned char>(value));
}

unsigned char* decodeSpg(const unsigned char* entry, uint64_t size,
                         uint16_t* outWidth, uint16_t* outHeight, std::string* error)
{
    auto fail = [error](const std::string& reason) -> unsigned char* {
        if (error) *error = reason;
        return nullptr;
    };
    if (size < 9) return fail("shorter than its 9-byte header");
    uint16_t width = static_cast<uint16_t>((entry[4] << 8) | entry[5]);
    uint16_t height = static_cast<uint16_t>((entry[6] << 8) | entry[7]);
    bool hasAlpha = entry[8] != 0;
    unsigned bytesPerColour = hasAlpha ? 4 : 3;

    EntryReader reader(entry + 9, size - 9);
    uint64_t paletteCount = 0;
    if (!reader.readNumber(paletteCount)) return fail("the palette count runs past the end");
    if (paletteCount > reader.left() / bytesPerColour) return fail("the palette runs past the end");
    std::vector<uint32_t> palette(paletteCount);
    for (uint32_t& colour : palette) {
        unsigned char rgba[4] = {0, 0, 0, 255};
        for (unsigned i = 0; i < bytesPerColour; ++i) reader.readByte(rgba[i]);
        memcpy(&colour, rgba, 4);  // kept in memory order, ready to copy out
    }

    // A count takes at least one byte per 255 pixels, so a damaged width or
    // height shows before its buffer is allocated.
    uint64_t pixelCount = uint64_t(width) * height;
    if (pixelCount > 255 * reader.left())
        return fail("its runs are too short to cover " + std::to_string(width) + " x " +
                    std::to_string(height) + " pixels");
    unsigned char* pixels = new (std::nothrow) unsigned char[pixelCount * 4];
    if (!pixels) return fail("no memory for its pixels");
    uint64_t written = 0;
    while (!reader.atEnd()) {
        uint64_t index = 0, count = 0;
        if (!reader.readNumber(index) || !reader.readNumber(count)) {
            delete[] pixels;
            return fail("a pixel run runs past the end");
        }
        if (index >= paletteCount) {
            delete[] pixels;
            return fail("palette index " + std::to_string(index) + " of a palette of " +
                        std::to_string(paletteCount));
        }
        if (count > pixelCount - written) {
            delete[] pixels;
            return fail("its runs cover more than " + std::to_string(width) + " x " +
                        std::to_string(height) + " pixels");
        }
        for (uint64_t i = 0; i < count; ++i) memcpy(pixels + (written + i) * 4, &palette[index], 4);
        written += count;
    }
    if (written != pixelCount) {
        delete[] pixels;
        return fail("its runs cover " + std::to_string(written) + " of " + std::to_string(pixelCount) +
                    " pixels");
    }
    *outWidth = width;
    *outHeight = height;
    return pixels;
}

std::vector<unsigned char> encodeSpg(const unsigned char* rgba, uint16_t width, uint16_t height)
{
    uint64_t pixelCount = uint64_t(width) * height;
    bool hasAlpha = false;
    std::map<uint32_t, uint64_t> uses;
    for (uint64_t i = 0; i < pixelCount; ++i) {
        ++uses[packColour(rgba + i * 4)];
        if (rgba[i * 4 + 3] != 255) hasAlpha = true;
    }
    // Most used colours first: indices below 255 take one byte.
    std::vector<std::pair<uint32_t, uint64_t>> byUse(uses.begin(), uses.end());
    std::stable_sort(byUse.begin(), byUse.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    std::map<uint32_t, uint64_t> indexOf;
    for (size_t i = 0; i < byUse.size(); ++i) indexOf[byUse[i].first] = i;

    std::vector<unsigned char> out(spgHeader, spgHeader + 4);
    out.push_back(static_cast<unsigned char>(width >> 8));
    out.push_back(static_cast<unsigned char>(width & 0xff));
    out.push_back(static_cast<unsigned char>(height >> 8));
    out.push_back(static_cast<unsigned char>(height & 0xff));
    out.push_back(hasAlpha ? 1 : 0);
    appendRunCodedNumber(out, byUse.size());
    for (const auto& colourAndUse : byUse) {
        for (int shift = 24; shift >= (hasAlpha ? 0 : 8); shift -= 8)
            out.push_back(static_cast<unsigned char>(colourAndUse.first >> shift));
    }

    // Runs go on across row ends.
    uint64_t i = 0;
    while (i < pixelCount) {
        uint32_t colour = packColour(rgba + i * 4);
        uint64_t runEnd = i + 1;
        while (runEnd < pixelCount && packColour(rgba + runEnd * 4) == colour) ++runEnd;
        appendRunCodedNumber(out, indexOf[colour]);
        appendRunCodedNumber(out, runEnd - i);
        i = runEnd;
    }
    return out;
}
