// The test backend's control interface, and its rounds.
#include <GL/glew.h>

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/glfw3_bridge.h"
#include "platform/input_tape.h"
#include "platform/testing/test_state.h"

namespace testBackend {

namespace {

std::vector<GLFWvidmode> defaultModes()
{
    std::vector<GLFWvidmode> modes;
    for (auto size : {std::make_pair(640, 480), std::make_pair(800, 600), std::make_pair(1024, 768),
                      std::make_pair(1280, 720), std::make_pair(1920, 1080)}) {
        GLFWvidmode mode;
        mode.Width = size.first;
        mode.Height = size.second;
        mode.RedBits = mode.GreenBits = mode.BlueBits = 8;
        modes.push_back(mode);
    }
    return modes;
}

void schedule(const ScriptEvent& event)
{
    std::vector<ScriptEvent>& script = state().script;
    // After every event of the same round or earlier: one round keeps the
    // order in which it was scripted.
    auto place = std::upper_bound(script.begin(), script.end(), event.round,
                                  [](unsigned round, const ScriptEvent& e) { return round < e.round; });
    script.insert(place, event);
}

ScriptEvent makeEvent(unsigned round, ScriptEvent::Kind kind, int a, int b, bool on)
{
    ScriptEvent event;
    event.round = round;
    event.kind = kind;
    event.a = a;
    event.b = b;
    event.on = on;
    return event;
}

}  // namespace

BackendState& state()
{
    static BackendState backend = [] {
        BackendState fresh;
        fresh.modes = defaultModes();
        fresh.desktop = fresh.modes.back();
        return fresh;
    }();
    return backend;
}

int keySlot(int key)
{
    if (key >= 'a' && key <= 'z') {
        key = std::toupper(key);
    }
    return key >= 0 && key <= GLFW_KEY_LAST ? key : -1;
}

void apply(const ScriptEvent& event)
{
    BackendState& s = state();
    switch (event.kind) {
    case ScriptEvent::Key:
        if (keySlot(event.a) >= 0) {
            s.keys[keySlot(event.a)] = event.on;
            s.awaitingRepeat[keySlot(event.a)] = false;  // the open window hears it
        }
        break;
    case ScriptEvent::MouseButton:
        if (event.a >= 0 && event.a <= GLFW_MOUSE_BUTTON_LAST) {
            s.buttons[event.a] = event.on;
        }
        break;
    case ScriptEvent::MouseMove:
        s.mouseX = event.a;
        s.mouseY = event.b;
        break;
    case ScriptEvent::Focus:
        s.focused = event.on;
        break;
    case ScriptEvent::Close:
        s.closed = true;
        break;
    case ScriptEvent::PadPlug:
        if (event.a < 0 || event.a >= BackendState::joystickCount) break;
        if (event.on) {
            s.pads.plugIn(event.a);
        } else {
            s.pads.unplug(event.a);
            for (bool& held : s.padButtons[event.a]) held = false;
        }
        break;
    case ScriptEvent::PadButton:
        if (event.a >= 0 && event.a < BackendState::joystickCount && event.b >= 0 &&
            event.b <= GLFW_PAD_BUTTON_LAST) {
            s.padButtons[event.a][event.b] = event.on;
        }
        break;
    }
}

void pump()
{
    BackendState& s = state();
    s.clock += s.frameCost;
    s.round++;
    auto due = std::upper_bound(s.script.begin(), s.script.end(), s.round,
                                [](unsigned round, const ScriptEvent& e) { return round < e.round; });
    std::vector<ScriptEvent> now(s.script.begin(), due);
    s.script.erase(s.script.begin(), due);
    for (const ScriptEvent& event : now) {
        apply(event);
    }
    // The X server's events for the hidden window are drained and ignored.
    glfw3Bridge::pollEvents();
    inputTape::pumped(inputTape::liveInput);
    const unsigned next = s.round + 1;
    setDrawingLeftOut(std::any_of(s.roundsLeftOut.begin(), s.roundsLeftOut.end(),
                                  [next](const auto& r) { return r.first <= next && next <= r.second; }));
}

// A framebuffer object without attachments is incomplete: while it is bound,
// every draw, clear and copy fails before it touches a pixel. Frames drawn
// before GLEW is loaded are drawn as ever.
void setDrawingLeftOut(bool leftOut)
{
    BackendState& s = state();
    if (!s.record.open || leftOut == s.drawingLeftOut || glBindFramebuffer == nullptr) return;
    s.drawingLeftOut = leftOut;
    if (leftOut) {
        if (s.emptyFramebuffer == 0) glGenFramebuffers(1, &s.emptyFramebuffer);
        glBindFramebuffer(GL_FRAMEBUFFER, s.emptyFramebuffer);
    } else {
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        while (glGetError() != GL_NO_ERROR) {
        }
    }
}

void reset()
{
    glfw3Bridge::closeWindow();
    inputTape::listen({});
    inputTape::play({}, RoundInput());
    BackendState& s = state();
    s = BackendState();
    s.modes = defaultModes();
    s.desktop = s.modes.back();
}

void openWindowsWithoutDisplay(bool on) { state().withoutDisplay = on; }

void setFrameCost(double seconds) { state().frameCost = seconds; }
void advanceTime(double seconds) { state().clock += seconds; }
double now() { return state().clock; }
double totalSleep() { return state().sleepTotal; }

unsigned round() { return state().round; }

void watchFrames(FrameWatcher watcher) { state().frameWatcher = std::move(watcher); }

void leaveOutDrawing(unsigned first, unsigned last)
{
    state().roundsLeftOut.emplace_back(first, last);
    const unsigned next = state().round + 1;
    if (first <= next && next <= last) setDrawingLeftOut(true);
}

void keyAt(unsigned round, int key, bool down) { schedule(makeEvent(round, ScriptEvent::Key, key, 0, down)); }

void mouseButtonAt(unsigned round, int button, bool down)
{
    schedule(makeEvent(round, ScriptEvent::MouseButton, button, 0, down));
}

void mouseMoveAt(unsigned round, int x, int y) { schedule(makeEvent(round, ScriptEvent::MouseMove, x, y, false)); }
void focusAt(unsigned round, bool focused) { schedule(makeEvent(round, ScriptEvent::Focus, 0, 0, focused)); }
void closeAt(unsigned round) { schedule(makeEvent(round, ScriptEvent::Close, 0, 0, true)); }

void padPluggedAt(unsigned round, int joystick, bool plugged)
{
    schedule(makeEvent(round, ScriptEvent::PadPlug, joystick, 0, plugged));
}

void padButtonAt(unsigned round, int joystick, int button, bool down)
{
    schedule(makeEvent(round, ScriptEvent::PadButton, joystick, button, down));
}

void setKey(int key, bool down) { apply(makeEvent(0, ScriptEvent::Key, key, 0, down)); }
void setMouseButton(int button, bool down) { apply(makeEvent(0, ScriptEvent::MouseButton, button, 0, down)); }
void setMousePos(int x, int y) { apply(makeEvent(0, ScriptEvent::MouseMove, x, y, false)); }
void setFocus(bool focused) { apply(makeEvent(0, ScriptEvent::Focus, 0, 0, focused)); }
void closeWindowNow() { apply(makeEvent(0, ScriptEvent::Close, 0, 0, true)); }

void setVideoModes(const std::vector<GLFWvidmode>& modesSmallestFirst) { state().modes = modesSmallestFirst; }
void setDesktopMode(const GLFWvidmode& mode) { state().desktop = mode; }

void failInit(bool fail) { state().failInit = fail; }
void failOpenWindow(bool fail) { state().failOpenWindow = fail; }

void forceFrameRestore(bool force) { state().forceFrameRestore = force; }
bool frameRestoreActive() { return state().record.open && state().backBufferKeeper.needed(); }

void setServicesAvailable(bool available) { state().servicesAvailable = available; }
const std::vector<NoticeRecord>& notices() { return state().notices; }
const std::vector<std::string>& webAddresses() { return state().webAddresses; }

const WindowRecord& window() { return state().record; }

}  // namespace testBackend
