// The boot console: typing, dots, scrolling, and its dump to the log.
#include "shell/boot_console.h"

#include <GL/glew.h>

#include <algorithm>
#include <cstdio>

#include "base/random.h"
#include "data/images.h"
#include "platform/glfw.h"
#include "render/primitives.h"
#include "render/text.h"
#include "shell/frame_clock.h"
#include "shell/window.h"

namespace {

constexpr int consoleSide = 256;  // pixels of the console before doubling
constexpr int rowHeight = 16;
constexpr int rowsShown = 16;
constexpr int16_t typingRate = 150;  // ticks a second, two characters a tick

}  // namespace

BootConsole::BootConsole()
{
    createNearestTexture(&texture);
    quoteLine = static_cast<uint8_t>(randomInt(10, 29));
}

BootConsole::~BootConsole()
{
    glDeleteTextures(1, &texture);
    std::printf("\n\n\n");
    std::printf("This next thing is just for fun\n");
    std::printf("This is the stuff you see when the program starts:\n");
    std::printf("\n");
    for (const std::string& line : lines) {
        std::printf("%s\n", line.c_str());
    }
    std::printf("\n");
    std::fflush(stdout);
}

void BootConsole::render()
{
    // The console is drawn small in the window's top left corner...
    glViewport(0, windowHeight - consoleSide, consoleSide, consoleSide);
    setOrtho(consoleSide, consoleSide);
    glClear(GL_COLOR_BUFFER_BIT);
    for (int i = 0; i <= currentLine && i < static_cast<int>(lines.size()); i++) {
        if (i < currentLine) {
            // Older lines move up a row per line; above the top they fall away.
            const int row = i + (rowsShown - 1) - currentLine;
            drawText(lines[i].c_str(), 16, static_cast<float>(row * rowHeight), 16, 0);
        } else {
            const std::string typed = lines[i].substr(0, visibleChars);
            drawText(typed.c_str(), 16, 240, 16, 0);
        }
    }
    // ...then copied and shown at twice the size with nearest filtering, so
    // that it looks like the blocky text of an old machine.
    glBindTexture(GL_TEXTURE_2D, texture);
    glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 0, windowHeight - consoleSide, consoleSide,
                     consoleSide, 0);
    glViewport(0, windowHeight - 2 * consoleSide, 2 * consoleSide, 2 * consoleSide);
    drawTexturedRect(texture, 0, 0, consoleSide, consoleSide);
    glfwSwapBuffers();
}

void BootConsole::typeCurrentLine(FrameClock& clock)
{
    if (currentLine < lines.size()) {
        // The count of shown characters is a byte: a longer line is cut short
        // rather than typed forever.
        const size_t typedLength = std::min<size_t>(lines[currentLine].size(), 254);
        while (visibleChars < typedLength) {
            visibleChars += 2;
            if (clock.shouldDraw()) {
                render();
            }
            clock.tick();
        }
    }
    visibleChars = 0;
    currentLine += 1;
    render();
}

void BootConsole::addLine(const char* text)
{
    lines.push_back(text);
    // Each line gets a fresh clock, so it starts typing without lag.
    FrameClock clock(typingRate);
    typeCurrentLine(clock);
}

void BootConsole::addDot()
{
    if (!lines.empty() && !lines.back().empty() && lines.back()[0] == '.') {
        lines.back() += ".";
    } else {
        lines.push_back(".");
    }
    visibleChars += 1;
    render();
    FrameClock pause(1000);
    pause.tick();
}

void BootConsole::closeDots()
{
    if (lines.empty()) {
        return;
    }
    lines.back() += ".";
    FrameClock clock(typingRate);
    typeCurrentLine(clock);
    FrameClock pause(10);
    pause.tick();
}

void BootConsole::runBootScript()
{
    while (lines.size() < 30) {
        generateLine();
    }
    lines.push_back("Thingz by Kelvarin");

    FrameClock typing(typingRate);
    while (currentLine < lines.size()) {
        typeCurrentLine(typing);
    }
    // Scroll everything up until the last line rests in the top row.
    FrameClock scrolling(50);
    for (int i = 0; i < rowsShown - 2; i++) {
        typeCurrentLine(typing);
        scrolling.tick();
    }
    FrameClock standStill(1);
    standStill.tick();
}
