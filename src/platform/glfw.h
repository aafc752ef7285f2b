// The window, input and timer interface the game is written against: the calls,
// constants and key codes of the GLFW 2.7 line, with its one implicit window.
// Two backends provide it, chosen at link time:
//   desktop/  on GLFW 3 (the game),
//   testing/  virtual time and scripted input over a real GL context (tests).
#pragma once

// Buttons and keys
#define GLFW_RELEASE 0
#define GLFW_PRESS 1

#define GLFW_KEY_UNKNOWN -1
#define GLFW_KEY_SPACE 32
#define GLFW_KEY_SPECIAL 256
#define GLFW_KEY_ESC (GLFW_KEY_SPECIAL + 1)
#define GLFW_KEY_F1 (GLFW_KEY_SPECIAL + 2)
#define GLFW_KEY_F2 (GLFW_KEY_SPECIAL + 3)
#define GLFW_KEY_F3 (GLFW_KEY_SPECIAL + 4)
#define GLFW_KEY_F4 (GLFW_KEY_SPECIAL + 5)
#define GLFW_KEY_F5 (GLFW_KEY_SPECIAL + 6)
#define GLFW_KEY_F6 (GLFW_KEY_SPECIAL + 7)
#define GLFW_KEY_F7 (GLFW_KEY_SPECIAL + 8)
#define GLFW_KEY_F8 (GLFW_KEY_SPECIAL + 9)
#define GLFW_KEY_F9 (GLFW_KEY_SPECIAL + 10)
#define GLFW_KEY_F10 (GLFW_KEY_SPECIAL + 11)
#define GLFW_KEY_F11 (GLFW_KEY_SPECIAL + 12)
#define GLFW_KEY_F12 (GLFW_KEY_SPECIAL + 13)
#define GLFW_KEY_F13 (GLFW_KEY_SPECIAL + 14)
#define GLFW_KEY_F14 (GLFW_KEY_SPECIAL + 15)
#define GLFW_KEY_F15 (GLFW_KEY_SPECIAL + 16)
#define GLFW_KEY_F16 (GLFW_KEY_SPECIAL + 17)
#define GLFW_KEY_F17 (GLFW_KEY_SPECIAL + 18)
#define GLFW_KEY_F18 (GLFW_KEY_SPECIAL + 19)
#define GLFW_KEY_F19 (GLFW_KEY_SPECIAL + 20)
#define GLFW_KEY_F20 (GLFW_KEY_SPECIAL + 21)
#define GLFW_KEY_F21 (GLFW_KEY_SPECIAL + 22)
#define GLFW_KEY_F22 (GLFW_KEY_SPECIAL + 23)
#define GLFW_KEY_F23 (GLFW_KEY_SPECIAL + 24)
#define GLFW_KEY_F24 (GLFW_KEY_SPECIAL + 25)
#define GLFW_KEY_F25 (GLFW_KEY_SPECIAL + 26)
#define GLFW_KEY_UP (GLFW_KEY_SPECIAL + 27)
#define GLFW_KEY_DOWN (GLFW_KEY_SPECIAL + 28)
#define GLFW_KEY_LEFT (GLFW_KEY_SPECIAL + 29)
#define GLFW_KEY_RIGHT (GLFW_KEY_SPECIAL + 30)
#define GLFW_KEY_LSHIFT (GLFW_KEY_SPECIAL + 31)
#define GLFW_KEY_RSHIFT (GLFW_KEY_SPECIAL + 32)
#define GLFW_KEY_LCTRL (GLFW_KEY_SPECIAL + 33)
#define GLFW_KEY_RCTRL (GLFW_KEY_SPECIAL + 34)
#define GLFW_KEY_LALT (GLFW_KEY_SPECIAL + 35)
#define GLFW_KEY_RALT (GLFW_KEY_SPECIAL + 36)
#define GLFW_KEY_TAB (GLFW_KEY_SPECIAL + 37)
#define GLFW_KEY_ENTER (GLFW_KEY_SPECIAL + 38)
#define GLFW_KEY_BACKSPACE (GLFW_KEY_SPECIAL + 39)
#define GLFW_KEY_INSERT (GLFW_KEY_SPECIAL + 40)
#define GLFW_KEY_DEL (GLFW_KEY_SPECIAL + 41)
#define GLFW_KEY_PAGEUP (GLFW_KEY_SPECIAL + 42)
#define GLFW_KEY_PAGEDOWN (GLFW_KEY_SPECIAL + 43)
#define GLFW_KEY_HOME (GLFW_KEY_SPECIAL + 44)
#define GLFW_KEY_END (GLFW_KEY_SPECIAL + 45)
#define GLFW_KEY_KP_0 (GLFW_KEY_SPECIAL + 46)
#define GLFW_KEY_KP_1 (GLFW_KEY_SPECIAL + 47)
#define GLFW_KEY_KP_2 (GLFW_KEY_SPECIAL + 48)
#define GLFW_KEY_KP_3 (GLFW_KEY_SPECIAL + 49)
#define GLFW_KEY_KP_4 (GLFW_KEY_SPECIAL + 50)
#define GLFW_KEY_KP_5 (GLFW_KEY_SPECIAL + 51)
#define GLFW_KEY_KP_6 (GLFW_KEY_SPECIAL + 52)
#define GLFW_KEY_KP_7 (GLFW_KEY_SPECIAL + 53)
#define GLFW_KEY_KP_8 (GLFW_KEY_SPECIAL + 54)
#define GLFW_KEY_KP_9 (GLFW_KEY_SPECIAL + 55)
#define GLFW_KEY_KP_DIVIDE (GLFW_KEY_SPECIAL + 56)
#define GLFW_KEY_KP_MULTIPLY (GLFW_KEY_SPECIAL + 57)
#define GLFW_KEY_KP_SUBTRACT (GLFW_KEY_SPECIAL + 58)
#define GLFW_KEY_KP_ADD (GLFW_KEY_SPECIAL + 59)
#define GLFW_KEY_KP_DECIMAL (GLFW_KEY_SPECIAL + 60)
#define GLFW_KEY_KP_EQUAL (GLFW_KEY_SPECIAL + 61)
#define GLFW_KEY_KP_ENTER (GLFW_KEY_SPECIAL + 62)
#define GLFW_KEY_KP_NUM_LOCK (GLFW_KEY_SPECIAL + 63)
#define GLFW_KEY_CAPS_LOCK (GLFW_KEY_SPECIAL + 64)
#define GLFW_KEY_SCROLL_LOCK (GLFW_KEY_SPECIAL + 65)
#define GLFW_KEY_PAUSE (GLFW_KEY_SPECIAL + 66)
#define GLFW_KEY_LSUPER (GLFW_KEY_SPECIAL + 67)
#define GLFW_KEY_RSUPER (GLFW_KEY_SPECIAL + 68)
#define GLFW_KEY_MENU (GLFW_KEY_SPECIAL + 69)
#define GLFW_KEY_LAST GLFW_KEY_MENU

#define GLFW_MOUSE_BUTTON_1 0
#define GLFW_MOUSE_BUTTON_2 1
#define GLFW_MOUSE_BUTTON_3 2
#define GLFW_MOUSE_BUTTON_4 3
#define GLFW_MOUSE_BUTTON_5 4
#define GLFW_MOUSE_BUTTON_6 5
#define GLFW_MOUSE_BUTTON_7 6
#define GLFW_MOUSE_BUTTON_8 7
#define GLFW_MOUSE_BUTTON_LAST GLFW_MOUSE_BUTTON_8
#define GLFW_MOUSE_BUTTON_LEFT GLFW_MOUSE_BUTTON_1
#define GLFW_MOUSE_BUTTON_RIGHT GLFW_MOUSE_BUTTON_2
#define GLFW_MOUSE_BUTTON_MIDDLE GLFW_MOUSE_BUTTON_3

// Game controllers, an addition to the 2.7 line, through the desktop's gamepad
// mappings. A controller takes the lowest free seat when it is plugged in and
// keeps it until it is unplugged (pad_seats.h): seat 0 is the first
// controller. Buttons by their place on a standard pad, in GLFW 3's order,
// then the two triggers, which count as held when pulled past half-way.
#define GLFW_PAD_SEATS 4
#define GLFW_ANY_PAD (-1)
#define GLFW_PAD_A 0
#define GLFW_PAD_B 1
#define GLFW_PAD_X 2
#define GLFW_PAD_Y 3
#define GLFW_PAD_LEFT_BUMPER 4
#define GLFW_PAD_RIGHT_BUMPER 5
#define GLFW_PAD_BACK 6
#define GLFW_PAD_START 7
#define GLFW_PAD_GUIDE 8
#define GLFW_PAD_LEFT_THUMB 9
#define GLFW_PAD_RIGHT_THUMB 10
#define GLFW_PAD_DPAD_UP 11
#define GLFW_PAD_DPAD_RIGHT 12
#define GLFW_PAD_DPAD_DOWN 13
#define GLFW_PAD_DPAD_LEFT 14
#define GLFW_PAD_LEFT_TRIGGER 15
#define GLFW_PAD_RIGHT_TRIGGER 16
#define GLFW_PAD_BUTTON_LAST GLFW_PAD_RIGHT_TRIGGER

// glfwOpenWindow modes
#define GLFW_WINDOW 0x00010001
#define GLFW_FULLSCREEN 0x00010002

// glfwGetWindowParam tokens
#define GLFW_OPENED 0x00020001
#define GLFW_ACTIVE 0x00020002
#define GLFW_ICONIFIED 0x00020003
#define GLFW_ACCELERATED 0x00020004
#define GLFW_RED_BITS 0x00020005
#define GLFW_GREEN_BITS 0x00020006
#define GLFW_BLUE_BITS 0x00020007
#define GLFW_ALPHA_BITS 0x00020008
#define GLFW_DEPTH_BITS 0x00020009
#define GLFW_STENCIL_BITS 0x0002000A

// glfwOpenWindowHint tokens (also readable through glfwGetWindowParam)
#define GLFW_REFRESH_RATE 0x0002000B
#define GLFW_WINDOW_NO_RESIZE 0x00020012
#define GLFW_FSAA_SAMPLES 0x00020013

// glfwEnable / glfwDisable tokens
#define GLFW_MOUSE_CURSOR 0x00030001
#define GLFW_STICKY_KEYS 0x00030002
#define GLFW_STICKY_MOUSE_BUTTONS 0x00030003
#define GLFW_SYSTEM_KEYS 0x00030004
#define GLFW_KEY_REPEAT 0x00030005
#define GLFW_AUTO_POLL_EVENTS 0x00030006

// A video mode as 2.7 reports it (note its order of the colour bits).
struct GLFWvidmode {
    int Width, Height;
    int RedBits, BlueBits, GreenBits;
};

int glfwInit();
void glfwTerminate();

// Uses the hints given since the last open and then forgets them. 0 when a
// window is already open. The context is current on return.
int glfwOpenWindow(int width, int height, int redBits, int greenBits, int blueBits,
                   int alphaBits, int depthBits, int stencilBits, int mode);
void glfwOpenWindowHint(int target, int hint);  // GLFW_WINDOW_NO_RESIZE, GLFW_FSAA_SAMPLES, GLFW_REFRESH_RATE
void glfwCloseWindow();
void glfwSetWindowTitle(const char* title);
void glfwGetWindowSize(int* width, int* height);
void glfwSetWindowPos(int x, int y);
void glfwSwapBuffers();  // also polls events, as 2.7 does by default
void glfwSwapInterval(int interval);
// GLFW_OPENED: a window is open and the user has not asked it to close (once
// asked, it reads 0 until the window is closed and a new one opened; the
// window and its context stay until glfwCloseWindow). GLFW_ACTIVE: it has the
// input focus. GLFW_ACCELERATED: 0 on a software rasterizer. The bit counts
// and GLFW_FSAA_SAMPLES: what the context really has. All 0 without a window.
int glfwGetWindowParam(int param);

// Modes of the primary monitor, smallest first (largest last), at most maxCount.
int glfwGetVideoModes(GLFWvidmode* list, int maxCount);
void glfwGetDesktopMode(GLFWvidmode* mode);

void glfwPollEvents();
int glfwGetKey(int key);  // GLFW_PRESS or GLFW_RELEASE; printable keys by ASCII code
int glfwGetMouseButton(int button);
void glfwGetMousePos(int* x, int* y);
// GLFW_PRESS while the controller in the seat (any seat for GLFW_ANY_PAD)
// holds the button; GLFW_RELEASE for an empty seat.
int glfwGetPadButton(int seat, int button);

double glfwGetTime();
void glfwSleep(double seconds);

void glfwEnable(int token);
void glfwDisable(int token);
