#include "shell/spine_rules.h"

#include "base/random.h"
#include "play/game.h"

const char* const playTrackFiles[3] = {
    "content/music/Tobrelle, Dunmarrow - Nothing Less remix.ogg",
    "content/music/Fennick - The Race.ogg",
    "content/music/Ondrevia - Setarip Ecaps.ogg",
};

uint8_t chooseNextTrack(uint8_t lastTrack)
{
    uint8_t track;
    do {
        track = static_cast<uint8_t>(randomInt(0, 2));
    } while (track == lastTrack);
    return track;
}

uint8_t menuEntryAfter(uint8_t result, uint8_t playerCount, bool survival)
{
    if (result != resultChangeLevel) return 0;
    if (playerCount == 2) return 3;
    return survival ? 2 : 1;
}
