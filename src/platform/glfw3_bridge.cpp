// GLFW 3 side of the window layer: the one GLFWwindow and the 2.7 key table.
#include "platform/glfw3_bridge.h"

#include <GLFW/glfw3.h>

#include <cctype>
#include <cstdio>

#include "platform/carried_keys.h"
#include "platform/pad_seats.h"

namespace glfw3Bridge {

namespace {

bool started = false;
GLFWwindow* window = nullptr;
CarriedKeys carriedKeys;  // held through the last rebuild of the window
PadSeats pads;

// GLFW 3's keys for the 2.7 special keys, in 2.7's order from ESC (257).
const int SPECIAL_KEYS[LAST_SPECIAL_KEY - FIRST_SPECIAL_KEY + 1] = {
    GLFW_KEY_ESCAPE,
    GLFW_KEY_F1, GLFW_KEY_F2, GLFW_KEY_F3, GLFW_KEY_F4, GLFW_KEY_F5,
    GLFW_KEY_F6, GLFW_KEY_F7, GLFW_KEY_F8, GLFW_KEY_F9, GLFW_KEY_F10,
    GLFW_KEY_F11, GLFW_KEY_F12, GLFW_KEY_F13, GLFW_KEY_F14, GLFW_KEY_F15,
    GLFW_KEY_F16, GLFW_KEY_F17, GLFW_KEY_F18, GLFW_KEY_F19, GLFW_KEY_F20,
    GLFW_KEY_F21, GLFW_KEY_F22, GLFW_KEY_F23, GLFW_KEY_F24, GLFW_KEY_F25,
    GLFW_KEY_UP, GLFW_KEY_DOWN, GLFW_KEY_LEFT, GLFW_KEY_RIGHT,
    GLFW_KEY_LEFT_SHIFT, GLFW_KEY_RIGHT_SHIFT,
    GLFW_KEY_LEFT_CONTROL, GLFW_KEY_RIGHT_CONTROL,
    GLFW_KEY_LEFT_ALT, GLFW_KEY_RIGHT_ALT,
    GLFW_KEY_TAB, GLFW_KEY_ENTER, GLFW_KEY_BACKSPACE, GLFW_KEY_INSERT,
    GLFW_KEY_DELETE, GLFW_KEY_PAGE_UP, GLFW_KEY_PAGE_DOWN,
    GLFW_KEY_HOME, GLFW_KEY_END,
    GLFW_KEY_KP_0, GLFW_KEY_KP_1, GLFW_KEY_KP_2, GLFW_KEY_KP_3, GLFW_KEY_KP_4,
    GLFW_KEY_KP_5, GLFW_KEY_KP_6, GLFW_KEY_KP_7, GLFW_KEY_KP_8, GLFW_KEY_KP_9,
    GLFW_KEY_KP_DIVIDE, GLFW_KEY_KP_MULTIPLY, GLFW_KEY_KP_SUBTRACT,
    GLFW_KEY_KP_ADD, GLFW_KEY_KP_DECIMAL, GLFW_KEY_KP_EQUAL, GLFW_KEY_KP_ENTER,
    GLFW_KEY_NUM_LOCK, GLFW_KEY_CAPS_LOCK, GLFW_KEY_SCROLL_LOCK, GLFW_KEY_PAUSE,
    GLFW_KEY_LEFT_SUPER, GLFW_KEY_RIGHT_SUPER, GLFW_KEY_MENU,
};

// The keys of GLFW 3 that type one character; their codes are the characters
// of a US keyboard.
const int PRINTABLE_KEYS[] = {
    GLFW_KEY_SPACE, GLFW_KEY_APOSTROPHE, GLFW_KEY_COMMA, GLFW_KEY_MINUS,
    GLFW_KEY_PERIOD, GLFW_KEY_SLASH,
    GLFW_KEY_0, GLFW_KEY_1, GLFW_KEY_2, GLFW_KEY_3, GLFW_KEY_4,
    GLFW_KEY_5, GLFW_KEY_6, GLFW_KEY_7, GLFW_KEY_8, GLFW_KEY_9,
    GLFW_KEY_SEMICOLON, GLFW_KEY_EQUAL,
    GLFW_KEY_A, GLFW_KEY_B, GLFW_KEY_C, GLFW_KEY_D, GLFW_KEY_E, GLFW_KEY_F,
    GLFW_KEY_G, GLFW_KEY_H, GLFW_KEY_I, GLFW_KEY_J, GLFW_KEY_K, GLFW_KEY_L,
    GLFW_KEY_M, GLFW_KEY_N, GLFW_KEY_O, GLFW_KEY_P, GLFW_KEY_Q, GLFW_KEY_R,
    GLFW_KEY_S, GLFW_KEY_T, GLFW_KEY_U, GLFW_KEY_V, GLFW_KEY_W, GLFW_KEY_X,
    GLFW_KEY_Y, GLFW_KEY_Z,
    GLFW_KEY_LEFT_BRACKET, GLFW_KEY_BACKSLASH, GLFW_KEY_RIGHT_BRACKET,
    GLFW_KEY_GRAVE_ACCENT, GLFW_KEY_WORLD_1, GLFW_KEY_WORLD_2,
};

// Printable 2.7 codes (ASCII, letters in upper case) to GLFW 3 keys: the US
// places until the user's layout is known.
struct PrintableTable {
    int keys[128];
    PrintableTable()
    {
        for (int& key : keys) {
            key = -1;
        }
        for (int key : PRINTABLE_KEYS) {
            if (key < 128) {
                keys[key] = key;
            }
        }
    }
};
PrintableTable printableTable;

// 2.7 named a printable key by the character it types on the user's layout;
// GLFW 3 names it by its place on a US keyboard. Where the layout's names are
// known they decide; a character that no key types unshifted keeps its US key.
void applyKeyboardLayout()
{
    printableTable = PrintableTable();
    for (int key : PRINTABLE_KEYS) {
        if (glfwGetKeyScancode(key) < 0) {
            continue;  // not on this keyboard
        }
        const char* name = glfwGetKeyName(key, 0);
        if (name && name[0] > ' ' && name[0] < 127 && name[1] == '\0') {
            int code = std::toupper(static_cast<unsigned char>(name[0]));
            printableTable.keys[code] = key;
        }
    }
}

void reportError(int code, const char* description)
{
    std::fprintf(stderr, "GLFW error 0x%X: %s\n", code, description);
}

void onJoystick(int joystick, int event)
{
    if (event == GLFW_CONNECTED && glfwJoystickIsGamepad(joystick))
        pads.plugIn(joystick);
    else if (event == GLFW_DISCONNECTED)
        pads.unplug(joystick);
}

// The controllers already there when the game starts, in GLFW's order.
void seatPresentPads()
{
    pads = PadSeats();
    for (int joystick = GLFW_JOYSTICK_1; joystick <= GLFW_JOYSTICK_LAST; ++joystick) {
        if (glfwJoystickIsGamepad(joystick)) pads.plugIn(joystick);
    }
    glfwSetJoystickCallback(onJoystick);
}

bool gamepadHolds(int joystick, int button)
{
    GLFWgamepadstate state;
    if (!glfwGetGamepadState(joystick, &state)) return false;
    if (button <= GLFW_GAMEPAD_BUTTON_LAST) return state.buttons[button] == GLFW_PRESS;
    // A trigger's axis runs from -1 at rest to 1 pulled through.
    const int trigger = GLFW_GAMEPAD_AXIS_LEFT_TRIGGER + button - GLFW_GAMEPAD_BUTTON_LAST - 1;
    return trigger <= GLFW_GAMEPAD_AXIS_RIGHT_TRIGGER && state.axes[trigger] > 0;
}

int dontCareIfZero(int bits)
{
    return bits > 0 ? bits : GLFW_DONT_CARE;
}

}  // namespace

bool init()
{
    if (started) {
        return true;
    }
    glfwSetErrorCallback(reportError);
    started = glfwInit() == GLFW_TRUE;
    if (started) {
        applyKeyboardLayout();
        seatPresentPads();
    }
    return started;
}

void terminate()
{
    if (!started) {
        return;
    }
    closeWindow();
    glfwTerminate();
    pads = PadSeats();
    started = false;
}

bool openWindow(const WindowRequest& request)
{
    if (!started || window) {
        return false;
    }
    glfwDefaultWindowHints();
    glfwWindowHint(GLFW_RED_BITS, dontCareIfZero(request.redBits));
    glfwWindowHint(GLFW_GREEN_BITS, dontCareIfZero(request.greenBits));
    glfwWindowHint(GLFW_BLUE_BITS, dontCareIfZero(request.blueBits));
    glfwWindowHint(GLFW_ALPHA_BITS, request.alphaBits);
    glfwWindowHint(GLFW_DEPTH_BITS, request.depthBits);
    glfwWindowHint(GLFW_STENCIL_BITS, request.stencilBits);
    glfwWindowHint(GLFW_SAMPLES, request.samples);
    glfwWindowHint(GLFW_REFRESH_RATE, request.refreshRate > 0 ? request.refreshRate : GLFW_DONT_CARE);
    glfwWindowHint(GLFW_RESIZABLE, request.resizable ? GLFW_TRUE : GLFW_FALSE);
    glfwWindowHint(GLFW_VISIBLE, request.visible ? GLFW_TRUE : GLFW_FALSE);
    glfwWindowHint(GLFW_DOUBLEBUFFER, GLFW_TRUE);
    GLFWmonitor* monitor = request.fullscreen ? glfwGetPrimaryMonitor() : nullptr;
    // 2.7 titled a new window "GLFW Window" until the program named it.
    window = glfwCreateWindow(request.width, request.height, "GLFW Window", monitor, nullptr);
    if (!window) {
        return false;
    }
    glfwMakeContextCurrent(window);
    carriedKeys.windowOpened(glfwGetTime());
    return true;
}

void closeWindow()
{
    if (window) {
        std::vector<int> keysDown;
        for (int code = 0; code <= LAST_SPECIAL_KEY; code++) {
            if (keyDown(code)) keysDown.push_back(code);
        }
        carriedKeys.carry(keysDown);
        glfwDestroyWindow(window);
        window = nullptr;
    }
}

bool hasWindow() { return window != nullptr; }

bool closeRequested() { return window && glfwWindowShouldClose(window); }

bool focused() { return window && glfwGetWindowAttrib(window, GLFW_FOCUSED); }
bool iconified() { return window && glfwGetWindowAttrib(window, GLFW_ICONIFIED); }

int refreshRate()
{
    GLFWmonitor* monitor = window ? glfwGetWindowMonitor(window) : nullptr;
    const GLFWvidmode* mode = monitor ? glfwGetVideoMode(monitor) : nullptr;
    return mode ? mode->refreshRate : 0;
}

void swapBuffers()
{
    if (window) {
        glfwSwapBuffers(window);
    }
}

void pollEvents()
{
    if (started) {
        glfwPollEvents();
    }
}

void setSwapInterval(int interval)
{
    if (window) {
        glfwSwapInterval(interval);
    }
}

void setTitle(const char* title)
{
    if (window && title) {
        glfwSetWindowTitle(window, title);
    }
}

void setPosition(int x, int y)
{
    if (window) {
        glfwSetWindowPos(window, x, y);
    }
}

void getSize(int* width, int* height)
{
    int w = 0, h = 0;
    if (window) {
        glfwGetWindowSize(window, &w, &h);
    }
    if (width) *width = w;
    if (height) *height = h;
}

void setCursorVisible(bool visible)
{
    if (window) {
        glfwSetInputMode(window, GLFW_CURSOR, visible ? GLFW_CURSOR_NORMAL : GLFW_CURSOR_DISABLED);
    }
}

void setStickyKeys(bool sticky)
{
    if (window) {
        glfwSetInputMode(window, GLFW_STICKY_KEYS, sticky ? GLFW_TRUE : GLFW_FALSE);
    }
}

void setStickyMouseButtons(bool sticky)
{
    if (window) {
        glfwSetInputMode(window, GLFW_STICKY_MOUSE_BUTTONS, sticky ? GLFW_TRUE : GLFW_FALSE);
    }
}

int hostKeyFor(int legacyKey)
{
    if (legacyKey >= FIRST_SPECIAL_KEY && legacyKey <= LAST_SPECIAL_KEY) {
        return SPECIAL_KEYS[legacyKey - FIRST_SPECIAL_KEY];
    }
    if (legacyKey < 0 || legacyKey >= 128) {
        return -1;
    }
    return printableTable.keys[legacyKey];
}

bool keyDown(int legacyKey)
{
    int key = hostKeyFor(legacyKey);
    bool down = window && key >= 0 && glfwGetKey(window, key) == GLFW_PRESS;
    return window && carriedKeys.isDown(legacyKey, down, glfwGetTime());
}

bool mouseButtonDown(int button)
{
    return window && button >= 0 && button <= GLFW_MOUSE_BUTTON_LAST
        && glfwGetMouseButton(window, button) == GLFW_PRESS;
}

bool padButtonDown(int seat, int button)
{
    return started && button >= 0 && pads.holds(seat, button, gamepadHolds);
}

void cursorPosition(double* x, double* y)
{
    double cx = 0, cy = 0;
    if (window) {
        glfwGetCursorPos(window, &cx, &cy);
    }
    *x = cx;
    *y = cy;
}

std::vector<ModeInfo> primaryMonitorModes()
{
    std::vector<ModeInfo> modes;
    GLFWmonitor* monitor = started ? glfwGetPrimaryMonitor() : nullptr;
    if (!monitor) {
        return modes;
    }
    int count = 0;
    const GLFWvidmode* list = glfwGetVideoModes(monitor, &count);
    for (int i = 0; list && i < count; i++) {
        modes.push_back({list[i].width, list[i].height,
                         list[i].redBits, list[i].greenBits, list[i].blueBits});
    }
    return modes;
}

ModeInfo desktopMode()
{
    GLFWmonitor* monitor = started ? glfwGetPrimaryMonitor() : nullptr;
    const GLFWvidmode* mode = monitor ? glfwGetVideoMode(monitor) : nullptr;
    if (!mode) {
        return {};
    }
    return {mode->width, mode->height, mode->redBits, mode->greenBits, mode->blueBits};
}

double seconds() { return started ? glfwGetTime() : 0.0; }

void* procAddress(const char* name)
{
    return window ? reinterpret_cast<void*>(glfwGetProcAddress(name)) : nullptr;
}

}  // namespace glfw3Bridge
