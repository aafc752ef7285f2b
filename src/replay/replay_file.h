// A replay: everything that decides one game, and how it ended, for checking.
//
// The file (.gorvanreplay): the 8 bytes "GORVANRP", the format version as a
// varint, then the fields of Replay below in their order (numbers as varints,
// the map's hash as 8 bytes, most significant first; the pauses as a count
// and three numbers each; the input as its length and its bytes, see
// round_codec.h), and last the CRC-32 of everything before it, 4 bytes, most
// significant first. Every version keeps the name, the version and the
// closing checksum where they are, so that an older game can tell a newer
// replay from a damaged one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "play/game.h"

enum ReplayMode : uint8_t { replayStage = 0, replaySurvival = 1, replayVersus = 2 };

constexpr uint32_t replayFormatVersion = 1;

struct Replay {
    // How the game was set up
    uint8_t mode = replayStage;
    uint8_t mapNumber = 1;
    uint64_t mapHash = 0;  // of the map file's bytes
    uint16_t windowWidth = 0, windowHeight = 0;  // the panel's mouse areas hang on them
    bool tutorial = false;
    uint8_t musicTrack = 0;
    uint32_t bestScore = 0;  // the stored best of the map and mode as the game began
    uint32_t randomState = 0;
    // The input: the first round is what the game saw as it began, then one
    // a pump of events, the pause menus' included
    uint32_t rounds = 0;
    std::vector<uint8_t> input;
    // How it went
    uint32_t gameRounds = 0;  // of the game's own loop, pauses left out
    std::vector<PauseRecord> pauses;
    uint32_t scores[2] = {0, 0};  // the second side's only in a two-player game
    uint8_t endCode = 0;          // the end message, 0 when left before the end
};

ReplayMode replayModeFor(uint8_t playerCount, bool survival);
const char* replayModeName(uint8_t mode);  // "stage", "survival", "versus"

std::vector<uint8_t> encodeReplay(const Replay& replay);
// False with a one-line reason (empty, not a replay, damaged, too new).
bool decodeReplay(const std::vector<uint8_t>& bytes, Replay& replay, std::string& reason);

bool readReplayFile(const std::string& path, Replay& replay, std::string& reason);
// Through the safe rewrite: a failed write leaves the old file standing.
bool writeReplayFile(const std::string& path, const Replay& replay);

// FNV-1a over the map file's bytes; false when it can't be read.
bool hashMapFile(const std::string& path, uint64_t& hash);
