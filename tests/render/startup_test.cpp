// The whole start-up on the test backend: the log, the boot console's text,
// the GL state it leaves, a window re-creation, the shutdown, and the
// farewell when the driver offers less than OpenGL 2.0.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/startup.h"
#include "shell/window.h"
#include "support/drawing_state.h"
#include "support/scratch_dir.h"

namespace fs = std::filesystem;

namespace {

// The built pictures and shaders, linked into a scratch folder.
void linkBuiltContent()
{
    for (const char* name : {"images.sfa", "shaders.sfa"}) {
        const fs::path built = fs::path(GORVAN_RUN_DIR) / "content" / name;
        if (fs::exists(built)) {
            fs::create_symlink(built, fs::path("content") / name);
        }
    }
}

std::vector<std::string> splitLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

// The state between drawing routines; after start-up also screen space.
void expectDrawingState(bool screenSpace)
{
    expectCommonDrawingState();
    GLint value = 0;
    glGetIntegerv(GL_MATRIX_MODE, &value);
    EXPECT_EQ(value, GL_MODELVIEW);
    if (screenSpace) {
        GLfloat projection[16];
        glGetFloatv(GL_PROJECTION_MATRIX, projection);
        EXPECT_FLOAT_EQ(projection[0], 2.0f / 800);
        EXPECT_FLOAT_EQ(projection[5], -2.0f / 600);
    }
}

TEST(StartUp, TypesTheBootScreenAndLeavesTheDrawingStateSet)
{
    ScratchDir scratch;
    linkBuiltContent();
    testBackend::reset();
    testing::internal::CaptureStdout();
    startUp();
    const std::string log = testing::internal::GetCapturedStdout();

    EXPECT_EQ(windowWidth, 1000);
    EXPECT_EQ(windowHeight, 600);
    expectDrawingState(true);
    EXPECT_TRUE(glIsTexture(fontTexture));
    EXPECT_TRUE(glIsTexture(panelButtonTexture));
    EXPECT_TRUE(glIsTexture(screenTexture));
    EXPECT_TRUE(glIsTexture(surfaceTexture));

    const std::vector<std::string> lines = splitLines(log);
    size_t ready = 0, dump = 0;
    for (size_t i = 0; i < lines.size(); i++) {
        if (lines[i] == "Ready for OpenGL 2.0") ready = i;
        if (lines[i] == "This is the stuff you see when the program starts:") dump = i;
    }
    ASSERT_GT(ready, 0u);
    ASSERT_GT(dump, ready);
    EXPECT_EQ(lines[ready + 1], "");
    EXPECT_EQ(lines[dump - 1], "This next thing is just for fun");
    ASSERT_GE(lines.size(), dump + 2 + 31 + 1);
    const std::vector<std::string> console(lines.begin() + dump + 2,
                                           lines.begin() + dump + 2 + 31);
    const std::vector<std::string> reported = {
        "Program started", "GLFW initialized", "FMOD initialized", "Window opened",
        "GLEW initialized", "Loading shaders"};
    EXPECT_EQ(std::vector<std::string>(console.begin(), console.begin() + 6), reported);
    EXPECT_EQ(console[6], "...");
    EXPECT_EQ(console[7], "Loading images");
    EXPECT_EQ(console[8], "Generating textures");
    EXPECT_EQ(console[9].find_first_not_of('.'), std::string::npos);
    EXPECT_GE(console[9].size(), 3u);
    EXPECT_EQ(console[10], "Initializing framebuffers");
    EXPECT_EQ(console[30], "Thingz by Kelvarin");
    EXPECT_EQ(lines[dump + 2 + 31], "");

    // A new window: everything that hangs on the context comes back.
    testing::internal::CaptureStdout();
    reopenDisplay();
    const std::string reopenLog = testing::internal::GetCapturedStdout();
    EXPECT_NE(reopenLog.find("Reopening a window\n"), std::string::npos);
    EXPECT_EQ(testBackend::window().openCount, 2u);
    expectDrawingState(false);  // whoever draws next sets the projection
    EXPECT_TRUE(glIsTexture(fontTexture));
    EXPECT_TRUE(glIsTexture(panelButtonTexture));
    EXPECT_TRUE(glIsTexture(screenTexture));
    EXPECT_TRUE(glIsTexture(surfaceTexture));
    EXPECT_TRUE(screenSlots.empty());

    testing::internal::CaptureStdout();
    shutDown();
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(surfaceData, nullptr);
    EXPECT_FALSE(testBackend::window().open);
}

std::string farewellScratch;

TEST(StartUp, ThrowsTheMessagesThatMainShows)
{
    ScratchDir scratch;
    testBackend::reset();
    testBackend::failInit(true);
    try {
        startUp();
        ADD_FAILURE() << "start-up went on without GLFW";
    } catch (const char* message) {
        EXPECT_STREQ(message, "Couldn't initialize GLFW!");
    }
    testBackend::reset();
    testBackend::failOpenWindow(true);
    testing::internal::CaptureStdout();
    try {
        startUp();
        ADD_FAILURE() << "start-up went on without a window";
    } catch (const char* message) {
        EXPECT_STREQ(message, "Couldn't create window!");
    }
    testing::internal::GetCapturedStdout();
    testBackend::reset();
}

// What the farewell leaves for the parent to read, once the process ends; and
// the scratch folder of the child, whose destructor never runs.
void reportVirtualTime()
{
    std::fprintf(stderr, "virtual seconds %.1f, swaps %u\n", testBackend::now(),
                 testBackend::window().swapCount);
    std::error_code ignored;
    fs::remove_all(farewellScratch, ignored);
}

void bootWithoutOpenGL2()
{
    setenv("MESA_GL_VERSION_OVERRIDE", "1.5", 1);
    setenv("ALSOFT_DRIVERS", "null", 1);
    dup2(2, 1);  // the log where the test can read it
    farewellScratch = fs::current_path().string();
    testBackend::reset();
    std::atexit(reportVirtualTime);
    startUp();
    std::fprintf(stderr, "start-up returned\n");
}

TEST(StartUpDeathTest, FarewellWithoutOpenGL2EndsWithExitCodeZero)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a fresh process for the driver
    ScratchDir scratch;
    linkBuiltContent();
    // 100 steps of the bar at 0.1 s and one second of "Goodbye".
    EXPECT_EXIT(bootWithoutOpenGL2(), ::testing::ExitedWithCode(0),
                "OpenGL 2.0 not supported\n.*virtual seconds 11.0, swaps 101");
}

}  // namespace
