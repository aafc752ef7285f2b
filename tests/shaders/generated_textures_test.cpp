// The generated ground: softening, speckles and stones, the slope formula and
// its rim rule, and the texture built from it.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "base/random.h"
#include "render/generated_textures.h"
#include "shader_test_support.h"

namespace {

constexpr int bytes = surfaceSize * surfaceSize * 3;

uint8_t* pixel(std::vector<uint8_t>& buffer, int row, int column) {
    return &buffer[(row * surfaceSize + column) * 3];
}

TEST(SurfaceSlope, FlattensSmallDifferencesAndStressesBigOnes) {
    const std::pair<int, int> rows[] = {{0, 127}, {1, 127},   {-1, 127}, {2, 128},
                                        {10, 134}, {40, 167}, {-10, 120}, {-40, 87}};
    for (auto [difference, slope] : rows)
        EXPECT_EQ(surfaceSlope(difference), slope) << difference;
    // Past the byte's range the value wraps as a byte does.
    EXPECT_EQ(surfaceSlope(127), uint8_t(127 + int(40 * std::pow(127 / 40.0f, 1.2f))));
}

TEST(SurfaceSoftening, AveragesNeighboursWithTheCentreTwiceAndEdgesRepeated) {
    std::vector<uint8_t> from(bytes, 0), to(bytes, 0);
    pixel(from, 0, 0)[0] = 60;                      // the corner: counted four times
    pixel(from, 200, 300)[1] = 60;                  // inside: twice for the centre
    pixel(from, 511, 100)[2] = 61;                  // bottom edge: below is itself
    softenSurface(from.data(), to.data());
    EXPECT_EQ(pixel(to, 0, 0)[0], 40);
    EXPECT_EQ(pixel(to, 0, 1)[0], 10);
    EXPECT_EQ(pixel(to, 1, 0)[0], 10);
    EXPECT_EQ(pixel(to, 1, 1)[0], 0);
    EXPECT_EQ(pixel(to, 200, 300)[1], 20);
    EXPECT_EQ(pixel(to, 199, 300)[1], 10);
    EXPECT_EQ(pixel(to, 200, 301)[1], 10);
    EXPECT_EQ(pixel(to, 200, 300)[0], 0) << "channels stay apart";
    EXPECT_EQ(pixel(to, 511, 100)[2], 61 * 3 / 6) << "integer division";
    EXPECT_EQ(pixel(to, 510, 100)[2], 10);
    EXPECT_EQ(pixel(to, 0, 511)[0], 0) << "nothing wraps round";
}

// A ground of one colour, the slopes of a ground.
std::vector<uint8_t> slopesOf(const std::vector<uint8_t>& ground) {
    std::vector<uint8_t> slopes(bytes, 0);
    computeSurfaceSlopes(ground.data(), slopes.data(), nullptr);
    return slopes;
}

TEST(SurfaceSlopes, CentralDifferencesInsideAndOneSidedOnTheRim) {
    // Red rises by 3 a column: the height (red + green / 2, in 8 bits) too,
    // so every central difference is -6 and every one-sided one -3, wrap or not.
    std::vector<uint8_t> ground(bytes, 0);
    for (int row = 0; row < surfaceSize; row++) {
        for (int column = 0; column < surfaceSize; column++)
            pixel(ground, row, column)[0] = uint8_t(column * 3);
    }
    std::vector<uint8_t> slopes = slopesOf(ground);
    for (int row : {0, 1, 250, 511}) {
        EXPECT_EQ(pixel(slopes, row, 0)[0], surfaceSlope(-3));
        EXPECT_EQ(pixel(slopes, row, 1)[0], surfaceSlope(-6));
        EXPECT_EQ(pixel(slopes, row, 300)[0], surfaceSlope(-6));
        EXPECT_EQ(pixel(slopes, row, 510)[0], surfaceSlope(-6));
        EXPECT_EQ(pixel(slopes, row, 511)[0], surfaceSlope(-3));
        EXPECT_EQ(pixel(slopes, row, 300)[1], 127) << "nothing changes along a column";
    }

    // Green rises by 4 a row: half of it goes into the height.
    std::vector<uint8_t> rows(bytes, 0);
    for (int row = 0; row < surfaceSize; row++) {
        for (int column = 0; column < surfaceSize; column++)
            pixel(rows, row, column)[1] = uint8_t(row * 4);
    }
    slopes = slopesOf(rows);
    EXPECT_EQ(pixel(slopes, 0, 7)[1], surfaceSlope(-2));
    EXPECT_EQ(pixel(slopes, 1, 7)[1], surfaceSlope(-4));
    EXPECT_EQ(pixel(slopes, 510, 7)[1], surfaceSlope(-4));
    EXPECT_EQ(pixel(slopes, 511, 7)[1], surfaceSlope(-2));
    EXPECT_EQ(pixel(slopes, 200, 0)[0], 127);
}

TEST(SurfaceSlopes, FlatGroundIsLevelAndASingleBumpTiltsItsNeighbours) {
    const std::vector<uint8_t> flat = slopesOf(std::vector<uint8_t>(bytes, 90));
    for (int i = 0; i < bytes; i += 3) {
        ASSERT_EQ(flat[i], 127);
        ASSERT_EQ(flat[i + 1], 127);
        ASSERT_EQ(flat[i + 2], 200);
    }
    std::vector<uint8_t> ground(bytes, 100);
    pixel(ground, 100, 100)[0] = 140;  // 40 higher
    std::vector<uint8_t> slopes = slopesOf(ground);
    EXPECT_EQ(pixel(slopes, 100, 99)[0], surfaceSlope(-40));   // rises to the right
    EXPECT_EQ(pixel(slopes, 100, 101)[0], surfaceSlope(40));
    EXPECT_EQ(pixel(slopes, 99, 100)[1], surfaceSlope(-40));
    EXPECT_EQ(pixel(slopes, 101, 100)[1], surfaceSlope(40));
    EXPECT_EQ(pixel(slopes, 100, 100)[0], 127) << "the top itself is level";
}

// The draws of one stone, replayed from the same seed.
struct StoneDraws {
    int side, ox, oy, dr, dg, db;
};

StoneDraws replayStone(uint32_t seed) {
    seedRandom(seed);
    float r = randomFloat(2, 50);
    StoneDraws stone{};
    stone.side = uint8_t(std::ceil(2.6f * r));
    for (int i = 0; i < 36; i++)
        randomFloat(0.7f, 1.3f);
    stone.ox = randomInt(0, 512 - stone.side);
    stone.oy = randomInt(0, 512 - stone.side);
    stone.dr = randomInt(1, 7);
    stone.dg = randomInt(1, 7);
    stone.db = randomInt(1, 7);
    return stone;
}

class Stones : public ::testing::Test {
protected:
    void SetUp() override { surfaceData = new uint8_t[bytes]; }
    void TearDown() override { freeSurfaceData(); }
};

TEST_F(Stones, AStoneDarkensARaggedPatchInsideItsBoxDownToZero) {
    for (uint32_t seed : {1u, 2u, 77u, 4242u}) {
        std::memset(surfaceData, 100, bytes);
        StoneDraws stone = replayStone(seed);
        seedRandom(seed);
        stampStone();
        int next = randomInt(0, 1000);
        replayStone(seed);
        EXPECT_EQ(next, randomInt(0, 1000)) << "a stone draws exactly its own numbers";

        int covered = 0;
        for (int row = 0; row < surfaceSize; row++) {
            for (int column = 0; column < surfaceSize; column++) {
                const uint8_t* p = &surfaceData[(row * surfaceSize + column) * 3];
                if (p[0] == 100 && p[1] == 100 && p[2] == 100) continue;
                covered++;
                ASSERT_GE(row, stone.oy);
                ASSERT_LT(row, stone.oy + stone.side);
                ASSERT_GE(column, stone.ox);
                ASSERT_LT(column, stone.ox + stone.side);
                ASSERT_EQ(p[0], 100 - stone.dr);
                ASSERT_EQ(p[1], 100 - stone.dg);
                ASSERT_EQ(p[2], 100 - stone.db);
            }
        }
        // The outline keeps within 0.7 to 1.3 of its radius round the box's
        // middle: the middle is in, and the patch is no bigger than the box.
        const int middle = stone.side / 2;
        EXPECT_NE(surfaceData[((stone.oy + middle) * surfaceSize + stone.ox + middle) * 3], 100) << seed;
        EXPECT_GT(covered, 0);
        EXPECT_LE(covered, stone.side * stone.side);
    }

    // Darkening stops at zero.
    std::memset(surfaceData, 3, bytes);
    StoneDraws stone = replayStone(99);
    seedRandom(99);
    stampStone();
    const int middle = stone.side / 2;
    const uint8_t* p = &surfaceData[((stone.oy + middle) * surfaceSize + stone.ox + middle) * 3];
    EXPECT_EQ(p[0], stone.dr > 3 ? 0 : 3 - stone.dr);
    EXPECT_EQ(p[1], stone.dg > 3 ? 0 : 3 - stone.dg);
    EXPECT_EQ(p[2], stone.db > 3 ? 0 : 3 - stone.db);
}

TEST(SurfaceData, TheSameSeedGivesTheSameGroundWithinItsColours) {
    seedRandom(12345);
    generateSurfaceData(nullptr);
    std::vector<uint8_t> first(surfaceData, surfaceData + bytes);
    seedRandom(12345);
    generateSurfaceData(nullptr);
    EXPECT_EQ(std::memcmp(first.data(), surfaceData, bytes), 0);
    seedRandom(54321);
    generateSurfaceData(nullptr);
    EXPECT_NE(std::memcmp(first.data(), surfaceData, bytes), 0);

    // Softened sand of red 98-158, green 49-79, blue 9-23, then darkened by
    // speckles (up to 30 red) and stones (up to 7 each, stacking).
    double red = 0;
    int darkest = 255;
    for (int i = 0; i < bytes; i += 3) {
        red += surfaceData[i];
        darkest = std::min<int>(darkest, surfaceData[i]);
        ASSERT_LE(surfaceData[i], 158);
        ASSERT_LE(surfaceData[i + 1], 79);
        ASSERT_LE(surfaceData[i + 2], 23);
    }
    EXPECT_NEAR(red / (bytes / 3), 125, 5);
    EXPECT_LT(darkest, 98) << "speckles and stones darken";
    freeSurfaceData();
    EXPECT_EQ(surfaceData, nullptr);
}

TEST(SurfaceTexture, IsTheSlopesOfTheGroundAndRebuildsIdentically) {
    openShaderTestWindow();
    seedRandom(2024);
    generateSurfaceData(nullptr);
    buildSurfaceTexture(nullptr);
    std::vector<uint8_t> expected(bytes);
    computeSurfaceSlopes(surfaceData, expected.data(), nullptr);

    auto readTexture = [] {
        std::vector<uint8_t> texels(bytes);
        glBindTexture(GL_TEXTURE_2D, surfaceTexture);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, texels.data());
        return texels;
    };
    std::vector<uint8_t> first = readTexture();
    EXPECT_EQ(first, expected);

    // A window re-creation rebuilds it from the kept data: no randomness enters.
    deleteSurfaceTexture();
    randomInt(0, 100);
    buildSurfaceTexture(nullptr);
    EXPECT_EQ(readTexture(), first);

    freeSurfaceData();
    closeShaderTestWindow();
}

}  // namespace
