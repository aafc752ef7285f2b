// content/scores.dat: the byte layout, saves compared unsigned, and files
// that are missing, short or can't be rewritten.
#include <gtest/gtest.h>

#include <filesystem>

#include "data/scores.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

const std::string scorePath = "content/scores.dat";

// 160 bytes of fill with big-endian values at the given offsets.
std::string scoreFile(char fill, std::initializer_list<std::pair<size_t, uint32_t>> values)
{
    std::string file(160, fill);
    for (auto [offset, v] : values) file.replace(offset, 4, bytes({int(v >> 24), int(v >> 16 & 255), int(v >> 8 & 255), int(v & 255)}));
    return file;
}

}  // namespace

TEST(ScoreFile, LayoutTablesAndUnsignedSaves)
{
    ScratchDir scratch;
    for (int fresh = 0; fresh < 2; ++fresh) {  // the first time, and after the file was deleted
        EXPECT_EQ(stdoutOf([] { EXPECT_EQ(getStageScore(5), 0u); }), "Created new score file\n");
        EXPECT_EQ(readFileBytes(scorePath), std::string(160, '\0'));
        EXPECT_EQ(stdoutOf([] { getSurvivalScore(5); }), "") << "the file exists now";
        saveStageScore(2, 300);
        EXPECT_EQ(readFileBytes(scorePath).substr(4, 4), bytes({0x00, 0x00, 0x01, 0x2C}));
        std::filesystem::remove(scorePath);
    }
    writeFileBytes(scorePath, std::string(160, '\x11'));
    saveStageScore(1, 0x12345678);  // nothing in front of it
    saveSurvivalScore(20, 0x12345678);  // nothing behind it
    saveSurvivalScore(3, 0x11111112);
    EXPECT_EQ(readFileBytes(scorePath), scoreFile('\x11', {{0, 0x12345678}, {88, 0x11111112}, {156, 0x12345678}}));
    EXPECT_EQ(getSurvivalScore(3), 0x11111112u);
    EXPECT_EQ(getStageScore(3), 0x11111111u) << "the tables are apart";

    // Only a higher score is stored, compared unsigned.
    writeFileBytes(scorePath, std::string(160, '\0'));
    for (auto [saved, stored] : {std::pair<uint32_t, uint32_t>{0, 0}, {500, 500}, {499, 500}, {4000000000u, 4000000000u},
                                 {2000000000u, 4000000000u}, {0xFFFFFFFFu, 0xFFFFFFFFu}}) {
        saveSurvivalScore(9, saved);
        EXPECT_EQ(readFileBytes(scorePath), scoreFile('\0', {{112, stored}})) << saved;
    }
    for (int map = 1; map <= 20; map++) saveStageScore(map, map * 1000u);
    for (int map = 1; map <= 20; map++) EXPECT_EQ(getStageScore(map), map * 1000u);
    EXPECT_EQ(readFileBytes(scorePath).size(), 160u);
}

TEST(ScoreFile, ShortUnwritableOrMissingFilesAndMapsOutOfRange)
{
    ScratchDir scratch;
    writeFileBytes(scorePath, bytes({0, 0, 0, 77, 0, 0}));
    EXPECT_EQ(getStageScore(1), 77u);
    EXPECT_EQ(getStageScore(2), 0u) << "half a value";
    EXPECT_EQ(getSurvivalScore(20), 0u) << "past the end";
    saveSurvivalScore(20, 5);
    const std::string expected = scoreFile('\0', {{0, 77}, {156, 5}});
    EXPECT_EQ(readFileBytes(scorePath), expected);

    // The new file is written beside the old one: where a folder stands in its
    // way, the old file stays whole. An equal score does not even try.
    std::filesystem::create_directory(scorePath + ".tmp");
    EXPECT_EQ(stderrOf([] { saveStageScore(1, 77); }), "");
    EXPECT_EQ(stderrOf([] { saveStageScore(1, 78); }), "Cannot save score!\n");
    std::filesystem::remove(scorePath + ".tmp");
    EXPECT_EQ(stderrOf([] {
                  EXPECT_EQ(getStageScore(0), 0u);
                  saveStageScore(21, 99);  // would be map 1 of survival
                  saveSurvivalScore(-1, 99);
              }),
              "No score for map 0: maps are 1 to 20\nNo score for map 21: maps are 1 to 20\n"
              "No score for map -1: maps are 1 to 20\n");
    EXPECT_EQ(readFileBytes(scorePath), expected);

    std::filesystem::remove_all("content");
    const std::string noFile = "Couldn't create new score file!\nCouldn't open score file!\n";
    EXPECT_EQ(stderrOf([] { EXPECT_EQ(getStageScore(1), 0u); }), noFile);
    EXPECT_EQ(stderrOf([] { saveSurvivalScore(1, 10); }), noFile + noFile) << "its read, its reopen, no write";
    EXPECT_FALSE(fileExists(scorePath));
}
