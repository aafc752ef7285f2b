#include <GL/glew.h>
#include <cstdio>

#include "platform/glfw.h"
#include "shell/hotkeys.h"
#include "shell/window.h"

ScreenshotTaker screenshotTaker;

namespace {

void put16(std::ofstream& out, uint32_t value)
{
    out.put(static_cast<char>(value & 0xFF));
    out.put(static_cast<char>((value >> 8) & 0xFF));
}

void put32(std::ofstream& out, uint32_t value)
{
    put16(out, value & 0xFFFF);
    put16(out, value >> 16);
}

}  // namespace

void pollHotkeys()
{
    bool down = glfwGetKey(GLFW_KEY_F5) == GLFW_PRESS || glfwGetKey(GLFW_KEY_F12) == GLFW_PRESS;
    screenshotTaker.poll(down);
}

ScreenshotTaker::~ScreenshotTaker()
{
    while (stage != 0) {
        if (!step()) finish();
    }
    probeFile.close();
    outputFile.close();
}

void ScreenshotTaker::poll(bool keyDown)
{
    if (stage != 0 && !step()) finish();
    if (keyDown) {
        if (!keyHeld) {
            // A press that comes too soon completes the picture under way first.
            if (stage != 0) {
                while (step()) {
                }
                finish();
            }
            step();  // captures the new picture
            keyHeld = true;
        }
    } else {
        keyHeld = false;
    }
}

bool ScreenshotTaker::step()
{
    if (!runStage()) return false;
    stage += 1;
    return true;
}

void ScreenshotTaker::finish()
{
    stage = 0;
    delete[] pixels;
    pixels = nullptr;
    outputFile.close();
}

bool ScreenshotTaker::runStage()
{
    switch (stage) {
    case 0:
        pixels = new unsigned char[static_cast<size_t>(windowWidth) * windowHeight * 4];
        glReadPixels(0, 0, windowWidth, windowHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels);
        width = windowWidth;
        height = windowHeight;
        return true;
    case 1:
        for (int n = 0;; ++n) {
            if (n >= 10000) {
                std::printf("Couldn't take a screenshot!\n");
                return false;
            }
            std::snprintf(fileName, sizeof fileName, "screenshots/%.4i.bmp", n);
            probeFile.open(fileName, std::ios::binary);
            bool taken = probeFile.is_open();
            probeFile.close();
            if (!taken) return true;
        }
    case 2:
        outputFile.open(fileName, std::ios::binary | std::ios::trunc);
        if (!outputFile.is_open()) {
            std::printf("Couldn't make a file for a screenshot!\n");
            return false;
        }
        return true;
    case 3: {
        rowPadding = static_cast<uint8_t>(width & 3);
        outputFile.write("BM", 2);
        put32(outputFile, static_cast<uint32_t>((width * 3 + rowPadding) * height + 54));
        put32(outputFile, 0);
        put32(outputFile, 54);
        put32(outputFile, 40);
        put32(outputFile, static_cast<uint32_t>(width));
        put32(outputFile, static_cast<uint32_t>(height));
        put16(outputFile, 1);
        put16(outputFile, 24);
        put32(outputFile, 0);
        put32(outputFile, static_cast<uint32_t>(width * height * 3));  // without the padding
        for (int i = 0; i < 16; ++i) outputFile.put(0);
        return true;
    }
    case 4:
        halfHeight = height / 2;
        writeRows(0, halfHeight);
        return true;
    default:
        writeRows(halfHeight, height);
        std::printf("Screenshot '%s' taken\n", fileName);
        std::fflush(stdout);
        return false;
    }
}

void ScreenshotTaker::writeRows(int32_t first, int32_t end)
{
    for (int32_t row = first; row < end; ++row) {
        for (int32_t x = 0; x < width; ++x) {
            const unsigned char* p = pixels + (static_cast<size_t>(row) * width + x) * 4;
            outputFile.put(static_cast<char>(p[2]));
            outputFile.put(static_cast<char>(p[1]));
            outputFile.put(static_cast<char>(p[0]));
        }
        for (int i = 0; i < rowPadding; ++i) outputFile.put(0);
    }
}
