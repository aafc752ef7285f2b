// The system: one OpenAL device and context, its channels, and playing.
#include "sound/fmod_internal.h"

#include <AL/alext.h>

#include <new>

namespace {

FMOD_SYSTEM* liveSystem = nullptr;

bool makeSources(FMOD_SYSTEM& system, int count)
{
    alGetError();
    for (int i = 0; i < count; i++) {
        ChannelSlot& slot = system.channels[i];
        alGenSources(1, &slot.source);
        if (alGetError() != AL_NO_ERROR) return false;
        system.channelCount = i + 1;
        // Everything is heard as it is: at the listener, without distance.
        alSourcei(slot.source, AL_SOURCE_RELATIVE, AL_TRUE);
        alSource3f(slot.source, AL_POSITION, 0.0f, 0.0f, 0.0f);
        alSourcef(slot.source, AL_ROLLOFF_FACTOR, 0.0f);
        if (system.directChannels) alSourcei(slot.source, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
    }
    return true;
}

void closeDevice(FMOD_SYSTEM& system)
{
    for (int i = 0; i < system.channelCount; i++) {
        stopSlot(system.channels[i]);
        alDeleteSources(1, &system.channels[i].source);
        system.channels[i].source = 0;  // the generation stays: old handles stay stale
    }
    system.channelCount = 0;
    releaseAllSounds(system);
    alcMakeContextCurrent(nullptr);
    if (system.context) alcDestroyContext(system.context);
    if (system.device) alcCloseDevice(system.device);
    system.context = nullptr;
    system.device = nullptr;
    system.initialized = false;
}

// The channel for a new play of sound: a unique sound's own channel when it
// still plays, else the first idle one, else the effect started longest ago.
// A stream is never taken over, so the music plays on however busy the
// effects are; -1 when every channel holds one.
int pickChannel(FMOD_SYSTEM& system, FMOD_SOUND* sound)
{
    if (sound->unique || sound->isStream) {
        for (int i = 0; i < system.channelCount; i++) {
            ChannelSlot& slot = system.channels[i];
            if (slot.sound == sound && refreshSlot(slot)) return i;
        }
    }
    int oldest = -1;
    for (int i = 0; i < system.channelCount; i++) {
        ChannelSlot& slot = system.channels[i];
        if (!refreshSlot(slot)) return i;
        if (slot.sound->isStream) continue;
        if (oldest < 0 || slot.startOrder < system.channels[oldest].startOrder) oldest = i;
    }
    return oldest;
}

}  // namespace

FMOD_SYSTEM* currentSystem() { return liveSystem; }

FMOD_RESULT FMOD_System_Create(FMOD_SYSTEM** system)
{
    if (!system) return FMOD_ERR_INVALID_PARAM;
    *system = nullptr;
    if (liveSystem) return FMOD_ERR_SYSTEM_EXISTS;
    liveSystem = new (std::nothrow) FMOD_SYSTEM;
    if (!liveSystem) return FMOD_ERR_MEMORY;
    *system = liveSystem;
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_GetVersion(FMOD_SYSTEM* system, unsigned int* version)
{
    if (!system || !version) return FMOD_ERR_INVALID_PARAM;
    *version = FMOD_VERSION;
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_Init(FMOD_SYSTEM* system, int maxChannels, FMOD_INITFLAGS flags, void*)
{
    if (!system || system != liveSystem) return FMOD_ERR_INVALID_PARAM;
    if (system->initialized) return FMOD_ERR_ALREADY_INITIALIZED;
    if (maxChannels < 1 || maxChannels > maxSystemChannels || flags != FMOD_INIT_NORMAL) {
        return FMOD_ERR_INVALID_PARAM;
    }

    system->device = alcOpenDevice(nullptr);
    if (!system->device) return FMOD_ERR_OUTPUT_INIT;
    system->context = alcCreateContext(system->device, nullptr);
    if (!system->context || !alcMakeContextCurrent(system->context)) {
        closeDevice(*system);
        return FMOD_ERR_OUTPUT_CONTEXT;
    }
    system->directChannels = alIsExtensionPresent("AL_SOFT_direct_channels");
    if (!makeSources(*system, maxChannels)) {
        closeDevice(*system);
        return FMOD_ERR_OUTPUT_VOICES;
    }
    system->initialized = true;
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_Update(FMOD_SYSTEM* system)
{
    if (!system || system != liveSystem) return FMOD_ERR_INVALID_PARAM;
    // A system that never started has nothing to update: a game without a
    // device runs on silently, without a line each frame.
    for (int i = 0; i < system->channelCount; i++) {
        ChannelSlot& slot = system->channels[i];
        if (slot.sound && slot.sound->isStream) feedStream(slot);
        refreshSlot(slot);
    }
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_Close(FMOD_SYSTEM* system)
{
    if (!system || system != liveSystem) return FMOD_ERR_INVALID_PARAM;
    // Closing a system that never started has nothing to do.
    if (system->initialized) closeDevice(*system);
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_Release(FMOD_SYSTEM* system)
{
    if (!system || system != liveSystem) return FMOD_ERR_INVALID_PARAM;
    if (system->initialized) closeDevice(*system);
    delete system;
    liveSystem = nullptr;
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_PlaySound(FMOD_SYSTEM* system, FMOD_CHANNELINDEX channelId,
                                  FMOD_SOUND* sound, FMOD_BOOL paused, FMOD_CHANNEL** channel)
{
    if (channel) *channel = nullptr;
    if (!system || system != liveSystem) return FMOD_ERR_INVALID_PARAM;
    if (!system->initialized) return FMOD_ERR_UNINITIALIZED;
    if (!isLiveSound(sound)) return FMOD_ERR_INVALID_HANDLE;
    if (channelId != FMOD_CHANNEL_FREE) return FMOD_ERR_INVALID_PARAM;

    int index = pickChannel(*system, sound);
    if (index < 0) return FMOD_ERR_PLAY;
    ChannelSlot& slot = system->channels[index];
    if (slot.sound) stopSlot(slot);
    slot.generation++;
    slot.sound = sound;
    slot.startOrder = ++system->playCount;
    slot.paused = paused != 0;

    alGetError();
    alSourcef(slot.source, AL_GAIN, 1.0f);
    if (sound->isStream) {
        alSourcei(slot.source, AL_LOOPING, AL_FALSE);  // the decoder loops instead
        startStream(slot);
    } else {
        alSourcei(slot.source, AL_BUFFER, static_cast<ALint>(sound->buffer));
        alSourcei(slot.source, AL_LOOPING, sound->loop ? AL_TRUE : AL_FALSE);
    }
    if (!slot.paused) alSourcePlay(slot.source);
    if (alGetError() != AL_NO_ERROR) {
        stopSlot(slot);
        return FMOD_ERR_PLAY;
    }
    if (channel) *channel = channelHandle(index, slot.generation);
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_GetChannelsPlaying(FMOD_SYSTEM* system, int* channels)
{
    if (!system || system != liveSystem || !channels) return FMOD_ERR_INVALID_PARAM;
    *channels = 0;
    for (int i = 0; i < system->channelCount; i++) {
        if (refreshSlot(system->channels[i])) ++*channels;
    }
    return FMOD_OK;
}
