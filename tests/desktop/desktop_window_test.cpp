// The desktop backend on a real, visible GLFW 3 window: the calls the game
// makes and what a player's keyboard, mouse and close button do to them.
// Needs an X server (xvfb-run) and xdotool.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "platform/glfw.h"

namespace {

class DesktopWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(glfwInit(), 1);
        title = "gorvan-desktop-test-" + std::to_string(getpid());
    }
    void TearDown() override { glfwTerminate(); }

    // As the game opens its window.
    void openGameWindow()
    {
        glfwOpenWindowHint(GLFW_WINDOW_NO_RESIZE, 1);
        glfwOpenWindowHint(GLFW_FSAA_SAMPLES, 2);
        ASSERT_EQ(glfwOpenWindow(1000, 600, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 1);
        glfwSetWindowTitle(title.c_str());
        glfwSetWindowPos(460, 120);
        glfwEnable(GLFW_MOUSE_CURSOR);
        pumpFor(0.2);
    }

    // Swaps and polls for a while of real time, so the X server's events arrive.
    void pumpFor(double seconds)
    {
        double end = glfwGetTime() + seconds;
        while (glfwGetTime() < end) {
            glfwSwapBuffers();
            glfwSleep(0.01);
        }
    }

    void xdotool(const std::string& arguments)
    {
        std::string command = "xdotool search --name '^" + title + "$' " + arguments;
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }

    std::string title;
};

}  // namespace

TEST_F(DesktopWindow, OpensWhatTheGameAsksForAndReportsWhatItGot)
{
    openGameWindow();
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 1);
    int width = 0, height = 0;
    glfwGetWindowSize(&width, &height);
    EXPECT_EQ(width, 1000);
    EXPECT_EQ(height, 600);
    int colorBits = glfwGetWindowParam(GLFW_RED_BITS) + glfwGetWindowParam(GLFW_GREEN_BITS)
        + glfwGetWindowParam(GLFW_BLUE_BITS) + glfwGetWindowParam(GLFW_ALPHA_BITS);
    EXPECT_EQ(colorBits, 32);
    EXPECT_EQ(glfwGetWindowParam(GLFW_STENCIL_BITS), 8);
    GLint samples = 0;
    glGetIntegerv(GL_SAMPLES, &samples);
    EXPECT_GE(samples, 2);
    EXPECT_EQ(glfwGetWindowParam(GLFW_FSAA_SAMPLES), samples);
    EXPECT_EQ(glfwGetWindowParam(GLFW_WINDOW_NO_RESIZE), 1);
    // Without a window manager GLFW focuses its new window itself.
    EXPECT_EQ(glfwGetWindowParam(GLFW_ACTIVE), 1);
    std::string renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    if (renderer.find("llvmpipe") != std::string::npos) {
        EXPECT_EQ(glfwGetWindowParam(GLFW_ACCELERATED), 0);
    }
}

TEST_F(DesktopWindow, BackBufferHoldsTheShownFrameAfterASwap)
{
    openGameWindow();
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glfwSwapBuffers();
    unsigned char pixel[4] = {};
    glReadBuffer(GL_BACK);
    glReadPixels(500, 300, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    EXPECT_EQ(pixel[0], 0);
    EXPECT_EQ(pixel[2], 255);
}

TEST_F(DesktopWindow, ClosedByTheWindowSystemReadsAsNotOpened)
{
    openGameWindow();
    std::string helper = std::string(GORVAN_BINARY_DIR) + "/x11_close_window '" + title + "' 5";
    ASSERT_EQ(std::system(helper.c_str()), 0);
    pumpFor(0.3);
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 0);
    // Closed stays closed: the game's loops all end on it.
    pumpFor(0.1);
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 0);
    glfwCloseWindow();
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 0);
    // A new window is a fresh start.
    ASSERT_EQ(glfwOpenWindow(320, 200, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 1);
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 1);
}

TEST_F(DesktopWindow, KeysArriveUnderTheir27Codes)
{
    openGameWindow();
    xdotool("windowfocus --sync keydown Escape keydown q keydown Up keydown F5");
    pumpFor(0.3);
    EXPECT_EQ(glfwGetKey(GLFW_KEY_ESC), GLFW_PRESS);
    EXPECT_EQ(glfwGetKey('Q'), GLFW_PRESS);
    EXPECT_EQ(glfwGetKey('q'), GLFW_RELEASE);
    EXPECT_EQ(glfwGetKey(GLFW_KEY_UP), GLFW_PRESS);
    EXPECT_EQ(glfwGetKey(GLFW_KEY_F5), GLFW_PRESS);
    EXPECT_EQ(glfwGetKey(GLFW_KEY_DOWN), GLFW_RELEASE);
    EXPECT_EQ(glfwGetKey('A'), GLFW_RELEASE);
    xdotool("keyup Escape keyup q keyup Up keyup F5");
    pumpFor(0.3);
    EXPECT_EQ(glfwGetKey(GLFW_KEY_ESC), GLFW_RELEASE);
    EXPECT_EQ(glfwGetKey('Q'), GLFW_RELEASE);
}

TEST_F(DesktopWindow, MouseInWindowCoordinates)
{
    openGameWindow();
    xdotool("mousemove --sync --window %1 123 45 mousedown 3");
    pumpFor(0.3);
    int x = -1, y = -1;
    glfwGetMousePos(&x, &y);
    EXPECT_EQ(x, 123);
    EXPECT_EQ(y, 45);
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT), GLFW_PRESS);
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_LEFT), GLFW_RELEASE);
    xdotool("mouseup 3");
    pumpFor(0.2);
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT), GLFW_RELEASE);
}

TEST(DesktopModes, SmallestFirstWithTheDesktopAmongThem)
{
    ASSERT_EQ(glfwInit(), 1);
    GLFWvidmode modes[255];
    int count = glfwGetVideoModes(modes, 255);
    ASSERT_GE(count, 1);
    for (int i = 1; i < count; i++) {
        int bitsBefore = modes[i - 1].RedBits + modes[i - 1].GreenBits + modes[i - 1].BlueBits;
        int bits = modes[i].RedBits + modes[i].GreenBits + modes[i].BlueBits;
        EXPECT_TRUE(bitsBefore < bits
                    || (bitsBefore == bits && modes[i - 1].Width * modes[i - 1].Height
                                                  <= modes[i].Width * modes[i].Height)) << i;
    }
    GLFWvidmode desktop = {};
    glfwGetDesktopMode(&desktop);
    bool listed = false;
    for (int i = 0; i < count; i++) {
        listed = listed || (modes[i].Width == desktop.Width && modes[i].Height == desktop.Height);
    }
    EXPECT_TRUE(listed);
    EXPECT_GT(desktop.Width, 0);
    EXPECT_EQ(glfwGetVideoModes(modes, 0), 0);
    glfwTerminate();
}

TEST(DesktopClock, SleepWaitsRealTimeAndTheTimerSeesIt)
{
    ASSERT_EQ(glfwInit(), 1);
    auto start = std::chrono::steady_clock::now();
    double before = glfwGetTime();
    glfwSleep(0.05);
    double slept = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_GE(slept, 0.05);
    EXPECT_GE(glfwGetTime() - before, 0.049);
    glfwSleep(0);
    glfwSleep(-1);  // returns at once
    glfwTerminate();
}
