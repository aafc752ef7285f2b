// content/scores.dat: the byte layout, the unsigned comparison of saves, and
// how a missing, short or unwritable file is met.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "data/scores.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

const std::string scorePath = "content/scores.dat";

std::string bigEndian(uint32_t value)
{
    return bytes({int(value >> 24), int(value >> 16 & 0xff), int(value >> 8 & 0xff), int(value & 0xff)});
}

std::string filledWith(char fill, size_t offset, uint32_t value)
{
    return std::string(160, fill).replace(offset, 4, bigEndian(value));
}

}  // namespace

TEST(ScoreFile, LayoutTablesAndUnsignedSaves)
{
    ScratchDir scratch;
    for (int fresh = 0; fresh < 2; ++fresh) {  // the first time, and after the file was deleted
        EXPECT_EQ(stdoutOf([] { EXPECT_EQ(getStageScore(5), 0u); }), "Created new score file\n");
        EXPECT_EQ(readFileBytes(scorePath), std::string(160, '\0'));
        EXPECT_EQ(stdoutOf([] { getSurvivalScore(5); }), "") << "the file exists now";
        saveStageScore(4, 1234);
        std::filesystem::remove(scorePath);
    }
    saveStageScore(2, 300);
    EXPECT_EQ(readFileBytes(scorePath), filledWith('\0', 4, 300));
    EXPECT_EQ(readFileBytes(scorePath).substr(4, 4), bytes({0x00, 0x00, 0x01, 0x2C}));
    saveSurvivalScore(3, 0x01020304);
    EXPECT_EQ(readFileBytes(scorePath).substr(88, 4), bytes({1, 2, 3, 4}));
    EXPECT_EQ(getStageScore(2), 300u);
    EXPECT_EQ(getSurvivalScore(3), 0x01020304u);
    EXPECT_EQ(getStageScore(3), 0u) << "the tables are apart";
    EXPECT_EQ(getSurvivalScore(2), 0u);

    // The ends of the tables touch nothing outside their value.
    writeFileBytes(scorePath, std::string(160, '\x11'));
    saveStageScore(1, 0x12345678);
    saveSurvivalScore(20, 0x12345678);
    EXPECT_EQ(readFileBytes(scorePath), filledWith('\x11', 0, 0x12345678).replace(156, 4, bigEndian(0x12345678)));
    EXPECT_EQ(getStageScore(20), 0x11111111u);
    EXPECT_EQ(getSurvivalScore(1), 0x11111111u);

    // Only a higher score is stored, compared unsigned.
    const std::pair<uint32_t, uint32_t> saves[] = {  // saved, then stored
        {0, 0}, {500, 500}, {499, 500}, {4000000000u, 4000000000u}, {2000000000u, 4000000000u},
        {0xFFFFFFFFu, 0xFFFFFFFFu}};
    writeFileBytes(scorePath, std::string(160, '\0'));
    for (const auto& [saved, stored] : saves) {
        saveSurvivalScore(9, saved);
        EXPECT_EQ(readFileBytes(scorePath), filledWith('\0', 112, stored)) << saved;
    }
    for (int map = 1; map <= 20; map++) {
        saveStageScore(map, map * 1000u);
        saveSurvivalScore(map, map * 7u);
        ASSERT_EQ(readFileBytes(scorePath).size(), 160u) << "map " << map;
    }
    for (int map = 1; map <= 20; map++) {
        EXPECT_EQ(getStageScore(map), map * 1000u);
        EXPECT_EQ(getSurvivalScore(map), map == 9 ? 0xFFFFFFFFu : map * 7u);
    }
}

TEST(ScoreFile, ShortUnwritableOrMissingFilesAndMapsOutOfRange)
{
    ScratchDir scratch;
    writeFileBytes(scorePath, bigEndian(77) + bytes({0, 0}));
    EXPECT_EQ(getStageScore(1), 77u);
    EXPECT_EQ(getStageScore(2), 0u) << "half a value";
    EXPECT_EQ(getSurvivalScore(20), 0u) << "past the end";
    saveSurvivalScore(20, 5);
    EXPECT_EQ(readFileBytes(scorePath), filledWith('\0', 0, 77).replace(156, 4, bigEndian(5)));

    // The new file is written beside the old one: where a folder stands in its
    // way, the old file stays whole. An equal score does not even try.
    std::filesystem::create_directory(scorePath + ".tmp");
    EXPECT_EQ(stderrOf([] { saveStageScore(1, 77); }), "");
    EXPECT_EQ(stderrOf([] { saveStageScore(1, 78); }), "Cannot save score!\n");
    EXPECT_EQ(getStageScore(1), 77u);
    std::filesystem::remove(scorePath + ".tmp");

    EXPECT_EQ(stderrOf([] {
                  EXPECT_EQ(getStageScore(0), 0u);
                  saveStageScore(21, 99);  // would be map 1 of survival
                  saveSurvivalScore(-1, 99);
              }),
              "No score for map 0: maps are 1 to 20\nNo score for map 21: maps are 1 to 20\n"
              "No score for map -1: maps are 1 to 20\n");
    EXPECT_EQ(readFileBytes(scorePath), filledWith('\0', 0, 77).replace(156, 4, bigEndian(5)));

    std::filesystem::remove_all("content");
    EXPECT_EQ(stderrOf([] { EXPECT_EQ(getStageScore(1), 0u); }),
              "Couldn't create new score file!\nCouldn't open score file!\n");
    std::string errors = stderrOf([] { saveSurvivalScore(1, 10); });
    EXPECT_EQ(errors.find("Cannot save score!"), std::string::npos) << "it stops before writing";
    EXPECT_FALSE(fileExists(scorePath));
}
