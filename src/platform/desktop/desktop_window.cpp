// The 2.7 window calls on GLFW 3 (through the bridge), for the game.
#include <GL/gl.h>

#include "platform/back_buffer_keeper.h"
#include "platform/gl_context_facts.h"
#include "platform/glfw.h"
#include "platform/glfw3_bridge.h"
#include "platform/input_tape.h"
#include "platform/window_request.h"

namespace {

struct OpenHints {
    int refreshRate = 0;
    int noResize = 0;
    int fsaaSamples = 0;
};

bool initialized = false;
OpenHints hints;        // for the next glfwOpenWindow; 2.7 forgets them after each
int windowNoResize = 0; // as the open window was asked for
bool autoPollEvents = true;
bool accelerated = false;
BackBufferKeeper backBufferKeeper;

}  // namespace

int glfwInit()
{
    if (initialized) {
        return 1;
    }
    initialized = glfw3Bridge::init();
    hints = OpenHints();
    autoPollEvents = true;
    return initialized ? 1 : 0;
}

void glfwTerminate()
{
    if (!initialized) {
        return;
    }
    glfwCloseWindow();
    glfw3Bridge::terminate();
    initialized = false;
}

void glfwOpenWindowHint(int target, int hint)
{
    switch (target) {
    case GLFW_REFRESH_RATE: hints.refreshRate = hint; break;
    case GLFW_WINDOW_NO_RESIZE: hints.noResize = hint; break;
    case GLFW_FSAA_SAMPLES: hints.fsaaSamples = hint; break;
    default: break;  // hints the game never gives
    }
}

int glfwOpenWindow(int width, int height, int redBits, int greenBits, int blueBits,
                   int alphaBits, int depthBits, int stencilBits, int mode)
{
    if (!initialized || glfw3Bridge::hasWindow() || (mode != GLFW_WINDOW && mode != GLFW_FULLSCREEN)) {
        return 0;
    }
    glfw3Bridge::WindowRequest request =
        windowRequestFor27(width, height, redBits, greenBits, blueBits, alphaBits, depthBits,
                           stencilBits, hints.fsaaSamples, hints.noResize);
    request.refreshRate = hints.refreshRate;
    request.fullscreen = mode == GLFW_FULLSCREEN;
    request.visible = true;
    windowNoResize = hints.noResize;
    hints = OpenHints();
    if (!glfw3Bridge::openWindow(request)) {
        return 0;
    }
    accelerated = currentContextIsAccelerated();
    backBufferKeeper.setNeeded(!BackBufferKeeper::swapKeepsBackBuffer());
    // 2.7 hid the cursor in fullscreen until the program asked for it.
    glfw3Bridge::setCursorVisible(mode != GLFW_FULLSCREEN);
    return 1;
}

void glfwCloseWindow()
{
    glfw3Bridge::closeWindow();
}

void glfwSetWindowTitle(const char* title) { glfw3Bridge::setTitle(title); }

// 2.7 leaves the arguments alone when no window is open.
void glfwGetWindowSize(int* width, int* height)
{
    if (!glfw3Bridge::hasWindow()) {
        return;
    }
    glfw3Bridge::getSize(width, height);
}

void glfwSetWindowPos(int x, int y) { glfw3Bridge::setPosition(x, y); }

void glfwSwapBuffers()
{
    if (glfw3Bridge::hasWindow()) {
        if (backBufferKeeper.needed()) {  // asking for the size costs a trip to the X server
            int width = 0, height = 0;
            glfw3Bridge::getSize(&width, &height);
            backBufferKeeper.beforeSwap(width, height);
        }
        glfw3Bridge::swapBuffers();
        backBufferKeeper.afterSwap();
    }
    if (autoPollEvents) {
        glfwPollEvents();
    }
}

void glfwSwapInterval(int interval) { glfw3Bridge::setSwapInterval(interval); }

int glfwGetWindowParam(int param)
{
    if (!initialized || !glfw3Bridge::hasWindow()) {
        return 0;
    }
    switch (param) {
    case GLFW_OPENED:
        if (inputTape::playing()) return inputTape::replayed().closeRequested ? 0 : 1;
        return glfw3Bridge::closeRequested() ? 0 : 1;
    case GLFW_ACTIVE:
        if (inputTape::playing()) return inputTape::replayed().focused ? 1 : 0;
        return glfw3Bridge::focused() ? 1 : 0;
    case GLFW_ICONIFIED: return glfw3Bridge::iconified() ? 1 : 0;
    case GLFW_ACCELERATED: return accelerated ? 1 : 0;
    case GLFW_RED_BITS: return readContextBits().red;
    case GLFW_GREEN_BITS: return readContextBits().green;
    case GLFW_BLUE_BITS: return readContextBits().blue;
    case GLFW_ALPHA_BITS: return readContextBits().alpha;
    case GLFW_DEPTH_BITS: return readContextBits().depth;
    case GLFW_STENCIL_BITS: return readContextBits().stencil;
    case GLFW_FSAA_SAMPLES: return readContextBits().samples;
    case GLFW_REFRESH_RATE: return glfw3Bridge::refreshRate();
    case GLFW_WINDOW_NO_RESIZE: return windowNoResize;
    default: return 0;
    }
}

void glfwEnable(int token)
{
    switch (token) {
    case GLFW_MOUSE_CURSOR: glfw3Bridge::setCursorVisible(true); break;
    case GLFW_STICKY_KEYS: glfw3Bridge::setStickyKeys(true); break;
    case GLFW_STICKY_MOUSE_BUTTONS: glfw3Bridge::setStickyMouseButtons(true); break;
    case GLFW_AUTO_POLL_EVENTS: autoPollEvents = true; break;
    default: break;  // system keys and key repeat: nothing to do on GLFW 3
    }
}

void glfwDisable(int token)
{
    switch (token) {
    case GLFW_MOUSE_CURSOR: glfw3Bridge::setCursorVisible(false); break;
    case GLFW_STICKY_KEYS: glfw3Bridge::setStickyKeys(false); break;
    case GLFW_STICKY_MOUSE_BUTTONS: glfw3Bridge::setStickyMouseButtons(false); break;
    case GLFW_AUTO_POLL_EVENTS: autoPollEvents = false; break;
    default: break;
    }
}
