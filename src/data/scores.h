// Best scores of the 20 maps (content/scores.dat, 160 bytes): a stage table
// and a survival table of unsigned 32-bit big-endian values. Maps are 1 to 20.
#pragma once

#include <cstdint>

uint32_t getStageScore(int mapNumber);
uint32_t getSurvivalScore(int mapNumber);
// Store the score when it beats the stored one (unsigned comparison).
void saveStageScore(int mapNumber, uint32_t score);
void saveSurvivalScore(int mapNumber, uint32_t score);

// A replay plays against the best score the recorded game saw and stores
// nothing: until released, every best score reads `best` and no save writes.
void holdScores(uint32_t best);
void releaseScores();
