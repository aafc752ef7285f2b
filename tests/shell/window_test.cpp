// The one window: what the settings and the desktop ask for, where it goes,
// what the log says of it, and the resolutions offered.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/settings.h"
#include "platform/testing/test_backend.h"
#include "shell/window.h"
#include "support/scratch_dir.h"

using Numbers = std::vector<int>;

TEST(DisplayWindow, TheRequestFollowsTheSettingsAndTheDesktop)
{
    ScratchDir dir;
    forgetCachedVolumes();
    testBackend::reset();
    glfwInit();
    const auto& w = testBackend::window();
    // Desktop, stored width and height, fullscreen; then the window asked for
    // and where it went. "Auto" is 1000 x 600 in a window and the desktop's
    // size in fullscreen; a window goes centred, a quarter of the room down.
    const int steps[][9] = {{1280, 720, 0, 0, 0, 1000, 600, 140, 30},
                            {1280, 720, 800, 600, 0, 800, 600, 240, 30},
                            {1280, 720, 800, 600, 1, 800, 600, 240, 30},
                            {1280, 720, 0, 0, 1, 1280, 720, 0, 0},
                            {801, 599, 0, 0, 0, 1000, 600, -99, 0}};  // -199 / 2, -1 / 4
    for (const auto& step : steps) {
        desktopWidth = static_cast<uint16_t>(step[0]);
        desktopHeight = static_cast<uint16_t>(step[1]);
        setResolution(static_cast<uint16_t>(step[2]), static_cast<uint16_t>(step[3]));
        setFullscreen(step[4] != 0);
        testing::internal::CaptureStdout();
        openDisplayWindow(w.open);
        const std::string log = testing::internal::GetCapturedStdout();
        EXPECT_NE(log.find("Couldn't get hardware acceleration!\nColor bits: 32 / 32\n"  // llvmpipe
                           "Stencil bits: 8 / 8\nMultisampling: "), std::string::npos) << log;
        EXPECT_EQ(w.mode, step[4] ? GLFW_FULLSCREEN : GLFW_WINDOW);
        EXPECT_EQ((Numbers{w.requestedWidth, w.requestedHeight, w.x, w.y, windowWidth}),
                  (Numbers{step[5], step[6], step[7], step[8], step[5]}));
    }
    // Always 8 bits of each colour, alpha and stencil, no depth, no resizing,
    // two samples, a swap interval of 1 and the cursor shown.
    EXPECT_EQ((Numbers{w.redBits, w.greenBits, w.blueBits, w.alphaBits, w.depthBits, w.stencilBits,
                       w.noResizeHint, w.fsaaSamplesHint, w.swapInterval, w.cursorEnabled}),
              (Numbers{8, 8, 8, 8, 0, 8, 1, 2, 1, 1}));
    EXPECT_EQ(w.title, "Gorvan");
    EXPECT_EQ(w.closeCount, 4u);
    EXPECT_EQ(screenTextureWidth, 1024);
    EXPECT_EQ(screenTextureHeight, 1024);
    glfwTerminate();
}

TEST(DisplayWindow, ResolutionsOfferedAndTheScreenTextureSizes)
{
    ScratchDir dir;
    forgetCachedVolumes();
    const auto mode = [](int w, int h, int bits) { return GLFWvidmode{w, h, bits, bits, bits}; };
    std::vector<GLFWvidmode> many(20, mode(800, 600, 8));
    buildVideoModes(many.data(), 20);  // fifteen at most
    EXPECT_EQ(videoModes.size(), 15u);
    GLFWvidmode modes[] = {mode(640, 480, 8), mode(800, 600, 5), mode(800, 600, 8),
                           mode(1024, 512, 8), mode(1280, 720, 8), mode(1920, 1080, 8)};
    buildVideoModes(modes, 6);  // only 24 colour bits and at least 512 x 512
    EXPECT_EQ(videoModes, (std::vector<std::pair<int16_t, int16_t>>{
                              {1920, 1080}, {1280, 720}, {1024, 512}, {800, 600}}));
    for (int stored : {1280, 1366}) {  // one the desktop no longer offers is "Auto"
        setResolution(static_cast<uint16_t>(stored), 720);
        checkStoredResolution();
        uint16_t width = 0, height = 0;
        getResolution(&width, &height);
        EXPECT_EQ((Numbers{width, height}), (stored == 1280 ? Numbers{1280, 720} : Numbers{0, 0}));
    }
    const int16_t sizes[][2] = {{1920, 2048}, {600, 1024}, {512, 512}, {513, 1024},
                                {3, 4},       {2, 2},      {1, 2},     {0, 2}};
    for (const auto& size : sizes) EXPECT_EQ(screenTextureSize(size[0]), size[1]) << size[0];
}
