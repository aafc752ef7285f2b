// The twenty maps of the campaign as they ship (assets/maps/), read with the
// game's own readers: every value parses, the titles fit the menu's buttons,
// the wave clock can run, the light makes a visible field, and the unlock
// values open the maps in order, starting with map 1 on a fresh score file.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "data/map_file.h"
#include "support/scratch_dir.h"

namespace {

// All 28 values of one map, read as the Level, CannonBank and Player do.
struct CampaignMap {
    std::string title;
    uint16_t speedUpFrames = 0;
    float enemy[8] = {};  // hit points and growth, speed and growth, spawn interval,
                          // its growth, its floor, big enemy percent
    int32_t waveFrames = 0, pauseFrames = 0, waveCount = 0;
    bool directed = false;
    float damage = 0, reload = 0, range = 0;
    float lightDirection[3] = {}, lightColor[3] = {}, ambient[3] = {};
    uint32_t parScore = 0, unlockPoints = 0;
    bool readWhole = false;
};

CampaignMap readCampaignMap(int number)
{
    CampaignMap map;
    char title[MAP_TITLE_CAPACITY];
    readMapTitle(title, number, false);
    map.title = title;
    MapReader reader(mapFilePath(number));
    reader.skipLines(1);
    reader.readLine(map.speedUpFrames);
    for (float& value : map.enemy) reader.readLine(value);
    reader.readLine(map.waveFrames);
    reader.readLine(map.pauseFrames);
    reader.readLine(map.waveCount);
    reader.readLine(map.directed);
    reader.readLine(map.damage);
    reader.readLine(map.reload);
    reader.readLine(map.range);
    for (float& value : map.lightDirection) reader.readLine(value);
    for (float& value : map.lightColor) reader.readLine(value);
    for (float& value : map.ambient) reader.readLine(value);
    reader.readLine(map.parScore);
    reader.readLine(map.unlockPoints);
    map.readWhole = reader.good() && reader.line() == 29;
    return map;
}

class CampaignMaps : public ::testing::Test {
protected:
    void SetUp() override
    {
        namespace fs = std::filesystem;
        fs::copy(fs::path(GORVAN_SOURCE_DIR) / "assets" / "maps", "content/maps");
        for (int number = 1; number <= 20; ++number)
            maps[number - 1] = readCampaignMap(number);
    }
    ScratchDir scratch;
    CampaignMap maps[20];
};

}  // namespace

TEST_F(CampaignMaps, EveryValueParsesAndTheTitlesFitTheButtons)
{
    for (int i = 0; i < 20; ++i) {
        SCOPED_TRACE("map " + std::to_string(i + 1));
        EXPECT_TRUE(maps[i].readWhole);
        EXPECT_FALSE(maps[i].title.empty());
        EXPECT_LE(maps[i].title.size(), 23u);  // "%i.%s%s" in a 27-character button
    }
}

TEST_F(CampaignMaps, TheWaveClockRunsAndTheCannonsStartWithinTheirBars)
{
    for (int i = 0; i < 20; ++i) {
        SCOPED_TRACE("map " + std::to_string(i + 1));
        const CampaignMap& map = maps[i];
        EXPECT_GT(map.waveFrames + map.pauseFrames, 0);
        EXPECT_GT(map.waveCount, 0);
        EXPECT_GT(map.enemy[0], 0);  // hit points
        EXPECT_GT(map.enemy[2], 0);  // speed
        EXPECT_GT(map.enemy[6], 0);  // floor of the spawn interval
        EXPECT_GT(map.damage, 0);
        EXPECT_LE(map.damage, 20);
        EXPECT_GE(map.reload, 2.5f);
        EXPECT_LE(map.reload, 100);
        EXPECT_GT(map.range, 0);
        EXPECT_LE(map.range, 560);
    }
}

TEST_F(CampaignMaps, EachMapHasItsOwnLightOverAVisibleField)
{
    for (int i = 0; i < 20; ++i) {
        SCOPED_TRACE("map " + std::to_string(i + 1));
        const CampaignMap& map = maps[i];
        EXPECT_GT(map.lightDirection[2], 0);  // the light stands above the ground
        float light = 0, ambient = 0;
        for (int c = 0; c < 3; ++c) {
            EXPECT_GE(map.lightColor[c], 0);
            EXPECT_LE(map.lightColor[c], 1);
            EXPECT_GE(map.ambient[c], 0.1f);
            EXPECT_LE(map.ambient[c], 0.5f);
            light += map.lightColor[c];
            ambient += map.ambient[c];
        }
        EXPECT_GE(light, 1.5f);
        EXPECT_GE(ambient, 0.6f);
        for (int j = 0; j < i; ++j) {
            bool sameLight = true;
            for (int c = 0; c < 3; ++c)
                sameLight = sameLight && map.lightDirection[c] == maps[j].lightDirection[c] &&
                            map.lightColor[c] == maps[j].lightColor[c];
            EXPECT_FALSE(sameLight) << "the same light as map " << j + 1;
        }
    }
}

TEST_F(CampaignMaps, MapOneIsOpenAndTheOthersOpenInOrderWithinReach)
{
    EXPECT_EQ(getMapUnlockPoints(1), 0u);
    for (int number = 2; number <= 20; ++number) {
        SCOPED_TRACE("map " + std::to_string(number));
        // Only the maps before it can have earned points: 100 each at most.
        EXPECT_GT(getMapUnlockPoints(number), getMapUnlockPoints(number - 1));
        EXPECT_LE(getMapUnlockPoints(number), 100u * (number - 1));
    }
    for (int number = 1; number <= 20; ++number)
        EXPECT_GT(maps[number - 1].parScore, 1u) << "map " << number;
}

TEST_F(CampaignMaps, TheLateMapsAskForMore)
{
    const CampaignMap& first = maps[0];
    const CampaignMap& last = maps[19];
    EXPECT_GT(last.waveCount * (last.waveFrames + last.pauseFrames),
              first.waveCount * (first.waveFrames + first.pauseFrames));
    EXPECT_GT(last.enemy[1], first.enemy[1]);  // hit points grow faster
    EXPECT_LT(last.enemy[6], first.enemy[6]);  // spawns may come closer together
    EXPECT_GT(last.enemy[7], first.enemy[7]);  // more big enemies
}
