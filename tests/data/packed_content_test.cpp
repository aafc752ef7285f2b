// The packed content: .sfa archives (the example entry byte for byte, the
// packer's round trip, the scan to the last entry, whole names, damaged files)
// and .spg pictures (run-coded numbers, entries and their pixels, damaged
// entries and their reasons, the encoder's round trip, loadImage's messages).
#include <gtest/gtest.h>

#include "base/random.h"
#include "data/archive.h"
#include "data/images.h"
#include "data/sfa_format.h"
#include "data/spg_format.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

// The entry's data, or "-" when none came back, and what was printed.
std::string lookUp(const std::string& fileBytes, const std::string& name, const char* path = "x.sfa")
{
    writeFileBytes("x.sfa", fileBytes);
    std::string data = "-";
    uint32_t size = 0xdeadbeef;  // written only on success
    std::string errors = stderrOf([&] {
        unsigned char* found = Archive::readEntry(path, name.c_str(), &size);
        if (found) data.assign(reinterpret_cast<char*>(found), size);
        delete[] found;
    });
    return data + "|" + (size == 0xdeadbeef ? "" : std::to_string(size)) + "|" + errors;
}

const std::string entryA = bytes({0xFF, 0xFF, 0xFF, 0xFE, 0x9E, 0xFF, 0xFF, 0xFF, 0xFE, 0xBE});  // "a": 0x41

// The 4 header bytes, width, height and hasAlpha, then the rest.
std::string spg(uint16_t width, uint16_t height, int hasAlpha, const std::string& rest)
{
    return bytes({'S', 'P', 'G', 1, width >> 8, width & 0xff, height >> 8, height & 0xff, hasAlpha}) + rest;
}

std::string times(int count, const std::string& pixel)
{
    std::string out;
    while (count-- > 0) out += pixel;
    return out;
}

// "width x height: pixels", or the reason it was refused (width and height untouched).
std::string decode(const std::string& entry)
{
    uint16_t width = 7777, height = 7777;
    std::string error;
    unsigned char* pixels = decodeSpg(reinterpret_cast<const unsigned char*>(entry.data()), entry.size(), &width,
                                      &height, &error);
    std::string size = std::to_string(width) + "x" + std::to_string(height);
    if (!pixels) return size + " " + error;
    std::string result = size + ": " + std::string(reinterpret_cast<char*>(pixels), size_t(width) * height * 4);
    delete[] pixels;
    return result;
}

std::string encode(const std::string& rgba, uint16_t width, uint16_t height)
{
    auto out = encodeSpg(reinterpret_cast<const unsigned char*>(rgba.data()), width, height);
    return std::string(out.begin(), out.end());
}

const std::string twoRedPixels = bytes({0, 0, 0, 0, 0, 2, 0, 1, 0, 1, 255, 0, 0, 0, 2});
const std::string red = bytes({255, 0, 0, 255});

}  // namespace

TEST(Archive, ExampleLengthsAndThePackersRoundTrip)
{
    ScratchDir scratch;
    EXPECT_EQ(packSfa({{"a", "A"}}).substr(4), entryA);
    EXPECT_EQ(lookUp(bytes({0, 0xFF, 0x12, 0x80}) + entryA, "a"), "A|1|") << "the header means nothing";
    const std::string data(0x0102, 'q');  // its length is stored FF FF FE FD
    EXPECT_EQ(packSfa({{"long", data}}).substr(12, 4), bytes({0xFF, 0xFF, 0xFE, 0xFD}));
    EXPECT_EQ(lookUp(packSfa({{"long", data}}), "long"), data + "|258|");

    const std::vector<SfaEntry> entries = {{"one", "1"}, {"", "nameless"}, {"three", "333"}, {"empty", ""}};
    const std::string packed = packSfa(entries);
    std::string error, listed;
    for (const SfaEntry& entry : unpackSfa(packed, &error)) listed += entry.name + "=" + entry.data + ";";
    EXPECT_EQ(listed + error, "one=1;=nameless;three=333;empty=;");
    EXPECT_EQ(unpackSfa(packed.substr(0, packed.size() - 1), &error).size(), 3u) << "the entries before damage";
    EXPECT_EQ(error, "the data of empty runs past the end of the file");
    EXPECT_EQ(unpackSfa(packed.substr(0, 6), &error).size(), 0u);
    EXPECT_EQ(error, "a name runs past the end of the file");
    EXPECT_EQ(unpackSfa(packed.substr(0, 15), &error).size(), 0u) << "the first entry's data cut short";
    EXPECT_EQ(error, "the data of one runs past the end of the file");
}

TEST(Archive, ScanFindsEveryEntryToTheLastAndMeetsDamage)
{
    ScratchDir scratch;
    const std::string file = packSfa({{"one", "1"}, {"", "nameless"}, {"empty", ""}, {"same", "first"},
                                      {"same", "second"}, {"three", "333"}});
    const std::string eight = packSfa({{"a", "abcdefgh"}});
    const std::string cutName = packSfa({{"x", "1"}, {"abcdef", "2"}}).substr(0, 21);
    // "a" states 200 bytes of data but holds 1, so "b" is never reached.
    const std::string longSkip = "HDR!" + bytes({255, 255, 255, 254, 0x9E, 255, 255, 255, 0x37, 0xBE}) +
                                 packSfa({{"b", "2"}}).substr(4);
    const std::string rows[][3] = {
        {file, "one", "1|1|"}, {file, "", "nameless|8|"}, {file, "empty", "|0|"}, {file, "same", "first|5|"},
        {file, "three", "333|3|"},
        {file, "thre", "-||Couldn't find thre from x.sfa\n"}, {file, "ONE", "-||Couldn't find ONE from x.sfa\n"},
        {file, "threee", "-||Couldn't find threee from x.sfa\n"},
        // An empty name never matches the phantom entry at the end of the file.
        {packSfa({{"abc", "1"}}), "", "-||Couldn't find  from x.sfa\n"},
        {"", "a", "-||Couldn't find a from x.sfa\n"}, {"HDR!", "a", "-||Couldn't find a from x.sfa\n"},
        // Data cut short comes back at its stated length, zero-filled.
        {eight.substr(0, eight.size() - 5), "a", std::string("abc\0\0\0\0\0", 8) + "|8|"},
        {cutName, "abcdef", "-||Couldn't find abcdef from x.sfa\n"}, {cutName, "x", "1|1|"},
        {cutName, "abc", "-||Couldn't find abc from x.sfa\n"}, {longSkip, "b", "-||Couldn't find b from x.sfa\n"},
        // A data length of 0xFFFFFFF0 in a 14-byte file allocates nothing.
        {"HDR!" + bytes({255, 255, 255, 254, 0x9E, 0, 0, 0, 0x0F, 0xBE}), "a",
         "-||Couldn't read a from x.sfa: its length 4294967280 runs far past the end of the file\n"},
        // A name length of 0xFFFFFFFF, whose + 1 would wrap to 0.
        {"HDR!" + bytes({0, 0, 0, 0, 0x9E}), "a", "-||Couldn't find a from x.sfa\n"},
    };
    for (const auto& [fileBytes, name, result] : rows) EXPECT_EQ(lookUp(fileBytes, name), result) << name;
    EXPECT_EQ(lookUp("", "a", "content/none.sfa"), "-||Couldn't open content/none.sfa\n");
}

TEST(Spg, RunCodedNumbersAndEntriesDecodeToTheirPixels)
{
    for (const auto& [value, spelled] : {std::pair<int, std::string>{254, bytes({254})}, {255, bytes({255, 0})},
                                         {510, bytes({255, 255, 0})}, {600, bytes({255, 255, 90})}}) {
        std::vector<unsigned char> out;
        appendRunCodedNumber(out, value);
        EXPECT_EQ(std::string(out.begin(), out.end()), spelled) << value;
    }
    // 255 colours (255 0): index 254 takes one byte, a count of 600 three.
    std::string colours = bytes({255, 0});
    for (int i = 0; i < 255; ++i) colours += bytes({i, 0, 0});
    const std::pair<std::string, std::string> rows[] = {
        {twoRedPixels, "2x1: " + red + red},
        {spg(2, 1, 0, bytes({2, 1, 1, 1, 2, 2, 2, 1, 0, 1, 1, 0, 0, 0, 1})),  // runs of count 0
         "2x1: " + bytes({2, 2, 2, 255, 1, 1, 1, 255})},
        {spg(2, 1, 7, bytes({2, 1, 2, 3, 4, 5, 6, 7, 0, 1, 1, 0, 1})), "2x1: " + bytes({5, 6, 7, 0, 1, 2, 3, 4})},
        {spg(3, 2, 0, bytes({2, 0, 0, 0, 9, 9, 9, 0, 4, 1, 2})),
         "3x2: " + times(4, bytes({0, 0, 0, 255})) + times(2, bytes({9, 9, 9, 255}))},
        {spg(0, 5, 0, bytes({0})), "0x5: "},
        {spg(602, 1, 0, colours + bytes({254, 1, 3, 255, 255, 90, 0, 1})),
         "602x1: " + bytes({254, 0, 0, 255}) + times(600, bytes({3, 0, 0, 255})) + bytes({0, 0, 0, 255})},
        // Runs of 255 a byte at most: four count bytes can't cover 65535 x 65535 pixels (16 GiB), 764 they can.
        {spg(65535, 65535, 0, bytes({1, 9, 9, 9, 0, 255, 255, 10})),
         "7777x7777 its runs are too short to cover 65535 x 65535 pixels"},
        {spg(764, 1, 0, bytes({1, 9, 9, 9, 0, 255, 255, 254})), "764x1: " + times(764, bytes({9, 9, 9, 255}))},
        {twoRedPixels.substr(0, 8), "7777x7777 shorter than its 9-byte header"}};
    for (const auto& [entry, decoded] : rows) EXPECT_EQ(decode(entry), decoded) << decoded.substr(0, 50);
    // Damage after width 2, height 1 and no alpha: the reason, and width and height left alone.
    const std::string more = "its runs cover more than 2 x 1 pixels", palette = "the palette runs past the end",
                      count = "the palette count runs past the end", run = "a pixel run runs past the end";
    const std::pair<std::string, std::string> damaged[] = {
        {bytes({1, 9, 9, 9, 1, 2}), "palette index 1 of a palette of 1"}, {bytes({1, 9, 9, 9, 0, 3}), more},
        {bytes({1, 9, 9, 9, 255, 255, 255, 7, 2}), "palette index 772 of a palette of 1"},
        {bytes({1, 9, 9, 9, 0, 2, 0, 1}), more}, {bytes({1, 9, 9, 9, 0, 1}), "its runs cover 1 of 2 pixels"},
        {bytes({1, 9, 9, 9}), "its runs are too short to cover 2 x 1 pixels"}, {bytes({3, 9, 9, 8, 8}), palette},
        {bytes({255, 255, 255, 255, 255, 255, 255, 255, 10, 1}), palette}, {bytes({255, 255}), count}, {"", count},
        {bytes({1, 9, 9, 9, 0, 255}), run}, {bytes({1, 9, 9, 9, 0}), run}};
    for (const auto& [rest, reason] : damaged) EXPECT_EQ(decode(spg(2, 1, 0, rest)), "7777x7777 " + reason);
}

TEST(Spg, EncoderWritesTheExampleAndRoundTripsManyColours)
{
    EXPECT_EQ(encode(red + red, 2, 1).substr(4), twoRedPixels.substr(4));
    EXPECT_NE(encode(bytes({1, 2, 3, 255, 4, 5, 6, 254}), 2, 1)[8], 0) << "alpha where a pixel is not opaque";
    // 300 x 257 pixels of 700 colours, apart in every channel, in runs across row ends.
    std::string many;
    seedRandom(12345);
    while (many.size() < 300 * 257 * 4) {
        int colour = randomInt(0, 699), run = randomInt(1, 300);
        for (int k = 0; k < run && many.size() < 300 * 257 * 4; ++k)
            many += bytes({colour & 0xff, colour >> 8, colour % 7, colour % 3 == 0 ? 128 : 255});
    }
    std::string entry = encode(many, 300, 257);
    EXPECT_EQ(entry.substr(4, 4), bytes({0x01, 0x2C, 0x01, 0x01}));
    EXPECT_TRUE(decode(entry) == "300x257: " + many);
}

TEST(Spg, LoadImageReadsTheArchiveAndSaysWhatFailed)
{
    ScratchDir scratch;
    const std::string rows[][2] = {
        {"", "Couldn't open content/images.sfa\nError while loading image red.spg\n"},
        {packSfa({{"red.spg", twoRedPixels}}), "2x1"},
        {packSfa({{"arrow.spg", twoRedPixels}}),
         "Couldn't find red.spg from content/images.sfa\nError while loading image red.spg\n"},
        {packSfa({{"red.spg", spg(2, 1, 0, bytes({1, 9, 9, 9, 1, 2}))}}),
         "Damaged image red.spg: palette index 1 of a palette of 1\n"},
    };
    for (const auto& [archive, result] : rows) {
        if (!archive.empty()) writeFileBytes("content/images.sfa", archive);
        uint16_t width = 7777, height = 7777;
        bool redPixels = false;
        std::string errors = stderrOf([&] {
            unsigned char* pixels = loadImage("red.spg", &width, &height);
            redPixels = pixels && std::string(reinterpret_cast<char*>(pixels), 8) == red + red;
            delete[] pixels;
        });
        EXPECT_EQ(redPixels ? std::to_string(width) + "x" + std::to_string(height) : errors, result);
        EXPECT_EQ(width, redPixels ? 2 : 7777);
    }
}
