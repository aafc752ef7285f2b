#include <gtest/gtest.h>

#include <GL/glew.h>
#include <filesystem>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "shell/hotkeys.h"
#include "shell/window.h"
#include "support/scratch_dir.h"

namespace {

uint32_t le32(const std::string& s, size_t at)
{
    return static_cast<uint8_t>(s[at]) | static_cast<uint8_t>(s[at + 1]) << 8 |
           static_cast<uint8_t>(s[at + 2]) << 16 | static_cast<uint32_t>(static_cast<uint8_t>(s[at + 3])) << 24;
}

class Screenshots : public ::testing::Test {
protected:
    void open(int width, int height)
    {
        testBackend::reset();
        ASSERT_TRUE(glfwInit());
        ASSERT_TRUE(glfwOpenWindow(width, height, 8, 8, 8, 8, 0, 8, GLFW_WINDOW));
        setScreenSize(-1, -1);
        glClearColor(1.0f, 0.5f, 0.0f, 1.0f);  // orange: red 255, green 128, blue 0
        glClear(GL_COLOR_BUFFER_BIT);
        glFinish();
    }
    void TearDown() override { glfwTerminate(); }

    // One frame of a loop with the key down or up.
    static std::string frame(ScreenshotTaker& taker, bool keyDown)
    {
        testing::internal::CaptureStdout();
        taker.poll(keyDown);
        return testing::internal::GetCapturedStdout();
    }

    ScratchDir dir;
};

}  // namespace

TEST_F(Screenshots, SixStagesOneAFrameWriteAPlainBitmap)
{
    open(1001, 7);
    ScreenshotTaker taker;
    frame(taker, true);  // stage 0: the pixels are read at the key press
    EXPECT_EQ(taker.stage, 1);
    std::string log;
    for (int i = 0; i < 4; ++i)
        log += frame(taker, true);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(taker.halfHeight, 3);
    log = frame(taker, false);
    EXPECT_EQ(log, "Screenshot 'screenshots/0000.bmp' taken\n");
    EXPECT_EQ(taker.stage, 0);

    std::string bmp = readFileBytes("screenshots/0000.bmp");
    ASSERT_EQ(bmp.size(), (1001u * 3 + 1) * 7 + 54);  // row padding 1001 AND 3 = 1
    EXPECT_EQ(bmp.substr(0, 2), "BM");
    // File size, data offset, header size, width, height, bits, image size
    // (the row padding is not counted in the last).
    const std::pair<size_t, uint32_t> fields[] = {{2, uint32_t(bmp.size())}, {10, 54}, {14, 40},
                                                  {18, 1001}, {22, 7}, {34, 1001 * 7 * 3}};
    for (auto [at, value] : fields)
        EXPECT_EQ(le32(bmp, at), value) << at;
    EXPECT_EQ(le32(bmp, 28) & 0xFFFF, 24u);
    // Pixels blue, green, red; each row ends in one zero byte.
    EXPECT_EQ(static_cast<uint8_t>(bmp[54]), 0);
    EXPECT_NEAR(static_cast<uint8_t>(bmp[55]), 128, 1);
    EXPECT_EQ(static_cast<uint8_t>(bmp[56]), 255);
    EXPECT_EQ(bmp[54 + 1001 * 3], 0);
}

TEST_F(Screenshots, AHeldKeyGivesOnePictureAndGapsAreFilledFirst)
{
    open(64, 32);
    writeFileBytes("screenshots/0000.bmp", "x");
    writeFileBytes("screenshots/0002.bmp", "x");
    ScreenshotTaker taker;
    std::string log;
    for (int i = 0; i < 20; ++i) log += frame(taker, true);  // F5 held, then F12 too
    EXPECT_EQ(log, "Screenshot 'screenshots/0001.bmp' taken\n");
    EXPECT_FALSE(fileExists("screenshots/0003.bmp"));
}

TEST_F(Screenshots, ASecondPressTooSoonFinishesTheFirstAtOnce)
{
    open(64, 32);
    ScreenshotTaker taker;
    frame(taker, true);
    frame(taker, false);
    std::string log = frame(taker, true);
    EXPECT_EQ(log, "Screenshot 'screenshots/0000.bmp' taken\n");
    EXPECT_EQ(readFileBytes("screenshots/0000.bmp").size(), 64u * 3 * 32 + 54);
    EXPECT_EQ(taker.stage, 1);  // the new picture is captured
    for (int i = 0; i < 5; ++i) log = frame(taker, false);
    EXPECT_EQ(log, "Screenshot 'screenshots/0001.bmp' taken\n");
}

TEST_F(Screenshots, AMissingFolderDropsThePictureAndTheGameGoesOn)
{
    open(64, 32);
    std::filesystem::remove_all("screenshots");
    ScreenshotTaker taker;
    std::string log;
    for (int i = 0; i < 6; ++i) log += frame(taker, i == 0);
    EXPECT_EQ(log, "Couldn't make a file for a screenshot!\n");
    EXPECT_EQ(taker.stage, 0);
    EXPECT_EQ(taker.pixels, nullptr);
    EXPECT_FALSE(std::filesystem::exists("screenshots"));
}
