// Start-up and shutdown. The order matters: everything drawn dies with the GL
// context, so reopenDisplay repeats exactly the part of the start-up that
// hangs on it, without the boot screen.
#include "shell/startup.h"

#include <GL/glew.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>

#include "base/random.h"
#include "platform/glfw.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/boot_console.h"
#include "shell/frame_clock.h"
#include "shell/window.h"
#include "sound/sound.h"

namespace {

// Without OpenGL 2.0 there are no programs: the game says so with the font
// through fixed-function texturing, lets a bar run across the bottom for ten
// seconds, says goodbye and ends the process.
[[noreturn]] void sayFarewell()
{
    std::printf("OpenGL 2.0 not supported\n");
    std::fflush(stdout);
    glEnable(GL_BLEND);
    glEnable(GL_TEXTURE_2D);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glColor4f(1, 1, 1, 1);
    glOrtho(0, 1, 1, 0, -1, 1);
    loadFont();

    drawText("OpenGL 2.0 is not supported!", 0.5f, 0.3f, 0.05f, 1);
    drawText("OpenGL 2.0 is required to play this game.", 0.5f, 0.45f, 0.05f, 1);
    glDisable(GL_TEXTURE_2D);
    for (int i = 0; i < 100; i++) {
        glColor4f(1, 1, 1, i / 99.0f);
        const float left = i / 100.0f;
        const float right = (i + 1) / 100.0f;
        glBegin(GL_TRIANGLE_STRIP);
        glVertex2f(right, 0.95f);
        glVertex2f(left, 0.95f);
        glVertex2f(right, 1.0f);
        glVertex2f(left, 1.0f);
        glEnd();
        glfwSwapBuffers();
        glfwSleep(0.1);
    }
    glEnable(GL_TEXTURE_2D);
    drawText("Goodbye", 0.5f, 0.6f, 0.05f, 1);
    glfwSwapBuffers();
    glfwSleep(1.0);

    deleteFont();
    glfwTerminate();
    std::exit(0);
}

void readDesktop()
{
    GLFWvidmode modes[255];
    const int count = glfwGetVideoModes(modes, 255);
    buildVideoModes(modes, count);
    GLFWvidmode desktop;
    glfwGetDesktopMode(&desktop);
    desktopWidth = static_cast<uint16_t>(desktop.Width);
    desktopHeight = static_cast<uint16_t>(desktop.Height);
}

void announce(BootConsole* console, const char* line)
{
    if (console) console->addLine(line);
}

// What hangs on the GL context besides the font, in the boot screen's order;
// the console (null for a start without the boot screen) tells of each step.
void loadDisplayResources(BootConsole* console)
{
    loadShaders(console);
    announce(console, "Loading images");
    loadPanelButtonTexture();
    announce(console, "Generating textures");
    generateTextures(console);
    announce(console, "Initializing framebuffers");
    createScreenTexture();
    refreshFpsDisplaySwitch();
}

void runBootScreen()
{
    BootConsole console;
    // These only report what is already done.
    console.addLine("Program started");
    console.addLine("GLFW initialized");
    console.addLine("FMOD initialized");
    console.addLine("Window opened");
    console.addLine("GLEW initialized");
    loadDisplayResources(&console);
    console.runBootScript();
}  // the console dumps its text to the log here

}  // namespace

void startUp(bool bootScreen)
{
    seedRandom(static_cast<uint32_t>(std::time(nullptr)));
    cosmeticRandom().seed(static_cast<uint32_t>(std::time(nullptr)));
    if (!glfwInit()) {
        throw "Couldn't initialize GLFW!";
    }
    readDesktop();
    checkStoredResolution();

    openDisplayWindow(false);
    initAudio();
    // The noise that goes with the boot screen; it lives to the end of the start-up.
    std::unique_ptr<Sound> bootNoise;
    if (bootScreen) {
        bootNoise = std::make_unique<Sound>("content/sound/static3.ogg", false, false);
        bootNoise->play();
        updateAudio();
    }

    glewInit();
    if (!glewIsSupported("GL_VERSION_2_0")) {
        sayFarewell();
    }
    std::printf("Ready for OpenGL 2.0\n\n");

    loadBasicProgram();
    loadFont();
    if (bootScreen)
        runBootScreen();
    else
        loadDisplayResources(nullptr);
    setOrtho(800, 600);
    std::fflush(stdout);
}

void reopenDisplay()
{
    deleteFont();
    deletePanelButtonTexture();
    deleteSurfaceTexture();
    deleteScreenTextures();
    openDisplayWindow(true);
    std::printf("\n");
    loadBasicProgram();
    loadShaders(nullptr);
    loadFont();
    loadPanelButtonTexture();
    buildSurfaceTexture(nullptr);
    createScreenTexture();
    std::fflush(stdout);
}

void shutDown()
{
    shutdownAudio();
    deleteFont();
    deletePanelButtonTexture();
    freeSurfaceData();
    deleteScreenTextures();
    glfwTerminate();
}
