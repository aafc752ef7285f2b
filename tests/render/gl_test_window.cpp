#include "gl_test_window.h"

#include <GL/glew.h>

#include <algorithm>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "render/text.h"
#include "shell/window.h"

void openTestWindow(int width, int height)
{
    testBackend::reset();
    glfwInit();
    glfwOpenWindow(width, height, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
    glewInit();
    setScreenSize(-1, -1);
    glViewport(0, 0, windowWidth, windowHeight);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glClearColor(0, 0, 0, 1);
    glColor4f(1, 1, 1, 1);
    glEnable(GL_TEXTURE_2D);
    glClear(GL_COLOR_BUFFER_BIT);
}

void closeTestWindow()
{
    glfwCloseWindow();
    glfwTerminate();
}

Rgba pixelAt(int x, int yFromTop)
{
    unsigned char texel[4] = {};
    glReadPixels(x, windowHeight - 1 - yFromTop, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, texel);
    return Rgba{texel[0], texel[1], texel[2], texel[3]};
}

uint32_t makeNearestTexture(int width, int height, const std::vector<unsigned char>& rgba)
{
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    return texture;
}

void useCodedFont()
{
    const int width = 2048, height = 512;
    std::vector<unsigned char> rgba(width * height * 4);
    for (int memoryRow = 0; memoryRow < height; memoryRow++) {
        const int rowFromTop = (height - 1 - memoryRow) / 76;  // first stored row is the bottom
        for (int x = 0; x < width; x++) {
            unsigned char* texel = &rgba[(memoryRow * width + x) * 4];
            texel[0] = static_cast<unsigned char>(4 * std::min(x / 39, 52));
            texel[1] = static_cast<unsigned char>(40 * rowFromTop);
            texel[2] = 200;
            texel[3] = 255;
        }
    }
    fontTexture = makeNearestTexture(width, height, rgba);
}

int codeAt(int x, int yFromTop)
{
    const Rgba pixel = pixelAt(x, yFromTop);
    return pixel.b != 200 ? -1 : (pixel.g / 40) * 52 + pixel.r / 4;
}

std::string readText(float x, float y, float size, int n)
{
    std::string text;
    for (int i = 0; i < n; i++) {
        const int code = codeAt(static_cast<int>(x + size * textAdvancePerSize * (i + 0.5f)),
                                static_cast<int>(y + size * 0.5f));
        text += code < 0 ? '?' : static_cast<char>(code);
    }
    return text;
}
