// What both ways of watching a replay (the window, the headless runner) say
// and check around it.
#pragma once

#include <cstdint>
#include <string>

#include "replay/replay_file.h"

// Reads the replay `path`; otherwise one line on the error stream, false.
bool loadReplay(const std::string& path, Replay& replay);

// The replay's map as it is here (mapPath, by default the map of its
// number): one line and false when it is missing or not the map the game
// was played on.
bool checkReplayMap(const std::string& name, const Replay& replay, std::string mapPath = "");

// "final score 1234, end code 3" (two players: "final scores 1234 and 567,
// end code 6"), the line a replay prints on the standard output.
std::string outcomeLine(uint8_t mode, const uint32_t scores[2], uint8_t endCode);

// The line of the game as played now, and a line on the error stream when
// it differs from the recorded one: true when both agree.
bool reportOutcome(const Replay& replay, const uint32_t scores[2], uint8_t endCode);
