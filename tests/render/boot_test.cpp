// The boot screen and the start-up on the test backend: typing speed, dots,
// scrolling and where the lines stand (read through a colour-coded font), the
// made-up lines and the hidden quote, the log, the GL state start-up leaves,
// a window re-creation, and the farewell without OpenGL 2.0.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <regex>
#include <string>
#include <unistd.h>

#include "base/random.h"
#include "gl_test_window.h"
#include "platform/testing/test_backend.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/text.h"
#include "shell/boot_console.h"
#include "shell/startup.h"
#include "shell/window.h"
#include "support/drawing_state.h"
#include "support/play_session.h"
#include "support/scratch_dir.h"

namespace {

// Row `row` of the console (0 at the top), shown doubled: text of size 32.
std::string consoleRow(int row, int n) { return readText(32, 32.0f * row, 32, n); }

TEST(BootConsole, TypesScrollsDumpsItsLinesAndMakesUpTheRest)
{
    openTestWindow(1000, 600);
    useCodedFont();
    seedRandom(1234);
    testing::internal::CaptureStdout();
    {
        BootConsole console;
        double start = testBackend::now();
        const unsigned swaps = testBackend::window().swapCount;
        console.addLine("Program started");  // 15 characters: 8 ticks at 150 a second
        EXPECT_NEAR(testBackend::now() - start, 8 / 150.0, 1e-9);
        EXPECT_EQ(testBackend::window().swapCount - swaps, 9u);
        console.addLine("Loading shaders");
        start = testBackend::now();
        console.addDot();
        console.addDot();
        EXPECT_EQ(console.lines.back(), "..");
        EXPECT_NEAR(testBackend::now() - start, 0.002, 1e-9);  // a millisecond a dot
        EXPECT_EQ(consoleRow(15, 3), "..?");  // the line being typed: the bottom row
        EXPECT_EQ(consoleRow(14, 16), "Loading shaders?");
        EXPECT_EQ(consoleRow(13, 16), "Program started?");
        EXPECT_EQ(codeAt(600, 470), -1) << "nothing outside the doubled 512 x 512 square";
        console.closeDots();  // one tick more, then a tenth of a second
        EXPECT_NEAR(testBackend::now() - start, 0.002 + 1 / 150.0 + 0.1, 1e-9);
        EXPECT_EQ(console.lines.back(), "...");
        EXPECT_EQ(console.currentLine, 3);
        for (int i = 0; i < 17; i++) console.addLine(("Line " + std::to_string(i)).c_str());
        EXPECT_EQ(consoleRow(0, 7), "Line 2?");  // fifteen complete lines show
        EXPECT_EQ(consoleRow(14, 8), "Line 16?");
        console.lines = {"Program started", "Make us wh\xE9le again"};
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\n\n\nThis next thing is just for fun\n"
              "This is the stuff you see when the program starts:\n\n"
              "Program started\nMake us wh\xE9le again\n\n");
    deleteFont();
    closeTestWindow();

    // Made-up lines: dots and errors never follow each other, ten dots never follow them.
    const std::regex filler("\\.{1,9}|A fatal error occurred!!! Ignoring\\.|Couldn't complete "
                            "command!|Continue\\? \\(y/n\\) Ignoring user input|Cannot read user "
                            "input, continue anyway| error {9}\\.");
    const std::regex plain("[ -~]{5,60}");
    int counts[3] = {};  // plain, ten dots, filler
    seedRandom(40);
    for (int run = 0; run < 300; run++) {
        bool fillerAllowed = run % 4 != 0;
        for (int i = 0; i < 40; i++) {
            const bool allowed = fillerAllowed;
            const std::string line = makeBootLine(fillerAllowed);
            const int kind = std::regex_match(line, filler) ? 2 : line == ".........." ? 1 : 0;
            EXPECT_EQ(fillerAllowed, kind != 2) << line;
            EXPECT_TRUE(allowed || kind == 0) << line;
            EXPECT_TRUE(kind != 0 || std::regex_match(line, plain)) << line;
            counts[kind]++;
        }
    }
    EXPECT_GT(std::min(counts[1], counts[2]), 50);

    testing::internal::CaptureStdout();
    std::vector<int> seen(256, 0);  // the quote hides between lines 10 and 29
    for (int run = 0; run < 300; run++) seen[BootConsole().quoteLine]++;
    for (int i = 0; i < 256; i++) EXPECT_EQ(seen[i] > 0, i >= 10 && i <= 29) << i;
    testing::internal::GetCapturedStdout();
}

TEST(StartUp, TypesTheBootScreenAndLeavesTheDrawingStateSet)
{
    ScratchDir scratch;
    linkBuiltContent();
    testBackend::reset();
    testBackend::leaveOutDrawing(2, 100000);  // the boot screen's pictures are the test above's
    testing::internal::CaptureStdout();
    startUp();
    const std::string log = testing::internal::GetCapturedStdout();
    EXPECT_EQ(windowWidth, 1000);
    expectCommonDrawingState();
    GLfloat projection[16];
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    EXPECT_EQ(std::make_pair(projection[0], projection[5]), std::make_pair(2.0f / 800, -2.0f / 600));
    const std::string heading = "This is the stuff you see when the program starts:\n\n";
    const size_t dump = log.find(heading);
    ASSERT_NE(dump, std::string::npos);
    EXPECT_NE(log.find("Ready for OpenGL 2.0\n\n"), std::string::npos);
    const std::regex console(
        "Program started\nGLFW initialized\nFMOD initialized\nWindow opened\nGLEW initialized\n"
        "Loading shaders\n\\.\\.\\.\nLoading images\nGenerating textures\n\\.{3,}\n"
        "Initializing framebuffers\n([^\n]*\n){19}Thingz by Kelvarin\n\n");
    EXPECT_TRUE(std::regex_search(log.substr(dump + heading.size()), console,
                                  std::regex_constants::match_continuous))
        << log.substr(dump);

    // A new window: everything that hangs on the context comes back.
    testing::internal::CaptureStdout();
    reopenDisplay();
    EXPECT_NE(testing::internal::GetCapturedStdout().find("Reopening a window\n"), std::string::npos);
    EXPECT_EQ(testBackend::window().openCount, 2u);
    expectCommonDrawingState();
    for (uint32_t texture : {fontTexture, panelButtonTexture, screenTexture, surfaceTexture})
        EXPECT_TRUE(glIsTexture(texture));
    testing::internal::CaptureStdout();
    shutDown();
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(surfaceData, nullptr);
    EXPECT_FALSE(testBackend::window().open);
}

// Without OpenGL 2.0: the farewell bar (100 steps of 0.1 s), a second of
// "Goodbye" and exit code 0; the child reports its virtual time at exit.
TEST(StartUpDeathTest, FarewellWithoutOpenGL2EndsWithExitCodeZero)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    ScratchDir scratch;
    linkBuiltContent();
    static std::string childFolder;
    childFolder = std::filesystem::current_path().string();
    auto boot = [] {
        setenv("MESA_GL_VERSION_OVERRIDE", "1.5", 1);
        setenv("ALSOFT_DRIVERS", "null", 1);
        dup2(2, 1);
        testBackend::reset();
        std::atexit([] {
            std::fprintf(stderr, "virtual seconds %.1f, swaps %u\n", testBackend::now(),
                         testBackend::window().swapCount);
            std::error_code ignored;
            std::filesystem::remove_all(childFolder, ignored);
        });
        startUp();
        std::fprintf(stderr, "start-up returned\n");
    };
    EXPECT_EXIT(boot(), ::testing::ExitedWithCode(0),
                "OpenGL 2.0 not supported\n.*virtual seconds 11.0, swaps 101");
}

}  // namespace
