// Sounds: made from .ogg files, either decoded whole into one buffer or kept
// open as a stream; their modes; their release.
#include "sound/fmod_internal.h"

#include <algorithm>
#include <new>

namespace {

constexpr FMOD_MODE loopBits = FMOD_LOOP_OFF | FMOD_LOOP_NORMAL;
constexpr FMOD_MODE knownBits = loopBits | FMOD_2D | FMOD_HARDWARE | FMOD_UNIQUE;

FMOD_RESULT checkMode(FMOD_MODE mode)
{
    if (mode & ~knownBits) return FMOD_ERR_UNSUPPORTED_MODE;
    if ((mode & loopBits) == loopBits) return FMOD_ERR_INVALID_PARAM;
    return FMOD_OK;
}

// Frees what OpenAL and the decoder hold for a sound, and the record.
void destroySound(FMOD_SOUND* sound)
{
    if (sound->buffer) alDeleteBuffers(1, &sound->buffer);
    for (ALuint& buffer : sound->ring) {
        if (buffer) alDeleteBuffers(1, &buffer);
    }
    if (sound->decoderOpen) ov_clear(&sound->decoder);
    delete sound;
}

FMOD_RESULT loadWhole(FMOD_SOUND& sound)
{
    std::vector<int16_t> samples;
    FMOD_RESULT result = decodeWhole(sound, samples);
    ov_clear(&sound.decoder);  // everything is in memory now
    sound.decoderOpen = false;
    if (result != FMOD_OK) return result;

    alGetError();
    alGenBuffers(1, &sound.buffer);
    if (alGetError() != AL_NO_ERROR) {
        sound.buffer = 0;
        return FMOD_ERR_MEMORY;
    }
    alBufferData(sound.buffer, sound.format, samples.data(),
                 static_cast<ALsizei>(samples.size() * sizeof(int16_t)), sound.sampleRate);
    return alGetError() == AL_NO_ERROR ? FMOD_OK : FMOD_ERR_BUFFER;
}

FMOD_RESULT prepareStream(FMOD_SOUND& sound)
{
    alGetError();
    alGenBuffers(streamBufferCount, sound.ring);
    if (alGetError() != AL_NO_ERROR) {
        std::fill(std::begin(sound.ring), std::end(sound.ring), 0u);
        return FMOD_ERR_MEMORY;
    }
    return FMOD_OK;
}

FMOD_RESULT createSound(FMOD_SYSTEM* system, const char* path, FMOD_MODE mode, bool isStream,
                        FMOD_SOUND** out)
{
    if (!out) return FMOD_ERR_INVALID_PARAM;
    *out = nullptr;
    if (!system || !path) return FMOD_ERR_INVALID_PARAM;
    if (!system->initialized || system != currentSystem()) return FMOD_ERR_UNINITIALIZED;
    FMOD_RESULT result = checkMode(mode);
    if (result != FMOD_OK) return result;

    FMOD_SOUND* sound = new (std::nothrow) FMOD_SOUND;
    if (!sound) return FMOD_ERR_MEMORY;
    sound->system = system;
    sound->mode = mode;
    sound->loop = (mode & FMOD_LOOP_NORMAL) != 0;
    sound->unique = (mode & FMOD_UNIQUE) != 0;
    sound->isStream = isStream;

    result = openDecoder(path, *sound);
    if (result == FMOD_OK) result = isStream ? prepareStream(*sound) : loadWhole(*sound);
    if (result != FMOD_OK) {
        destroySound(sound);
        return result;
    }
    system->sounds.push_back(sound);
    *out = sound;
    return FMOD_OK;
}

}  // namespace

bool isLiveSound(FMOD_SOUND* sound)
{
    FMOD_SYSTEM* system = currentSystem();
    if (!sound || !system) return false;
    return std::find(system->sounds.begin(), system->sounds.end(), sound) != system->sounds.end();
}

// Used by the system when it closes: every sound goes with it.
void releaseAllSounds(FMOD_SYSTEM& system)
{
    for (FMOD_SOUND* sound : system.sounds) destroySound(sound);
    system.sounds.clear();
}

FMOD_RESULT FMOD_System_CreateSound(FMOD_SYSTEM* system, const char* path, FMOD_MODE mode,
                                    FMOD_CREATESOUNDEXINFO*, FMOD_SOUND** sound)
{
    return createSound(system, path, mode, false, sound);
}

FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM* system, const char* path, FMOD_MODE mode,
                                     FMOD_CREATESOUNDEXINFO*, FMOD_SOUND** sound)
{
    return createSound(system, path, mode, true, sound);
}

FMOD_RESULT FMOD_Sound_SetMode(FMOD_SOUND* sound, FMOD_MODE mode)
{
    if (!isLiveSound(sound)) return FMOD_ERR_INVALID_HANDLE;
    FMOD_RESULT result = checkMode(mode);
    if (result != FMOD_OK) return result;
    if (mode & loopBits) {
        sound->mode = (sound->mode & ~loopBits) | (mode & loopBits);
        sound->loop = (mode & FMOD_LOOP_NORMAL) != 0;
    }
    if (mode & FMOD_UNIQUE) {
        sound->mode |= FMOD_UNIQUE;
        sound->unique = true;
    }
    return FMOD_OK;
}

FMOD_RESULT FMOD_Sound_GetMode(FMOD_SOUND* sound, FMOD_MODE* mode)
{
    if (!mode) return FMOD_ERR_INVALID_PARAM;
    if (!isLiveSound(sound)) return FMOD_ERR_INVALID_HANDLE;
    *mode = sound->mode;
    return FMOD_OK;
}

FMOD_RESULT FMOD_Sound_Release(FMOD_SOUND* sound)
{
    if (!sound) return FMOD_ERR_INVALID_PARAM;
    if (!isLiveSound(sound)) return FMOD_ERR_INVALID_HANDLE;
    FMOD_SYSTEM& system = *sound->system;
    for (int i = 0; i < system.channelCount; i++) {
        if (system.channels[i].sound == sound) stopSlot(system.channels[i]);
    }
    system.sounds.erase(std::find(system.sounds.begin(), system.sounds.end(), sound));
    destroySound(sound);
    return FMOD_OK;
}
