#include "platform/back_buffer_keeper.h"

#include <GL/gl.h>

#include <cstdlib>

#include "platform/glfw3_bridge.h"

namespace {

constexpr GLenum CURRENT_PROGRAM = 0x8B8D;  // GL 2.0
using UseProgramFunction = void (*)(GLuint);

// Clears the back buffer to a dark shade of one channel, swaps, and checks
// that the back buffer still holds that shade.
bool markerSurvives(int channel)
{
    const float shade = 0.2f;
    glClearColor(channel == 0 ? shade : 0, channel == 1 ? shade : 0, channel == 2 ? shade : 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glfw3Bridge::swapBuffers();
    GLubyte pixel[4] = {0, 0, 0, 0};
    glReadBuffer(GL_BACK);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    for (int c = 0; c < 3; c++) {
        int expected = c == channel ? 51 : 0;
        if (std::abs(pixel[c] - expected) > 2) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool BackBufferKeeper::swapKeepsBackBuffer()
{
    bool kept = markerSurvives(1) && markerSurvives(2);
    glClearColor(0, 0, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    return kept;
}

void BackBufferKeeper::beforeSwap(int width, int height)
{
    if (isNeeded) {
        saveFrame(width, height);
    }
}

void BackBufferKeeper::afterSwap()
{
    if (isNeeded) {
        restoreFrame();
    }
}

void BackBufferKeeper::saveFrame(int width, int height)
{
    if (width <= 0 || height <= 0) {
        savedWidth = savedHeight = 0;
        return;
    }
    savedWidth = width;
    savedHeight = height;
    savedPixels.resize(static_cast<size_t>(width) * height * 4);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPushAttrib(GL_PIXEL_MODE_BIT);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, savedPixels.data());
    glPopAttrib();
    glPopClientAttrib();
}

// Draws the saved frame with every fragment operation out of the way: no
// program, blending, texturing, stencil, scissor, depth or masks. Texturing is
// switched off on the active unit only; the game keeps unit 0 active and
// enables no other unit outside its programs.
void BackBufferKeeper::restoreFrame()
{
    if (savedWidth <= 0 || savedPixels.empty()) {
        return;
    }
    // The same entry point for every context of the process (GLX).
    static UseProgramFunction useProgram = nullptr;
    if (!useProgram) {
        useProgram = reinterpret_cast<UseProgramFunction>(glfw3Bridge::procAddress("glUseProgram"));
    }
    GLint program = 0;
    if (useProgram) {
        glGetIntegerv(CURRENT_PROGRAM, &program);
        useProgram(0);
    }
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();

    for (GLenum capability : {GL_BLEND, GL_TEXTURE_1D, GL_TEXTURE_2D, GL_STENCIL_TEST, GL_DEPTH_TEST,
                              GL_SCISSOR_TEST, GL_ALPHA_TEST, GL_FOG, GL_LIGHTING, GL_COLOR_LOGIC_OP,
                              GL_DITHER}) {
        glDisable(capability);
    }
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glViewport(0, 0, savedWidth, savedHeight);
    glDrawBuffer(GL_BACK);
    glPixelZoom(1, 1);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    glRasterPos2f(-1, -1);
    glDrawPixels(savedWidth, savedHeight, GL_RGBA, GL_UNSIGNED_BYTE, savedPixels.data());

    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopClientAttrib();
    glPopAttrib();  // also gives back the matrix mode
    if (useProgram) {
        useProgram(static_cast<GLuint>(program));
    }
}
