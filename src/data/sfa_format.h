// Writing and listing .sfa archives, the counterpart of Archive::readEntry for
// the content tools: 4 header bytes, then entries of complemented big-endian
// name length, name, data length and data.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The header our tools put in front; the game's reader skips it unread.
extern const unsigned char sfaHeader[4];

struct SfaEntry {
    std::string name;
    std::string data;
};

// A whole archive as bytes.
std::string packSfa(const std::vector<SfaEntry>& entries);

// Entries in file order, as far as the bytes hold whole entries. On damage
// (a length past the end) it stops and sets error; the entries before stay.
std::vector<SfaEntry> unpackSfa(const std::string& bytes, std::string* error);
