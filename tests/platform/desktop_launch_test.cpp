// The desktop's notice and opener programs, with fake programs on PATH that
// write down their arguments instead of showing anything.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <thread>

#include "platform/desktop_launch.h"
#include "support/scratch_dir.h"

namespace {

// A program that writes its arguments, one a line, to NAME.args beside itself.
void fakeProgram(const std::string& name, int exitStatus)
{
    writeFileBytes(name, "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > \"${0%/*}/" + name +
                             ".args\"\nexit " + std::to_string(exitStatus) + "\n");
    chmod(name.c_str(), 0755);
}

}  // namespace

TEST(DesktopLaunch, NoticeProgramsInTurnAndTheOpener)
{
    ScratchDir scratch;
    const std::string path = std::getenv("PATH"), display = std::getenv("DISPLAY") ? std::getenv("DISPLAY") : "";
    setenv("PATH", scratch.path().c_str(), 1);
    setenv("DISPLAY", ":99", 1);
    EXPECT_FALSE(showNoticeWithDesktopTools("Error!", "nothing installed"));
    fakeProgram("xmessage", 1);  // xmessage's 1 is not its OK button
    EXPECT_FALSE(showNoticeWithDesktopTools("Error!", "xmessage failed"));
    // No shell and no markup may touch quotes, a dollar, a semicolon or markup characters.
    for (int status : {0, 1}) {  // zenity's 1 means the window was closed: still shown
        fakeProgram("zenity", status);
        EXPECT_TRUE(showNoticeWithDesktopTools("Error!", "It's <bad> & $HOME; \"quoted\""));
        EXPECT_EQ(readFileBytes("zenity.args"), "--error\n--no-markup\n--title=Error!\n--text=It's <bad> & $HOME; \"quoted\"\n");
    }
    fakeProgram("zenity", 255);
    fakeProgram("kdialog", 254);
    fakeProgram("xmessage", 0);
    EXPECT_TRUE(showNoticeWithDesktopTools("Error!", "Couldn't create window!"));
    EXPECT_EQ(readFileBytes("kdialog.args"), "--title\nError!\n--error\nCouldn't create window!\n");
    EXPECT_EQ(readFileBytes("xmessage.args"), "-center\n-title\nError!\n-buttons\nOK:0\n-default\nOK\nCouldn't create window!\n");
    unsetenv("DISPLAY");
    std::remove("zenity.args");
    EXPECT_FALSE(showNoticeWithDesktopTools("Error!", "no display"));
    EXPECT_FALSE(fileExists("zenity.args"));

    EXPECT_FALSE(startWebOpener("https://example.org/"));
    fakeProgram("xdg-open", 0);
    EXPECT_TRUE(startWebOpener("https://example.org/a b?c=1&d=$x"));
    std::string arguments;  // not waited for: the file appears when the opener has run
    for (int i = 0; i < 500 && arguments.empty(); i++) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        arguments = readFileBytes("xdg-open.args");
    }
    EXPECT_EQ(arguments, "https://example.org/a b?c=1&d=$x\n");
    EXPECT_FALSE(startWebOpener(nullptr));
    setenv("PATH", path.c_str(), 1);
    display.empty() ? unsetenv("DISPLAY") : setenv("DISPLAY", display.c_str(), 1);
}
