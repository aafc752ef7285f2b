#include "shell/replay_watching.h"

#include <cstdio>

#include "data/map_file.h"
#include "play/game.h"
#include "replay/replay_checks.h"
#include "replay/tape_ends.h"
#include "shell/spine_rules.h"
#include "shell/startup.h"
#include "shell/window.h"
#include "sim/player.h"
#include "sound/sound.h"

int watchReplay(const std::string& name, const Replay& replay)
{
    if (!checkReplayMap(name, replay)) return 2;
    // The panel's mouse areas hang on the window: the recorded one, in a window.
    runDisplay.sizeGiven = true;
    runDisplay.width = replay.windowWidth;
    runDisplay.height = replay.windowHeight;
    runDisplay.typeGiven = true;
    runDisplay.fullscreen = false;
    startUp(false);
    if (windowWidth != replay.windowWidth || windowHeight != replay.windowHeight)
        std::fprintf(stderr, "The window is %d x %d, not %u x %u as recorded: clicks may miss\n",
                     windowWidth, windowHeight, static_cast<unsigned>(replay.windowWidth),
                     static_cast<unsigned>(replay.windowHeight));

    Sound* music = new Sound(playTrackFiles[replay.musicTrack % 3], true, true);
    music->play();
    uint32_t scores[2] = {0, 0};
    uint8_t endCode = 0;
    bool stopped = false;
    {
        ReplayPlayback playback(replay, true);
        Game game(music, replay.mode == replayVersus ? 2 : 1, replay.mode != replayStage,
                  mapFilePath(replay.mapNumber).c_str(), replay.mapNumber);
        scores[0] = game.player1->score;
        scores[1] = game.player2 ? game.player2->score : 0;
        endCode = game.finalEndMessage;
        stopped = playback.stoppedByViewer();
    }  // the Players go while the playback still holds the scores: nothing is stored
    delete music;
    shutDown();
    if (stopped) {
        std::printf("%s (stopped before the end)\n", outcomeLine(replay.mode, scores, endCode).c_str());
        return 0;
    }
    return reportOutcome(replay, scores, endCode) ? 0 : 1;
}
