// Screenshots, one stage a frame: the bitmap's bytes, the file numbers, a
// held key, a press that comes too soon and a missing folder.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <filesystem>
#include <string>

#include "platform/testing/test_backend.h"
#include "shell/hotkeys.h"
#include "shell/window.h"
#include "support/scratch_dir.h"

namespace {

// Frames of a loop with the key down or up; what they logged.
std::string frames(ScreenshotTaker& taker, int count, bool keyDown)
{
    testing::internal::CaptureStdout();
    for (int i = 0; i < count; ++i) taker.poll(keyDown);
    return testing::internal::GetCapturedStdout();
}

}  // namespace

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
    EXPECT_EQ(taker.halfHeight, 3);
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
    EXPECT_EQ(taker.stage, 1);
    EXPECT_EQ(frames(taker, 5, false), "Screenshot 'screenshots/0003.bmp' taken\n");
    std::filesystem::remove_all("screenshots");  // the game goes on without the picture
    EXPECT_EQ(frames(taker, 1, true), "");
    EXPECT_EQ(frames(taker, 5, false), "Couldn't make a file for a screenshot!\n");
    EXPECT_EQ(taker.pixels, nullptr);
    glfwTerminate();
}
