#include "render/transitions.h"

#include <GL/glew.h>

#include "platform/glfw.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "shell/frame_clock.h"

void runClosingTransition()
{
    captureScreenSlot(0);
    FrameClock clock(60);
    // Every frame is drawn: nothing else competes for the time.
    for (int t = 0; t <= 70; ++t) {
        glClear(GL_COLOR_BUFFER_BIT);
        useTransition2(static_cast<float>(t));
        drawScreenSlot(0);
        glfwSwapBuffers();
        useProgram(basicProgram);
        clock.tick();
    }
}

void drawOpeningEffect(uint32_t frameNumber)
{
    if (frameNumber > 40) return;
    useTransition1(static_cast<float>(frameNumber));
    copyScreen();
    useProgram(basicProgram);
}
