// The score file: its byte layout, the unsigned comparison of saves, and how
// a missing, short or unwritable file is met.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "data/scores.h"
#include "support/scratch_dir.h"

namespace {

const std::string scorePath = "content/scores.dat";

std::string bigEndian(uint32_t value)
{
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
            static_cast<char>(value >> 8), static_cast<char>(value)};
}

// 160 zero bytes with the given value at offset.
std::string zerosWith(size_t offset, uint32_t value)
{
    std::string bytes(160, '\0');
    bytes.replace(offset, 4, bigEndian(value));
    return bytes;
}

class ScoreFile : public ::testing::Test {
protected:
    ScratchDir scratch;
};

TEST_F(ScoreFile, FirstReadCreatesOneHundredSixtyZeroBytes)
{
    testing::internal::CaptureStdout();
    EXPECT_EQ(getStageScore(5), 0u);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Created new score file\n");
    EXPECT_EQ(readFileBytes(scorePath), std::string(160, '\0'));

    testing::internal::CaptureStdout();
    EXPECT_EQ(getSurvivalScore(5), 0u);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "the file exists now";
}

TEST_F(ScoreFile, ValuesLieBigEndianAtTheirMapsOffsets)
{
    saveStageScore(2, 300);
    std::string bytes = readFileBytes(scorePath);
    EXPECT_EQ(bytes, zerosWith(4, 300));
    EXPECT_EQ(bytes.substr(4, 4), std::string("\x00\x00\x01\x2C", 4));

    saveSurvivalScore(3, 0x01020304);
    bytes = readFileBytes(scorePath);
    EXPECT_EQ(bytes.substr(88, 4), std::string("\x01\x02\x03\x04", 4));
    EXPECT_EQ(getStageScore(2), 300u);
    EXPECT_EQ(getSurvivalScore(3), 0x01020304u);
    EXPECT_EQ(getStageScore(3), 0u) << "the tables are apart";
    EXPECT_EQ(getSurvivalScore(2), 0u);
}

TEST_F(ScoreFile, TableEdgesTouchNothingOutsideTheirValue)
{
    writeFileBytes(scorePath, std::string(160, '\x11'));
    saveStageScore(1, 0x12345678);       // nothing in front of it
    saveSurvivalScore(20, 0x12345678);   // nothing behind it
    std::string expected(160, '\x11');
    expected.replace(0, 4, bigEndian(0x12345678));
    expected.replace(156, 4, bigEndian(0x12345678));
    EXPECT_EQ(readFileBytes(scorePath), expected);
    EXPECT_EQ(getStageScore(1), 0x12345678u);
    EXPECT_EQ(getSurvivalScore(20), 0x12345678u);
    EXPECT_EQ(getStageScore(20), 0x11111111u);
    EXPECT_EQ(getSurvivalScore(1), 0x11111111u);
}

TEST_F(ScoreFile, OnlyAHigherScoreIsStored)
{
    getStageScore(1);  // make the file
    saveStageScore(7, 0);
    EXPECT_EQ(readFileBytes(scorePath), std::string(160, '\0')) << "0 does not beat 0";

    saveStageScore(7, 500);
    saveStageScore(7, 500);
    saveStageScore(7, 499);
    EXPECT_EQ(getStageScore(7), 500u);
    saveStageScore(7, 501);
    EXPECT_EQ(getStageScore(7), 501u);
}

TEST_F(ScoreFile, ScoresCompareUnsigned)
{
    saveSurvivalScore(9, 4000000000u);
    EXPECT_EQ(getSurvivalScore(9), 4000000000u);
    EXPECT_EQ(readFileBytes(scorePath).substr(112, 4), bigEndian(4000000000u));

    saveSurvivalScore(9, 2000000000u);  // would beat it as a signed number
    EXPECT_EQ(getSurvivalScore(9), 4000000000u);
    saveSurvivalScore(9, 0xFFFFFFFFu);
    EXPECT_EQ(getSurvivalScore(9), 0xFFFFFFFFu);
}

TEST_F(ScoreFile, EverySaveLeavesOneHundredSixtyBytes)
{
    for (int map = 1; map <= 20; map++) {
        saveStageScore(map, static_cast<uint32_t>(map * 1000));
        saveSurvivalScore(map, static_cast<uint32_t>(map * 7));
        ASSERT_EQ(readFileBytes(scorePath).size(), 160u) << "map " << map;
    }
    for (int map = 1; map <= 20; map++) {
        EXPECT_EQ(getStageScore(map), static_cast<uint32_t>(map * 1000));
        EXPECT_EQ(getSurvivalScore(map), static_cast<uint32_t>(map * 7));
    }
    EXPECT_FALSE(fileExists(scorePath + ".tmp"));
}

TEST_F(ScoreFile, DeletedFileStartsOverAtZero)
{
    saveStageScore(4, 1234);
    std::filesystem::remove(scorePath);
    testing::internal::CaptureStdout();
    EXPECT_EQ(getStageScore(4), 0u);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Created new score file\n");
}

TEST_F(ScoreFile, ShortFileReadsZerosPastItsEndAndGrowsToFullSize)
{
    writeFileBytes(scorePath, bigEndian(77) + std::string("\x00\x00", 2));
    EXPECT_EQ(getStageScore(1), 77u);
    EXPECT_EQ(getStageScore(2), 0u) << "half a value";
    EXPECT_EQ(getSurvivalScore(20), 0u) << "past the end";

    saveSurvivalScore(20, 5);
    EXPECT_EQ(readFileBytes(scorePath), zerosWith(0, 77).replace(156, 4, bigEndian(5)));
}

TEST_F(ScoreFile, FailedRewriteKeepsTheOldFile)
{
    saveStageScore(3, 100);
    std::string before = readFileBytes(scorePath);
    // The temporary file cannot be made where a folder of its name stands.
    std::filesystem::create_directory(scorePath + ".tmp");

    testing::internal::CaptureStderr();
    saveStageScore(3, 200);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot save score!\n");
    EXPECT_EQ(readFileBytes(scorePath), before);
    EXPECT_EQ(getStageScore(3), 100u);
}

TEST_F(ScoreFile, MissingFolderGivesZerosAndSavesNothing)
{
    std::filesystem::remove_all("content");
    testing::internal::CaptureStderr();
    EXPECT_EQ(getStageScore(1), 0u);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Couldn't create new score file!\nCouldn't open score file!\n");

    testing::internal::CaptureStderr();
    saveSurvivalScore(1, 10);
    std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_NE(errors.find("Couldn't open score file!"), std::string::npos);
    EXPECT_EQ(errors.find("Cannot save score!"), std::string::npos) << "it stops before writing";
    EXPECT_FALSE(fileExists(scorePath));
}

TEST_F(ScoreFile, MapNumbersOutsideOneToTwentyTouchNothing)
{
    getStageScore(1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(getStageScore(0), 0u);
    EXPECT_EQ(getSurvivalScore(21), 0u);
    saveStageScore(21, 99);      // would be map 1 of survival
    saveSurvivalScore(-1, 99);
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(readFileBytes(scorePath), std::string(160, '\0'));
}

}  // namespace
