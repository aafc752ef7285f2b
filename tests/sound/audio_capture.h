// Lets a test hear what the game plays: OpenAL Soft's wave writer is made the
// only output, so every device the sound layer opens writes its mix to one WAV
// file, in real time: a test plays, waits, closes the device and reads the file.
#pragma once

#include <string>
#include <vector>

#include "sound/fmod.h"

// Points ALSOFT_CONF at a wave writer before the first OpenAL call (it is read
// once), and copies the test .ogg files to content/sound/ of the working folder.
void routeAudioToCapture();
// Where the mix goes; a folder in its place leaves OpenAL without a device.
const std::string& capturePath();

// The captured mix: for each 10 ms, whether any sample reaches 1000 (of 32767).
struct CapturedAudio {
    std::vector<bool> sounding;
    int peak = 0;
    double soundingSeconds() const;
    std::vector<double> gapsInside() const;  // silences between the first and last sound, in seconds
};
CapturedAudio readCapture();

// Waits real time, calling updateAudio() every 10 ms when asked, as the game's loops do.
void listen(double seconds, bool updateEachFrame = false);
inline const char* const tonePath = "content/sound/tone.ogg";       // 0.4 s, mono
inline const char* const highPath = "content/sound/tone_high.ogg";  // 0.4 s, mono
inline const char* const loopPath = "content/sound/loop.ogg";       // 0.25 s, stereo

inline bool isPlaying(FMOD_CHANNEL* channel)
{
    FMOD_BOOL playing = false;
    FMOD_Channel_IsPlaying(channel, &playing);
    return playing;
}
