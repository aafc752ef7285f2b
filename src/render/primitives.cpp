// Immediate-mode rectangles, coordinate set-ups and the screen copies.
#include "render/primitives.h"

#include <GL/glew.h>

#include <cmath>

#include "data/images.h"
#include "shell/window.h"

uint32_t screenTexture = 0;
std::vector<uint32_t> screenSlots;

void setOrtho(int16_t width, int16_t height)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, width, height, 0, -1, 1);
    glMatrixMode(GL_MODELVIEW);
}

void setOrthoRect(float left, float top, float right, float bottom)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(left, right, bottom, top, -1, 1);
    glMatrixMode(GL_MODELVIEW);
}

// The strip shared by every axis-aligned rectangle.
static void emitRegion(float x, float y, float width, float height, float u0, float u1,
                       float v0, float v1)
{
    glBegin(GL_TRIANGLE_STRIP);
    glTexCoord2f(u1, v1);
    glVertex2f(x + width, y);
    glTexCoord2f(u0, v1);
    glVertex2f(x, y);
    glTexCoord2f(u1, v0);
    glVertex2f(x + width, y + height);
    glTexCoord2f(u0, v0);
    glVertex2f(x, y + height);
    glEnd();
}

void drawTexturedRect(uint32_t texture, float x, float y, float width, float height)
{
    glBindTexture(GL_TEXTURE_2D, texture);
    emitRegion(x, y, width, height, 0, 1, 0, 1);
}

void drawRect(float x, float y, float width, float height)
{
    emitRegion(x, y, width, height, 0, 1, 0, 1);
}

void drawTexturedRegion(uint32_t texture, float x, float y, float width, float height,
                        float u0, float u1, float v0, float v1)
{
    glBindTexture(GL_TEXTURE_2D, texture);
    emitRegion(x, y, width, height, u0, u1, v0, v1);
}

void drawRotated(float centreX, float centreY, float width, float height, float angle)
{
    const float hw = width * 0.5f;
    const float hh = height * 0.5f;
    const float s = std::sin(angle);
    const float c = std::cos(angle);
    glBegin(GL_TRIANGLE_STRIP);
    glTexCoord2f(1, 1);
    glVertex2f(centreX + hh * c + hw * s, centreY + hh * s - hw * c);
    glTexCoord2f(0, 1);
    glVertex2f(centreX - hh * c + hw * s, centreY - hh * s - hw * c);
    glTexCoord2f(1, 0);
    glVertex2f(centreX + hh * c - hw * s, centreY + hh * s + hw * c);
    glTexCoord2f(0, 0);
    glVertex2f(centreX - hh * c - hw * s, centreY - hh * s + hw * c);
    glEnd();
}

void drawTexturedRotated(uint32_t texture, float centreX, float centreY, float width,
                         float height, float angle)
{
    glBindTexture(GL_TEXTURE_2D, texture);
    drawRotated(centreX, centreY, width, height, angle);
}

void createScreenTexture()
{
    createLinearTexture(&screenTexture);
}

void deleteScreenTextures()
{
    glDeleteTextures(1, &screenTexture);
    screenTexture = 0;
    if (!screenSlots.empty()) {
        glDeleteTextures(static_cast<GLsizei>(screenSlots.size()), screenSlots.data());
    }
    screenSlots.clear();
}

// The whole power-of-two rectangle from the back buffer's lower-left corner
// into the bound texture; only windowWidth x windowHeight of it is ever shown.
static void copyBackBufferIntoBoundTexture()
{
    glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 0, 0, screenTextureWidth, screenTextureHeight, 0);
}

// How much of a screen copy holds the window's picture.
static float shownU() { return static_cast<float>(windowWidth) / screenTextureWidth; }
static float shownV() { return static_cast<float>(windowHeight) / screenTextureHeight; }

void captureScreenSlot(uint8_t slot)
{
    while (screenSlots.size() <= slot) {
        uint32_t texture = 0;
        createLinearTexture(&texture);
        screenSlots.push_back(texture);
    }
    glViewport(0, 0, screenTextureWidth, screenTextureHeight);
    glBindTexture(GL_TEXTURE_2D, screenSlots[slot]);
    copyBackBufferIntoBoundTexture();
}

void drawScreenSlot(uint8_t slot)
{
    if (slot >= screenSlots.size()) {
        return;
    }
    setOrtho(1, 1);
    glViewport(0, 0, windowWidth, windowHeight);
    drawTexturedRegion(screenSlots[slot], 0, 0, 1, 1, 0, shownU(), 0, shownV());
}

void copyScreen()
{
    setOrtho(1, 1);
    glViewport(0, 0, screenTextureWidth, screenTextureHeight);
    glBindTexture(GL_TEXTURE_2D, screenTexture);
    copyBackBufferIntoBoundTexture();
    glClear(GL_COLOR_BUFFER_BIT);
    glViewport(0, 0, windowWidth, windowHeight);
    drawTexturedRegion(screenTexture, 0, 0, 1, 1, 0, shownU(), 0, shownV());
}
