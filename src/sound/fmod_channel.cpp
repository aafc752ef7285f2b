// Channel handles and the calls on a channel. A handle packs the channel's
// index (plus one, so it is never null) in its low byte and the generation of
// the play it was given for above it.
#include "sound/fmod_internal.h"

#include <cmath>

namespace {

constexpr uintptr_t indexBits = 8;
constexpr uintptr_t generationMask = UINTPTR_MAX >> indexBits;

}  // namespace

FMOD_CHANNEL* channelHandle(int index, uint32_t generation)
{
    uintptr_t value = ((static_cast<uintptr_t>(generation) & generationMask) << indexBits) |
                      static_cast<uintptr_t>(index + 1);
    return reinterpret_cast<FMOD_CHANNEL*>(value);
}

void stopSlot(ChannelSlot& slot)
{
    alSourceStop(slot.source);
    alSourcei(slot.source, AL_BUFFER, 0);  // also empties a stream's queue
    slot.sound = nullptr;
    slot.paused = false;
}

bool refreshSlot(ChannelSlot& slot)
{
    if (!slot.sound) return false;
    if (slot.paused) return true;
    ALint state = AL_STOPPED;
    alGetSourcei(slot.source, AL_SOURCE_STATE, &state);
    // A stream that stopped with data still to come has run dry and is
    // restarted by the next update; it has finished only once read out.
    bool finished = state == AL_STOPPED && (!slot.sound->isStream || slot.sound->decoderAtEnd);
    if (finished) stopSlot(slot);
    return !finished;
}

ChannelSlot* slotOfHandle(FMOD_CHANNEL* channel)
{
    FMOD_SYSTEM* system = currentSystem();
    if (!channel || !system || !system->initialized) return nullptr;
    uintptr_t value = reinterpret_cast<uintptr_t>(channel);
    int index = static_cast<int>(value & ((uintptr_t(1) << indexBits) - 1)) - 1;
    if (index < 0 || index >= system->channelCount) return nullptr;
    ChannelSlot& slot = system->channels[index];
    if ((slot.generation & generationMask) != (value >> indexBits)) return nullptr;
    return refreshSlot(slot) ? &slot : nullptr;
}

FMOD_RESULT FMOD_Channel_SetVolume(FMOD_CHANNEL* channel, float volume)
{
    ChannelSlot* slot = slotOfHandle(channel);
    if (!slot) return FMOD_ERR_INVALID_HANDLE;
    if (std::isnan(volume)) return FMOD_ERR_INVALID_PARAM;
    alSourcef(slot->source, AL_GAIN, volume < 0.0f ? 0.0f : volume > 1.0f ? 1.0f : volume);
    return FMOD_OK;
}

FMOD_RESULT FMOD_Channel_SetPaused(FMOD_CHANNEL* channel, FMOD_BOOL paused)
{
    ChannelSlot* slot = slotOfHandle(channel);
    if (!slot) return FMOD_ERR_INVALID_HANDLE;
    if (paused) {
        alSourcePause(slot->source);
        slot->paused = true;
        return FMOD_OK;
    }
    if (!slot->paused) return FMOD_OK;
    slot->paused = false;
    alGetError();  // forget errors of earlier calls
    if (slot->sound->isStream) {
        feedStream(*slot);  // tops up the ring and starts the source
    } else {
        alSourcePlay(slot->source);
    }
    return alGetError() == AL_NO_ERROR ? FMOD_OK : FMOD_ERR_PLAY;
}

FMOD_RESULT FMOD_Channel_GetPaused(FMOD_CHANNEL* channel, FMOD_BOOL* paused)
{
    if (!paused) return FMOD_ERR_INVALID_PARAM;
    ChannelSlot* slot = slotOfHandle(channel);
    if (!slot) return FMOD_ERR_INVALID_HANDLE;
    *paused = slot->paused;
    return FMOD_OK;
}

FMOD_RESULT FMOD_Channel_IsPlaying(FMOD_CHANNEL* channel, FMOD_BOOL* playing)
{
    if (!playing) return FMOD_ERR_INVALID_PARAM;
    *playing = slotOfHandle(channel) != nullptr;
    return FMOD_OK;
}

FMOD_RESULT FMOD_Channel_GetCurrentSound(FMOD_CHANNEL* channel, FMOD_SOUND** sound)
{
    if (!sound) return FMOD_ERR_INVALID_PARAM;
    *sound = nullptr;
    ChannelSlot* slot = slotOfHandle(channel);
    if (!slot) return FMOD_ERR_INVALID_HANDLE;
    *sound = slot->sound;
    return FMOD_OK;
}
