// The rounds of a replay as bytes: only what changed since the round before.
// A changed round is one entry: a varint of (unchanged rounds before it) * 64
// + what changed, a bit each, then the changes in this order:
//   keys           the count, then the codes that went down or up, rising,
//                  each as its step from the one before (the first from 0)
//   mouse buttons  one byte, the buttons that went down or up
//   mouse place    the steps in x and y, signed
//   focus, close   nothing more: the flag flips
//   controllers    one byte of seats, then for each its buttons that changed
// Rounds after the last entry are unchanged; the count of all rounds is kept
// beside the bytes.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/input_tape.h"
#include "replay/byte_stream.h"

class RoundEncoder {
public:
    // Appends a round. The mouse's place goes in only when kept: the game
    // reads it rarely, and a mouse that wanders meanwhile costs nothing.
    void add(const RoundInput& input, bool keepMousePosition);

    uint32_t rounds() const { return roundCount; }
    const std::vector<uint8_t>& bytes() const { return writer.bytes; }

private:
    ByteWriter writer;
    RoundInput last;
    uint32_t roundCount = 0;
    uint32_t unchanged = 0;  // rounds since the last entry
};

class RoundDecoder {
public:
    RoundDecoder(const std::vector<uint8_t>& bytes, uint32_t rounds);  // keeps a copy
    RoundDecoder(const RoundDecoder&) = delete;
    RoundDecoder& operator=(const RoundDecoder&) = delete;

    // The next round; false when all are given, or the bytes are damaged.
    bool next(RoundInput& input);
    // Passes over rounds, the unchanged ones without a look at each.
    void skip(uint64_t count);
    bool damaged() const { return damagedEntry || !reader.ok(); }
    // Every round given, from exactly all of the bytes.
    bool usedUp() const { return given == roundCount && !damaged() && !haveEntry && reader.atEnd(); }

private:
    bool applyEntry(uint8_t changes);

    std::vector<uint8_t> bytes;
    ByteReader reader;  // in `bytes`
    RoundInput current;
    uint32_t roundCount;
    uint32_t given = 0;
    bool haveEntry = false;
    bool damagedEntry = false;
    uint64_t gapLeft = 0;
    uint8_t pendingChanges = 0;
};

// Every round decodes, and the bytes hold no more and no less than them.
bool roundsAreWhole(const std::vector<uint8_t>& bytes, uint32_t rounds);
