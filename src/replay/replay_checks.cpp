#include "replay/replay_checks.h"

#include <cstdio>

#include "data/map_file.h"

bool loadReplay(const std::string& path, Replay& replay)
{
    std::string reason;
    if (readReplayFile(path, replay, reason)) return true;
    std::fprintf(stderr, "%s: %s\n", path.c_str(), reason.c_str());
    return false;
}

bool checkReplayMap(const std::string& name, const Replay& replay, std::string mapPath)
{
    if (mapPath.empty()) mapPath = mapFilePath(replay.mapNumber);
    uint64_t hash = 0;
    if (!hashMapFile(mapPath, hash)) {
        std::fprintf(stderr, "%s: its map %u is missing here (%s)\n", name.c_str(),
                     static_cast<unsigned>(replay.mapNumber), mapPath.c_str());
        return false;
    }
    if (hash == replay.mapHash) return true;
    std::fprintf(stderr, "%s: map %u has changed since this game was played, so it can't be replayed\n",
                 name.c_str(), static_cast<unsigned>(replay.mapNumber));
    return false;
}

std::string outcomeLine(uint8_t mode, const uint32_t scores[2], uint8_t endCode)
{
    char line[96];
    if (mode == replayVersus)
        std::snprintf(line, sizeof line, "final scores %u and %u, end code %u", scores[0], scores[1],
                      static_cast<unsigned>(endCode));
    else
        std::snprintf(line, sizeof line, "final score %u, end code %u", scores[0],
                      static_cast<unsigned>(endCode));
    return line;
}

bool reportOutcome(const Replay& replay, const uint32_t scores[2], uint8_t endCode)
{
    const std::string now = outcomeLine(replay.mode, scores, endCode);
    const std::string recorded = outcomeLine(replay.mode, replay.scores, replay.endCode);
    std::printf("%s\n", now.c_str());
    std::fflush(stdout);
    if (now == recorded) return true;
    std::fprintf(stderr, "The replay went otherwise than the recorded game (%s)\n", recorded.c_str());
    return false;
}
