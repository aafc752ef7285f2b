// The "Speed up!" sign: green letters on a soft red glow, made once per
// Player in the back buffer's corner, before the game's first frame.
#include <GL/glew.h>

#include "data/images.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"

namespace {

void copyLabel() {
    glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 0, 0, 256, 64, 0);
}

}  // namespace

void buildSpeedUpTexture(uint32_t* speedUpTexture) {
    glViewport(0, 0, 256, 64);
    setOrtho(256, 64);
    glClear(GL_COLOR_BUFFER_BIT);

    glColor4f(1, 0, 0, 1);
    drawText("Speed up!", 128, 7, 50, 1);
    createLinearTexture(speedUpTexture);
    copyLabel();

    // Blur the red letters into a halo, one direction at a time; the colour
    // stays red through both passes.
    useProgram(blurvProgram);
    drawTexturedRect(*speedUpTexture, 0, 0, 256, 64);
    copyLabel();
    useProgram(blurhProgram);
    drawTexturedRect(*speedUpTexture, 0, 0, 256, 64);
    copyLabel();

    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
    drawTexturedRect(*speedUpTexture, 0, 0, 256, 64);
    glColor4f(0, 1, 0, 1);
    drawText("Speed up!", 128, 7, 50, 1);
    glBindTexture(GL_TEXTURE_2D, *speedUpTexture);
    copyLabel();

    setOrtho(800, 600);
    glColor4f(1, 1, 1, 1);
}
