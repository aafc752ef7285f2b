// The program's entry on the test backend: a whole run from the boot screen
// through the menu, a game, its restart and the way back, and the one handler
// that turns whatever a start-up throws into a line on stderr and a notice.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

#include "base/random.h"
#include "data/settings.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "shell/program.h"
#include "shell/spine_rules.h"
#include "shell/startup.h"
#include "support/play_session.h"

namespace {

struct ProgramRun {
    int returned;
    std::string out, err;
};

ProgramRun runProgram()
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int returned = runGorvan();
    ProgramRun run{returned, testing::internal::GetCapturedStdout(), ""};
    run.err = testing::internal::GetCapturedStderr();
    return run;
}

void press(unsigned round, int key)
{
    testBackend::keyAt(round, key, true);
    testBackend::keyAt(round + 2, key, false);
}

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

TEST(Program, PlaysRestartsGoesBackToTheMenuAndQuits)
{
    ScratchDir dir;
    linkBuiltContent();
    testBackend::reset();
    setFullscreen(true);  // "Auto" in fullscreen: the desktop's size, kept small
    testBackend::setDesktopMode(GLFWvidmode{100, 60, 8, 8, 8});
    testBackend::setFrameCost(0.05);
    // The boot screen's length depends on its random lines; it ends with a
    // second's stand-still. The script starts with the menu's first frame.
    unsigned menuStart = 0;
    double lastFrame = -1;
    testBackend::watchFrames([&](unsigned round) {
        if (menuStart == 0 && lastFrame >= 0 && testBackend::now() - lastFrame > 0.5) {
            menuStart = round;
            press(round + 5, GLFW_KEY_ENTER);    // "1 player game"
            press(round + 15, GLFW_KEY_ENTER);   // map 1; the game begins after the fade
            press(round + 200, GLFW_KEY_ESC);    // pause
            press(round + 210, GLFW_KEY_DOWN);
            press(round + 220, GLFW_KEY_ENTER);  // "Restart level"
            press(round + 400, GLFW_KEY_ESC);
            press(round + 410, GLFW_KEY_UP);
            press(round + 420, GLFW_KEY_ENTER);  // "Exit to menu"
            press(round + 600, GLFW_KEY_ESC);    // quits on the main page
            testBackend::closeAt(round + 2000);  // in case the road goes elsewhere
        }
        lastFrame = testBackend::now();
    });
    const ProgramRun run = runProgram();
    testBackend::watchFrames(nullptr);

    EXPECT_EQ(run.returned, 0);
    EXPECT_TRUE(testBackend::notices().empty());  // the handler never ran
    EXPECT_NE(run.out.find("\nProgram started\nGLFW initialized\nFMOD initialized\nWindow opened\n"
                           "GLEW initialized\nLoading shaders\n"),
              std::string::npos);
    EXPECT_NE(run.out.find("\nLoading images\nGenerating textures\n"), std::string::npos);
    EXPECT_NE(run.out.find("\nInitializing framebuffers\n"), std::string::npos);
    EXPECT_NE(run.out.find("\nThingz by Kelvarin\n"), std::string::npos);
    ASSERT_NE(menuStart, 0u);
    // The quit in the menu's round 601, then its closing transition.
    EXPECT_EQ(testBackend::round() - menuStart, 601u + 71u);
    EXPECT_FALSE(testBackend::window().open);
}

TEST(Program, WhatAStartUpThrowsBecomesAnErrorLineAndANotice)
{
    struct Case {
        std::function<void()> arm;
        const char* text;
    };
    const Case cases[] = {
        {[] { testBackend::failInit(true); }, "Couldn't initialize GLFW!"},
        {[] { testBackend::failOpenWindow(true); }, "Couldn't create window!"},
        {[] {
             testBackend::watchFrames([](unsigned) { throw std::runtime_error("no more frames"); });
         },
         "Standard exception: no more frames"},
        {[] { testBackend::watchFrames([](unsigned) { throw 42; }); }, "An unknown error occurred!"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        ScratchDir dir;
        linkBuiltContent();
        testBackend::reset();
        c.arm();
        const ProgramRun run = runProgram();
        EXPECT_EQ(run.returned, 0);
        EXPECT_TRUE(endsWith("\n" + run.err, std::string("\n") + c.text + "\n")) << run.err;
        ASSERT_EQ(testBackend::notices().size(), 1u);
        EXPECT_EQ(testBackend::notices()[0].title, "Error!");
        EXPECT_EQ(testBackend::notices()[0].text, c.text);
        testBackend::watchFrames(nullptr);
        shutDown();  // what the handler leaves behind
    }
}

TEST(SpineRules, TracksAndTheMenuAfterAGame)
{
    seedRandom(99);
    int seen[3][3] = {};
    for (int i = 0; i < 3000; ++i) {
        const uint8_t last = static_cast<uint8_t>(i % 3);
        const uint8_t track = chooseNextTrack(last);
        ASSERT_LT(track, 3);
        ASSERT_NE(track, last);
        ++seen[last][track];
    }
    EXPECT_GT(seen[0][1] + seen[1][2] + seen[2][0], 1300);  // both others come
    EXPECT_GT(seen[0][2] + seen[1][0] + seen[2][1], 1300);
    int first[3] = {};
    for (int i = 0; i < 300; ++i) ++first[chooseNextTrack(noTrack)];
    for (int count : first) EXPECT_GT(count, 50);

    struct Row {
        uint8_t result, players;
        bool survival;
        uint8_t entry;
    };
    for (Row row : {Row{resultChangeLevel, 1, false, 1}, Row{resultChangeLevel, 1, true, 2},
                    Row{resultChangeLevel, 2, true, 3}, Row{resultExitToMenu, 1, true, 0},
                    Row{resultResume, 2, true, 0}, Row{resultQuit, 1, false, 0},
                    Row{resultRestart, 1, false, 0}})
        EXPECT_EQ(menuEntryAfter(row.result, row.players, row.survival), row.entry)
            << int(row.result) << " " << int(row.players) << row.survival;
}
