// The test backend's state, shared by its files (not for tests to include:
// they use test_backend.h).
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/back_buffer_keeper.h"
#include "platform/carried_keys.h"
#include "platform/glfw.h"
#include "platform/pad_seats.h"
#include "platform/testing/test_backend.h"

namespace testBackend {

struct ScriptEvent {
    enum Kind { Key, MouseButton, MouseMove, Focus, Close, PadPlug, PadButton };
    unsigned round = 0;
    Kind kind = Key;
    int a = 0, b = 0;  // key or button; or x and y; or joystick and pad button
    bool on = false;   // down, focused, plugged in
};

struct OpenHints {
    int noResize = 0;
    int fsaaSamples = 0;
};

struct BackendState {
    // Clock and rounds
    double clock = 0;
    double frameCost = 0;
    double sleepTotal = 0;
    unsigned round = 0;
    std::vector<ScriptEvent> script;  // in order of round, then of scripting
    FrameWatcher frameWatcher;
    std::vector<std::pair<unsigned, unsigned>> roundsLeftOut;  // first, last
    bool drawingLeftOut = false;  // for the frame being drawn
    unsigned emptyFramebuffer = 0;  // bound while drawing is left out

    // Input: what the script holds down. A key already down when a window
    // opens reaches that window only with the keyboard's repeat, as on GLFW 3;
    // the layer carries the keys held through a rebuild (carried_keys.h).
    bool keys[GLFW_KEY_LAST + 1] = {};
    bool awaitingRepeat[GLFW_KEY_LAST + 1] = {};
    double windowOpenedAt = 0;
    CarriedKeys carriedKeys;
    bool buttons[GLFW_MOUSE_BUTTON_LAST + 1] = {};
    int mouseX = 0, mouseY = 0;
    bool focused = true;
    bool closed = false;  // by the user, through the script
    static constexpr int joystickCount = 16;
    PadSeats pads;
    bool padButtons[joystickCount][GLFW_PAD_BUTTON_LAST + 1] = {};

    // The pretended desktop
    std::vector<GLFWvidmode> modes;
    GLFWvidmode desktop = {};

    // Library and window
    bool failInit = false, failOpenWindow = false;
    bool initialized = false;
    bool accelerated = false;
    bool forceFrameRestore = false;
    bool withoutDisplay = false;  // windows are pretend ones, without GL
    OpenHints hints;
    WindowRecord record;
    BackBufferKeeper backBufferKeeper;

    // Desktop services
    bool servicesAvailable = true;
    std::vector<NoticeRecord> notices;
    std::vector<std::string> webAddresses;
};

BackendState& state();

// One pump of events: the frame cost, the next round, its scripted events,
// and whether the next round's drawing is left out.
void pump();
// Leaves out the drawing of the coming frame or takes it up again.
void setDrawingLeftOut(bool leftOut);
// Applies one event to the input state.
void apply(const ScriptEvent& event);
// Where a key code lands in the key table; -1 when 2.7 would never report it.
int keySlot(int key);

}  // namespace testBackend
