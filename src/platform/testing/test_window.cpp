// The 2.7 window calls of the test backend: a hidden real GL window, with
// everything the game asks of it written down.
#include "platform/gl_context_facts.h"
#include "platform/glfw3_bridge.h"
#include "platform/input_tape.h"
#include "platform/window_request.h"
#include "platform/testing/test_state.h"

using testBackend::state;

int glfwInit()
{
    auto& s = state();
    if (s.failInit) {
        return 0;
    }
    if (!s.initialized) {
        s.hints = testBackend::OpenHints();
    }
    s.initialized = true;
    return 1;
}

// The real GLFW 3 under the hidden window stays up for the whole process:
// tests start and stop the game many times over.
void glfwTerminate()
{
    if (!state().initialized) {
        return;
    }
    glfwCloseWindow();
    state().initialized = false;
}

void glfwOpenWindowHint(int target, int hint)
{
    auto& hints = state().hints;
    if (target == GLFW_WINDOW_NO_RESIZE) {
        hints.noResize = hint;
    } else if (target == GLFW_FSAA_SAMPLES) {
        hints.fsaaSamples = hint;
    }
}

int glfwOpenWindow(int width, int height, int redBits, int greenBits, int blueBits,
                   int alphaBits, int depthBits, int stencilBits, int mode)
{
    auto& s = state();
    const testBackend::OpenHints hints = s.hints;
    s.hints = testBackend::OpenHints();  // 2.7 forgets the hints after each open
    if (!s.initialized || s.record.open || s.failOpenWindow
        || (mode != GLFW_WINDOW && mode != GLFW_FULLSCREEN)) {
        return 0;
    }
    glfw3Bridge::WindowRequest request =
        windowRequestFor27(width, height, redBits, greenBits, blueBits, alphaBits, depthBits,
                           stencilBits, hints.fsaaSamples, hints.noResize);
    request.visible = false;
    if (!s.withoutDisplay) {
        if (!glfw3Bridge::init() || !glfw3Bridge::openWindow(request)) {
            return 0;
        }
        glfw3Bridge::setSwapInterval(0);  // virtual time: never wait for a display
    }
    s.accelerated = !s.withoutDisplay && currentContextIsAccelerated();
    // Without real swaps the back buffer always keeps its frame; the save and
    // restore runs only where a test asks for it.
    s.backBufferKeeper.setNeeded(s.forceFrameRestore);
    s.closed = false;
    s.windowOpenedAt = s.clock;
    s.carriedKeys.windowOpened(s.clock);
    for (int key = 0; key <= GLFW_KEY_LAST; key++) {
        s.awaitingRepeat[key] = s.keys[key];
    }
    s.drawingLeftOut = false;  // a new context draws
    s.emptyFramebuffer = 0;

    testBackend::WindowRecord& record = s.record;
    record.open = true;
    record.requestedWidth = request.width;
    record.requestedHeight = request.height;
    record.redBits = redBits;
    record.greenBits = greenBits;
    record.blueBits = blueBits;
    record.alphaBits = alphaBits;
    record.depthBits = depthBits;
    record.stencilBits = stencilBits;
    record.mode = mode;
    record.noResizeHint = hints.noResize;
    record.fsaaSamplesHint = hints.fsaaSamples;
    record.x = record.y = 0;
    record.title.clear();
    record.swapInterval = 0;
    record.cursorEnabled = mode == GLFW_WINDOW;
    record.openCount++;
    return 1;
}

void glfwCloseWindow()
{
    auto& record = state().record;
    if (!record.open) {
        return;
    }
    std::vector<int> keysDown;
    for (int key = 0; key <= GLFW_KEY_LAST; key++) {
        if (glfwGetKey(key) == GLFW_PRESS) keysDown.push_back(key);
    }
    state().carriedKeys.carry(keysDown);
    glfw3Bridge::closeWindow();
    record.open = false;
    record.closeCount++;
}

void glfwSetWindowTitle(const char* title)
{
    if (state().record.open && title) {
        state().record.title = title;
    }
}

void glfwGetWindowSize(int* width, int* height)
{
    if (!state().record.open) {
        return;  // as 2.7: the arguments stay as they were
    }
    if (state().withoutDisplay) {
        *width = state().record.requestedWidth;
        *height = state().record.requestedHeight;
        return;
    }
    glfw3Bridge::getSize(width, height);
}

void glfwSetWindowPos(int x, int y)
{
    if (state().record.open) {
        state().record.x = x;
        state().record.y = y;
    }
}

void glfwSwapBuffers()
{
    auto& s = state();
    s.record.swapCount++;
    if (s.record.open) {
        if (s.frameWatcher && !s.drawingLeftOut) {
            testBackend::FrameWatcher watcher = s.frameWatcher;  // it may replace itself
            watcher(s.round + 1);
        }
        if (s.backBufferKeeper.needed()) {
            int width = 0, height = 0;
            glfw3Bridge::getSize(&width, &height);
            s.backBufferKeeper.beforeSwap(width, height);
        }
        // No real swap: nobody sees the hidden window, and presenting it would
        // only cost a multisample resolve and a copy to the X server each
        // frame. The back buffer keeps its frame, as Mesa's swap does.
        s.backBufferKeeper.afterSwap();
    }
    testBackend::pump();
}

void glfwSwapInterval(int interval)
{
    if (state().record.open) {
        state().record.swapInterval = interval;
    }
}

int glfwGetWindowParam(int param)
{
    const auto& s = state();
    if (!s.initialized || !s.record.open) {
        return 0;
    }
    switch (param) {
    case GLFW_OPENED:
        if (inputTape::playing()) return inputTape::replayed().closeRequested ? 0 : 1;
        return s.closed ? 0 : 1;
    case GLFW_ACTIVE:
        if (inputTape::playing()) return inputTape::replayed().focused ? 1 : 0;
        return s.focused ? 1 : 0;
    case GLFW_ICONIFIED: return 0;
    case GLFW_ACCELERATED: return s.accelerated ? 1 : 0;
    case GLFW_RED_BITS: return readContextBits().red;
    case GLFW_GREEN_BITS: return readContextBits().green;
    case GLFW_BLUE_BITS: return readContextBits().blue;
    case GLFW_ALPHA_BITS: return readContextBits().alpha;
    case GLFW_DEPTH_BITS: return readContextBits().depth;
    case GLFW_STENCIL_BITS: return readContextBits().stencil;
    case GLFW_FSAA_SAMPLES: return readContextBits().samples;
    case GLFW_WINDOW_NO_RESIZE: return s.record.noResizeHint;
    default: return 0;
    }
}

// Only the cursor is written down; every swap is a round whatever the
// auto-polling.
void glfwEnable(int token)
{
    auto& s = state();
    if (token == GLFW_MOUSE_CURSOR && s.record.open) {
        s.record.cursorEnabled = true;
    }
}

void glfwDisable(int token)
{
    auto& s = state();
    if (token == GLFW_MOUSE_CURSOR && s.record.open) {
        s.record.cursorEnabled = false;
    }
}
