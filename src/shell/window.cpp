#include "shell/window.h"

#include <cstdio>

#include "data/settings.h"
#include "platform/glfw.h"

int16_t windowWidth = 0;
int16_t windowHeight = 0;
int16_t screenTextureWidth = 2;
int16_t screenTextureHeight = 2;
uint16_t desktopWidth = 0;
uint16_t desktopHeight = 0;
std::vector<std::pair<int16_t, int16_t>> videoModes;
RunDisplay runDisplay;

int16_t screenTextureSize(int16_t size)
{
    int16_t result = 2;
    if (size > 2) {
        do {
            result = static_cast<int16_t>(result * 2);
        } while (result < size);
    }
    return result;
}

void setScreenSize(int16_t width, int16_t height)
{
    if (width < 0) {
        int w = 0, h = 0;
        glfwGetWindowSize(&w, &h);
        width = static_cast<int16_t>(w);
        height = static_cast<int16_t>(h);
    }
    windowWidth = width;
    windowHeight = height;
    screenTextureWidth = screenTextureSize(width);
    screenTextureHeight = screenTextureSize(height);
}

void buildVideoModes(const GLFWvidmode* modes, int count)
{
    videoModes.clear();
    for (int i = count - 1; i >= 0 && videoModes.size() < 15; --i) {
        const GLFWvidmode& mode = modes[i];
        if (mode.RedBits + mode.GreenBits + mode.BlueBits != 24) continue;
        if (mode.Width < 512 || mode.Height < 512) continue;
        videoModes.emplace_back(static_cast<int16_t>(mode.Width), static_cast<int16_t>(mode.Height));
    }
}

void checkStoredResolution()
{
    uint16_t width = 0, height = 0;
    getResolution(&width, &height);
    if (width == 0) return;  // "Auto" is never searched for
    for (const auto& mode : videoModes) {
        if (mode.first == width && mode.second == height) return;
    }
    setResolution(0, 0);
}

namespace {

void logWindowParameters()
{
    if (glfwGetWindowParam(GLFW_ACCELERATED) != 0)
        std::printf("Hardware accelerated window succesfully opened!\n");
    else
        std::printf("Couldn't get hardware acceleration!\n");

    int colorBits = glfwGetWindowParam(GLFW_RED_BITS) + glfwGetWindowParam(GLFW_GREEN_BITS) +
                    glfwGetWindowParam(GLFW_BLUE_BITS) + glfwGetWindowParam(GLFW_ALPHA_BITS);
    std::printf("Color bits: %i / 32\n", colorBits);
    std::printf("Stencil bits: %i / 8\n", glfwGetWindowParam(GLFW_STENCIL_BITS));
    std::printf("Multisampling: %i / 2\n", glfwGetWindowParam(GLFW_FSAA_SAMPLES));
}

}  // namespace

void openDisplayWindow(bool reopen)
{
    if (reopen) {
        glfwCloseWindow();
        std::printf("Reopening a window\n");
    }
    glfwOpenWindowHint(GLFW_WINDOW_NO_RESIZE, 1);
    glfwOpenWindowHint(GLFW_FSAA_SAMPLES, 2);

    uint16_t width = 0, height = 0;
    getResolution(&width, &height);
    if (runDisplay.sizeGiven) {
        width = runDisplay.width;
        height = runDisplay.height;
    }
    const bool fullscreen = runDisplay.typeGiven ? runDisplay.fullscreen : isFullscreen();

    // Width 0 is "Auto": the desktop's size in fullscreen, 1000 x 600 in a window.
    if (width != 0)
        setScreenSize(static_cast<int16_t>(width), static_cast<int16_t>(height));
    else if (fullscreen)
        setScreenSize(static_cast<int16_t>(desktopWidth), static_cast<int16_t>(desktopHeight));
    else
        setScreenSize(1000, 600);
    int mode = fullscreen ? GLFW_FULLSCREEN : GLFW_WINDOW;

    if (!glfwOpenWindow(windowWidth, windowHeight, 8, 8, 8, 8, 0, 8, mode))
        throw "Couldn't create window!";

    setScreenSize(-1, -1);  // from here on, what the window really is
    glfwSetWindowPos((desktopWidth - windowWidth) / 2, (desktopHeight - windowHeight) / 4);
    glfwSetWindowTitle("Gorvan");
    glfwSwapInterval(1);
    glfwEnable(GLFW_MOUSE_CURSOR);
    logWindowParameters();
    std::fflush(stdout);
}
