// The one window of the game and the screen geometry every drawing part reads.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

struct GLFWvidmode;

extern int16_t windowWidth;
extern int16_t windowHeight;
// Smallest powers of two, at least 2, not below the window's sides: the size
// of every full-window copy.
extern int16_t screenTextureWidth;
extern int16_t screenTextureHeight;
extern uint16_t desktopWidth;
extern uint16_t desktopHeight;
// Resolutions the settings page offers, largest first, at most 15.
extern std::vector<std::pair<int16_t, int16_t>> videoModes;

// A window chosen on the command line for this run: it outweighs the stored
// resolution and window type, is never saved, and gives way as soon as the
// player chooses on the settings pages.
struct RunDisplay {
    bool sizeGiven = false;
    uint16_t width = 0, height = 0;
    bool typeGiven = false;
    bool fullscreen = false;
};
extern RunDisplay runDisplay;

// Stores the size (a negative width means: ask the open window) and works out
// the screen texture size.
void setScreenSize(int16_t width, int16_t height);

// Opens the window by the stored resolution and window type (or this run's) (closing the old
// one first when reopening) and logs what it got. Throws "Couldn't create window!".
void openDisplayWindow(bool reopen);

// Fills videoModes from what GLFW lists (smallest first): walked from the
// last entry, keeping modes of exactly 24 colour bits and at least 512 x 512,
// at most 15.
void buildVideoModes(const GLFWvidmode* modes, int count);
// A stored resolution that is not among videoModes falls back to "Auto".
void checkStoredResolution();

// The smallest power of two, doubling from 2, that is not below size.
int16_t screenTextureSize(int16_t size);
