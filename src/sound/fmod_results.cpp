// The texts of the result codes, one per code from 0 to 95.
#include "sound/fmod.h"

namespace {

const char* const resultTexts[FMOD_RESULT_COUNT] = {
    // What this layer reports
    "No error.",                                              // 0
    "The audio system is already started.",                   // 1
    "The audio system has not been started.",                 // 2
    "An argument is missing or out of range.",                // 3
    "The handle is stale or was never valid.",                // 4
    "Out of memory.",                                         // 5
    "No audio output device could be opened.",                // 6
    "The audio device refused a mixing context.",             // 7
    "The audio device has too few voices.",                   // 8
    "The file could not be opened.",                          // 9
    "The file is damaged or holds no sound.",                 // 10
    "The file is not in a format that can be decoded.",       // 11
    "Reading the file failed part-way.",                      // 12
    "The sound has more channels than can be played.",        // 13
    "The audio device refused the sample data.",              // 14
    "The audio device refused to start a voice.",             // 15
    "Only one audio system can exist at a time.",             // 16
    "The mode asks for something this layer cannot do.",      // 17
    "The sound is not ready to play yet.",                    // 18
    // Conditions of a fuller audio library, never reported here
    "The output was interrupted.",                            // 19
    "The output device was unplugged.",                       // 20
    "The output format is not supported.",                    // 21
    "The output buffer size is not supported.",               // 22
    "The output sample rate is not supported.",               // 23
    "The output speaker layout is not supported.",            // 24
    "The output driver reported an error.",                   // 25
    "No output driver is installed.",                         // 26
    "The output driver is busy.",                             // 27
    "Exclusive access to the device was denied.",             // 28
    "The recording device could not be opened.",              // 29
    "Recording is not supported here.",                       // 30
    "The recording device was disconnected.",                 // 31
    "Recording is already running.",                          // 32
    "Seeking is not possible in this sound.",                 // 33
    "The seek position is past the end.",                     // 34
    "The file ended before it was expected to.",              // 35
    "The file is too large.",                                 // 36
    "The file is locked by another user.",                    // 37
    "The file system refused the access.",                    // 38
    "The file name is too long.",                             // 39
    "The file's header is not valid.",                        // 40
    "The codec of the file is not available.",                // 41
    "The decoder ran into a corrupt block.",                  // 42
    "The sound's sample rate is out of range.",               // 43
    "The sound's bit depth is not supported.",                // 44
    "The sound is too short to loop.",                        // 45
    "The loop points are not valid.",                         // 46
    "The sound holds no tag of that name.",                   // 47
    "The tag could not be read.",                             // 48
    "The sub-sound index is out of range.",                   // 49
    "The sound has no sub-sounds.",                           // 50
    "A stream cannot be shared between channels.",            // 51
    "The stream's buffer ran dry.",                           // 52
    "The stream could not be reopened.",                      // 53
    "All channels are busy and none may be taken.",           // 54
    "The channel was taken for another sound.",               // 55
    "The channel is not playing.",                            // 56
    "The channel group is not valid.",                        // 57
    "The channel group holds too many channels.",             // 58
    "The priority is out of range.",                          // 59
    "The volume is out of range.",                            // 60
    "The pan position is out of range.",                      // 61
    "The frequency is out of range.",                         // 62
    "The delay is out of range.",                             // 63
    "3-D positioning is not enabled for this sound.",         // 64
    "The 3-D listener index is out of range.",                // 65
    "The distance settings are not valid.",                   // 66
    "The geometry could not be built.",                       // 67
    "The geometry has too many polygons.",                    // 68
    "Occlusion is not available.",                            // 69
    "The effect could not be created.",                       // 70
    "The effect is already connected.",                       // 71
    "The effect is not connected.",                           // 72
    "The effect parameter is out of range.",                  // 73
    "The effect chain would form a loop.",                    // 74
    "The effect type is not supported.",                      // 75
    "The reverb settings are not valid.",                     // 76
    "The reverb instance is out of range.",                   // 77
    "Hardware mixing is not available.",                      // 78
    "Software mixing is not available.",                      // 79
    "The plug-in could not be loaded.",                       // 80
    "The plug-in is missing a required function.",            // 81
    "The plug-in was built for another version.",             // 82
    "The plug-in reported an error.",                         // 83
    "The network address could not be resolved.",             // 84
    "The network connection failed.",                         // 85
    "The network connection timed out.",                      // 86
    "The network stream sent bad data.",                      // 87
    "The network stream needs a password.",                   // 88
    "The network proxy refused the connection.",              // 89
    "The disc drive could not be read.",                      // 90
    "No disc is in the drive.",                               // 91
    "The event could not be found.",                          // 92
    "The event data is damaged.",                             // 93
    "This call is not allowed from a callback.",              // 94
    "An internal check failed.",                              // 95
};

}  // namespace

const char* FMOD_ErrorString(FMOD_RESULT result)
{
    int code = static_cast<int>(result);
    if (code < 0 || code >= FMOD_RESULT_COUNT) return "Unknown error.";
    return resultTexts[code];
}
