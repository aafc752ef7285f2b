// Control of the test backend of the window interface (glfw.h).
//
// Time is a number: glfwGetTime() reads it, glfwSleep() adds to it, and each
// glfwSwapBuffers() or glfwPollEvents() adds the configured frame cost. Nothing
// sleeps for real.
//
// Input is a script by round. A round is one pump of events: every call of
// glfwSwapBuffers() or glfwPollEvents() raises the round counter by one and
// then applies every scripted event whose round has come. A game loop pumps
// once per round, so an event scripted for round N is seen by the input
// checks of the loop's N-th round.
//
// glfwOpenWindow() opens a real GL context (a hidden GLFW 3 window on the
// X server, under Xvfb in the tests) of the requested size, so drawing code
// runs for real and glReadPixels sees the result.
#pragma once

#include <string>
#include <vector>

#include "platform/glfw.h"

namespace testBackend {

// Back to a fresh state: clock 0, round 0, no input held, no script, focus on,
// default modes (see below), no failures armed. Closes a window left open.
void reset();

// Clock
void setFrameCost(double seconds);  // added by every swap and poll; default 0
void advanceTime(double seconds);   // as if the machine stalled
double now();
double totalSleep();                // sum of all glfwSleep arguments since reset

// Rounds and the script
unsigned round();
void keyAt(unsigned round, int key, bool down);
void mouseButtonAt(unsigned round, int button, bool down);
void mouseMoveAt(unsigned round, int x, int y);
void focusAt(unsigned round, bool focused);
void closeAt(unsigned round);  // the user closes the window
// Immediate changes, without waiting for a round.
void setKey(int key, bool down);
void setMouseButton(int button, bool down);
void setMousePos(int x, int y);
void setFocus(bool focused);
void closeWindowNow();

// The desktop the backend pretends to have. Default: desktop 1920 x 1080 and
// the modes 640x480, 800x600, 1024x768, 1280x720, 1920x1080 at 8/8/8 bits.
void setVideoModes(const std::vector<GLFWvidmode>& modesSmallestFirst);
void setDesktopMode(const GLFWvidmode& mode);

// Failures to arm
void failInit(bool fail);
void failOpenWindow(bool fail);

// What the game asked of the window, for tests to read.
struct WindowRecord {
    bool open = false;
    int requestedWidth = 0, requestedHeight = 0;
    int redBits = 0, greenBits = 0, blueBits = 0, alphaBits = 0;
    int depthBits = 0, stencilBits = 0;
    int mode = 0;           // GLFW_WINDOW or GLFW_FULLSCREEN
    int noResizeHint = 0, fsaaSamplesHint = 0;
    int x = 0, y = 0;       // last glfwSetWindowPos
    std::string title;
    int swapInterval = 0;
    bool cursorEnabled = false;
    unsigned openCount = 0, closeCount = 0;
    unsigned swapCount = 0, pollCount = 0;
};
const WindowRecord& window();

}  // namespace testBackend
