// Start-up and shutdown. The first steps: the generator, GLFW, the desktop's
// modes, the window and the audio. The drawing resources (programs, font,
// boot console, generated textures, screen copies) join when the drawing core
// is built.
#include "shell/startup.h"

#include <GL/glew.h>
#include <cstdio>
#include <ctime>

#include "base/random.h"
#include "platform/glfw.h"
#include "shell/frame_clock.h"
#include "shell/window.h"
#include "sound/sound.h"

void startUp()
{
    seedRandom(static_cast<uint32_t>(std::time(nullptr)));
    if (!glfwInit()) throw "Couldn't initialize GLFW!";

    GLFWvidmode modes[255];
    int count = glfwGetVideoModes(modes, 255);
    buildVideoModes(modes, count);
    GLFWvidmode desktop;
    glfwGetDesktopMode(&desktop);
    desktopWidth = static_cast<uint16_t>(desktop.Width);
    desktopHeight = static_cast<uint16_t>(desktop.Height);
    checkStoredResolution();

    openDisplayWindow(false);
    initAudio();
    Sound bootNoise("content/sound/static3.ogg", false, false);
    bootNoise.play();
    updateAudio();

    glewInit();
    std::printf("Ready for OpenGL 2.0\n\n");
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glClearColor(0, 0, 0, 1);
    glColor4f(1, 1, 1, 1);
    refreshFpsDisplaySwitch();
    std::fflush(stdout);
}

void reopenDisplay()
{
    openDisplayWindow(true);
    std::printf("\n");
}

void shutDown()
{
    shutdownAudio();
    glfwTerminate();
}
