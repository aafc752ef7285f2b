// The .spg decoder through loadImage and the encoder: field layout, run-coded
// numbers, palette and runs, and damaged content.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "data/images.h"
#include "image_test_support.h"

namespace {

struct Loaded {
    bool ok = false;
    uint16_t width = 7777, height = 7777;
    std::vector<unsigned char> pixels;
    std::string errors;
};

Loaded load(const std::string& name)
{
    Loaded result;
    testing::internal::CaptureStderr();
    unsigned char* pixels = loadImage(name.c_str(), &result.width, &result.height);
    result.errors = testing::internal::GetCapturedStderr();
    if (pixels) {
        result.ok = true;
        result.pixels.assign(pixels, pixels + size_t(result.width) * result.height * 4);
        delete[] pixels;
    }
    return result;
}

Loaded loadOne(const std::vector<unsigned char>& spg)
{
    writeImages({{"p.spg", spg}});
    return load("p.spg");
}

std::vector<unsigned char> decodeOrEmpty(const std::vector<unsigned char>& spg, uint16_t& width, uint16_t& height)
{
    std::string damage;
    unsigned char* pixels = decodeSpg(spg.data(), spg.size(), &width, &height, &damage);
    if (!pixels) return {};
    std::vector<unsigned char> result(pixels, pixels + size_t(width) * height * 4);
    delete[] pixels;
    return result;
}

}  // namespace

TEST(RunCodedNumbers, Spelling)
{
    auto coded = [](uint64_t value) {
        std::vector<unsigned char> out;
        appendRunCodedNumber(out, value);
        return out;
    };
    const std::pair<uint64_t, std::vector<int>> rows[] = {
        {0, {0}}, {254, {254}}, {255, {255, 0}}, {510, {255, 255, 0}}, {600, {255, 255, 90}}};
    for (const auto& [value, spelled] : rows)
        EXPECT_EQ(coded(value), spgBytes(spelled)) << value;
}

TEST(SpgDecoding, TwoRedPixels)
{
    ScratchDir scratch;
    Loaded red = loadOne(twoRedPixels());
    ASSERT_TRUE(red.ok) << red.errors;
    EXPECT_EQ(red.width, 2);
    EXPECT_EQ(red.height, 1);
    EXPECT_EQ(red.pixels, spgBytes({255, 0, 0, 255, 255, 0, 0, 255}));
    EXPECT_EQ(red.errors, "");
}

TEST(SpgDecoding, WidthAndHeightAreBigEndianAndZeroCountRunsWriteNothing)
{
    auto spg = spgStart(0x0102, 1, 0);
    append(spg, {1, 9, 9, 9, 0, 255, 3});  // 258 = 255 + 3
    uint16_t width = 0, height = 0;
    auto pixels = decodeOrEmpty(spg, width, height);
    EXPECT_EQ(width, 258);
    EXPECT_EQ(height, 1);
    EXPECT_EQ(pixels.size(), 258u * 4);

    auto zeroRuns = spgStart(2, 1, 0);
    append(zeroRuns, {2, 1, 1, 1, 2, 2, 2, 1, 0, 1, 1, 0, 0, 0, 1});
    EXPECT_EQ(decodeOrEmpty(zeroRuns, width, height), spgBytes({2, 2, 2, 255, 1, 1, 1, 255}));
}

TEST(SpgDecoding, AlphaOnlyWhenStored)
{
    uint16_t width = 0, height = 0;
    auto opaque = spgStart(1, 1, 0);
    append(opaque, {1, 10, 20, 30, 0, 1});
    EXPECT_EQ(decodeOrEmpty(opaque, width, height), spgBytes({10, 20, 30, 255}));
    // Any value but 0 means four bytes a colour.
    auto translucent = spgStart(2, 1, 7);
    append(translucent, {2, 10, 20, 30, 40, 1, 2, 3, 0, 1, 1, 0, 1});
    EXPECT_EQ(decodeOrEmpty(translucent, width, height), spgBytes({1, 2, 3, 0, 10, 20, 30, 40}));
}

TEST(SpgDecoding, RunCodedPaletteCountIndexAndCount)
{
    // 255 colours (count stored 255 0); index 254 takes one byte, a count of
    // 600 three.
    auto spg = spgStart(602, 1, 0);
    append(spg, {255, 0});
    for (int i = 0; i < 255; ++i) append(spg, {i, 0, 0});
    append(spg, {254, 1});           // index 254: one byte
    append(spg, {3, 255, 255, 90});  // count 600
    append(spg, {0, 1});
    uint16_t width = 0, height = 0;
    auto pixels = decodeOrEmpty(spg, width, height);
    ASSERT_EQ(pixels.size(), 602u * 4);
    EXPECT_EQ(pixels[0], 254);
    for (int x = 1; x <= 600; ++x) ASSERT_EQ(pixels[x * 4], 3) << x;
    EXPECT_EQ(pixels[601 * 4], 0);

    // 510 colours (stored 255 255 0): index 255 (stored 255 0) and 509.
    auto big = spgStart(2, 1, 0);
    append(big, {255, 255, 0});
    for (int i = 0; i < 510; ++i) append(big, {i & 0xff, i >> 8, 0});
    append(big, {255, 0, 1, 255, 254, 1});
    EXPECT_EQ(decodeOrEmpty(big, width, height), spgBytes({255, 0, 0, 255, 253, 1, 0, 255}));
}

TEST(SpgDecoding, RunsCrossRowEndsAndAnEmptyPictureDecodes)
{
    auto spg = spgStart(3, 2, 0);
    append(spg, {2, 0, 0, 0, 9, 9, 9, 0, 4, 1, 2});
    uint16_t width = 0, height = 0;
    auto pixels = decodeOrEmpty(spg, width, height);
    ASSERT_EQ(pixels.size(), 24u);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(pixels[i * 4], i < 4 ? 0 : 9) << i;

    auto empty = spgStart(0, 5, 0);
    append(empty, {0});
    std::string damage;
    unsigned char* nothing = decodeSpg(empty.data(), empty.size(), &width, &height, &damage);
    EXPECT_NE(nothing, nullptr) << damage;
    EXPECT_EQ(width, 0);
    delete[] nothing;
}

TEST(SpgDamage, EveryKindIsRefusedWithOneLineAndShortEntriesToo)
{
    ScratchDir scratch;
    struct Case {
        const char* what;
        std::vector<int> afterHeader;  // after width 2, height 1, hasAlpha 0
    };
    const Case cases[] = {
        {"index equal to the palette size", {1, 9, 9, 9, 1, 2}},
        {"index far past the palette", {1, 9, 9, 9, 255, 255, 255, 7, 2}},
        {"runs past width x height", {1, 9, 9, 9, 0, 3}},
        {"a later run past the end", {1, 9, 9, 9, 0, 2, 0, 1}},
        {"runs short of the picture", {1, 9, 9, 9, 0, 1}},
        {"no pixels at all", {1, 9, 9, 9}},
        {"palette past the entry", {3, 9, 9, 9, 8, 8}},
        {"palette count past the entry", {255, 255}},
        {"no palette count", {}},
        {"count cut off", {1, 9, 9, 9, 0, 255}},
        {"index without a count", {1, 9, 9, 9, 0}},
        {"huge palette count", {255, 255, 255, 255, 255, 255, 255, 255, 10, 1, 2, 3}},
    };
    for (const Case& c : cases) {
        auto spg = spgStart(2, 1, 0);
        append(spg, c.afterHeader);
        Loaded damaged = loadOne(spg);
        EXPECT_FALSE(damaged.ok) << c.what;
        EXPECT_EQ(damaged.width, 7777) << c.what;
        EXPECT_EQ(damaged.errors.rfind("Damaged image p.spg: ", 0), 0u) << c.what << ": " << damaged.errors;
        EXPECT_EQ(std::count(damaged.errors.begin(), damaged.errors.end(), '\n'), 1) << c.what;
    }
    for (size_t length = 0; length < 9; ++length) {
        auto spg = twoRedPixels();
        spg.resize(length);
        EXPECT_FALSE(loadOne(spg).ok) << length;
    }
}

TEST(SpgMissing, EntryOrArchive)
{
    ScratchDir scratch;
    Loaded noArchive = load("arrow.spg");
    EXPECT_FALSE(noArchive.ok);
    EXPECT_EQ(noArchive.errors, "Couldn't open content/images.sfa\nError while loading image arrow.spg\n");

    writeImages({{"red.spg", twoRedPixels()}});
    Loaded noEntry = load("arrow.spg");
    EXPECT_FALSE(noEntry.ok);
    EXPECT_EQ(noEntry.width, 7777);
    EXPECT_EQ(noEntry.errors, "Couldn't find arrow.spg from content/images.sfa\nError while loading image arrow.spg\n");
}

TEST(SpgEncoding, ExampleBytesAndAlphaOnlyWhereThePictureHasIt)
{
    std::vector<unsigned char> red = {255, 0, 0, 255, 255, 0, 0, 255};
    auto spg = encodeSpg(red.data(), 2, 1);
    auto expected = twoRedPixels();
    EXPECT_EQ(std::vector<unsigned char>(spg.begin() + 4, spg.end()),
              std::vector<unsigned char>(expected.begin() + 4, expected.end()));

    std::vector<unsigned char> pixels = {1, 2, 3, 255, 4, 5, 6, 255};
    EXPECT_EQ(encodeSpg(pixels.data(), 2, 1)[8], 0);
    pixels[7] = 254;
    auto withAlpha = encodeSpg(pixels.data(), 2, 1);
    EXPECT_NE(withAlpha[8], 0);
    uint16_t width = 0, height = 0;
    EXPECT_EQ(decodeOrEmpty(withAlpha, width, height), pixels);
}

TEST(SpgEncoding, ManyColoursRoundTrip)
{
    // 97 x 53 pixels of about 700 colours in runs of varied length, crossing rows.
    const uint16_t width = 97, height = 53;
    std::vector<unsigned char> pixels(size_t(width) * height * 4);
    srand(12345);
    for (size_t i = 0; i < size_t(width) * height;) {
        int colour = rand() % 700, run = 1 + rand() % 300;
        for (int k = 0; k < run && i < size_t(width) * height; ++k, ++i) {
            pixels[i * 4] = colour & 0xff;
            pixels[i * 4 + 1] = colour >> 8;
            pixels[i * 4 + 2] = 77;
            pixels[i * 4 + 3] = colour % 3 == 0 ? 128 : 255;
        }
    }
    auto spg = encodeSpg(pixels.data(), width, height);
    uint16_t decodedWidth = 0, decodedHeight = 0;
    EXPECT_EQ(decodeOrEmpty(spg, decodedWidth, decodedHeight), pixels);
    EXPECT_EQ(decodedWidth, width);
    EXPECT_EQ(decodedHeight, height);
}

TEST(SpgDamage, HugeSizeWithFewRunsAllocatesNothing)
{
    ScratchDir scratch;
    // 65535 x 65535 would take 16 GiB; four count bytes cover at most 1020 pixels.
    auto spg = spgStart(65535, 65535, 0);
    append(spg, {1, 9, 9, 9, 0, 255, 255, 10});
    Loaded huge = loadOne(spg);
    EXPECT_FALSE(huge.ok);
    EXPECT_EQ(huge.errors, "Damaged image p.spg: its runs are too short to cover 65535 x 65535 pixels\n");

    // Runs that do cover their picture pass, however few their bytes.
    auto tight = spgStart(764, 1, 0);
    append(tight, {1, 9, 9, 9, 0, 255, 255, 254});
    EXPECT_TRUE(loadOne(tight).ok);
}
