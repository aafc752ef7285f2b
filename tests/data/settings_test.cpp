// content/settings.dat and content/fps.dat: the defaults, the example file
// byte for byte, flags written back normalised, the volumes read once a run,
// and files that are short, missing or can't be made.
#include <gtest/gtest.h>

#include <filesystem>

#include "data/settings.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

const std::string settingsPath = "content/settings.dat";

std::string resolution()
{
    uint16_t width = 7, height = 7;
    getResolution(&width, &height);
    return std::to_string(width) + "x" + std::to_string(height);
}

class SettingsFile : public ::testing::Test {
protected:
    void SetUp() override { forgetCachedVolumes(); }
    void TearDown() override { forgetCachedVolumes(); }
    ScratchDir dir;
};

}  // namespace

TEST_F(SettingsFile, DefaultsExampleAndNormalisedFlags)
{
    EXPECT_EQ(stdoutOf([] { EXPECT_TRUE(isTutorialEnabled()); }), "Created new settings file\n");
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0, 0, 0, 0, 0, 0, 60, 100}));
    EXPECT_EQ(resolution(), "0x0");
    EXPECT_FALSE(isFullscreen());
    EXPECT_EQ(getMusicVolume(), 60);
    EXPECT_EQ(getSoundVolume(), 100);

    setResolution(1280, 720);
    setFullscreen(true);
    setTutorialEnabled(false);
    setMusicVolume(40);
    setSoundVolume(80);
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0x05, 0x00, 0x02, 0xD0, 0x01, 0x01, 0x28, 0x50}));
    EXPECT_EQ(resolution(), "1280x720");
    EXPECT_TRUE(isFullscreen());
    EXPECT_FALSE(isTutorialEnabled());
    setTutorialEnabled(true);
    setFullscreen(false);
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0x05, 0x00, 0x02, 0xD0, 0, 0, 0x28, 0x50}));

    // Any value but 0 is on (fullscreen) or off (tutorial); a setter writes 1.
    writeFileBytes(settingsPath, bytes({0x03, 0x20, 0x02, 0x58, 7, 2, 20, 40}));
    EXPECT_TRUE(isFullscreen());
    EXPECT_FALSE(isTutorialEnabled());
    forgetCachedVolumes();
    setSoundVolume(60);
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0x03, 0x20, 0x02, 0x58, 1, 1, 20, 60}));
    EXPECT_FALSE(fileExists(settingsPath + ".tmp"));
}

TEST_F(SettingsFile, VolumesAreReadOnceARunAndShortFilesGiveDefaults)
{
    writeFileBytes(settingsPath, bytes({0, 0, 0, 0, 0, 0, 20, 40}));
    EXPECT_EQ(getMusicVolume(), 20);
    EXPECT_EQ(getSoundVolume(), 40);
    writeFileBytes(settingsPath, bytes({0, 0, 0, 0, 0, 0, 80, 100}));  // changed while the game runs
    EXPECT_EQ(getMusicVolume(), 20);
    EXPECT_EQ(getSoundVolume(), 40);
    setMusicVolume(0);
    EXPECT_EQ(getMusicVolume(), 0);

    writeFileBytes(settingsPath, bytes({0x04, 0x00, 0x03}));
    forgetCachedVolumes();
    EXPECT_EQ(resolution(), "1024x768");  // the missing low byte is 0
    EXPECT_FALSE(isFullscreen());
    EXPECT_TRUE(isTutorialEnabled());
    EXPECT_EQ(getMusicVolume(), 60);
    EXPECT_EQ(getSoundVolume(), 100);
    setFullscreen(true);  // a setter repairs the file to its full 8 bytes
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0x04, 0x00, 0x03, 0x00, 1, 0, 60, 100}));
}

TEST_F(SettingsFile, WithoutAFolderTheStatedResultsAndTheFpsSwitch)
{
    std::filesystem::remove_all("content");
    std::string errors = stderrOf([] {
        EXPECT_EQ(resolution(), "0x0");
        EXPECT_FALSE(isFullscreen());
        EXPECT_TRUE(isTutorialEnabled());
        EXPECT_EQ(getMusicVolume(), 60);
        setMusicVolume(20);  // not saved, but holds for this run
        EXPECT_EQ(getMusicVolume(), 20);
        EXPECT_FALSE(isFpsCounterEnabled());
    });
    for (const char* line : {"Couldn't create new settings file!\n", "Couldn't open settings file!\n",
                             "Cannot save settings!\n", "Couldn't create new fps file!\nCouldn't open fps file!\n"})
        EXPECT_NE(errors.find(line), std::string::npos) << line;

    std::filesystem::create_directory("content");
    EXPECT_EQ(stdoutOf([] { EXPECT_FALSE(isFpsCounterEnabled()); }), "Created new fps file\n");
    EXPECT_EQ(readFileBytes("content/fps.dat"), "0\nChange the 0 to 1 to enable fps counter");
    // Only the first byte counts; an empty file has none, which is not '0'.
    for (auto [text, on] : {std::pair{"1\n", true}, {" 0", true}, {"", true}, {"0 and more", false}}) {
        writeFileBytes("content/fps.dat", text);
        EXPECT_EQ(isFpsCounterEnabled(), on) << '"' << text << '"';
    }
}
