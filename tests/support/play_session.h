// Everything a game needs around it, on the test backend: a scratch working
// folder with the built content, a window (1000 x 600 unless asked) with its
// GL resources (programs, font, key-caps, screen texture, the generated
// ground), the audio system and a music track.
// Random draws are seeded, so a scripted game replays identically.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "support/scratch_dir.h"

class Sound;

class PlaySession {
public:
    PlaySession() = default;
    ~PlaySession();
    PlaySession(const PlaySession&) = delete;
    PlaySession& operator=(const PlaySession&) = delete;

    // Opens everything; the seed goes to the game's generator. A width of 0
    // leaves the resolution setting at "Auto" (a 1000 x 600 window).
    void open(unsigned seed = 1, uint16_t width = 0, uint16_t height = 0);
    Sound* music() { return musicTrack; }

private:
    std::unique_ptr<ScratchDir> dir;
    Sound* musicTrack = nullptr;
    bool opened = false;
};

// Links the built content (archives, maps, sounds) into ./content.
void linkBuiltContent();

// Puts a map of tests/data_files/short_maps/ in place of the built maps, under
// the number the game reads its title and scores by; returns its path.
std::string placeShortMap(const char* file, int number);
