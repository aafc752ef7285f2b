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
// X server, under Xvfb in the tests) of the requested size, with the requested
// bits and samples, so drawing code runs for real and glReadPixels sees the
// result. A fullscreen request opens the same kind of hidden window of the
// requested size. GLFW_ACCELERATED and the bit counts come from that context.
// glfwSwapBuffers() presents nothing (nobody sees the hidden window), so the
// back buffer keeps the frame just finished, as under Mesa on the desktop;
// glfwCloseWindow() destroys the window and its context.
//
// A key down when a window opens (held through a rebuild of the window)
// reaches the new window only with the keyboard's repeat, half a second
// later, as on GLFW 3; a key pressed after the opening is seen at once.
//
// Keys are 2.7 codes. A letter scripted in lower case is the key of that
// letter, which the game sees under its upper-case code, as on the desktop.
// glfwGetKey() and friends answer GLFW_RELEASE while no window is open.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/glfw.h"

namespace testBackend {

// Seconds from a window's opening to the repeat of a key held since before.
constexpr double keyRepeatDelay = 0.5;

// Back to a fresh state: clock 0, round 0, no input held, mouse at 0, 0, no
// controllers, no script, focus on, default modes (see below), no failures armed, no frame
// restore forced, services available and nothing recorded, glfwInit not yet
// called, no replay recording or playing (input_tape.h). Closes a window left
// open.
void reset();

// Clock
void setFrameCost(double seconds);  // added by every swap and poll; default 0
void advanceTime(double seconds);   // as if the machine stalled
// glfwSleep(s) adds s when s > 0 and nothing otherwise (the sum below
// includes only those).
double now();
double totalSleep();                // sum of all glfwSleep arguments since reset

// Rounds and the script
unsigned round();
// Events for a round that has already passed come with the next pump. Events
// of one round apply in the order they were scripted.
void keyAt(unsigned round, int key, bool down);
void mouseButtonAt(unsigned round, int button, bool down);
void mouseMoveAt(unsigned round, int x, int y);
void focusAt(unsigned round, bool focused);
void closeAt(unsigned round);  // the user closes the window
// Game controllers, by the joystick number the desktop would give them (0 to
// 15): one plugged in takes a seat as on the desktop (pad_seats.h), one
// unplugged leaves its seat and lets go of its buttons. Buttons: GLFW_PAD_*.
void padPluggedAt(unsigned round, int joystick, bool plugged);
void padButtonAt(unsigned round, int joystick, int button, bool down);
// Immediate changes, without waiting for a round.
void setKey(int key, bool down);
void setMouseButton(int button, bool down);
void setMousePos(int x, int y);
void setFocus(bool focused);
void closeWindowNow();

// A look at each finished frame: every glfwSwapBuffers() of an open window
// first calls the watcher with the round that the swap ends (round() + 1,
// the loop's own count of its rounds), while the back buffer holds the frame
// just drawn. An empty watcher watches nothing; reset() removes it.
using FrameWatcher = std::function<void(unsigned round)>;
void watchFrames(FrameWatcher watcher);

// Drawing left out, so that a long scripted game is drawn only where its
// pictures are taken: in the rounds from first to last every draw, clear and
// copy of the open window fails without touching a pixel (an incomplete
// framebuffer is bound), so textures made by copies keep what they held.
// The rules, texture uploads, the clock and the input run as ever; the frame
// watcher sees no frame that was left out, and the GL errors of the failed
// calls are cleared when drawing resumes. Rounds count as for the frame
// watcher. reset() forgets them.
void leaveOutDrawing(unsigned first, unsigned last);

// The desktop the backend pretends to have. Default: desktop 1920 x 1080 and
// the modes 640x480, 800x600, 1024x768, 1280x720, 1920x1080 at 8/8/8 bits.
void setVideoModes(const std::vector<GLFWvidmode>& modesSmallestFirst);
void setDesktopMode(const GLFWvidmode& mode);

// Windows without a display: until reset(), glfwOpenWindow opens a pretend
// window with no GL context and needs no X server. Time, rounds and scripted
// input work as with a real one; nothing can be drawn. For the rules played
// headless (rule tests, the headless runner).
void openWindowsWithoutDisplay(bool on);

// Failures to arm
void failInit(bool fail);
void failOpenWindow(bool fail);

// The back buffer keeps its frame across a swap under Mesa's software
// renderer. Forcing the save-and-restore that other drivers need exercises
// that path of the layer here. Applies from the next glfwOpenWindow on.
void forceFrameRestore(bool force);
bool frameRestoreActive();  // for the open window

// Desktop services (desktop_services.h) in the test backend record what they
// were asked and start nothing. setServicesAvailable(false) makes them return
// false, as on a desktop without a notice program or opener.
struct NoticeRecord {
    std::string title;
    std::string text;
};
void setServicesAvailable(bool available);
const std::vector<NoticeRecord>& notices();
const std::vector<std::string>& webAddresses();

// What the game asked of the window, for tests to read. The fields from
// requestedWidth to cursorEnabled describe the last window opened; each open
// starts them afresh (title empty, position 0, 0, swap interval 0, the cursor
// shown in a window and hidden in fullscreen, as 2.7 did). The counts run
// from reset.
struct WindowRecord {
    bool open = false;      // a window exists (a scripted close leaves it)
    int requestedWidth = 0, requestedHeight = 0;
    int redBits = 0, greenBits = 0, blueBits = 0, alphaBits = 0;
    int depthBits = 0, stencilBits = 0;
    int mode = 0;           // GLFW_WINDOW or GLFW_FULLSCREEN
    int noResizeHint = 0, fsaaSamplesHint = 0;
    int x = 0, y = 0;       // last glfwSetWindowPos
    std::string title;
    int swapInterval = 0;
    bool cursorEnabled = false;  // after glfwEnable/glfwDisable(GLFW_MOUSE_CURSOR)
    unsigned openCount = 0, closeCount = 0;
    unsigned swapCount = 0, pollCount = 0;
};
const WindowRecord& window();

}  // namespace testBackend
