// Streams: a sound decoded a fifth of a second at a time into a ring of
// buffers queued on its channel's source. The update refills each buffer the
// source has finished with; a loop rewinds the decoder in the middle of a
// buffer, so the source never sees the seam.
#include "sound/fmod_internal.h"

#include <vector>

namespace {

// Decodes the next piece into buffer and queues it; false at the end.
bool fillAndQueue(ChannelSlot& slot, ALuint buffer)
{
    FMOD_SOUND& sound = *slot.sound;
    const long pieceFrames = sound.sampleRate / 5;
    std::vector<int16_t> pcm(static_cast<size_t>(pieceFrames * sound.channelCount));
    long frames = decodePiece(sound, pcm.data(), pieceFrames);
    if (frames <= 0) return false;
    ALsizei bytes = static_cast<ALsizei>(frames * sound.channelCount * 2);
    alBufferData(buffer, sound.format, pcm.data(), bytes, sound.sampleRate);
    alSourceQueueBuffers(slot.source, 1, &buffer);
    return true;
}

}  // namespace

void startStream(ChannelSlot& slot)
{
    FMOD_SOUND& sound = *slot.sound;
    rewindDecoder(sound);
    for (ALuint buffer : sound.ring) {
        if (!fillAndQueue(slot, buffer)) break;
    }
}

void feedStream(ChannelSlot& slot)
{
    // Take back every buffer the source is done with before refilling any, so
    // that a stopped source holds only what is still to be heard.
    ALint processed = 0;
    alGetSourcei(slot.source, AL_BUFFERS_PROCESSED, &processed);
    ALuint done[streamBufferCount] = {};
    if (processed > streamBufferCount) processed = streamBufferCount;
    if (processed > 0) alSourceUnqueueBuffers(slot.source, processed, done);
    for (ALint i = 0; i < processed; i++) {
        if (!fillAndQueue(slot, done[i])) break;
    }
    if (slot.paused) return;

    // A source that ran dry (the update came late) stops by itself; it goes
    // on with what was just queued.
    ALint state = AL_STOPPED;
    alGetSourcei(slot.source, AL_SOURCE_STATE, &state);
    ALint queued = 0;
    alGetSourcei(slot.source, AL_BUFFERS_QUEUED, &queued);
    if (state != AL_PLAYING && queued > 0) alSourcePlay(slot.source);
}
