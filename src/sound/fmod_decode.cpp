// Ogg Vorbis decoding into 16-bit PCM in the machine's byte order.
#include "sound/fmod_internal.h"

#include <cstdio>

FMOD_RESULT openDecoder(const char* path, FMOD_SOUND& sound)
{
    FILE* file = std::fopen(path, "rb");
    if (!file) return FMOD_ERR_FILE_NOT_FOUND;
    // On success the decoder owns the file and closes it in ov_clear.
    if (ov_open_callbacks(file, &sound.decoder, nullptr, 0, OV_CALLBACKS_DEFAULT) != 0) {
        std::fclose(file);
        return FMOD_ERR_FORMAT;
    }
    sound.decoderOpen = true;

    vorbis_info* info = ov_info(&sound.decoder, -1);
    if (!info || info->rate <= 0) return FMOD_ERR_FILE_BAD;
    if (info->channels != 1 && info->channels != 2) return FMOD_ERR_CHANNEL_LAYOUT;
    sound.channelCount = info->channels;
    sound.sampleRate = static_cast<ALsizei>(info->rate);
    sound.format = info->channels == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16;
    return FMOD_OK;
}

// Reads up to maxFrames frames without looping; a negative result is an error.
static long readFrames(FMOD_SOUND& sound, int16_t* out, long maxFrames)
{
    const int bytesPerFrame = 2 * sound.channelCount;
    char* bytes = reinterpret_cast<char*>(out);
    long wanted = maxFrames * bytesPerFrame;
    long done = 0;
    while (done < wanted) {
        int section = 0;
        const int bigEndian = __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__;  // OpenAL wants host order
        long got = ov_read(&sound.decoder, bytes + done, static_cast<int>(wanted - done),
                           bigEndian, 2, 1, &section);
        if (got == OV_HOLE) continue;  // a skipped stretch of a damaged page
        if (got < 0) return -1;
        if (got == 0) break;
        done += got;
    }
    return done / bytesPerFrame;
}

FMOD_RESULT decodeWhole(FMOD_SOUND& sound, std::vector<int16_t>& samples)
{
    const long pieceFrames = 16384;
    samples.clear();
    for (;;) {
        size_t used = samples.size();
        samples.resize(used + static_cast<size_t>(pieceFrames * sound.channelCount));
        long frames = readFrames(sound, samples.data() + used, pieceFrames);
        if (frames < 0) return FMOD_ERR_FILE_READ;
        samples.resize(used + static_cast<size_t>(frames * sound.channelCount));
        if (frames == 0) break;
    }
    return samples.empty() ? FMOD_ERR_FILE_BAD : FMOD_OK;
}

bool rewindDecoder(FMOD_SOUND& sound)
{
    sound.decoderAtEnd = false;
    return ov_pcm_seek(&sound.decoder, 0) == 0;
}

long decodePiece(FMOD_SOUND& sound, int16_t* out, long maxFrames)
{
    long done = 0;
    bool rewoundWithoutData = false;
    while (done < maxFrames && !sound.decoderAtEnd) {
        long frames = readFrames(sound, out + done * sound.channelCount, maxFrames - done);
        if (frames > 0) {
            done += frames;
            rewoundWithoutData = false;
            continue;
        }
        // End of the file (or a read error): a loop goes on from the start in
        // the same buffer; a file that gives nothing even after a rewind ends.
        if (!sound.loop || rewoundWithoutData || !rewindDecoder(sound)) {
            sound.decoderAtEnd = true;
            break;
        }
        rewoundWithoutData = true;
    }
    return done;
}
