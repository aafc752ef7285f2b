// The desktop's notice and opener programs, with fake programs on PATH that
// write down their arguments instead of showing anything.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <sys/stat.h>
#include <thread>

#include "platform/desktop_launch.h"
#include "support/scratch_dir.h"

TEST(DesktopLaunch, NoticeProgramsInTurnWithArgumentsAsTheyAreAndTheOpener)
{
    ScratchDir scratch;
    const std::string path = std::getenv("PATH");
    setenv("PATH", scratch.path().c_str(), 1);
    auto fake = [](const std::string& name, int exitStatus) {  // writes its arguments to NAME.args
        writeFileBytes(name, "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > \"${0%/*}/" + name +
                                 ".args\"\nexit " + std::to_string(exitStatus) + "\n");
        chmod(name.c_str(), 0755);
    };
    EXPECT_FALSE(showNoticeWithDesktopTools("Error!", "nothing installed"));
    fake("zenity", 1);  // 1: the window was closed, so it was shown
    EXPECT_TRUE(showNoticeWithDesktopTools("Error!", "It's <bad> & $HOME; \"quoted\""));
    EXPECT_EQ(readFileBytes("zenity.args"), "--error\n--no-markup\n--title=Error!\n--text=It's <bad> & $HOME; \"quoted\"\n");
    fake("zenity", 255);
    fake("kdialog", 254);
    fake("xmessage", 0);
    EXPECT_TRUE(showNoticeWithDesktopTools("Error!", "Couldn't create window!"));
    EXPECT_EQ(readFileBytes("kdialog.args"), "--title\nError!\n--error\nCouldn't create window!\n");
    EXPECT_EQ(readFileBytes("xmessage.args"), "-center\n-title\nError!\n-buttons\nOK:0\n-default\nOK\nCouldn't create window!\n");

    EXPECT_FALSE(startWebOpener("https://example.org/"));
    fake("xdg-open", 0);
    EXPECT_TRUE(startWebOpener("https://example.org/a b?c=1&d=$x"));
    std::string arguments;  // not waited for: the file appears when the opener has run
    for (int i = 0; i < 500 && arguments.empty(); i++, std::this_thread::sleep_for(std::chrono::milliseconds(10)))
        arguments = readFileBytes("xdg-open.args");
    EXPECT_EQ(arguments, "https://example.org/a b?c=1&d=$x\n");
    setenv("PATH", path.c_str(), 1);
}
