// The records behind the handles of fmod.h, shared by the files that
// implement it. Not for the game's code.
#pragma once

#include <AL/al.h>
#include <AL/alc.h>
#include <vorbis/vorbisfile.h>

#include <cstdint>
#include <vector>

#include "sound/fmod.h"

constexpr int maxSystemChannels = 64;
// A stream keeps this many buffers queued, each a fifth of a second long, so
// a frame that comes late by most of a second is still heard without a gap.
constexpr int streamBufferCount = 4;

struct FMOD_SOUND {
    FMOD_SYSTEM* system = nullptr;
    FMOD_MODE mode = 0;
    bool loop = false;
    bool unique = false;
    bool isStream = false;

    ALenum format = 0;  // AL_FORMAT_MONO16 or AL_FORMAT_STEREO16
    ALsizei sampleRate = 0;
    int channelCount = 0;

    // A whole sound: its decoded samples.
    ALuint buffer = 0;

    // A stream: the open decoder and its ring of buffers.
    OggVorbis_File decoder{};
    bool decoderOpen = false;
    ALuint ring[streamBufferCount] = {};
    bool decoderAtEnd = false;  // a stream without loop has been read out
};

// One channel: an OpenAL source and what plays on it.
struct ChannelSlot {
    ALuint source = 0;
    uint32_t generation = 0;   // raised by each play, so older handles go stale
    FMOD_SOUND* sound = nullptr;  // null while idle
    uint64_t startOrder = 0;   // when it started, in plays of the system
    bool paused = false;
    bool loop = false;
};

struct FMOD_SYSTEM {
    bool initialized = false;
    ALCdevice* device = nullptr;
    ALCcontext* context = nullptr;
    bool directChannels = false;  // AL_SOFT_direct_channels: stereo plays as it is
    int channelCount = 0;
    ChannelSlot channels[maxSystemChannels];
    uint64_t playCount = 0;
    std::vector<FMOD_SOUND*> sounds;  // every live sound, to check handles
};

// The one live system, for channel handles to find it (null when none).
FMOD_SYSTEM* currentSystem();
bool isLiveSound(FMOD_SOUND* sound);
void releaseAllSounds(FMOD_SYSTEM& system);

// Channel slots (fmod_channel.cpp)
FMOD_CHANNEL* channelHandle(int index, uint32_t generation);
// The slot a handle names, once its play still runs; null otherwise. A slot
// found to have finished is made idle on the way.
ChannelSlot* slotOfHandle(FMOD_CHANNEL* channel);
bool refreshSlot(ChannelSlot& slot);  // false once idle
void stopSlot(ChannelSlot& slot);     // silences and frees it

// Decoding (fmod_decode.cpp)
FMOD_RESULT openDecoder(const char* path, FMOD_SOUND& sound);
FMOD_RESULT decodeWhole(FMOD_SOUND& sound, std::vector<int16_t>& samples);
// Fills up to maxFrames frames, rewinding at the end of a looping sound;
// returns the number of frames written (0 at the end of a sound read out).
long decodePiece(FMOD_SOUND& sound, int16_t* out, long maxFrames);
bool rewindDecoder(FMOD_SOUND& sound);

// Streams (fmod_stream.cpp)
void startStream(ChannelSlot& slot);
void feedStream(ChannelSlot& slot);
