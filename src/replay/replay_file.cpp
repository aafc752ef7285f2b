#include "replay/replay_file.h"

#include <fstream>
#include <iterator>

#include "data/file_replace.h"
#include "replay/byte_stream.h"
#include "replay/round_codec.h"

namespace {

const char magic[8] = {'G', 'O', 'R', 'V', 'A', 'N', 'R', 'P'};
constexpr size_t checksumSize = 4;
constexpr uint32_t uint32Max = 0xFFFFFFFFu;
constexpr uint16_t largestWindowSide = 8192;

void putFixed(ByteWriter& writer, uint64_t value, int bytes)
{
    for (int i = bytes - 1; i >= 0; --i) writer.putByte(static_cast<uint8_t>(value >> (8 * i)));
}

uint64_t getFixed(ByteReader& reader, int bytes)
{
    uint64_t value = 0;
    for (int i = 0; i < bytes; ++i) value = value << 8 | reader.getByte();
    return value;
}

// The fields after the version, as the file holds them.
void readFields(ByteReader& in, Replay& r)
{
    r.mode = static_cast<uint8_t>(in.getBounded(replayVersus));
    r.mapNumber = static_cast<uint8_t>(in.getBounded(255));
    r.mapHash = getFixed(in, 8);
    r.windowWidth = static_cast<uint16_t>(in.getBounded(0xFFFF));
    r.windowHeight = static_cast<uint16_t>(in.getBounded(0xFFFF));
    r.tutorial = in.getBounded(1) != 0;
    r.musicTrack = static_cast<uint8_t>(in.getBounded(255));
    r.bestScore = static_cast<uint32_t>(in.getBounded(uint32Max));
    r.randomState = static_cast<uint32_t>(in.getBounded(uint32Max));
    r.rounds = static_cast<uint32_t>(in.getBounded(uint32Max));
    r.input = in.getBytes(in.getVarint());
    r.gameRounds = static_cast<uint32_t>(in.getBounded(uint32Max));
    // Every pause takes a round of the game and one of its own at least.
    const uint64_t pauseCount = in.getBounded(r.gameRounds);
    for (uint64_t i = 0; i < pauseCount && in.ok(); ++i) {
        PauseRecord pause;
        pause.afterRound = static_cast<uint32_t>(in.getBounded(r.gameRounds));
        pause.menuRounds = static_cast<uint32_t>(in.getBounded(r.rounds));
        pause.result = static_cast<uint8_t>(in.getBounded(resultExitToMenu));
        r.pauses.push_back(pause);
    }
    r.scores[0] = static_cast<uint32_t>(in.getBounded(uint32Max));
    r.scores[1] = static_cast<uint32_t>(in.getBounded(uint32Max));
    r.endCode = static_cast<uint8_t>(in.getBounded(6));
}

}  // namespace

ReplayMode replayModeFor(uint8_t playerCount, bool survival)
{
    if (playerCount == 2) return replayVersus;
    return survival ? replaySurvival : replayStage;
}

const char* replayModeName(uint8_t mode)
{
    static const char* const names[3] = {"stage", "survival", "versus"};
    return mode <= replayVersus ? names[mode] : "unknown";
}

std::vector<uint8_t> encodeReplay(const Replay& r)
{
    ByteWriter out;
    out.bytes.assign(std::begin(magic), std::end(magic));
    out.putVarint(replayFormatVersion);
    out.putVarint(r.mode);
    out.putVarint(r.mapNumber);
    putFixed(out, r.mapHash, 8);
    out.putVarint(r.windowWidth);
    out.putVarint(r.windowHeight);
    out.putVarint(r.tutorial);
    out.putVarint(r.musicTrack);
    out.putVarint(r.bestScore);
    out.putVarint(r.randomState);
    out.putVarint(r.rounds);
    out.putVarint(r.input.size());
    out.putBytes(r.input);
    out.putVarint(r.gameRounds);
    out.putVarint(r.pauses.size());
    for (const PauseRecord& pause : r.pauses) {
        out.putVarint(pause.afterRound);
        out.putVarint(pause.menuRounds);
        out.putVarint(pause.result);
    }
    out.putVarint(r.scores[0]);
    out.putVarint(r.scores[1]);
    out.putVarint(r.endCode);
    putFixed(out, crc32Of(out.bytes.data(), out.bytes.size()), checksumSize);
    return out.bytes;
}

bool decodeReplay(const std::vector<uint8_t>& bytes, Replay& replay, std::string& reason)
{
    if (bytes.empty()) {
        reason = "the file is empty";
        return false;
    }
    if (bytes.size() < sizeof magic || !std::equal(std::begin(magic), std::end(magic), bytes.begin())) {
        reason = "not a Gorvan replay";
        return false;
    }
    const size_t body = bytes.size() >= sizeof magic + checksumSize ? bytes.size() - checksumSize : 0;
    ByteReader checksum(bytes.data() + body, checksumSize);
    if (body == 0 || crc32Of(bytes.data(), body) != getFixed(checksum, checksumSize)) {
        reason = "the replay is damaged (cut short or changed)";
        return false;
    }
    ByteReader in(bytes.data(), body);
    in.getBytes(sizeof magic);
    const uint64_t version = in.getVarint();
    if (version > replayFormatVersion) {
        reason = "made by a newer Gorvan (replay format " + std::to_string(version) +
                 "; this one plays format " + std::to_string(replayFormatVersion) + ")";
        return false;
    }
    Replay read;
    readFields(in, read);
    // A window the game could have had, and a game within its rounds.
    const bool sensible = read.windowWidth > 0 && read.windowWidth <= largestWindowSide &&
                          read.windowHeight > 0 && read.windowHeight <= largestWindowSide &&
                          read.gameRounds <= read.rounds;
    if (version == 0 || !in.ok() || !in.atEnd() || !sensible || !roundsAreWhole(read.input, read.rounds)) {
        reason = "the replay is damaged (its checksum holds, but not its contents)";
        return false;
    }
    replay = read;
    return true;
}

bool readReplayFile(const std::string& path, Replay& replay, std::string& reason)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        reason = "can't be read";
        return false;
    }
    std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return decodeReplay(bytes, replay, reason);
}

bool writeReplayFile(const std::string& path, const Replay& replay)
{
    const std::vector<uint8_t> bytes = encodeReplay(replay);
    return replaceFileContents(path.c_str(), bytes.data(), bytes.size());
}

bool hashMapFile(const std::string& path, uint64_t& hash)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    hash = 14695981039346656037ull;
    for (std::istreambuf_iterator<char> it(in), end; it != end; ++it)
        hash = (hash ^ static_cast<unsigned char>(*it)) * 1099511628211ull;
    return true;
}
