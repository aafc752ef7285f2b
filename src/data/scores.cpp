// content/scores.dat: the stage table (offsets 0 to 79) and the survival table
// (80 to 159), 20 unsigned 32-bit big-endian values each. Every call opens the
// file anew; nothing is kept in memory.
#include "data/scores.h"

#include <cstdio>

#include "base/log.h"
#include "data/file_replace.h"

namespace {

const char* const scorePath = "content/scores.dat";
bool scoresHeld = false;
uint32_t heldBest = 0;
constexpr int mapCount = 20;
constexpr long fileSize = 2 * mapCount * 4;
constexpr long stageTable = 0;
constexpr long survivalTable = mapCount * 4;

// Opens the file for reading, making a fresh one of zeros when it is missing.
FILE* openScoreFile()
{
    static const unsigned char zeros[fileSize] = {};
    static const SmallFileLines lines = {"Created new score file",
                                         "Couldn't create new score file!",
                                         "Couldn't open score file!"};
    return openSmallFile(scorePath, zeros, sizeof zeros, lines);
}

// Offset of a map's value in a table, or -1 for a map number out of range.
long valueOffset(long table, int mapNumber)
{
    if (mapNumber < 1 || mapNumber > mapCount) {
        logError("No score for map %d: maps are 1 to %d", mapNumber, mapCount);
        return -1;
    }
    return table + (mapNumber - 1) * 4;
}

uint32_t readScore(long table, int mapNumber)
{
    if (scoresHeld) return heldBest;
    long offset = valueOffset(table, mapNumber);
    if (offset < 0) return 0;
    FILE* file = openScoreFile();
    if (!file) return 0;
    // Bytes missing from a short file count as zeros.
    unsigned char bytes[4] = {};
    if (std::fseek(file, offset, SEEK_SET) == 0) std::fread(bytes, 1, sizeof bytes, file);
    std::fclose(file);
    return uint32_t(bytes[0]) << 24 | uint32_t(bytes[1]) << 16 | uint32_t(bytes[2]) << 8 |
           uint32_t(bytes[3]);
}

void saveScore(long table, int mapNumber, uint32_t score)
{
    if (scoresHeld) return;
    long offset = valueOffset(table, mapNumber);
    if (offset < 0) return;
    if (readScore(table, mapNumber) >= score) return;  // an equal score changes nothing

    FILE* file = openScoreFile();
    if (!file) return;
    unsigned char bytes[fileSize] = {};  // a short file is filled up with zeros
    std::fread(bytes, 1, sizeof bytes, file);
    std::fclose(file);

    bytes[offset] = static_cast<unsigned char>(score >> 24);
    bytes[offset + 1] = static_cast<unsigned char>(score >> 16);
    bytes[offset + 2] = static_cast<unsigned char>(score >> 8);
    bytes[offset + 3] = static_cast<unsigned char>(score);
    // Written beside the old file and renamed over it, so a failed save
    // leaves the old scores standing.
    if (!replaceFileContents(scorePath, bytes, sizeof bytes)) {
        logError("Cannot save score!");
    }
}

}  // namespace

uint32_t getStageScore(int mapNumber) { return readScore(stageTable, mapNumber); }
uint32_t getSurvivalScore(int mapNumber) { return readScore(survivalTable, mapNumber); }
void saveStageScore(int mapNumber, uint32_t score) { saveScore(stageTable, mapNumber, score); }
void saveSurvivalScore(int mapNumber, uint32_t score) { saveScore(survivalTable, mapNumber, score); }

void holdScores(uint32_t best)
{
    scoresHeld = true;
    heldBest = best;
}

void releaseScores() { scoresHeld = false; }
