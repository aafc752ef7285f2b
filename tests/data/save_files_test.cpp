// The files the game writes: content/scores.dat (byte layout, saves compared
// unsigned), content/settings.dat (defaults, the example file byte for byte,
// flags written back normalised, volumes read once a run) and content/fps.dat;
// and files that are missing, short or can't be written.
#include <gtest/gtest.h>

#include <filesystem>

#include "data/scores.h"
#include "data/settings.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

const std::string scorePath = "content/scores.dat";

// 160 bytes of fill with big-endian values at the given offsets.
std::string scoreFile(char fill, std::initializer_list<std::pair<size_t, uint32_t>> values)
{
    std::string file(160, fill);
    for (auto [offset, v] : values)
        file.replace(offset, 4, bytes({int(v >> 24), int(v >> 16 & 255), int(v >> 8 & 255), int(v & 255)}));
    return file;
}

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

TEST(ScoreFile, LayoutUnsignedSavesAndShortUnwritableOrMissingFiles)
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
    EXPECT_EQ(getStageScore(3), 0x11111111u) << "the tables are apart";

    // Only a higher score is stored, compared unsigned (2000000000 would beat 4000000000 signed).
    writeFileBytes(scorePath, std::string(160, '\0'));
    const uint32_t big = 4000000000u;
    for (auto [saved, stored] : {std::pair<uint32_t, uint32_t>{0, 0}, {500, 500}, {499, 500}, {big, big},
                                 {2000000000u, big}, {0xFFFFFFFFu, 0xFFFFFFFFu}}) {
        saveSurvivalScore(9, saved);
        EXPECT_EQ(readFileBytes(scorePath), scoreFile('\0', {{112, stored}})) << saved;
    }

    // A short file reads zeros past its end and is filled up by a save.
    writeFileBytes(scorePath, bytes({0, 0, 0, 77, 0, 0}));
    EXPECT_EQ(getStageScore(1), 77u);
    EXPECT_EQ(getStageScore(2), 0u) << "half a value";
    EXPECT_EQ(getSurvivalScore(20), 0u) << "past the end";
    const auto openFiles = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const auto openBefore = openFiles();
    saveSurvivalScore(20, 5);
    EXPECT_EQ(openFiles(), openBefore) << "a save leaves no file open";
    const std::string expected = scoreFile('\0', {{0, 77}, {156, 5}});
    EXPECT_EQ(readFileBytes(scorePath), expected);

    // While a replay plays the scores hold still: every read gives the best it
    // was played against and nothing is stored, until they are let go.
    holdScores(1000);
    saveStageScore(1, 5000);
    EXPECT_EQ(getStageScore(1), 1000u);
    releaseScores();
    EXPECT_EQ(getStageScore(1), 77u);
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

TEST(SettingsFile, DefaultsExampleNormalisedFlagsCachedVolumesAndTheFpsSwitch)
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

    // Without a folder: the stated results, and the messages.
    forgetCachedVolumes();
    std::filesystem::remove_all("content");
    std::string errors = stderrOf([] {
        EXPECT_EQ(settings(), "0x0 window tutorial 60 100");
        setMusicVolume(20);  // not saved, but holds for this run
        EXPECT_EQ(getMusicVolume(), 20);
        EXPECT_FALSE(isFpsCounterEnabled());
    });
    for (auto line : {"Couldn't create new settings file!\nCouldn't open settings file!\n",
                      "Cannot save settings!\n", "Couldn't create new fps file!\nCouldn't open fps file!\n"})
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
