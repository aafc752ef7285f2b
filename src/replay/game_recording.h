// Every game is recorded, and its replay kept in replays/ of the player's
// folder: always as last.gorvanreplay, and as best-MODE-mapNN.gorvanreplay
// when it beats the one kept for its map and mode.
#pragma once

#include <cstdint>
#include <string>

#include "replay/replay_file.h"
#include "replay/tape_ends.h"

class Game;

// What decides a game besides its input, read as it begins: the
// generator's state, the map's bytes, the window, the tutorial switch and
// the best score the Players will read.
Replay beginReplay(ReplayMode mode, uint8_t mapNumber, const std::string& mapPath, uint8_t musicTrack);

// Built just before a Game, kept just after it.
class GameRecording {
public:
    GameRecording(uint8_t playerCount, bool survival, const std::string& mapPath, uint8_t mapNumber,
                  uint8_t musicTrack);

    // The finished game's replay, with how it went.
    const Replay& finish(const Game& game);

private:
    Replay replay;
    InputRecorder recorder{true};
};

std::string lastReplayPath();  // "replays/last.gorvanreplay"
std::string bestReplayPath(uint8_t mode, uint8_t mapNumber);
// Writes the replay as the last one, and as the best one when it is; a
// failure costs one line on the error stream and nothing else.
void keepReplay(const Replay& replay);
// What makes a replay the best: the score a stage game stores (only a
// completed stage has one), a survival game's score, the higher side's in
// a two-player game.
uint32_t replayRank(const Replay& replay);
