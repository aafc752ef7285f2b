// The test backend's virtual clock and its script of input by round.
#include <gtest/gtest.h>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"

namespace {

class TestBackendScript : public ::testing::Test {
protected:
    void SetUp() override { testBackend::reset(); }
    void TearDown() override { testBackend::reset(); }

    void openSmallWindow()
    {
        ASSERT_EQ(glfwInit(), 1);
        ASSERT_EQ(glfwOpenWindow(64, 32, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 1);
    }
};

}  // namespace

TEST_F(TestBackendScript, ClockMovesOnlyBySleepFrameCostAndStallsAndEveryPumpIsARound)
{
    glfwSleep(0.25);
    glfwSleep(0);
    glfwSleep(-1);  // a late frame asks for a negative sleep: no time goes back
    EXPECT_DOUBLE_EQ(glfwGetTime(), 0.25);
    EXPECT_DOUBLE_EQ(testBackend::totalSleep(), 0.25);

    testBackend::setFrameCost(0.01);
    glfwPollEvents();
    glfwSwapBuffers();  // no window: still a round with its cost
    EXPECT_DOUBLE_EQ(glfwGetTime(), 0.27);
    testBackend::advanceTime(1.5);
    EXPECT_DOUBLE_EQ(testBackend::now(), 1.77);
    EXPECT_DOUBLE_EQ(testBackend::totalSleep(), 0.25);
    glfwGetKey('A');
    glfwGetWindowParam(GLFW_OPENED);
    EXPECT_EQ(testBackend::round(), 2u);
    EXPECT_EQ(testBackend::window().pollCount, 1u);
    EXPECT_EQ(testBackend::window().swapCount, 1u);

    testBackend::reset();
    EXPECT_EQ(glfwGetTime(), 0.0);
    EXPECT_EQ(testBackend::totalSleep(), 0.0);
    EXPECT_EQ(testBackend::round(), 0u);
}

TEST_F(TestBackendScript, KeyScriptedForRoundNIsSeenAfterTheNthPump)
{
    openSmallWindow();
    testBackend::keyAt(3, GLFW_KEY_ESC, true);
    testBackend::keyAt(5, GLFW_KEY_ESC, false);
    for (int round = 1; round <= 6; round++) {
        glfwSwapBuffers();
        EXPECT_EQ(glfwGetKey(GLFW_KEY_ESC), round >= 3 && round < 5 ? GLFW_PRESS : GLFW_RELEASE)
            << round;
    }
}

TEST_F(TestBackendScript, EventsApplyInScriptedOrderAndLateOnesWithTheNextPump)
{
    openSmallWindow();
    testBackend::keyAt(2, 'P', true);
    testBackend::mouseMoveAt(2, 10, 20);
    testBackend::keyAt(1, 'Q', true);
    testBackend::keyAt(2, 'P', false);  // same round, later: wins
    testBackend::mouseMoveAt(2, 30, 40);
    glfwPollEvents();
    EXPECT_EQ(glfwGetKey('Q'), GLFW_PRESS);
    EXPECT_EQ(glfwGetKey('P'), GLFW_RELEASE);
    glfwPollEvents();
    int x = 0, y = 0;
    glfwGetMousePos(&x, &y);
    EXPECT_EQ(x, 30);
    EXPECT_EQ(y, 40);
    EXPECT_EQ(glfwGetKey('P'), GLFW_RELEASE);

    testBackend::mouseButtonAt(1, GLFW_MOUSE_BUTTON_RIGHT, true);
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT), GLFW_RELEASE);
    glfwPollEvents();
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_RIGHT), GLFW_PRESS);
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_LEFT), GLFW_RELEASE);
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_LAST + 1), GLFW_RELEASE);
}

TEST_F(TestBackendScript, LettersAreUpperCaseKeysAndNothingIsDownWithoutAWindow)
{
    ASSERT_EQ(glfwInit(), 1);
    testBackend::setKey(GLFW_KEY_ENTER, true);
    testBackend::setMouseButton(GLFW_MOUSE_BUTTON_LEFT, true);
    EXPECT_EQ(glfwGetKey(GLFW_KEY_ENTER), GLFW_RELEASE);
    EXPECT_EQ(glfwGetMouseButton(GLFW_MOUSE_BUTTON_LEFT), GLFW_RELEASE);
    EXPECT_EQ(glfwGetWindowParam(GLFW_ACTIVE), 0);

    openSmallWindow();
    testBackend::setKey('w', true);
    EXPECT_EQ(glfwGetKey('W'), GLFW_PRESS);
    EXPECT_EQ(glfwGetKey('w'), GLFW_RELEASE);
    testBackend::setKey('W', false);
    EXPECT_EQ(glfwGetKey('W'), GLFW_RELEASE);
    EXPECT_EQ(glfwGetKey(-1), GLFW_RELEASE);
    EXPECT_EQ(glfwGetKey(GLFW_KEY_LAST + 1), GLFW_RELEASE);
}

TEST_F(TestBackendScript, FocusAndCloseFollowTheScript)
{
    openSmallWindow();
    EXPECT_EQ(glfwGetWindowParam(GLFW_ACTIVE), 1);
    testBackend::focusAt(2, false);
    testBackend::focusAt(4, true);
    testBackend::closeAt(6);
    for (int round = 1; round <= 5; round++) {
        glfwSwapBuffers();
        EXPECT_EQ(glfwGetWindowParam(GLFW_ACTIVE), round == 1 || round >= 4 ? 1 : 0) << round;
        EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 1) << round;
    }
    glfwSwapBuffers();
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 0);
    // The window and its context remain until the game closes it.
    EXPECT_TRUE(testBackend::window().open);
    glfwCloseWindow();
    EXPECT_FALSE(testBackend::window().open);
    EXPECT_EQ(testBackend::window().closeCount, 1u);
}

// The pretend desktop the display tests start from; a list longer than asked
// for is cut, as 2.7 did.
TEST_F(TestBackendScript, PretendDesktopModes)
{
    GLFWvidmode modes[255];
    ASSERT_EQ(glfwGetVideoModes(modes, 255), 5);
    EXPECT_EQ(modes[0].Width, 640);
    EXPECT_EQ(modes[4].Width, 1920);
    EXPECT_EQ(modes[4].RedBits + modes[4].GreenBits + modes[4].BlueBits, 24);
    EXPECT_EQ(glfwGetVideoModes(modes, 2), 2);
    EXPECT_EQ(glfwGetVideoModes(modes, 0), 0);
}
