// .spg pictures: run-coded numbers, a table of entries and the pixels they
// decode to, a table of damaged entries and their one-line reasons, the
// encoder's round trip, and loadImage's messages.
#include <gtest/gtest.h>

#include <string>

#include "base/random.h"
#include "data/images.h"
#include "data/sfa_format.h"
#include "data/spg_format.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

// The 4 header bytes, width, height and hasAlpha, then the rest.
std::string spg(uint16_t width, uint16_t height, int hasAlpha, const std::string& rest)
{
    return bytes({'S', 'P', 'G', 1, width >> 8, width & 0xff, height >> 8, height & 0xff, hasAlpha}) + rest;
}

std::string times(int count, const std::string& pixel)
{
    std::string out;
    for (int i = 0; i < count; ++i) out += pixel;
    return out;
}

struct Decoded {
    std::string pixels = "-";  // "-": refused
    uint16_t width = 7777, height = 7777;
    std::string error;
};

Decoded decode(const std::string& entry)
{
    Decoded d;
    unsigned char* pixels = decodeSpg(reinterpret_cast<const unsigned char*>(entry.data()), entry.size(),
                                      &d.width, &d.height, &d.error);
    if (pixels) d.pixels.assign(reinterpret_cast<char*>(pixels), size_t(d.width) * d.height * 4);
    delete[] pixels;
    return d;
}

std::string encode(const std::string& rgba, uint16_t width, uint16_t height)
{
    auto out = encodeSpg(reinterpret_cast<const unsigned char*>(rgba.data()), width, height);
    return std::string(out.begin(), out.end());
}

const std::string twoRedPixels = bytes({0, 0, 0, 0, 0, 2, 0, 1, 0, 1, 255, 0, 0, 0, 2});
const std::string red = bytes({255, 0, 0, 255});

}  // namespace

TEST(Spg, RunCodedNumbersAndEntriesDecodeToTheirPixels)
{
    const std::pair<uint64_t, std::string> numbers[] = {
        {0, bytes({0})}, {254, bytes({254})}, {255, bytes({255, 0})}, {510, bytes({255, 255, 0})},
        {600, bytes({255, 255, 90})}};
    for (const auto& [value, spelled] : numbers) {
        std::vector<unsigned char> out;
        appendRunCodedNumber(out, value);
        EXPECT_EQ(std::string(out.begin(), out.end()), spelled) << value;
    }

    // 255 colours (count 255 0): index 254 takes one byte, a count of 600 three.
    std::string manyColours = bytes({255, 0});
    for (int i = 0; i < 255; ++i) manyColours += bytes({i, 0, 0});
    manyColours += bytes({254, 1, 3, 255, 255, 90, 0, 1});
    // 510 colours (255 255 0): index 255 (255 0) and index 509 (255 255 0 ... 255 254).
    std::string moreColours = bytes({255, 255, 0});
    for (int i = 0; i < 510; ++i) moreColours += bytes({i & 0xff, i >> 8, 0});
    moreColours += bytes({255, 0, 1, 255, 254, 1});

    struct Row {
        const char* what;
        std::string entry;
        uint16_t width, height;
        std::string pixels;
    };
    const Row rows[] = {
        {"the example", twoRedPixels, 2, 1, red + red},
        {"runs of count 0", spg(2, 1, 0, bytes({2, 1, 1, 1, 2, 2, 2, 1, 0, 1, 1, 0, 0, 0, 1})), 2, 1,
         bytes({2, 2, 2, 255, 1, 1, 1, 255})},
        {"hasAlpha 7", spg(2, 1, 7, bytes({2, 10, 20, 30, 40, 1, 2, 3, 0, 1, 1, 0, 1})), 2, 1,
         bytes({1, 2, 3, 0, 10, 20, 30, 40})},
        {"across a row end", spg(3, 2, 0, bytes({2, 0, 0, 0, 9, 9, 9, 0, 4, 1, 2})), 3, 2,
         times(4, bytes({0, 0, 0, 255})) + times(2, bytes({9, 9, 9, 255}))},
        {"width 0x0102", spg(0x0102, 1, 0, bytes({1, 9, 9, 9, 0, 255, 3})), 258, 1, times(258, bytes({9, 9, 9, 255}))},
        {"no pixels", spg(0, 5, 0, bytes({0})), 0, 5, ""},
        {"255 colours", spg(602, 1, 0, manyColours), 602, 1,
         bytes({254, 0, 0, 255}) + times(600, bytes({3, 0, 0, 255})) + bytes({0, 0, 0, 255})},
        {"510 colours", spg(2, 1, 0, moreColours), 2, 1, bytes({255, 0, 0, 255, 253, 1, 0, 255})},
    };
    for (const Row& row : rows) {
        Decoded d = decode(row.entry);
        EXPECT_EQ(d.error, "") << row.what;
        EXPECT_EQ(d.width, row.width) << row.what;
        EXPECT_EQ(d.height, row.height) << row.what;
        EXPECT_EQ(d.pixels, row.pixels) << row.what;
    }
}

TEST(Spg, DamagedEntriesAreRefusedWithTheirReason)
{
    const std::pair<std::string, std::string> rows[] = {  // what follows width 2, height 1, no alpha
        {bytes({1, 9, 9, 9, 1, 2}), "palette index 1 of a palette of 1"},
        {bytes({1, 9, 9, 9, 255, 255, 255, 7, 2}), "palette index 772 of a palette of 1"},
        {bytes({1, 9, 9, 9, 0, 3}), "its runs cover more than 2 x 1 pixels"},
        {bytes({1, 9, 9, 9, 0, 2, 0, 1}), "its runs cover more than 2 x 1 pixels"},
        {bytes({1, 9, 9, 9, 0, 1}), "its runs cover 1 of 2 pixels"},
        {bytes({1, 9, 9, 9}), "its runs are too short to cover 2 x 1 pixels"},
        {bytes({3, 9, 9, 9, 8, 8}), "the palette runs past the end"},
        {bytes({255, 255, 255, 255, 255, 255, 255, 255, 10, 1, 2, 3}), "the palette runs past the end"},
        {bytes({255, 255}), "the palette count runs past the end"},
        {"", "the palette count runs past the end"},
        {bytes({1, 9, 9, 9, 0, 255}), "a pixel run runs past the end"},
        {bytes({1, 9, 9, 9, 0}), "a pixel run runs past the end"},
    };
    for (const auto& [rest, reason] : rows) {
        Decoded d = decode(spg(2, 1, 0, rest));
        EXPECT_EQ(d.pixels, "-") << reason;
        EXPECT_EQ(d.error, reason);
        EXPECT_EQ(d.width, 7777) << reason;
    }
    EXPECT_EQ(decode(twoRedPixels.substr(0, 8)).error, "shorter than its 9-byte header");
    // 65535 x 65535 would take 16 GiB, but four count bytes cover at most 1020 pixels.
    EXPECT_EQ(decode(spg(65535, 65535, 0, bytes({1, 9, 9, 9, 0, 255, 255, 10}))).error,
              "its runs are too short to cover 65535 x 65535 pixels");
    EXPECT_EQ(decode(spg(764, 1, 0, bytes({1, 9, 9, 9, 0, 255, 255, 254}))).error, "");
}

TEST(Spg, EncoderWritesTheExampleAndRoundTripsManyColours)
{
    EXPECT_EQ(encode(red + red, 2, 1).substr(4), twoRedPixels.substr(4));
    std::string pixels = bytes({1, 2, 3, 255, 4, 5, 6, 255});
    EXPECT_EQ(encode(pixels, 2, 1)[8], 0) << "alpha only where a pixel is not opaque";
    pixels[7] = char(254);
    EXPECT_NE(encode(pixels, 2, 1)[8], 0);
    EXPECT_EQ(decode(encode(pixels, 2, 1)).pixels, pixels);

    // 300 x 257 pixels of about 700 colours, differing in every channel, in
    // runs of varied length across row ends.
    const uint16_t width = 300, height = 257;
    std::string many;
    seedRandom(12345);
    while (many.size() < size_t(width) * height * 4) {
        int colour = randomInt(0, 699), run = randomInt(1, 300);
        for (int k = 0; k < run && many.size() < size_t(width) * height * 4; ++k)
            many += bytes({colour & 0xff, colour >> 8, colour % 7, colour % 3 == 0 ? 128 : 255});
    }
    std::string entry = encode(many, width, height);
    EXPECT_EQ(entry.substr(4, 4), bytes({0x01, 0x2C, 0x01, 0x01}));
    Decoded back = decode(entry);
    EXPECT_EQ(back.width, width);
    EXPECT_EQ(back.height, height);
    EXPECT_TRUE(back.pixels == many);
}

TEST(Spg, LoadImageReadsTheArchiveAndSaysWhatFailed)
{
    ScratchDir scratch;
    const std::string missingArchive = "Couldn't open content/images.sfa\nError while loading image red.spg\n";
    struct Row {
        std::string archive;
        std::string pixels, errors;
    };
    const Row rows[] = {
        {"", "-", missingArchive},
        {packSfa({{"red.spg", twoRedPixels}}), red + red, ""},
        {packSfa({{"arrow.spg", twoRedPixels}}), "-",
         "Couldn't find red.spg from content/images.sfa\nError while loading image red.spg\n"},
        {packSfa({{"red.spg", spg(2, 1, 0, bytes({1, 9, 9, 9, 1, 2}))}}), "-",
         "Damaged image red.spg: palette index 1 of a palette of 1\n"},
    };
    for (const Row& row : rows) {
        if (!row.archive.empty()) writeFileBytes("content/images.sfa", row.archive);
        uint16_t width = 7777, height = 7777;
        std::string pixels = "-";
        std::string errors = stderrOf([&] {
            unsigned char* loaded = loadImage("red.spg", &width, &height);
            if (loaded) pixels.assign(reinterpret_cast<char*>(loaded), size_t(width) * height * 4);
            delete[] loaded;
        });
        EXPECT_EQ(pixels, row.pixels) << row.errors;
        EXPECT_EQ(errors, row.errors);
        EXPECT_EQ(width, row.pixels == "-" ? 7777 : 2) << row.errors;
    }
}
