// The command line, the player's folder, and where the game finds its content.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "shell/command_line.h"
#include "shell/player_folder.h"
#include "support/scratch_dir.h"

namespace fs = std::filesystem;

namespace {

// The record in a few words; an unusable line gives its error.
std::string summary(const std::vector<std::string>& arguments)
{
    const CommandLine line = parseCommandLine(arguments);
    if (!line.error.empty()) return "error: " + line.error;
    std::string words = "ok";
    if (line.showHelp) words += " help";
    if (line.showVersion) words += " version";
    if (line.windowTypeGiven) words += line.fullscreen ? " fullscreen" : " windowed";
    if (line.width != 0) words += " " + std::to_string(line.width) + "x" + std::to_string(line.height);
    if (line.mute) words += " mute";
    if (!line.dataDir.empty()) words += " in " + line.dataDir;
    return words;
}

}  // namespace

TEST(CommandLine, EachOptionItsValuesAndEveryWayToGetItWrong)
{
    struct Row {
        std::vector<std::string> arguments;
        std::string expected;  // an error is compared by its beginning
    };
    const Row rows[] = {
        {{}, "ok"},
        {{"--help"}, "ok help"},
        {{"--version"}, "ok version"},
        {{"--fullscreen", "--mute"}, "ok fullscreen mute"},
        {{"--fullscreen", "--windowed"}, "ok windowed"},
        {{"--resolution", "1280x720"}, "ok 1280x720"},
        {{"--resolution=512x8192"}, "ok 512x8192"},
        {{"--data-dir", "/srv/p", "--data-dir=rel"}, "ok in rel"},
        {{"--resolution", "511x600"}, "error: bad resolution '511x600': give WIDTHxHEIGHT, each from 512 to 8192"},
        {{"--resolution", "800x8193"}, "error: bad resolution '800x8193'"},
        {{"--resolution", "800"}, "error: bad resolution '800'"},
        {{"--resolution", "800x600x"}, "error: bad resolution"},
        {{"--resolution", "4294967808x600"}, "error: bad resolution"},  // 2^32 + 512
        {{"--resolution", "+800x600"}, "error: bad resolution"},
        {{"--resolution", "x600"}, "error: bad resolution"},
        {{"--resolution"}, "error: --resolution needs a value: --resolution WxH"},
        {{"--data-dir="}, "error: --data-dir needs a folder"},
        {{"--mute=yes"}, "error: --mute takes no value"},
        {{"--help", "--frobnicate"}, "error: unknown option --frobnicate"},
        {{"-h"}, "error: unknown option -h"},
        {{"map3"}, "error: unexpected argument 'map3'"},
    };
    for (const Row& row : rows) {
        const std::string got = summary(row.arguments);
        const bool isError = row.expected.compare(0, 6, "error:") == 0;
        EXPECT_EQ(isError ? got.substr(0, row.expected.size()) : got, row.expected)
            << "arguments: " << ::testing::PrintToString(row.arguments);
    }
    const std::string help = helpText();
    for (const char* option : {"--help", "--version", "--windowed", "--fullscreen", "--resolution WxH",
                               "--mute", "--data-dir DIR", "ESC, P", "X A B Y"})
        EXPECT_NE(help.find(option), std::string::npos) << option;
}

TEST(PlayerFolder, MadeOnFirstStartWithTheContentLinkedAndThePlayersFilesKept)
{
    ScratchDir scratch;
    const fs::path root = scratch.path();
    // An install (with a developer's files in it, as a build's content has),
    // and the folder a player has used with an older install.
    fs::create_directories(root / "prefix/lib/gorvan");
    fs::create_directories(root / "prefix/share/gorvan/content/maps");
    for (const char* name : {"images.sfa", "settings.dat", "scores.dat", "fps.dat"})
        writeFileBytes((root / "prefix/share/gorvan/content" / name).string(), "installed");
    fs::create_directories(root / "player/content");
    writeFileBytes((root / "player/content/scores.dat").string(), "best");
    fs::create_directory_symlink(root / "old/maps", root / "player/content/maps");

    const std::string content = installedContentFor((root / "prefix/lib/gorvan/gorvan").string());
    EXPECT_EQ(content, (root / "prefix/share/gorvan/content").string());
    EXPECT_EQ(installedContentFor((root / "build/run/gorvan").string()), "");

    std::string reason;
    ASSERT_TRUE(enterPlayerFolder("player", content, &reason)) << reason;
    EXPECT_EQ(fs::current_path(), root / "player");
    EXPECT_EQ(fs::read_symlink("content/images.sfa"), root / "prefix/share/gorvan/content/images.sfa");
    EXPECT_EQ(fs::read_symlink("content/maps"), root / "prefix/share/gorvan/content/maps");
    EXPECT_FALSE(fs::exists(fs::symlink_status("content/settings.dat")));
    EXPECT_FALSE(fs::exists(fs::symlink_status("content/fps.dat")));
    EXPECT_EQ(readFileBytes("content/scores.dat"), "best");
    EXPECT_FALSE(fs::is_symlink("content/scores.dat"));
    EXPECT_TRUE(fs::is_directory("screenshots"));

    EXPECT_FALSE(enterPlayerFolder("/proc/gorvan", content, &reason));
    EXPECT_EQ(reason.rfind("cannot make the folder /proc/gorvan/content: ", 0), 0u) << reason;
    EXPECT_FALSE(enterPlayerFolder(".", "/nowhere", &reason));
    EXPECT_EQ(reason.rfind("cannot read the game's content in /nowhere: ", 0), 0u) << reason;
}

TEST(PlayerFolder, LiesInTheDataHomeOfEachPlayer)
{
    EXPECT_EQ(defaultPlayerFolder("/var/p/data", "/home/p"), "/var/p/data/gorvan");
    EXPECT_EQ(defaultPlayerFolder(nullptr, "/home/q"), "/home/q/.local/share/gorvan");
    EXPECT_EQ(defaultPlayerFolder("data", "/home/q"), "/home/q/.local/share/gorvan");  // not absolute
    EXPECT_EQ(defaultPlayerFolder("", ""), "");
}
