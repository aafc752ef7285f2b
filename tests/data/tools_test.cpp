// The content tools as the build runs them: a PNG made here byte by byte goes
// through `spg encode`, `spg decode` and `spg encode` again, and `sfa` packs,
// lists and extracts.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "data/archive.h"
#include "data/spg_format.h"
#include "support/scratch_dir.h"

namespace {

const std::string toolsDir = std::string(GORVAN_BINARY_DIR) + "/tools/";

int runTool(const std::string& commandLine)
{
    return std::system((toolsDir + commandLine + " >/dev/null 2>&1").c_str());
}

void appendBigEndian(std::string& out, uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<char>(value >> shift));
}

uint32_t crc32(const std::string& bytes)
{
    uint32_t crc = 0xFFFFFFFFu;
    for (unsigned char byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1)));
    }
    return ~crc;
}

void appendChunk(std::string& png, const std::string& type, const std::string& data)
{
    appendBigEndian(png, static_cast<uint32_t>(data.size()));
    png += type + data;
    appendBigEndian(png, crc32(type + data));
}

// An 8-bit RGBA PNG, top row first, its pixels in one stored zlib block: made
// without libpng so that the tools' reading is checked against the format.
std::string makePng(uint32_t width, uint32_t height, const std::vector<unsigned char>& rgbaTopFirst)
{
    std::string raw;
    for (uint32_t y = 0; y < height; ++y) {
        raw.push_back(0);  // no filter
        raw.append(rgbaTopFirst.begin() + y * width * 4, rgbaTopFirst.begin() + (y + 1) * width * 4);
    }
    uint32_t a = 1, b = 0;
    for (unsigned char byte : raw) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    std::string zlib = "\x78\x01";
    zlib.push_back(1);  // the final block, stored
    uint16_t length = static_cast<uint16_t>(raw.size());
    zlib.push_back(static_cast<char>(length & 0xff));
    zlib.push_back(static_cast<char>(length >> 8));
    zlib.push_back(static_cast<char>(~length & 0xff));
    zlib.push_back(static_cast<char>((~length >> 8) & 0xff));
    zlib += raw;
    appendBigEndian(zlib, (b << 16) | a);

    std::string header;
    appendBigEndian(header, width);
    appendBigEndian(header, height);
    header += std::string("\x08\x06\x00\x00\x00", 5);
    std::string png = "\x89PNG\r\n\x1a\n";
    appendChunk(png, "IHDR", header);
    appendChunk(png, "IDAT", zlib);
    appendChunk(png, "IEND", "");
    return png;
}

std::vector<unsigned char> decodeFile(const std::string& path, uint16_t& width, uint16_t& height)
{
    std::string bytes = readFileBytes(path);
    std::string damage;
    unsigned char* pixels = decodeSpg(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                                      &width, &height, &damage);
    if (!pixels) return {};
    std::vector<unsigned char> result(pixels, pixels + size_t(width) * height * 4);
    delete[] pixels;
    return result;
}

}  // namespace

TEST(ContentTools, AnswerHelp)
{
    for (const char* tool : {"sfa", "spg"}) {
        EXPECT_EQ(runTool(std::string(tool) + " --help"), 0) << tool << " (build the default target first)";
        EXPECT_NE(runTool(std::string(tool) + " frobnicate"), 0) << tool;
    }
}

TEST(ContentTools, PngSpgPngRoundTripIsExact)
{
    ScratchDir scratch;
    // Top row: red, green, blue; bottom row: white, half-transparent, black.
    std::vector<unsigned char> topFirst = {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255,
                                           255, 255, 255, 255, 10, 20, 30, 128, 0, 0, 0, 255};
    writeFileBytes("in.png", makePng(3, 2, topFirst));
    ASSERT_EQ(runTool("spg encode in.png first.spg"), 0);

    uint16_t width = 0, height = 0;
    std::vector<unsigned char> stored = decodeFile("first.spg", width, height);
    ASSERT_EQ(width, 3);
    ASSERT_EQ(height, 2);
    // The first stored row is the bottom of the picture.
    std::vector<unsigned char> bottomFirst(topFirst.begin() + 12, topFirst.end());
    bottomFirst.insert(bottomFirst.end(), topFirst.begin(), topFirst.begin() + 12);
    EXPECT_EQ(stored, bottomFirst);

    ASSERT_EQ(runTool("spg decode first.spg back.png"), 0);
    ASSERT_EQ(runTool("spg encode back.png second.spg"), 0);
    EXPECT_EQ(readFileBytes("second.spg"), readFileBytes("first.spg"));

    EXPECT_NE(runTool("spg encode missing.png x.spg"), 0);
    writeFileBytes("bad.spg", std::string("SPG\1\0\2\0\1\0\1\xff\0\0\0\3", 15));  // 3 pixels in 2
    EXPECT_NE(runTool("spg decode bad.spg bad.png"), 0);
}

TEST(ContentTools, SfaPacksListsAndExtracts)
{
    ScratchDir scratch;
    std::system("mkdir -p in out");
    writeFileBytes("in/b.frag", "void main() {}\n");
    writeFileBytes("in/a.vrt", std::string("\0\xff\x41", 3));
    ASSERT_EQ(runTool("sfa pack x.sfa in"), 0);

    uint32_t size = 0;
    unsigned char* data = Archive::readEntry("x.sfa", "a.vrt", &size);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(data), size), std::string("\0\xff\x41", 3));
    delete[] data;

    std::system((toolsDir + "sfa list x.sfa > listing.txt").c_str());
    EXPECT_EQ(readFileBytes("listing.txt"), "         3  a.vrt\n        15  b.frag\n");

    ASSERT_EQ(runTool("sfa extract x.sfa -o out"), 0);
    EXPECT_EQ(readFileBytes("out/b.frag"), "void main() {}\n");
    ASSERT_EQ(runTool("sfa extract x.sfa -o out2 a.vrt"), 0);
    EXPECT_EQ(readFileBytes("out2/a.vrt"), std::string("\0\xff\x41", 3));
    EXPECT_NE(runTool("sfa extract x.sfa -o out3 none"), 0);

    // Two inputs of one name would hide the second from the game.
    writeFileBytes("out/a.vrt", "x");
    EXPECT_NE(runTool("sfa pack y.sfa in out/a.vrt"), 0);
}
