// The display: the one window (what the settings and the desktop ask for,
// where it goes, what the log says of it, the resolutions offered), the frame
// clock that paces every loop on virtual time, and screenshots, a stage a frame.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <filesystem>
#include <string>
#include <vector>

#include "data/settings.h"
#include "platform/testing/test_backend.h"
#include "shell/frame_clock.h"
#include "shell/hotkeys.h"
#include "shell/window.h"
#include "support/scratch_dir.h"

namespace {

using Numbers = std::vector<int>;

// Frames of a loop with the key down or up; what they logged.
std::string frames(ScreenshotTaker& taker, int count, bool keyDown)
{
    testing::internal::CaptureStdout();
    for (int i = 0; i < count; ++i) taker.poll(keyDown);
    return testing::internal::GetCapturedStdout();
}

// One round whose work takes the given seconds.
void round(FrameClock& clock, double work)
{
    testBackend::advanceTime(work);
    clock.tick();
}

}  // namespace

TEST(DisplayWindow, TheRequestFollowsTheSettingsAndTheDesktopWhichOffersResolutions)
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
    glfwTerminate();

    const auto mode = [](int w, int h, int bits) { return GLFWvidmode{w, h, bits, bits, bits}; };
    std::vector<GLFWvidmode> modes(20, mode(800, 600, 8));
    buildVideoModes(modes.data(), 20);  // fifteen at most
    EXPECT_EQ(videoModes.size(), 15u);
    modes = {mode(640, 480, 8), mode(800, 600, 5), mode(800, 600, 8),
             mode(1024, 512, 8), mode(1280, 720, 8), mode(1920, 1080, 8)};
    buildVideoModes(modes.data(), 6);  // largest first, 24 colour bits, at least 512 x 512
    EXPECT_EQ(videoModes, (std::vector<std::pair<int16_t, int16_t>>{
                              {1920, 1080}, {1280, 720}, {1024, 512}, {800, 600}}));
    const int16_t sizes[][2] = {{1920, 2048}, {600, 1024}, {512, 512}, {513, 1024},
                                {3, 4},       {2, 2},      {1, 2},     {0, 2}};
    for (const auto& size : sizes) EXPECT_EQ(screenTextureSize(size[0]), size[1]) << size[0];
}

TEST(Screenshots, SixStagesWriteAPlainBitmapInTheFirstFreeNumber)
{
    ScratchDir dir;
    testBackend::reset();
    glfwInit();
    glfwOpenWindow(1001, 7, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
    setScreenSize(-1, -1);
    glClearColor(1.0f, 0.5f, 0.0f, 1.0f);  // orange: red 255, green 128, blue 0
    glClear(GL_COLOR_BUFFER_BIT);
    writeFileBytes("screenshots/0001.bmp", "x");
    ScreenshotTaker taker;
    EXPECT_EQ(frames(taker, 5, true), "");  // held: one picture, over six frames
    EXPECT_EQ(frames(taker, 1, false), "Screenshot 'screenshots/0000.bmp' taken\n");
    const std::string bmp = readFileBytes("screenshots/0000.bmp");
    ASSERT_EQ(bmp.size(), (1001u * 3 + 1) * 7 + 54);  // each row padded by 1001 AND 3
    EXPECT_EQ(bmp.substr(0, 2), "BM");
    // File size, data offset, header size, width, height, planes and bits,
    // no compression, and the image size without the padding.
    const uint32_t fields[][2] = {{2, uint32_t(bmp.size())}, {10, 54}, {14, 40}, {18, 1001},
                                  {22, 7}, {26, 1 | 24 << 16}, {30, 0}, {34, 1001 * 7 * 3}};
    for (const auto& field : fields) {
        uint32_t value = 0;
        for (int i = 3; i >= 0; --i) value = value << 8 | static_cast<uint8_t>(bmp[field[0] + i]);
        EXPECT_EQ(value, field[1]) << field[0];
    }
    EXPECT_EQ(static_cast<uint8_t>(bmp[54]), 0);  // blue, green, red
    EXPECT_NEAR(static_cast<uint8_t>(bmp[55]), 128, 1);
    EXPECT_EQ(static_cast<uint8_t>(bmp[56]), 255);
    EXPECT_EQ(bmp[54 + 1001 * 3], 0);
    // A press before the picture is written finishes it at once, then takes
    // the new one.
    frames(taker, 1, true);
    frames(taker, 1, false);
    EXPECT_EQ(frames(taker, 1, true), "Screenshot 'screenshots/0002.bmp' taken\n");
    EXPECT_EQ(frames(taker, 5, false), "Screenshot 'screenshots/0003.bmp' taken\n");
    std::filesystem::remove_all("screenshots");  // the game goes on without the picture
    EXPECT_EQ(frames(taker, 1, true), "");
    EXPECT_EQ(frames(taker, 5, false), "Couldn't make a file for a screenshot!\n");
    EXPECT_EQ(taker.pixels, nullptr);
    glfwTerminate();
}

TEST(FrameClock, PacesRecoversAndLeavesFramesOutByLag)
{
    testBackend::reset();
    FrameClock clock(60);
    round(clock, 0.011);  // a new clock takes the machine for one that needs 66 %
    EXPECT_NEAR(clock.measuredRate, 1 / (0.66 / 60), 1e-6);
    round(clock, 0);  // a second of frames: one quick frame moves it a little
    EXPECT_NEAR(clock.measuredRate, 60 / (59 * 0.011), 1e-6);
    for (int i = 0; i < 598; ++i) round(clock, 0.004);
    EXPECT_EQ(clock.lag, 0.0);
    EXPECT_NEAR(testBackend::now(), 10.0, 1e-6);  // 600 rounds at 60 a second
    EXPECT_NEAR(clock.measuredRate, 250, 1e-6);
    clock.lag = -1.0;
    round(clock, 1.0 / 60 + 0.01);  // 0.01 late; more than a third of headroom gives 0.04
    EXPECT_NEAR(clock.lag, -0.97, 1e-9);
    testBackend::advanceTime(300.0);  // five minutes in a pause menu are no lateness
    clock.resync();
    round(clock, 0.005);
    EXPECT_NEAR(clock.lag, -0.97 + (1.0 / 60 - 0.005) + 0.04, 1e-9);
    // Lag, and the skip state before and after an on-time tick: down to -3
    // every frame is drawn, down to -6 every other, below that every third.
    const double rows[][3] = {{-3, 0, 0}, {-6, 0, 1}, {-6, 1, 0}, {-4, 2, 0},
                              {-7, 0, 1}, {-7, 1, 2}, {-7, 2, 0}};
    for (const auto& row : rows) {
        clock.lag = row[0];
        clock.skipState = static_cast<uint8_t>(row[1]);
        clock.nextFrameTime = testBackend::now() - clock.frameInterval;
        clock.measuredRate = 0;  // no recovery
        clock.tick();
        EXPECT_EQ(clock.skipState, row[2]) << row[0] << " from " << row[1];
        EXPECT_EQ(clock.previousSkipState, row[1]);
    }
    testBackend::advanceTime(20.0);  // a stall: the frames owed are given up
    clock.tick();
    EXPECT_EQ(clock.lag, -12.0);
    EXPECT_EQ(clock.nextFrameTime, testBackend::now());
    const double start = testBackend::now();
    int drawn = 0;
    for (int i = 0; i < 30; ++i) {
        drawn += clock.shouldDraw();
        round(clock, 0.005);
    }
    EXPECT_NEAR(testBackend::now() - start, 0.5, 1e-6);
    EXPECT_EQ(drawn, 10);
}
