// libFuzzer target: the replay reader on any bytes, once as they come and
// once with a checksum that holds, so that the fields behind it are reached;
// and encode-decode of what it accepts.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "replay/byte_stream.h"
#include "replay/replay_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::vector<uint8_t> bytes(data, data + size);
    Replay replay;
    std::string reason;
    decodeReplay(bytes, replay, reason);
    const uint32_t crc = crc32Of(bytes.data(), bytes.size());
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<uint8_t>(crc >> shift));
    if (!decodeReplay(bytes, replay, reason)) return 0;
    Replay again;
    const std::vector<uint8_t> written = encodeReplay(replay);
    if (!decodeReplay(written, again, reason) || encodeReplay(again) != written) abort();
    return 0;
}
