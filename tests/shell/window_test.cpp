// The one window: what the settings and the desktop ask for, where it goes,
// what the log says of it, and the resolutions offered.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/settings.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "shell/window.h"
#include "support/scratch_dir.h"

TEST(DisplayWindow, TheRequestFollowsTheSettingsAndTheDesktop)
{
    ScratchDir dir;
    forgetCachedVolumes();
    testBackend::reset();
    glfwInit();
    desktopWidth = 1280;
    desktopHeight = 720;
    const auto& window = testBackend::window();
    testing::internal::CaptureStdout();
    openDisplayWindow(false);  // "Auto" in a window: 1000 x 600
    const std::string log = testing::internal::GetCapturedStdout();
    // llvmpipe is a software rasterizer, and the log says so.
    EXPECT_NE(log.find("\nCouldn't get hardware acceleration!\nColor bits: 32 / 32\n"
                       "Stencil bits: 8 / 8\nMultisampling: "), std::string::npos) << log;
    EXPECT_EQ(window.redBits + window.greenBits + window.blueBits + window.alphaBits, 32);
    EXPECT_EQ(window.depthBits, 0);
    EXPECT_EQ(window.stencilBits, 8);
    EXPECT_EQ(window.noResizeHint, 1);
    EXPECT_EQ(window.fsaaSamplesHint, 2);
    EXPECT_EQ(window.x, 140);  // centred across, a quarter of the room down
    EXPECT_EQ(window.y, 30);
    EXPECT_EQ(window.title, "Gorvan");
    EXPECT_EQ(window.swapInterval, 1);
    EXPECT_TRUE(window.cursorEnabled);
    EXPECT_EQ(screenTextureWidth, 1024);
    EXPECT_EQ(screenTextureHeight, 1024);

    // Stored width and height, fullscreen, then the window's width and height
    // and mode; "Auto" in fullscreen is the desktop's size.
    const int steps[][5] = {{800, 600, 0, 800, 600}, {800, 600, 1, 800, 600},
                            {0, 0, 1, 1280, 720},    {0, 0, 0, 1000, 600}};
    for (const auto& step : steps) {
        setResolution(static_cast<uint16_t>(step[0]), static_cast<uint16_t>(step[1]));
        setFullscreen(step[2] != 0);
        testing::internal::CaptureStdout();
        openDisplayWindow(true);
        EXPECT_EQ(testing::internal::GetCapturedStdout().rfind("Reopening a window\n", 0), 0u);
        EXPECT_EQ(window.requestedWidth, step[3]);
        EXPECT_EQ(window.requestedHeight, step[4]);
        EXPECT_EQ(window.mode, step[2] ? GLFW_FULLSCREEN : GLFW_WINDOW);
        EXPECT_EQ(windowHeight, step[4]);
    }
    EXPECT_EQ(window.closeCount, 4u);

    desktopWidth = 801;  // a desktop smaller than the window
    desktopHeight = 599;
    testing::internal::CaptureStdout();
    openDisplayWindow(true);
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(window.x, -99);  // -199 / 2, truncated toward zero
    EXPECT_EQ(window.y, 0);    // -1 / 4
    glfwTerminate();
}

TEST(DisplayWindow, ResolutionsOfferedAndTheScreenTextureSizes)
{
    ScratchDir dir;
    forgetCachedVolumes();
    const auto mode = [](int w, int h, int bits) { return GLFWvidmode{w, h, bits, bits, bits}; };
    // Walked from the largest; only 24 colour bits and at least 512 x 512.
    GLFWvidmode modes[] = {mode(640, 480, 8), mode(800, 600, 5), mode(800, 600, 8),
                           mode(1024, 512, 8), mode(1280, 720, 8), mode(1920, 1080, 8)};
    std::vector<GLFWvidmode> many;
    for (int i = 0; i < 20; ++i) many.push_back(mode(600 + i * 10, 600, 8));
    buildVideoModes(many.data(), 20);  // fifteen at most
    ASSERT_EQ(videoModes.size(), 15u);
    EXPECT_EQ(videoModes.front().first, 790);
    EXPECT_EQ(videoModes.back().first, 650);
    buildVideoModes(modes, 6);
    EXPECT_EQ(videoModes, (std::vector<std::pair<int16_t, int16_t>>{
                              {1920, 1080}, {1280, 720}, {1024, 512}, {800, 600}}));

    // A stored resolution the desktop no longer offers falls back to "Auto".
    for (auto [stored, kept] : {std::pair{1280, true}, std::pair{1366, false}}) {
        setResolution(static_cast<uint16_t>(stored), 720);
        checkStoredResolution();
        uint16_t width = 0, height = 0;
        getResolution(&width, &height);
        EXPECT_EQ(width, kept ? stored : 0);
        EXPECT_EQ(height, kept ? 720 : 0);
    }
    const int16_t sizes[][2] = {{1920, 2048}, {600, 1024}, {512, 512}, {513, 1024},
                                {3, 4},       {2, 2},      {1, 2},     {0, 2}};
    for (const auto& size : sizes) EXPECT_EQ(screenTextureSize(size[0]), size[1]) << size[0];
}
