#include "replay/game_recording.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "base/random.h"
#include "data/scores.h"
#include "data/settings.h"
#include "play/game.h"
#include "shell/window.h"
#include "sim/player.h"

Replay beginReplay(ReplayMode mode, uint8_t mapNumber, const std::string& mapPath, uint8_t musicTrack)
{
    Replay replay;
    replay.mode = mode;
    replay.mapNumber = mapNumber;
    hashMapFile(mapPath, replay.mapHash);
    replay.windowWidth = static_cast<uint16_t>(windowWidth);
    replay.windowHeight = static_cast<uint16_t>(windowHeight);
    replay.tutorial = isTutorialEnabled();
    replay.musicTrack = musicTrack;
    replay.bestScore = mode == replayStage ? getStageScore(mapNumber) : getSurvivalScore(mapNumber);
    replay.randomState = randomState();
    return replay;
}

GameRecording::GameRecording(uint8_t playerCount, bool survival, const std::string& mapPath,
                             uint8_t mapNumber, uint8_t musicTrack)
    : replay(beginReplay(replayModeFor(playerCount, survival), mapNumber, mapPath, musicTrack))
{
}

const Replay& GameRecording::finish(const Game& game)
{
    recorder.finish(replay);
    replay.gameRounds = game.framesPlayed;
    replay.pauses = game.pauses;
    replay.scores[0] = game.player1->score;
    replay.scores[1] = game.player2 ? game.player2->score : 0;
    replay.endCode = game.finalEndMessage;
    return replay;
}

std::string lastReplayPath() { return "replays/last.gorvanreplay"; }

std::string bestReplayPath(uint8_t mode, uint8_t mapNumber)
{
    char name[64];
    std::snprintf(name, sizeof name, "replays/best-%s-map%02u.gorvanreplay", replayModeName(mode),
                  static_cast<unsigned>(mapNumber));
    return name;
}

uint32_t replayRank(const Replay& replay)
{
    switch (replay.mode) {
    case replayStage: return replay.endCode == 1 || replay.endCode == 2 ? replay.scores[0] : 0;
    case replaySurvival: return replay.scores[0];
    default: return std::max(replay.scores[0], replay.scores[1]);
    }
}

void keepReplay(const Replay& replay)
{
    std::error_code error;
    std::filesystem::create_directories("replays", error);
    if (error) {
        std::fprintf(stderr, "Couldn't make the folder replays: %s\n", error.message().c_str());
        return;
    }
    if (!writeReplayFile(lastReplayPath(), replay))
        std::fprintf(stderr, "Couldn't save the replay %s\n", lastReplayPath().c_str());

    const std::string bestPath = bestReplayPath(replay.mode, replay.mapNumber);
    Replay best;
    std::string unused;
    const uint32_t bestRank = readReplayFile(bestPath, best, unused) ? replayRank(best) : 0;
    if (replayRank(replay) > bestRank && !writeReplayFile(bestPath, replay))
        std::fprintf(stderr, "Couldn't save the replay %s\n", bestPath.c_str());
}
