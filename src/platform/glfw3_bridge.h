// The one window on GLFW 3, behind neutral names. GLFW 3's header and our
// 2.7-shaped glfw.h declare the same C functions and macros, so no file can
// include both: this header includes neither, and only glfw3_bridge.cpp sees
// GLFW 3. Both backends open their window through it (the test backend keeps
// it hidden).
#pragma once

#include <vector>

namespace glfw3Bridge {

// Starts GLFW 3 once; later calls only report whether it is up.
bool init();
void terminate();

struct WindowRequest {
    int width = 640, height = 480;
    int redBits = 8, greenBits = 8, blueBits = 8, alphaBits = 8;  // 0: don't care
    int depthBits = 0, stencilBits = 0;
    int samples = 0;
    int refreshRate = 0;  // 0: don't care
    bool resizable = true;
    bool fullscreen = false;  // on the primary monitor
    bool visible = true;
};

// Opens the window and makes its context current. False when a window is
// already open or GLFW 3 refuses.
bool openWindow(const WindowRequest& request);
void closeWindow();
bool hasWindow();

bool closeRequested();      // the user asked the window to close
bool focused();
bool iconified();
int refreshRate();          // of the monitor in fullscreen, else 0

void swapBuffers();
void pollEvents();
void setSwapInterval(int interval);
void setTitle(const char* title);
void setPosition(int x, int y);
void getSize(int* width, int* height);
void setCursorVisible(bool visible);
void setStickyKeys(bool sticky);
void setStickyMouseButtons(bool sticky);

// GLFW 3's key for a key code of the 2.7 interface (special keys 257 and up,
// printable keys by their uppercase ASCII code); -1 when there is none.
int hostKeyFor(int legacyKey);
// The 2.7 codes of the special keys, from ESC (257) on, in GLFW 3 terms.
constexpr int FIRST_SPECIAL_KEY = 257;
constexpr int LAST_SPECIAL_KEY = 325;

bool keyDown(int legacyKey);
bool mouseButtonDown(int button);
void cursorPosition(double* x, double* y);

// Game controllers that have a gamepad mapping, seated as they are plugged in
// and out (pad_seats.h; seat -1: any). Buttons in GLFW 3's gamepad order,
// then 15 and 16 for the left and right triggers past half-way.
bool padButtonDown(int seat, int button);

struct ModeInfo {
    int width = 0, height = 0;
    int redBits = 0, greenBits = 0, blueBits = 0;
};
std::vector<ModeInfo> primaryMonitorModes();  // as GLFW 3 lists them
ModeInfo desktopMode();

double seconds();  // since init
void* procAddress(const char* name);  // GL entry points beyond 1.1

}  // namespace glfw3Bridge
