// The game's audio: one global system, and Sound objects owned by whatever
// makes the noise. A failure of the library is printed and the game goes on;
// without a working system every Sound stays empty and silent.
#include "sound/sound.h"

#include <cstdio>

#include "base/random.h"
#include "data/settings.h"
#include "platform/glfw.h"
#include "sound/fmod.h"

namespace {

FMOD_SYSTEM* fmodSystem = nullptr;
bool audioReady = false;
bool muted = false;

constexpr unsigned int requiredVersion = 0x44004;
constexpr int highestKnownResult = 95;
constexpr double minimumPlaySpacing = 0.1;  // seconds between two plays of one Sound

// Prints a failed call's result; true when the call failed.
bool reportFailure(FMOD_RESULT result)
{
    if (result == FMOD_OK) return false;
    int code = static_cast<int>(result);
    const char* text = code >= 0 && code <= highestKnownResult ? FMOD_ErrorString(result)
                                                                 : "Unknown error.";
    printf("FMOD error! (%d) %s\n", code, text);
    return true;
}

}  // namespace

void setMuted(bool mute) { muted = mute; }

void initAudio()
{
    audioReady = false;
    if (reportFailure(FMOD_System_Create(&fmodSystem))) return;

    unsigned int version = 0;
    reportFailure(FMOD_System_GetVersion(fmodSystem, &version));
    if (version < requiredVersion) {
        printf("Error!  You are using an old version of FMOD %08x.  This program requires %08x\n",
               version, requiredVersion);
        return;
    }

    if (reportFailure(FMOD_System_Init(fmodSystem, 32, FMOD_INIT_NORMAL, nullptr))) return;
    audioReady = true;
    printf("FMOD initialized correctly\n");
}

void updateAudio() { reportFailure(FMOD_System_Update(fmodSystem)); }

void shutdownAudio()
{
    reportFailure(FMOD_System_Close(fmodSystem));
    reportFailure(FMOD_System_Release(fmodSystem));
    // Sounds made after this (a headless game after a window's) stay silent
    // instead of reaching for the released system.
    fmodSystem = nullptr;
    audioReady = false;
}

// The open mode every Sound uses, from its flags.
static FMOD_MODE soundMode(bool loop, bool unique)
{
    FMOD_MODE mode = (loop ? FMOD_LOOP_NORMAL : FMOD_LOOP_OFF) | FMOD_2D | FMOD_HARDWARE;
    if (unique) mode |= FMOD_UNIQUE;
    return mode;
}

// Opens path into the given slot of variants, streamed or whole.
static FMOD_RESULT createVariant(const char* path, bool loop, bool stream, bool unique,
                                 FMOD_SOUND** slot)
{
    FMOD_MODE mode = soundMode(loop, unique);
    if (stream) return FMOD_System_CreateStream(fmodSystem, path, mode, nullptr, slot);
    return FMOD_System_CreateSound(fmodSystem, path, mode, nullptr, slot);
}

Sound::Sound(const char* path, bool loop, bool stream)
    : loop(loop), stream(stream), unique(loop || stream)
{
    if (!audioReady) return;
    variants.push_back(nullptr);
    if (reportFailure(createVariant(path, loop, stream, unique, &variants.back()))) return;
    isLoaded = true;
}

Sound::~Sound()
{
    for (FMOD_SOUND* variant : variants) reportFailure(FMOD_Sound_Release(variant));
    variants.clear();
}

void Sound::addVariant(const char* path)
{
    if (!isLoaded) return;
    variants.push_back(nullptr);
    if (reportFailure(createVariant(path, loop, stream, unique, &variants.back()))) {
        reportFailure(FMOD_Sound_Release(variants.back()));
        variants.pop_back();
    }
}

void Sound::setUnique()
{
    if (!isLoaded) return;
    unique = true;
    for (FMOD_SOUND* variant : variants) reportFailure(FMOD_Sound_SetMode(variant, FMOD_UNIQUE));
}

void Sound::play()
{
    if (!isLoaded) return;
    double now = glfwGetTime();
    if (!(now - lastPlayTime > minimumPlaySpacing)) return;

    // Whether a play happens depends on real time: the pick must not move the
    // simulation's generator.
    int pick = cosmeticRandom().nextInt(0, static_cast<int>(variants.size()) - 1);
    reportFailure(FMOD_System_PlaySound(fmodSystem, FMOD_CHANNEL_FREE, variants[pick], false,
                                        &channel));
    applyVolume();
    lastPlayTime = now;
}

void Sound::setPaused(bool paused)
{
    if (!isLoaded) return;
    reportFailure(FMOD_Channel_SetPaused(channel, paused));
}

void Sound::applyVolume()
{
    int volume = muted ? 0 : stream ? getMusicVolume() : getSoundVolume();
    reportFailure(FMOD_Channel_SetVolume(channel, static_cast<float>(volume / 100.0)));
}
