// The generated ground, on the CPU: the slope formula, the softening, the
// slopes of a ground with their rim rule, and the stones, whose few levels of
// darkening a lit picture can't pin. The whole ground is in every scene.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <vector>

#include "base/random.h"
#include "render/generated_textures.h"

namespace {

constexpr int bytes = surfaceSize * surfaceSize * 3;

uint8_t* pixel(std::vector<uint8_t>& buffer, int row, int column) { return &buffer[(row * surfaceSize + column) * 3]; }

TEST(Ground, SofteningAndSlopes)
{
    // Small differences flatten, big ones stand out; past a byte it wraps.
    const std::pair<int, int> rows[] = {{0, 127}, {1, 127},  {-1, 127}, {2, 128}, {10, 134},
                                        {40, 167}, {-10, 120}, {-40, 87}, {127, 31}};
    for (auto [difference, slope] : rows) EXPECT_EQ(surfaceSlope(static_cast<int8_t>(difference)), slope) << difference;

    // (left + right + above + below + 2 * centre) / 6, edges repeated, channels apart.
    std::vector<uint8_t> from(bytes, 0), to(bytes, 0);
    pixel(from, 0, 0)[0] = 60;  // the corner: counted four times
    pixel(from, 200, 300)[1] = 60;
    pixel(from, 511, 100)[2] = 61;
    softenSurface(from.data(), to.data());
    const int softened[][4] = {{0, 0, 0, 40}, {0, 1, 0, 10},   {1, 0, 0, 10},     {0, 511, 0, 0},
                               {200, 300, 1, 20}, {199, 300, 1, 10}, {200, 301, 1, 10}, {200, 300, 0, 0},
                               {511, 100, 2, 30}, {510, 100, 2, 10}};
    for (const auto& [row, column, channel, value] : softened)
        EXPECT_EQ(pixel(to, row, column)[channel], value) << row << ", " << column;

    // Red rises by 3 a column and green by 4 a row; the height is red plus
    // half the green: central differences inside, one-sided on the rim.
    std::vector<uint8_t> ground(bytes, 0), slopes(bytes, 0);
    for (int row = 0; row < surfaceSize; row++)
        for (int column = 0; column < surfaceSize; column++) {
            pixel(ground, row, column)[0] = static_cast<uint8_t>(column * 3);
            pixel(ground, row, column)[1] = static_cast<uint8_t>(row * 4);
        }
    computeSurfaceSlopes(ground.data(), slopes.data(), nullptr);
    for (int i : {0, 1, 250, 511}) {
        EXPECT_EQ(pixel(slopes, i, 0)[0], surfaceSlope(-3)) << i;
        EXPECT_EQ(pixel(slopes, i, 1)[0], surfaceSlope(-6)) << i;
        EXPECT_EQ(pixel(slopes, i, 510)[0], surfaceSlope(-6)) << i;
        EXPECT_EQ(pixel(slopes, i, 511)[0], surfaceSlope(-3)) << i;
        EXPECT_EQ(pixel(slopes, 0, i)[1], surfaceSlope(-2)) << i;
        EXPECT_EQ(pixel(slopes, 1, i)[1], surfaceSlope(-4)) << i;
        EXPECT_EQ(pixel(slopes, 510, i)[1], surfaceSlope(-4)) << i;
        EXPECT_EQ(pixel(slopes, 511, i)[1], surfaceSlope(-2)) << i;
        EXPECT_EQ(pixel(slopes, i, i)[2], 200) << i;
    }
}

TEST(Ground, StonesDarkenARaggedPatchBy1To7PerChannelDownToZero)
{
    const uint8_t base[3] = {100, 60, 20};
    std::set<int> darkenings[3];
    surfaceData = new uint8_t[bytes];
    seedRandom(5);
    for (int stone = 0; stone < 80; stone++) {
        for (int i = 0; i < bytes; i++) surfaceData[i] = base[i % 3];
        stampStone();
        int top = surfaceSize, bottom = -1, left = surfaceSize, right = -1, covered = 0;
        int darkening[3] = {-1, -1, -1};
        for (int i = 0; i < bytes; i += 3) {
            if (std::equal(base, base + 3, &surfaceData[i])) continue;
            const int row = i / 3 / surfaceSize, column = i / 3 % surfaceSize;
            top = std::min(top, row), bottom = std::max(bottom, row);
            left = std::min(left, column), right = std::max(right, column);
            covered++;
            for (int c = 0; c < 3; c++) {
                if (darkening[c] < 0) darkening[c] = base[c] - surfaceData[i + c];
                ASSERT_EQ(base[c] - surfaceData[i + c], darkening[c]) << "one darkening for the whole stone";
            }
        }
        ASSERT_GT(covered, 0);
        for (int c = 0; c < 3; c++) darkenings[c].insert(darkening[c]);
        // Radius 2 to 50, the outline within 0.7 to 1.3 of it: a patch at
        // most 130 across that fills a good part of its box.
        EXPECT_LE(std::max(right - left, bottom - top), 130);
        EXPECT_GE(covered * 5, (right - left + 1) * (bottom - top + 1)) << stone;
    }
    for (const std::set<int>& seen : darkenings) EXPECT_EQ(seen, std::set<int>({1, 2, 3, 4, 5, 6, 7}));

    std::memset(surfaceData, 3, bytes);
    for (int stone = 0; stone < 20; stone++) stampStone();
    EXPECT_EQ(*std::max_element(surfaceData, surfaceData + bytes), 3) << "no wrap below zero";
    EXPECT_EQ(*std::min_element(surfaceData, surfaceData + bytes), 0);
    freeSurfaceData();
}

}  // namespace
