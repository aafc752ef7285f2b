// The campaign's progress rule: how many of the 20 maps are open follows,
// each time it is asked, from the stored stage scores and two numbers of
// each map file (its par score and its unlock value). Nothing else is kept.
#pragma once

#include <cstdint>

constexpr int campaignMapCount = 20;
// 20 maps of at most 100 points each: the full bar of the total.
constexpr uint16_t fullUnlockTotal = 2000;

// A map's share of the unlock points, 0 to 100: the score as a percentage of
// the par, truncated and held to 100 (1.5 times the par gives 100).
uint8_t unlockShare(uint32_t score, uint32_t par);
// The shares of all maps' stored stage scores, whatever mode is shown.
uint16_t totalUnlockPoints();
// Maps open strictly in order, up to the first whose unlock value is above
// the total: a map behind a locked one stays locked.
uint8_t countOpenMaps(uint16_t totalPoints);
