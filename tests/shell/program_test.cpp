// The program's entry on the test backend: a whole run from the boot screen
// through the menu, a game, its restart and back; the handler that turns what
// a start-up throws into a line on stderr and a notice; the rules between games.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/random.h"
#include "data/settings.h"
#include "play/game.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/text.h"
#include "shell/program.h"
#include "shell/spine_rules.h"
#include "shell/startup.h"
#include "support/input_script.h"
#include "support/play_session.h"

namespace {

struct ProgramRun { int returned; std::string out, err; };  // from runGorvan

ProgramRun runProgram()
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    char name[] = "gorvan";
    char* argv[] = {name, nullptr};
    ProgramRun run{runGorvan(1, argv), testing::internal::GetCapturedStdout(), ""};
    run.err = testing::internal::GetCapturedStderr();
    return run;
}

}  // namespace

TEST(Program, PlaysRestartsGoesBackToTheMenuAndQuits)
{
    ScratchDir dir;
    linkBuiltContent();
    testBackend::reset();
    setResolution(1366, 768);  // not among the desktop's modes: "Auto",
    setFullscreen(true);       // which in fullscreen is the desktop's size, here tiny
    testBackend::setDesktopMode(GLFWvidmode{100, 60, 8, 8, 8});
    testBackend::setFrameCost(0.05);
    // The boot screen's length depends on its random lines, and it ends with a
    // second's stand-still: the script counts from the menu's first frame.
    unsigned menuStart = 0;
    double lastFrame = -1;
    int bootTopRow = 0;  // the brightest pixel of the boot screen's top row, last frame
    testBackend::watchFrames([&](unsigned round) {
        if (menuStart == 0 && lastFrame >= 0 && testBackend::now() - lastFrame > 0.5) {
            menuStart = round;
            for (uint32_t texture : {fontTexture, panelButtonTexture, screenTexture, surfaceTexture})
                EXPECT_TRUE(glIsTexture(texture));  // what the start-up made
            const int enter = GLFW_KEY_ENTER, escape = GLFW_KEY_ESC;
            InputScript(round + 5).press(enter).wait(6).press(enter);  // "1 player game", map 1
            // Pause, "Restart level"; pause, "Exit to menu"; Escape quits on the main page.
            InputScript(round + 200).press(escape).wait(6).press(GLFW_KEY_DOWN).wait(6).press(enter);
            InputScript(round + 400).press(escape).wait(6).press(GLFW_KEY_UP).wait(6).press(enter);
            InputScript(round + 600).press(escape);
            testBackend::closeAt(round + 2000);  // should the road go elsewhere
        } else if (menuStart == 0) {
            std::vector<uint8_t> top(100 * 30 * 3);  // the console's first row, doubled
            glReadPixels(0, 30, 100, 30, GL_RGB, GL_UNSIGNED_BYTE, top.data());
            bootTopRow = *std::max_element(top.begin(), top.end());
        }
        lastFrame = testBackend::now();
    });
    const ProgramRun run = runProgram();
    testBackend::watchFrames(nullptr);

    EXPECT_EQ(run.returned, 0);
    EXPECT_TRUE(testBackend::notices().empty());  // the handler never ran
    for (const char* lines : {"\nProgram started\nGLFW initialized\nFMOD initialized\n"
                              "Window opened\nGLEW initialized\nLoading shaders\n",
                              "\nLoading images\nGenerating textures\n",
                              "\nInitializing framebuffers\n", "\nThingz by Kelvarin\n"})
        EXPECT_NE(run.out.find(lines), std::string::npos) << lines;
    EXPECT_GT(bootTopRow, 150);  // where the author's line rests in the end
    ASSERT_NE(menuStart, 0u);
    EXPECT_EQ(testBackend::round() - menuStart, 601u + 71u);  // and the menu's fade
    EXPECT_EQ(testBackend::window().requestedWidth, 100);
}

TEST(Program, WhatAStartUpThrowsBecomesAnErrorLineAndANotice)
{
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[] { testBackend::failInit(true); }, "Couldn't initialize GLFW!"},
        {[] { testBackend::failOpenWindow(true); }, "Couldn't create window!"},
        {[] { testBackend::watchFrames([](unsigned) { throw std::runtime_error("no frames"); }); },
         "Standard exception: no frames"},
        {[] { testBackend::watchFrames([](unsigned) { throw 42; }); }, "An unknown error occurred!"},
    };
    for (const auto& [arm, text] : cases) {
        SCOPED_TRACE(text);
        ScratchDir dir;
        linkBuiltContent();
        testBackend::reset();
        arm();
        const ProgramRun run = runProgram();
        EXPECT_EQ(run.returned, 0);
        // The handler's line is the last on stderr.
        const std::string err = "\n" + run.err, line = std::string("\n") + text + "\n";
        EXPECT_EQ(err.substr(err.size() - std::min(err.size(), line.size())), line);
        ASSERT_EQ(testBackend::notices().size(), 1u);
        EXPECT_EQ(testBackend::notices()[0].title, "Error!");
        EXPECT_EQ(testBackend::notices()[0].text, text);
        testBackend::watchFrames(nullptr);
        shutDown();  // what the handler leaves behind
    }
}

TEST(SpineRules, TheTrackChangesAndTheMenuOpensWhereTheGameSays)
{
    seedRandom(99);
    int seen[3] = {};  // never the track of the game before; the first any of three
    for (int i = 0; i < 300; ++i) ASSERT_NE(chooseNextTrack(static_cast<uint8_t>(i % 3)), i % 3);
    for (int i = 0; i < 300; ++i) ++seen[chooseNextTrack(noTrack) % 3];
    EXPECT_TRUE(seen[0] > 50 && seen[1] > 50 && seen[2] > 50);

    // Result, players, survival, and where the next menu opens.
    const int rows[][4] = {{resultChangeLevel, 1, 0, 1}, {resultChangeLevel, 1, 1, 2},
                           {resultChangeLevel, 2, 1, 3}, {resultExitToMenu, 1, 1, 0},
                           {resultResume, 2, 1, 0},      {resultQuit, 1, 0, 0},
                           {resultRestart, 1, 0, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(menuEntryAfter(row[0], row[1], row[2] != 0), row[3]) << row[0] << row[1] << row[2];
}
