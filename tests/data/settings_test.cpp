// content/settings.dat and content/fps.dat: the defaults, the example file
// byte for byte, flags written back normalised, volumes read once a run, and
// files that are short, missing or can't be made.
#include <gtest/gtest.h>

#include <filesystem>

#include "data/settings.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

const std::string settingsPath = "content/settings.dat";

// "width x height, fullscreen, tutorial, music, sound" as the getters give them.
std::string settings()
{
    uint16_t width = 7, height = 7;
    getResolution(&width, &height);
    return std::to_string(width) + "x" + std::to_string(height) + " " + (isFullscreen() ? "full" : "window") +
           (isTutorialEnabled() ? " tutorial " : " - ") + std::to_string(getMusicVolume()) + " " +
           std::to_string(getSoundVolume());
}

}  // namespace

TEST(SettingsFile, DefaultsExampleNormalisedFlagsAndCachedVolumes)
{
    ScratchDir scratch;
    forgetCachedVolumes();
    EXPECT_EQ(stdoutOf([] { EXPECT_TRUE(isTutorialEnabled()); }), "Created new settings file\n");
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0, 0, 0, 0, 0, 0, 60, 100}));
    EXPECT_EQ(settings(), "0x0 window tutorial 60 100");
    setResolution(1280, 720);
    setFullscreen(true);
    setTutorialEnabled(false);
    setMusicVolume(40);
    setSoundVolume(80);
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0x05, 0x00, 0x02, 0xD0, 0x01, 0x01, 0x28, 0x50}));
    EXPECT_EQ(settings(), "1280x720 full - 40 80");
    setTutorialEnabled(true);
    setFullscreen(false);
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0x05, 0x00, 0x02, 0xD0, 0, 0, 0x28, 0x50}));

    // Any value but 0 is on (fullscreen) or off (tutorial); a setter writes 1.
    // The volumes were read once: a change on disk doesn't reach them.
    writeFileBytes(settingsPath, bytes({0x03, 0x20, 0x02, 0x58, 7, 2, 20, 40}));
    EXPECT_EQ(settings(), "800x600 full - 40 80");
    setSoundVolume(60);
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0x03, 0x20, 0x02, 0x58, 1, 1, 40, 60}));
    forgetCachedVolumes();
    writeFileBytes(settingsPath, bytes({0x04, 0x00, 0x03}));  // short: the missing bytes are their defaults
    EXPECT_EQ(settings(), "1024x768 window tutorial 60 100");
    setFullscreen(true);
    EXPECT_EQ(readFileBytes(settingsPath), bytes({0x04, 0x00, 0x03, 0x00, 1, 0, 60, 100}));
    EXPECT_FALSE(fileExists(settingsPath + ".tmp"));
}

TEST(SettingsFile, WithoutAFolderTheStatedResultsAndTheFpsSwitch)
{
    ScratchDir scratch;
    forgetCachedVolumes();
    std::filesystem::remove_all("content");
    std::string errors = stderrOf([] {
        EXPECT_EQ(settings(), "0x0 window tutorial 60 100");
        setMusicVolume(20);  // not saved, but holds for this run
        EXPECT_EQ(getMusicVolume(), 20);
        EXPECT_FALSE(isFpsCounterEnabled());
    });
    for (const char* line : {"Couldn't create new settings file!\nCouldn't open settings file!\n", "Cannot save settings!\n",
                             "Couldn't create new fps file!\nCouldn't open fps file!\n"})
        EXPECT_NE(errors.find(line), std::string::npos) << line;
    forgetCachedVolumes();

    std::filesystem::create_directory("content");
    EXPECT_EQ(stdoutOf([] { EXPECT_FALSE(isFpsCounterEnabled()); }), "Created new fps file\n");
    EXPECT_EQ(readFileBytes("content/fps.dat"), "0\nChange the 0 to 1 to enable fps counter");
    // Only the first byte counts; an empty file has none, which is not '0'.
    for (auto [text, on] : {std::pair{"1\n", true}, {" 0", true}, {"", true}, {"0 and more", false}}) {
        writeFileBytes("content/fps.dat", text);
        EXPECT_EQ(isFpsCounterEnabled(), on) << '"' << text << '"';
    }
}
