// What the game hears: one audio system, and Sound, one thing that can be
// heard (an effect with interchangeable recordings, or a streamed track).
// Without a working audio device every Sound stays empty and silent.
#pragma once

#include <vector>

struct FMOD_SOUND;
struct FMOD_CHANNEL;

void initAudio();
void updateAudio();
void shutdownAudio();
// Silences every Sound for this run (--mute); the stored volumes stay.
void setMuted(bool muted);

class Sound {
public:
    Sound(const char* path, bool loop, bool stream);
    ~Sound();
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    void addVariant(const char* path);
    void setUnique();
    void play();  // a random variant, at most every tenth of a second
    void setPaused(bool paused);
    void applyVolume();

    std::vector<FMOD_SOUND*> variants;
    FMOD_CHANNEL* channel = nullptr;
    bool isLoaded = false;
    double lastPlayTime = 0.0;
    bool loop = false;
    bool stream = false;
    bool unique = false;
};
