// The test backend that every other test runs on: its virtual clock, its
// script of input by round and the real GL context it opens (under Xvfb).
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <utility>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"

TEST(TestBackend, ClockScriptAndContext)
{
    testBackend::reset();
    glfwSleep(0.25);
    glfwSleep(-1);  // a late frame asks for a negative sleep: no time goes back
    testBackend::setFrameCost(0.01);
    glfwPollEvents();
    glfwSwapBuffers();  // no window: still a round with its cost
    testBackend::advanceTime(1.5);
    EXPECT_DOUBLE_EQ(glfwGetTime(), 1.77);
    EXPECT_DOUBLE_EQ(testBackend::totalSleep(), 0.25);
    EXPECT_EQ(testBackend::round(), 2u);
    testBackend::setKey(GLFW_KEY_ENTER, true);
    EXPECT_EQ(glfwGetKey(GLFW_KEY_ENTER), GLFW_RELEASE) << "nothing is down without a window";
    testBackend::reset();
    EXPECT_TRUE(glfwGetTime() == 0.0 && testBackend::round() == 0u) << "reset";

    ASSERT_EQ(glfwInit(), 1);
    glfwOpenWindowHint(GLFW_FSAA_SAMPLES, 2);
    ASSERT_EQ(glfwOpenWindow(1000, 600, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 1);
    ASSERT_EQ(glewInit(), GLEW_OK);
    GLint samples = 0;
    glGetIntegerv(GL_SAMPLES, &samples);
    EXPECT_TRUE(samples >= 2 && glfwGetWindowParam(GLFW_FSAA_SAMPLES) == samples) << "the context's own count";
    EXPECT_EQ(glfwGetWindowParam(GLFW_STENCIL_BITS), 8);
    EXPECT_EQ(glfwOpenWindow(200, 100, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 0) << "one window at a time";

    // An event scripted for round N is seen after the N-th pump, events of a round in scripted order,
    // one for a round gone by with the next pump; a letter is the key of its upper case.
    testBackend::keyAt(3, GLFW_KEY_ESC, true);
    testBackend::keyAt(5, GLFW_KEY_ESC, false);
    testBackend::keyAt(2, 'p', true);
    testBackend::keyAt(2, 'P', false);
    testBackend::mouseMoveAt(2, 10, 20);
    testBackend::mouseMoveAt(2, 30, 40);
    testBackend::mouseButtonAt(4, GLFW_MOUSE_BUTTON_RIGHT, true);
    testBackend::focusAt(2, false);
    testBackend::focusAt(4, true);
    testBackend::closeAt(6);
    for (int round = 1; round <= 6; round++) {
        round % 2 ? glfwSwapBuffers() : glfwPollEvents();
        SCOPED_TRACE(round);
        EXPECT_EQ(glfwGetKey(GLFW_KEY_ESC), round >= 3 && round < 5 ? GLFW_PRESS : GLFW_RELEASE);
        EXPECT_EQ(glfwGetKey('P'), GLFW_RELEASE);
        EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT), round >= 4 ? GLFW_PRESS : GLFW_RELEASE);
        EXPECT_EQ(glfwGetWindowParam(GLFW_ACTIVE), round == 1 || round >= 4 ? 1 : 0);
        EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), round < 6 ? 1 : 0);
    }
    int x = 0, y = 0;
    glfwGetMousePos(&x, &y);
    EXPECT_EQ(std::make_pair(x, y), std::make_pair(30, 40));
    testBackend::keyAt(1, 'w', true);
    EXPECT_EQ(glfwGetKey('W'), GLFW_RELEASE);
    glfwPollEvents();
    EXPECT_TRUE(glfwGetKey('W') == GLFW_PRESS && glfwGetKey('w') == GLFW_RELEASE);
    glfwCloseWindow();
    testBackend::reset();
}
