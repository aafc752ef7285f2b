// The desktop backend on a real, visible GLFW 3 window (xvfb-run, xdotool):
// the window the game asks for, and what a player's keyboard, mouse and close
// button do to it.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <unistd.h>

#include "platform/glfw.h"

TEST(DesktopWindow, OpensAsAskedAndTakesKeysMouseAndClose)
{
    ASSERT_EQ(glfwInit(), 1);
    auto pumpFor = [](double seconds) {  // swaps and polls in real time, so the X server's events arrive
        for (double end = glfwGetTime() + seconds; glfwGetTime() < end; glfwSleep(0.01)) glfwSwapBuffers();
    };
    const std::string title = "gorvan-desktop-test-" + std::to_string(getpid());
    auto xdotool = [&](const std::string& commands) {
        ASSERT_EQ(std::system(("xdotool search --name '^" + title + "$' " + commands).c_str()), 0) << commands;
    };
    glfwOpenWindowHint(GLFW_WINDOW_NO_RESIZE, 1);
    glfwOpenWindowHint(GLFW_FSAA_SAMPLES, 2);
    ASSERT_EQ(glfwOpenWindow(1000, 600, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 1);
    glfwSetWindowTitle(title.c_str());
    glfwEnable(GLFW_MOUSE_CURSOR);
    pumpFor(0.2);
    EXPECT_EQ(glfwGetWindowParam(GLFW_ACTIVE), 1) << "without a window manager GLFW focuses its window itself";
    const std::string renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    EXPECT_TRUE(renderer.find("llvmpipe") == renderer.npos || !glfwGetWindowParam(GLFW_ACCELERATED)) << renderer;

    xdotool("windowfocus --sync keydown Escape keydown q keydown Up keydown F5 "
            "mousemove --sync --window %1 123 45 mousedown 3");
    pumpFor(0.3);
    for (int k : {GLFW_KEY_ESC, int{'Q'}, GLFW_KEY_UP, GLFW_KEY_F5}) EXPECT_EQ(glfwGetKey(k), GLFW_PRESS) << k;
    for (int key : {int{'q'}, GLFW_KEY_DOWN, int{'A'}}) EXPECT_EQ(glfwGetKey(key), GLFW_RELEASE) << key;
    int x = -1, y = -1;
    glfwGetMousePos(&x, &y);
    EXPECT_EQ(std::make_pair(x, y), std::make_pair(123, 45));
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT), GLFW_PRESS);
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_LEFT), GLFW_RELEASE);
    xdotool("keyup Escape keyup q keyup Up keyup F5 mouseup 3");
    pumpFor(0.3);
    for (int key : {GLFW_KEY_ESC, int{'Q'}}) EXPECT_EQ(glfwGetKey(key), GLFW_RELEASE) << key;
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT), GLFW_RELEASE);

    // Closed by the window system: not opened, and it stays so until a new window.
    ASSERT_EQ(std::system((GORVAN_BINARY_DIR "/x11_close_window '" + title + "' 5").c_str()), 0);
    pumpFor(0.3);
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 0);
    pumpFor(0.1);
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 0);
    glfwCloseWindow();
    ASSERT_EQ(glfwOpenWindow(320, 200, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 1);
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 1);
    glfwTerminate();
}
