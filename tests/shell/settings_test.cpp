#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "data/settings.h"
#include "support/scratch_dir.h"

namespace {

std::string bytes(std::initializer_list<int> values)
{
    std::string s;
    for (int v : values) s.push_back(static_cast<char>(v));
    return s;
}

class SettingsFile : public ::testing::Test {
protected:
    void SetUp() override { forgetCachedVolumes(); }
    void TearDown() override { forgetCachedVolumes(); }
    ScratchDir dir;
};

}  // namespace

TEST_F(SettingsFile, FirstReadMakesTheDefaultFile)
{
    testing::internal::CaptureStdout();
    EXPECT_TRUE(isTutorialEnabled());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Created new settings file\n");
    EXPECT_EQ(readFileBytes("content/settings.dat"), bytes({0, 0, 0, 0, 0, 0, 60, 100}));

    uint16_t width = 1, height = 1;
    getResolution(&width, &height);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
    EXPECT_FALSE(isFullscreen());
    EXPECT_EQ(getMusicVolume(), 60);
    EXPECT_EQ(getSoundVolume(), 100);
    EXPECT_FALSE(fileExists("content/settings.dat.tmp"));
}

TEST_F(SettingsFile, SettersWriteTheWholeFileBigEndianWithTheTutorialInverted)
{
    setResolution(1280, 720);
    setFullscreen(true);
    setTutorialEnabled(false);
    setMusicVolume(40);
    setSoundVolume(80);
    EXPECT_EQ(readFileBytes("content/settings.dat"),
              bytes({0x05, 0x00, 0x02, 0xD0, 0x01, 0x01, 0x28, 0x50}));

    uint16_t width, height;
    getResolution(&width, &height);
    EXPECT_EQ(width, 1280);
    EXPECT_EQ(height, 720);
    EXPECT_TRUE(isFullscreen());
    EXPECT_FALSE(isTutorialEnabled());
}

TEST_F(SettingsFile, FlagsAreWrittenBackNormalisedAndWidthZeroIsAuto)
{
    writeFileBytes("content/settings.dat", bytes({0x03, 0x20, 0x02, 0x58, 7, 2, 20, 40}));
    EXPECT_TRUE(isFullscreen());
    EXPECT_FALSE(isTutorialEnabled());  // any value but 0 is off
    setSoundVolume(60);
    EXPECT_EQ(readFileBytes("content/settings.dat"), bytes({0x03, 0x20, 0x02, 0x58, 1, 1, 20, 60}));

    // Width 0 with any height is "Auto".
    writeFileBytes("content/settings.dat", bytes({0, 0, 0x02, 0x58, 0, 0, 60, 100}));
    uint16_t width, height;
    getResolution(&width, &height);
    EXPECT_EQ(width, 0);
}

TEST_F(SettingsFile, VolumesAreReadOnceARun)
{
    writeFileBytes("content/settings.dat", bytes({0, 0, 0, 0, 0, 0, 20, 40}));
    EXPECT_EQ(getMusicVolume(), 20);
    EXPECT_EQ(getSoundVolume(), 40);
    // A change on disk while the game runs does not reach the cached volumes.
    writeFileBytes("content/settings.dat", bytes({0, 0, 0, 0, 0, 0, 80, 100}));
    EXPECT_EQ(getMusicVolume(), 20);
    EXPECT_EQ(getSoundVolume(), 40);
    setMusicVolume(0);
    EXPECT_EQ(getMusicVolume(), 0);
}

TEST_F(SettingsFile, ShortOrEmptyFilesGiveTheDefaultsOfTheMissingFields)
{
    writeFileBytes("content/settings.dat", bytes({0x04, 0x00, 0x03}));
    uint16_t width, height;
    getResolution(&width, &height);
    EXPECT_EQ(width, 1024);
    EXPECT_EQ(height, 0x0300);  // the missing low byte is 0
    EXPECT_FALSE(isFullscreen());
    EXPECT_TRUE(isTutorialEnabled());
    EXPECT_EQ(getMusicVolume(), 60);

    writeFileBytes("content/settings.dat", "");
    forgetCachedVolumes();
    EXPECT_EQ(getSoundVolume(), 100);
    setFullscreen(true);  // a setter repairs the file to its full 8 bytes
    EXPECT_EQ(readFileBytes("content/settings.dat").size(), 8u);
}

TEST_F(SettingsFile, UnreadableFolderGivesTheStatedResultsWithoutCrashing)
{
    if (geteuid() == 0) {
        // root reads and writes anything; a missing folder stands in instead.
        std::filesystem::remove_all("content");
    } else {
        chmod("content", 0);
    }
    testing::internal::CaptureStderr();
    uint16_t width = 5, height = 5;
    getResolution(&width, &height);
    EXPECT_EQ(width, 0);
    EXPECT_FALSE(isFullscreen());
    EXPECT_TRUE(isTutorialEnabled());
    EXPECT_EQ(getMusicVolume(), 60);
    setMusicVolume(20);  // not saved, but holds for this run
    EXPECT_EQ(getMusicVolume(), 20);
    std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_NE(errors.find("Couldn't create new settings file!\n"), std::string::npos);
    EXPECT_NE(errors.find("Couldn't open settings file!\n"), std::string::npos);
    EXPECT_NE(errors.find("Cannot save settings!\n"), std::string::npos);
    chmod("content", 0755);
}

TEST_F(SettingsFile, FpsSwitchIsTheFirstByte)
{
    testing::internal::CaptureStdout();
    EXPECT_FALSE(isFpsCounterEnabled());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Created new fps file\n");
    EXPECT_EQ(readFileBytes("content/fps.dat"), "0\nChange the 0 to 1 to enable fps counter");

    writeFileBytes("content/fps.dat", "1\n");
    EXPECT_TRUE(isFpsCounterEnabled());
    writeFileBytes("content/fps.dat", " 0");
    EXPECT_TRUE(isFpsCounterEnabled());
    writeFileBytes("content/fps.dat", "");
    EXPECT_TRUE(isFpsCounterEnabled());  // nothing to read differs from '0'
}
