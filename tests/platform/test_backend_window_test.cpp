// The test backend's real GL context: what the game asks for, what it gets,
// and that drawing and reading back work. Needs an X server (xvfb-run).
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "platform/back_buffer_keeper.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"

namespace {

class TestBackendWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        testBackend::reset();
        ASSERT_EQ(glfwInit(), 1);
    }
    void TearDown() override { testBackend::reset(); }

    // As the game opens its window.
    void openGameWindow(int width, int height, int mode = GLFW_WINDOW)
    {
        glfwOpenWindowHint(GLFW_WINDOW_NO_RESIZE, 1);
        glfwOpenWindowHint(GLFW_FSAA_SAMPLES, 2);
        ASSERT_EQ(glfwOpenWindow(width, height, 8, 8, 8, 8, 0, 8, mode), 1);
    }
};

struct Rgb {
    int r, g, b;
};

Rgb readBackPixel(int x, int y)
{
    unsigned char pixel[4] = {};
    glReadBuffer(GL_BACK);
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    return {pixel[0], pixel[1], pixel[2]};
}

void clearTo(float r, float g, float b)
{
    glClearColor(r, g, b, 1);
    glClear(GL_COLOR_BUFFER_BIT);
}

}  // namespace

TEST_F(TestBackendWindow, OpensARealContextWithTheRequestedBits)
{
    openGameWindow(1000, 600);
    int width = 0, height = 0;
    glfwGetWindowSize(&width, &height);
    EXPECT_EQ(width, 1000);
    EXPECT_EQ(height, 600);
    int colorBits = glfwGetWindowParam(GLFW_RED_BITS) + glfwGetWindowParam(GLFW_GREEN_BITS)
        + glfwGetWindowParam(GLFW_BLUE_BITS) + glfwGetWindowParam(GLFW_ALPHA_BITS);
    EXPECT_EQ(colorBits, 32);
    EXPECT_EQ(glfwGetWindowParam(GLFW_STENCIL_BITS), 8);
    // The context's own depth and sample counts are reported, not the request.
    GLint depthBits = -1, samples = 0;
    glGetIntegerv(GL_DEPTH_BITS, &depthBits);
    glGetIntegerv(GL_SAMPLES, &samples);
    EXPECT_EQ(glfwGetWindowParam(GLFW_DEPTH_BITS), depthBits);
    EXPECT_GE(glfwGetWindowParam(GLFW_FSAA_SAMPLES), 2);
    EXPECT_EQ(glfwGetWindowParam(GLFW_FSAA_SAMPLES), samples);
    EXPECT_EQ(glfwGetWindowParam(GLFW_WINDOW_NO_RESIZE), 1);
    EXPECT_EQ(glewInit(), GLEW_OK);
    EXPECT_TRUE(glewIsSupported("GL_VERSION_2_0"));
    const std::string renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    if (renderer.find("llvmpipe") != std::string::npos) {
        EXPECT_EQ(glfwGetWindowParam(GLFW_ACCELERATED), 0);
    }
}

// What the game asked of the window is recorded (the display tests read it);
// a second window is refused while one is open, and a reopened one forgets the hints.
TEST_F(TestBackendWindow, AReopenedWindowForgetsWhatTheGameAskedBefore)
{
    openGameWindow(800, 600, GLFW_FULLSCREEN);
    glfwSetWindowTitle("Gorvan");
    const testBackend::WindowRecord& record = testBackend::window();
    EXPECT_FALSE(record.cursorEnabled);  // 2.7 hid it in fullscreen
    glfwEnable(GLFW_MOUSE_CURSOR);
    EXPECT_TRUE(record.cursorEnabled);
    EXPECT_EQ(glfwOpenWindow(200, 100, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 0);
    glfwCloseWindow();
    int width = -7, height = -9;
    glfwGetWindowSize(&width, &height);  // no window: left alone
    EXPECT_EQ(width, -7);
    EXPECT_EQ(glfwGetWindowParam(GLFW_OPENED), 0);
    ASSERT_EQ(glfwOpenWindow(200, 100, 8, 8, 8, 8, 0, 8, GLFW_WINDOW), 1);
    EXPECT_EQ(record.requestedWidth, 200);
    EXPECT_EQ(record.noResizeHint, 0);
    EXPECT_EQ(record.fsaaSamplesHint, 0);
    EXPECT_EQ(record.title, "");
    EXPECT_TRUE(record.cursorEnabled);
    EXPECT_EQ(record.openCount, 2u);
    EXPECT_EQ(record.closeCount, 1u);
    glfwGetWindowSize(&width, &height);
    EXPECT_EQ(width, 200);
    EXPECT_EQ(height, 100);
}

TEST_F(TestBackendWindow, FrameWatcherSeesEachSwapWithItsRoundAndTheFrameDrawn)
{
    openGameWindow(100, 80);
    std::vector<std::pair<unsigned, int>> seen;  // round, red of the frame
    testBackend::watchFrames([&](unsigned round) { seen.push_back({round, readBackPixel(5, 5).r}); });
    clearTo(1, 0, 0);
    glfwSwapBuffers();  // round 1
    glfwPollEvents();   // round 2: no frame, nothing to watch
    clearTo(0, 0, 1);
    glfwSwapBuffers();  // round 3
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0], std::make_pair(1u, 255));
    EXPECT_EQ(seen[1], std::make_pair(3u, 0));
    EXPECT_EQ(testBackend::round(), 3u);

    testBackend::closeWindowNow();  // the window stays, the game would stop
    glfwSwapBuffers();
    EXPECT_EQ(seen.size(), 3u);
    testBackend::reset();  // removes the watcher with everything else
    ASSERT_EQ(glfwInit(), 1);
    openGameWindow(100, 80);
    glfwSwapBuffers();
    EXPECT_EQ(seen.size(), 3u);
}

TEST_F(TestBackendWindow, ForcedFrameRestoreBringsTheFrameBackAndLeavesStateAlone)
{
    testBackend::forceFrameRestore(true);
    openGameWindow(100, 80);
    ASSERT_TRUE(testBackend::frameRestoreActive());
    ASSERT_EQ(glewInit(), GLEW_OK);

    // A frame with a blue square in a red field, drawn through a program.
    clearTo(1, 0, 0);
    glEnable(GL_SCISSOR_TEST);
    glScissor(20, 10, 30, 30);
    clearTo(0, 0, 1);
    GLuint program = glCreateProgram();
    GLuint shader = glCreateShader(GL_FRAGMENT_SHADER);
    const char* source = "void main() { gl_FragColor = vec4(0.0, 1.0, 0.0, 1.0); }";
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    glAttachShader(program, shader);
    glLinkProgram(program);
    glUseProgram(program);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glViewport(5, 5, 40, 40);
    glColor4f(0.5f, 0.25f, 1, 1);

    glfwSwapBuffers();

    // The state the game left is the state it finds.
    GLint current = 0, viewport[4] = {};
    glGetIntegerv(GL_CURRENT_PROGRAM, &current);
    glGetIntegerv(GL_VIEWPORT, viewport);
    GLfloat color[4] = {};
    glGetFloatv(GL_CURRENT_COLOR, color);
    EXPECT_EQ(current, static_cast<GLint>(program));
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
    EXPECT_EQ(viewport[0], 5);
    EXPECT_EQ(viewport[2], 40);
    EXPECT_FLOAT_EQ(color[1], 0.25f);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    glUseProgram(0);
    glDisable(GL_SCISSOR_TEST);
    glDisable(GL_BLEND);

    // The frame is back where it was.
    Rgb outside = readBackPixel(5, 5);
    Rgb inside = readBackPixel(30, 20);
    EXPECT_EQ(outside.r, 255);
    EXPECT_EQ(outside.b, 0);
    EXPECT_EQ(inside.r, 0);
    EXPECT_EQ(inside.b, 255);
    glDeleteProgram(program);
    glDeleteShader(shader);
}

TEST_F(TestBackendWindow, KeeperRestoresAFrameOverwrittenInBetween)
{
    openGameWindow(64, 64);
    clearTo(0, 0, 1);
    BackBufferKeeper keeper;
    keeper.saveFrame(64, 64);
    clearTo(1, 1, 0);
    keeper.restoreFrame();
    Rgb pixel = readBackPixel(63, 63);
    EXPECT_EQ(pixel.r, 0);
    EXPECT_EQ(pixel.g, 0);
    EXPECT_EQ(pixel.b, 255);
    // Mesa's software renderer under Xvfb keeps the shown frame after a swap.
    const std::string renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    if (renderer.find("llvmpipe") != std::string::npos) {
        EXPECT_TRUE(BackBufferKeeper::swapKeepsBackBuffer());
        for (float green : {0.0f, 1.0f}) {
            clearTo(1 - green, green, 0);
            glfwSwapBuffers();
            EXPECT_EQ(readBackPixel(10, 40).g, static_cast<int>(green * 255));
        }
    }
}
