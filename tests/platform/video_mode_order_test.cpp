#include <gtest/gtest.h>

#include "platform/video_mode_order.h"

using glfw3Bridge::ModeInfo;

namespace {

ModeInfo mode(int width, int height, int bits = 8)
{
    return {width, height, bits, bits, bits};
}

}  // namespace

TEST(VideoModeOrder, SmallestFirstByDepthThenAreaThenWidth)
{
    std::vector<ModeInfo> modes = orderModesAsLegacy({
        mode(1920, 1080), mode(800, 600), mode(1280, 1024), mode(1024, 768),
        mode(640, 480, 5), mode(1600, 900), mode(1440, 1000),
    });
    ASSERT_EQ(modes.size(), 7u);
    // 16-bit colour before every 24-bit mode, whatever its size.
    EXPECT_EQ(modes[0].width, 640);
    EXPECT_EQ(modes[0].redBits, 5);
    const int widths[] = {800, 1024, 1280, 1440, 1600, 1920};
    for (int i = 0; i < 6; i++) {
        EXPECT_EQ(modes[i + 1].width, widths[i]) << i;
        EXPECT_EQ(modes[i + 1].redBits, 8);
    }
}

TEST(VideoModeOrder, EqualAreasGoByWidth)
{
    std::vector<ModeInfo> modes = orderModesAsLegacy({mode(1200, 800), mode(800, 1200), mode(960, 1000)});
    ASSERT_EQ(modes.size(), 3u);
    EXPECT_EQ(modes[0].width, 800);
    EXPECT_EQ(modes[1].width, 960);
    EXPECT_EQ(modes[2].width, 1200);
}

TEST(VideoModeOrder, RefreshRatesOfOneSizeCollapseIntoOneMode)
{
    // GLFW 3 lists 1920x1080 once per refresh rate; 2.7 listed it once.
    std::vector<ModeInfo> modes = orderModesAsLegacy({mode(1920, 1080), mode(1280, 720), mode(1920, 1080),
                                                      mode(1920, 1080), mode(1280, 720)});
    ASSERT_EQ(modes.size(), 2u);
    EXPECT_EQ(modes[0].width, 1280);
    EXPECT_EQ(modes[1].width, 1920);
}

TEST(VideoModeOrder, OneSizeAtTwoDepthsStaysTwice)
{
    std::vector<ModeInfo> modes = orderModesAsLegacy({mode(1024, 768, 8), mode(1024, 768, 5)});
    ASSERT_EQ(modes.size(), 2u);
    EXPECT_EQ(modes[0].redBits, 5);
    EXPECT_EQ(modes[1].redBits, 8);
    EXPECT_TRUE(orderModesAsLegacy({}).empty());
}
