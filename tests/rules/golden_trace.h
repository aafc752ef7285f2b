// Golden runs: whole scripted games of the rules, played without a picture,
// whose state is digested round by round and compared with a stored trace in
// tests/data_files/golden/. Every round feeds a running hash of the whole
// state (enemies, cannons, bolts, lights, orders, panel, sounds heard); every
// 250th round, the end and the last round write a line of named values and
// that hash, so a mismatch names the first differing line and its values.
// GORVAN_UPDATE_GOLDEN=1 rewrites the traces (look at the diff before
// committing it).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class Player;

// The named values of one side, "key=value" separated by spaces.
std::string describeSide(const Player& player);

// Adds the side's whole state, and the sounds it started since the last call,
// to the running hash.
void hashSide(const Player& player, uint64_t& hash);

// Compares lines with the trace file of that name (or rewrites it); the
// failure message names the first line that differs.
void expectTrace(const std::string& name, const std::vector<std::string>& lines);
