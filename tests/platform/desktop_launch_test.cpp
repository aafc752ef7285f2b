// The desktop's notice and opener programs, with fake programs on PATH that
// write down their arguments instead of showing anything.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

#include "platform/desktop_launch.h"
#include "support/scratch_dir.h"

namespace {

class DesktopLaunch : public ::testing::Test {
protected:
    void SetUp() override
    {
        const char* display = std::getenv("DISPLAY");
        const char* path = std::getenv("PATH");
        savedPath = path ? path : "";
        savedDisplay = display ? display : "";
        hadDisplay = display != nullptr;
        setenv("PATH", scratch.path().c_str(), 1);
        setenv("DISPLAY", ":99", 1);
    }
    void TearDown() override
    {
        setenv("PATH", savedPath.c_str(), 1);
        hadDisplay ? setenv("DISPLAY", savedDisplay.c_str(), 1) : unsetenv("DISPLAY");
    }

    // A program that writes its arguments, one a line, to NAME.args beside
    // itself and exits with the given status. Needs nothing from PATH.
    void fakeProgram(const std::string& name, int exitStatus)
    {
        std::string file = scratch.path() + "/" + name;
        writeFileBytes(file, "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > \"${0%/*}/" + name
                                 + ".args\"\nexit " + std::to_string(exitStatus) + "\n");
        chmod(file.c_str(), 0755);
    }

    std::string argumentsOf(const std::string& name)
    {
        return readFileBytes(scratch.path() + "/" + name + ".args");
    }

    ScratchDir scratch;
    std::string savedPath, savedDisplay;
    bool hadDisplay = false;
};

}  // namespace

TEST_F(DesktopLaunch, NoticeGoesToZenityWithTitleAndTextAsTheyAre)
{
    fakeProgram("kdialog", 0);
    // zenity's 1 means the window was closed: still shown. Quotes, a dollar,
    // a semicolon and markup characters: no shell and no markup may touch them.
    for (int status : {0, 1}) {
        fakeProgram("zenity", status);
        EXPECT_TRUE(showNoticeWithDesktopTools("Error!", "It's <bad> & $HOME; \"quoted\""));
        EXPECT_EQ(argumentsOf("zenity"),
                  "--error\n--no-markup\n--title=Error!\n--text=It's <bad> & $HOME; \"quoted\"\n");
    }
    EXPECT_FALSE(fileExists(scratch.path() + "/kdialog.args"));
}

TEST_F(DesktopLaunch, FailingZenityHandsOverToKdialogThenXmessage)
{
    fakeProgram("zenity", 255);
    fakeProgram("kdialog", 254);
    fakeProgram("xmessage", 0);
    EXPECT_TRUE(showNoticeWithDesktopTools("Error!", "Couldn't create window!"));
    EXPECT_EQ(argumentsOf("kdialog"), "--title\nError!\n--error\nCouldn't create window!\n");
    EXPECT_EQ(argumentsOf("xmessage"),
              "-center\n-title\nError!\n-buttons\nOK:0\n-default\nOK\nCouldn't create window!\n");
}

TEST_F(DesktopLaunch, NoNoticeWithoutProgramsOrDisplay)
{
    EXPECT_FALSE(showNoticeWithDesktopTools("Error!", "nothing installed"));
    fakeProgram("xmessage", 1);  // xmessage's 1 is not its OK button
    EXPECT_FALSE(showNoticeWithDesktopTools("Error!", "xmessage failed"));
    fakeProgram("zenity", 0);
    unsetenv("DISPLAY");
    EXPECT_FALSE(showNoticeWithDesktopTools("Error!", "no display"));
    EXPECT_FALSE(fileExists(scratch.path() + "/zenity.args"));
}

TEST_F(DesktopLaunch, WebAddressGoesToXdgOpenWithoutWaiting)
{
    EXPECT_FALSE(startWebOpener("https://example.org/"));
    fakeProgram("xdg-open", 0);
    EXPECT_TRUE(startWebOpener("https://example.org/a b?c=1&d=$x"));
    // Not waited for: the file appears when the opener has run.
    std::string arguments;
    for (int i = 0; i < 500 && arguments.empty(); i++) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        arguments = argumentsOf("xdg-open");
    }
    EXPECT_EQ(arguments, "https://example.org/a b?c=1&d=$x\n");
    EXPECT_FALSE(startWebOpener(nullptr));
}
