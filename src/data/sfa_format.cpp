#include "data/sfa_format.h"

const unsigned char sfaHeader[4] = {'S', 'F', 'A', 1};

namespace {

void appendComplemented(std::string& out, const std::string& bytes)
{
    for (char c : bytes) out.push_back(static_cast<char>(~static_cast<unsigned char>(c)));
}

void appendLength(std::string& out, uint32_t length)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<char>((length >> shift) & 0xff));
    appendComplemented(out, bytes);
}

bool takeLength(const std::string& bytes, size_t& position, uint32_t& length)
{
    if (bytes.size() - position < 4) return false;
    length = 0;
    for (int i = 0; i < 4; ++i)
        length = (length << 8) | static_cast<unsigned char>(~static_cast<unsigned char>(bytes[position + i]));
    position += 4;
    return true;
}

bool takeBytes(const std::string& bytes, size_t& position, uint32_t count, std::string& out)
{
    if (bytes.size() - position < count) return false;
    out.clear();
    appendComplemented(out, bytes.substr(position, count));
    position += count;
    return true;
}

}  // namespace

std::string packSfa(const std::vector<SfaEntry>& entries)
{
    std::string out(reinterpret_cast<const char*>(sfaHeader), 4);
    for (const SfaEntry& entry : entries) {
        appendLength(out, static_cast<uint32_t>(entry.name.size()));
        appendComplemented(out, entry.name);
        appendLength(out, static_cast<uint32_t>(entry.data.size()));
        appendComplemented(out, entry.data);
    }
    return out;
}

std::vector<SfaEntry> unpackSfa(const std::string& bytes, std::string* error)
{
    std::vector<SfaEntry> entries;
    if (bytes.size() < 4) {
        if (error) *error = "shorter than its 4-byte header";
        return entries;
    }
    size_t position = 4;
    while (position < bytes.size()) {
        SfaEntry entry;
        uint32_t nameLength = 0, dataLength = 0;
        if (!takeLength(bytes, position, nameLength) || !takeBytes(bytes, position, nameLength, entry.name)) {
            if (error) *error = "a name runs past the end of the file";
            return entries;
        }
        if (!takeLength(bytes, position, dataLength) || !takeBytes(bytes, position, dataLength, entry.data)) {
            if (error) *error = "the data of " + entry.name + " runs past the end of the file";
            return entries;
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}
