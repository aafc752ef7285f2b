// The audio library interface the sound code is written against: the plain
// function calls, types and constants of FMOD Ex, in our own implementation on
// OpenAL Soft (output) and libvorbisfile (decoding of .ogg files).
//
// How it maps:
// - a system is one OpenAL device and context, its channels a fixed set of
//   OpenAL sources (as many as FMOD_System_Init is asked for, at most 64);
// - a sound made by FMOD_System_CreateSound is decoded whole into one buffer
//   of 16-bit PCM; one made by FMOD_System_CreateStream keeps its decoder open
//   and feeds a small ring of buffers queued on its source, refilled by
//   FMOD_System_Update (call it every frame);
// - FMOD_LOOP_NORMAL loops a whole sound with AL_LOOPING and a stream by
//   rewinding its decoder in the middle of a buffer, so the loop has no gap;
// - FMOD_CHANNEL_FREE takes the first idle channel, or the one started longest
//   ago when every channel is busy;
// - a channel handle is a channel index and a generation count: once the
//   channel has finished, been taken for another play or had its sound
//   released, the handle is refused with FMOD_ERR_INVALID_HANDLE and never
//   reaches the sound that plays there now;
// - FMOD_UNIQUE: a sound plays on at most one channel. Playing it again while
//   it still plays stops that play and starts it anew from the beginning on
//   the same channel (the older handle goes stale). So a repeated "unique"
//   effect restarts instead of stacking. A stream always behaves this way,
//   since it has one decoder.
//
// Only one system exists at a time; channel handles belong to it.
// Everything runs on the caller's thread, apart from OpenAL's own mixer.
#pragma once

// Types
struct FMOD_SYSTEM;
struct FMOD_SOUND;
struct FMOD_CHANNEL;
struct FMOD_CREATESOUNDEXINFO;  // accepted for the shape of the calls; pass null

typedef int FMOD_BOOL;
typedef unsigned int FMOD_MODE;
typedef unsigned int FMOD_INITFLAGS;

// Our own version number, above the 4.40.04 the game asks for.
#define FMOD_VERSION 0x00044500

// Modes
#define FMOD_DEFAULT 0x00000000
#define FMOD_LOOP_OFF 0x00000001
#define FMOD_LOOP_NORMAL 0x00000002
#define FMOD_2D 0x00000008
#define FMOD_HARDWARE 0x00000020
#define FMOD_UNIQUE 0x00020000

// Init flags
#define FMOD_INIT_NORMAL 0x00000000

enum FMOD_CHANNELINDEX {
    FMOD_CHANNEL_FREE = -1,  // the first idle channel, else the oldest
};

// Result codes 0 to 95. Our layer returns the first group; the others name
// conditions of a fuller audio library and are kept so that every code has a
// text.
enum FMOD_RESULT {
    FMOD_OK = 0,
    FMOD_ERR_ALREADY_INITIALIZED,
    FMOD_ERR_UNINITIALIZED,
    FMOD_ERR_INVALID_PARAM,
    FMOD_ERR_INVALID_HANDLE,
    FMOD_ERR_MEMORY,
    FMOD_ERR_OUTPUT_INIT,
    FMOD_ERR_OUTPUT_CONTEXT,
    FMOD_ERR_OUTPUT_VOICES,
    FMOD_ERR_FILE_NOT_FOUND,
    FMOD_ERR_FILE_BAD,
    FMOD_ERR_FORMAT,
    FMOD_ERR_FILE_READ,
    FMOD_ERR_CHANNEL_LAYOUT,
    FMOD_ERR_BUFFER,
    FMOD_ERR_PLAY,
    FMOD_ERR_SYSTEM_EXISTS,
    FMOD_ERR_UNSUPPORTED_MODE,
    FMOD_ERR_NOT_READY,
    // Reserved: conditions our layer never reports (19 to 95).
    FMOD_ERR_RESERVED_FIRST,
    FMOD_RESULT_COUNT = 96
};

// Short text for a result code; "Unknown error." beyond 95.
const char* FMOD_ErrorString(FMOD_RESULT result);

// System
FMOD_RESULT FMOD_System_Create(FMOD_SYSTEM** system);
FMOD_RESULT FMOD_System_GetVersion(FMOD_SYSTEM* system, unsigned int* version);
// Opens the default OpenAL device: FMOD_ERR_OUTPUT_INIT when there is none.
FMOD_RESULT FMOD_System_Init(FMOD_SYSTEM* system, int maxChannels, FMOD_INITFLAGS flags,
                             void* extraDriverData);
// Update and Close of a system that never started succeed and do nothing.
FMOD_RESULT FMOD_System_Update(FMOD_SYSTEM* system);
// Stops every channel, releases every sound and closes the device; the system
// itself lives on until FMOD_System_Release.
FMOD_RESULT FMOD_System_Close(FMOD_SYSTEM* system);
FMOD_RESULT FMOD_System_Release(FMOD_SYSTEM* system);
FMOD_RESULT FMOD_System_CreateSound(FMOD_SYSTEM* system, const char* path, FMOD_MODE mode,
                                    FMOD_CREATESOUNDEXINFO* exinfo, FMOD_SOUND** sound);
FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM* system, const char* path, FMOD_MODE mode,
                                     FMOD_CREATESOUNDEXINFO* exinfo, FMOD_SOUND** sound);
FMOD_RESULT FMOD_System_PlaySound(FMOD_SYSTEM* system, FMOD_CHANNELINDEX channelId,
                                  FMOD_SOUND* sound, FMOD_BOOL paused, FMOD_CHANNEL** channel);
FMOD_RESULT FMOD_System_GetChannelsPlaying(FMOD_SYSTEM* system, int* channels);

// Sound
// Changes the flags it names: a loop flag replaces the loop mode, FMOD_UNIQUE
// turns the unique mode on. Channels already playing keep their loop mode.
FMOD_RESULT FMOD_Sound_SetMode(FMOD_SOUND* sound, FMOD_MODE mode);
FMOD_RESULT FMOD_Sound_GetMode(FMOD_SOUND* sound, FMOD_MODE* mode);
// Silences whatever the sound still plays, then frees it.
FMOD_RESULT FMOD_Sound_Release(FMOD_SOUND* sound);

// Channel
FMOD_RESULT FMOD_Channel_SetVolume(FMOD_CHANNEL* channel, float volume);  // 0 to 1
FMOD_RESULT FMOD_Channel_SetPaused(FMOD_CHANNEL* channel, FMOD_BOOL paused);
FMOD_RESULT FMOD_Channel_GetPaused(FMOD_CHANNEL* channel, FMOD_BOOL* paused);
// False, without an error, once the handle is stale.
FMOD_RESULT FMOD_Channel_IsPlaying(FMOD_CHANNEL* channel, FMOD_BOOL* playing);
FMOD_RESULT FMOD_Channel_GetCurrentSound(FMOD_CHANNEL* channel, FMOD_SOUND** sound);
