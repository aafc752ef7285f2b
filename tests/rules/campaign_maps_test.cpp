// The twenty maps of the campaign as they ship (assets/maps/), read with the
// game's own readers: every value parses, the titles fit the menu's buttons,
// the light stands above the field, and the unlock values open the maps in
// order, starting with map 1 on a fresh score file.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "data/map_file.h"
#include "support/scratch_dir.h"

TEST(CampaignMaps, ParseWholeFitTheButtonsAndOpenInOrder)
{
    ScratchDir scratch;
    namespace fs = std::filesystem;
    fs::copy(fs::path(GORVAN_SOURCE_DIR) / "assets" / "maps", "content/maps");
    for (int number = 1; number <= 20; ++number) {
        SCOPED_TRACE("map " + std::to_string(number));
        char title[MAP_TITLE_CAPACITY];
        readMapTitle(title, number, false);
        EXPECT_GT(std::string(title).size(), 0u);
        EXPECT_LE(std::string(title).size(), 23u);  // "%i.%s%s" in a 27-character button
        MapReader reader(mapFilePath(number));
        float values[26];
        reader.skipLines(1);
        for (float& value : values) reader.readLine(value);
        uint32_t unlockPoints = 0;
        reader.readLine(unlockPoints);
        EXPECT_TRUE(reader.good() && reader.line() == 29);
        EXPECT_GT(values[11] * (values[9] + values[10]), 0);  // wave count, wave and pause
        EXPECT_GE(values[14], 2.5f);                         // reload
        EXPECT_GT(values[18], 0);                            // the light stands above
        EXPECT_GT(values[25], 1);                            // par
        EXPECT_EQ(unlockPoints, getMapUnlockPoints(number));
        // Only the maps before it can have earned points: 100 each at most.
        if (number == 1) EXPECT_EQ(unlockPoints, 0u);
        else EXPECT_GT(unlockPoints, getMapUnlockPoints(number - 1));
        EXPECT_LE(unlockPoints, 100u * (number - 1));
    }
}
