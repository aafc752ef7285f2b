#include <gtest/gtest.h>

#include "data/settings.h"
#include "platform/glfw.h"
#include "shell/window.h"
#include "support/scratch_dir.h"

namespace {
GLFWvidmode mode(int w, int h, int r, int g, int b)
{
    GLFWvidmode m;
    m.Width = w;
    m.Height = h;
    m.RedBits = r;
    m.GreenBits = g;
    m.BlueBits = b;
    return m;
}
}  // namespace

TEST(VideoModes, LargestFirstOnlyTwentyFourColourBitsAndAtLeast512)
{
    GLFWvidmode modes[] = {
        mode(640, 480, 8, 8, 8),    // too low
        mode(800, 600, 5, 6, 5),    // 16-bit colour
        mode(800, 600, 8, 8, 8),
        mode(1024, 768, 8, 8, 8),
        mode(1920, 1080, 8, 8, 8),
    };
    buildVideoModes(modes, 5);
    ASSERT_EQ(videoModes.size(), 3u);
    EXPECT_EQ(videoModes[0], std::make_pair(int16_t(1920), int16_t(1080)));
    EXPECT_EQ(videoModes[2], std::make_pair(int16_t(800), int16_t(600)));
}

TEST(VideoModes, AtMostTheFifteenLargest)
{
    std::vector<GLFWvidmode> modes;
    for (int i = 0; i < 20; ++i) modes.push_back(mode(600 + i * 10, 600, 8, 8, 8));
    buildVideoModes(modes.data(), 20);
    ASSERT_EQ(videoModes.size(), 15u);
    EXPECT_EQ(videoModes.front().first, 790);
    EXPECT_EQ(videoModes.back().first, 650);
}

TEST(VideoModes, AStoredResolutionMissingFromTheListFallsBackToAuto)
{
    ScratchDir dir;
    forgetCachedVolumes();
    GLFWvidmode modes[] = {mode(1280, 720, 8, 8, 8)};
    buildVideoModes(modes, 1);

    setResolution(1280, 720);
    checkStoredResolution();
    uint16_t width, height;
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
