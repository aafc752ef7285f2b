// The on-screen rate display of FrameClock, kept apart from the pacing so that
// the clock's rules build and test without the text renderer.
#include <GL/glew.h>

#include "render/primitives.h"
#include "render/text.h"
#include "shell/frame_clock.h"
#include "shell/window.h"

void FrameClock::drawStats() const
{
    if (!fpsDisplayEnabled) return;
    // The full screen's space shrunk to a 200 x 150 box in the top left corner.
    setOrtho(800, 600);
    glViewport(0, windowHeight - 150, 200, 150);
    // The colour tells whether the frame before this one was left out.
    if (previousSkipState == 0)
        glColor4f(0, 0.8f, 0, 1);
    else if (previousSkipState == 2)
        glColor4f(0.8f, 0, 0, 1);
    else
        glColor4f(0.8f, 0.8f, 0, 1);
    drawFloat(static_cast<float>(measuredRate), 1, 400, 10, 200, 2);
    drawFloat(static_cast<float>(lag), 2, 400, 230, 200, 2);
    glColor4f(1, 1, 1, 1);
}
