#include "play/hint.h"

#include <GL/glew.h>
#include <cstring>
#include <vector>

#include "base/numbers.h"
#include "data/images.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"

namespace {

const uint32_t hintLifetime = 550;

void setGrey(std::vector<unsigned char>& pixels, int row, int grey)
{
    for (int i = 0; i < 4; ++i) {
        unsigned char* p = &pixels[(row * 4 + i) * 4];
        p[0] = p[1] = p[2] = static_cast<unsigned char>(grey);
        p[3] = 255;
    }
}

uint32_t uploadPlate(const std::vector<unsigned char>& pixels, uint16_t height)
{
    uint32_t texture = 0;
    createLinearTexture(&texture);
    glTexImage2D(GL_TEXTURE_2D, 0, 4, 4, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return texture;
}

// One strip with corners top right, top left, bottom right, bottom left;
// the texture's first row lies at the bottom, as everywhere in the game.
void drawStrip(float left, float right, float top, float bottom, float u0, float u1)
{
    glBegin(GL_TRIANGLE_STRIP);
    glTexCoord2f(u1, 1);
    glVertex2f(right, top);
    glTexCoord2f(u0, 1);
    glVertex2f(left, top);
    glTexCoord2f(u1, 0);
    glVertex2f(right, bottom);
    glTexCoord2f(u0, 0);
    glVertex2f(left, bottom);
    glEnd();
}

}  // namespace

PlateLayout plateLayout(float size)
{
    int h = static_cast<int>(size + 20 + 40);
    int height = 4;
    while (height < h) height *= 2;
    PlateLayout layout;
    layout.textureHeight = static_cast<uint16_t>(height);
    layout.top = (height + 40 - h) / 2;
    layout.bottom = (height - 40 + h) / 2 - 10;
    return layout;
}

Hint::Hint(const char* text, uint16_t x, uint16_t y, float size, float arrowAngle)
    : x(x), y(y), size(size), arrowAngle(arrowAngle)
{
    size_t n = std::strlen(text);
    if (n > 255) n = 255;
    this->text = new char[n + 1];
    std::memcpy(this->text, text, n);
    this->text[n] = 0;

    PlateLayout layout = plateLayout(size);
    plateTextureHeight = layout.textureHeight;
    float arrowRoom = arrowAngle > 0 ? size : 0;
    plateWidth = static_cast<uint16_t>(size * n * 0.3848684211f + 40 + arrowRoom);
    loadTexture(&arrowTexture, "arrow.spg");

    const int H = plateTextureHeight, t = layout.top, b = layout.bottom;
    plateTop = static_cast<int16_t>(y - t);
    std::vector<unsigned char> pixels(4 * H * 4, 0);
    for (int i = 0; i < 10; ++i) {
        int c = static_cast<int>(mapRange(0, 10, 128, 255, static_cast<float>(i)));
        setGrey(pixels, t + i, c);
        setGrey(pixels, b + i, (127 - c) & 0xFF);
    }
    for (int row = t + 10; row < b; ++row) setGrey(pixels, row, 255);
    setGrey(pixels, t, 0);
    setGrey(pixels, b + 9, 0);
    plateMiddleTexture = uploadPlate(pixels, plateTextureHeight);

    // The end caps: the same plate with dark side columns.
    for (int row = t; row <= b + 9; ++row) {
        for (int column : {0, 3}) {
            unsigned char* p = &pixels[(row * 4 + column) * 4];
            p[0] = p[1] = p[2] = 0;
        }
    }
    plateEndTexture = uploadPlate(pixels, plateTextureHeight);
}

Hint::~Hint()
{
    glDeleteTextures(1, &plateMiddleTexture);
    glDeleteTextures(1, &plateEndTexture);
    glDeleteTextures(1, &arrowTexture);
    delete[] text;
}

bool Hint::tick()
{
    age += 1;
    return age < hintLifetime;
}

void Hint::draw()
{
    float left = x, right = x + plateWidth;
    float top = plateTop, bottom = static_cast<float>(plateTop + plateTextureHeight);
    float time = static_cast<float>(age);

    useTextTransition1(time, left, right);
    glBindTexture(GL_TEXTURE_2D, plateEndTexture);
    drawStrip(left, left + 2, top, bottom, 0, 0.5f);
    drawStrip(right - 2, right, top, bottom, 0.5f, 1);
    glBindTexture(GL_TEXTURE_2D, plateMiddleTexture);
    drawStrip(left + 2, right - 2, top, bottom, 0, 1);

    useTextTransition2(time, left, right);
    drawText(text, x + 20.0f, y + 10.0f, size, 0);

    if (arrowAngle > 0) {
        useTextTransition1(time + 40, left, right);
        float angle = arrowAngle;
        float drop = 0;
        if (age < 50) {
            angle = arrowAngle - 4;
        } else if (age < 100) {
            float t = mapRange(50, 100, 2, 0, time);
            angle = arrowAngle - t * t;
        } else if (age > 380) {
            angle = arrowAngle + mapRange(380, 440, 0, 1, time);
            drop = mapRange(380, 440, 0, 10, time);
        }
        drawTexturedRotated(arrowTexture, right - 10 - size * 0.5f, y + 10 + size * 0.5f + drop,
                            size, size, angle);
    }
    useProgram(basicProgram);
}
