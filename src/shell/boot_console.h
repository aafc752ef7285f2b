// The boot screen: a low-resolution text console (16 rows of 16 pixels in a
// 256 x 256 square, shown doubled in the window's top left corner) that types
// out the steps of the start-up, then a run of invented log lines with one
// quote hidden among them, then the author's line. On destruction the whole
// text goes to the log.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class FrameClock;

class BootConsole {
public:
    BootConsole();
    ~BootConsole();
    BootConsole(const BootConsole&) = delete;
    BootConsole& operator=(const BootConsole&) = delete;

    // Appends a line and types it out; returns when it is complete.
    void addLine(const char* text);
    // One step of a line of progress dots, below the line that announced the
    // work. The first dot opens the line.
    void addDot();
    // Ends a line of dots.
    void closeDots();
    // The show after the real work: made-up lines, the author line, the
    // scroll-off and a second's pause.
    void runBootScript();

    // Draws the console, doubled, and swaps the buffers.
    void render();
    // Types the current line at two characters per tick of the clock, then
    // moves on to the next line (or just scrolls, past the end of the lines).
    void typeCurrentLine(FrameClock& clock);
    // Appends one made-up line (or the quote, at quoteLine) without typing it.
    void generateLine();

    uint8_t visibleChars = 0;  // characters of the current line that are shown
    uint8_t currentLine = 0;   // the line being typed; all before it are complete
    std::vector<std::string> lines;
    uint32_t texture = 0;       // nearest-filtered copy that magnifies the console
    bool fillerAllowed = false; // whether the next made-up line may be dots or an error
    uint8_t quoteLine = 0;      // index of lines at which the quote goes
};

// The generator behind generateLine, without a console (for tests too).
// One made-up line; fillerAllowed says whether it may be a row of dots or an
// error, and is updated for the next line.
std::string makeBootLine(bool& fillerAllowed);
// One of the quotes, sometimes with a character or more spoiled.
std::string makeBootQuote();
