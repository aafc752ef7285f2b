#include <gtest/gtest.h>

#include <vector>

#include "data/settings.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "shell/window.h"
#include "support/scratch_dir.h"

namespace {

class DisplayWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        forgetCachedVolumes();
        testBackend::reset();
        ASSERT_TRUE(glfwInit());
        desktopWidth = 1920;
        desktopHeight = 1080;
    }
    void TearDown() override { glfwTerminate(); }

    std::string openAndLog(bool reopen = false)
    {
        testing::internal::CaptureStdout();
        openDisplayWindow(reopen);
        return testing::internal::GetCapturedStdout();
    }

    ScratchDir dir;
};

}  // namespace

TEST_F(DisplayWindow, AutoWindowedIs1000By600PlacedCentredAQuarterDown)
{
    std::string log = openAndLog();
    const auto& window = testBackend::window();
    EXPECT_EQ(window.requestedWidth, 1000);
    EXPECT_EQ(window.requestedHeight, 600);
    EXPECT_EQ(window.mode, GLFW_WINDOW);
    EXPECT_EQ(window.redBits + window.greenBits + window.blueBits + window.alphaBits, 32);
    EXPECT_EQ(window.depthBits, 0);
    EXPECT_EQ(window.stencilBits, 8);
    EXPECT_EQ(window.noResizeHint, 1);
    EXPECT_EQ(window.fsaaSamplesHint, 2);
    EXPECT_EQ(window.x, 460);  // centred across, a quarter of the room down
    EXPECT_EQ(window.y, 120);
    EXPECT_EQ(window.title, "Gorvan");
    EXPECT_EQ(window.swapInterval, 1);
    EXPECT_TRUE(window.cursorEnabled);
    EXPECT_EQ(windowWidth, 1000);
    EXPECT_EQ(windowHeight, 600);
    EXPECT_EQ(screenTextureWidth, 1024);
    EXPECT_EQ(screenTextureHeight, 1024);

    // llvmpipe is a software rasterizer, and the log says so.
    EXPECT_NE(log.find("Couldn't get hardware acceleration!\n"), std::string::npos);
    EXPECT_NE(log.find("Color bits: 32 / 32\n"), std::string::npos);
    EXPECT_NE(log.find("Stencil bits: 8 / 8\n"), std::string::npos);
    EXPECT_NE(log.find("Multisampling: "), std::string::npos);
}

TEST_F(DisplayWindow, StoredResolutionAndFullscreenChooseTheRequest)
{
    setResolution(800, 600);
    openAndLog();
    EXPECT_EQ(testBackend::window().requestedWidth, 800);
    EXPECT_EQ(testBackend::window().mode, GLFW_WINDOW);

    setFullscreen(true);
    openAndLog(true);
    EXPECT_EQ(testBackend::window().requestedWidth, 800);
    EXPECT_EQ(testBackend::window().mode, GLFW_FULLSCREEN);

    // "Auto" in fullscreen is the desktop's size.
    setResolution(0, 0);
    std::string log = openAndLog(true);
    EXPECT_EQ(log.rfind("Reopening a window\n", 0), 0u);
    EXPECT_EQ(testBackend::window().requestedWidth, 1920);
    EXPECT_EQ(testBackend::window().requestedHeight, 1080);
    EXPECT_EQ(testBackend::window().closeCount, 2u);

    // Back to windowed with width 0: from the desktop's size to 1000 x 600.
    setFullscreen(false);
    openAndLog(true);
    EXPECT_EQ(testBackend::window().requestedWidth, 1000);
    EXPECT_EQ(windowWidth, 1000);
}

TEST_F(DisplayWindow, ARefusedWindowThrowsTheStringConstant)
{
    testBackend::failOpenWindow(true);
    try {
        openDisplayWindow(false);
        FAIL() << "no exception";
    } catch (const char* text) {
        EXPECT_STREQ(text, "Couldn't create window!");
    }
}

TEST_F(DisplayWindow, OnASmallDesktopThePositionIsNegativeTruncatedTowardZero)
{
    desktopWidth = 801;
    desktopHeight = 599;
    openAndLog();
    EXPECT_EQ(testBackend::window().x, -99);  // -199 / 2
    EXPECT_EQ(testBackend::window().y, 0);    // -1 / 4
    setScreenSize(-1, -1);  // geometry comes from the window, not the arguments
    EXPECT_EQ(windowWidth, 1000);
    EXPECT_EQ(windowHeight, 600);
}

namespace {

GLFWvidmode mode(int w, int h, int r = 8, int g = 8, int b = 8)
{
    return GLFWvidmode{w, h, r, g, b};
}

}  // namespace

TEST(VideoModes, FifteenLargestFirstOnlyTwentyFourColourBitsAndAtLeast512)
{
    GLFWvidmode modes[] = {mode(640, 480), mode(800, 600, 5, 6, 5), mode(800, 600),
                           mode(1024, 768), mode(1920, 1080)};
    buildVideoModes(modes, 5);
    ASSERT_EQ(videoModes.size(), 3u);
    EXPECT_EQ(videoModes[0], std::make_pair(int16_t(1920), int16_t(1080)));
    EXPECT_EQ(videoModes[2], std::make_pair(int16_t(800), int16_t(600)));

    std::vector<GLFWvidmode> many;
    for (int i = 0; i < 20; ++i)
        many.push_back(mode(600 + i * 10, 600));
    buildVideoModes(many.data(), 20);
    ASSERT_EQ(videoModes.size(), 15u);
    EXPECT_EQ(videoModes.front().first, 790);
    EXPECT_EQ(videoModes.back().first, 650);
}

TEST(VideoModes, AStoredResolutionMissingFromTheListFallsBackToAuto)
{
    ScratchDir dir;
    forgetCachedVolumes();
    GLFWvidmode modes[] = {mode(1280, 720)};
    buildVideoModes(modes, 1);
    uint16_t width, height;
    setResolution(1280, 720);
    checkStoredResolution();
    getResolution(&width, &height);
    EXPECT_EQ(width, 1280);

    setResolution(1366, 768);
    checkStoredResolution();
    getResolution(&width, &height);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);

    buildVideoModes(modes, 0);  // a desktop where no mode passes
    setResolution(1280, 720);
    checkStoredResolution();
    getResolution(&width, &height);
    EXPECT_EQ(width, 0);
}
