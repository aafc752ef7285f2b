#include "replay/byte_stream.h"

void ByteWriter::putVarint(uint64_t value)
{
    while (value >= 0x80) {
        bytes.push_back(static_cast<uint8_t>(value | 0x80));
        value >>= 7;
    }
    bytes.push_back(static_cast<uint8_t>(value));
}

void ByteWriter::putSigned(int64_t value)
{
    putVarint((static_cast<uint64_t>(value) << 1) ^ static_cast<uint64_t>(value >> 63));
}

uint8_t ByteReader::getByte()
{
    if (!good || position == size) {
        good = false;
        return 0;
    }
    return data[position++];
}

uint64_t ByteReader::getVarint()
{
    uint64_t value = 0;
    for (int shift = 0; shift < 64; shift += 7) {
        const uint8_t byte = getByte();
        value |= static_cast<uint64_t>(byte & 0x7F) << shift;
        if (!(byte & 0x80)) return good ? value : 0;
    }
    good = false;
    return 0;
}

int64_t ByteReader::getSigned()
{
    const uint64_t zigzag = getVarint();
    return static_cast<int64_t>(zigzag >> 1) ^ -static_cast<int64_t>(zigzag & 1);
}

uint64_t ByteReader::getBounded(uint64_t limit)
{
    const uint64_t value = getVarint();
    if (value <= limit) return value;
    good = false;
    return 0;
}

std::vector<uint8_t> ByteReader::getBytes(uint64_t count)
{
    if (!good || count > size - position) {
        good = false;
        return {};
    }
    std::vector<uint8_t> result(data + position, data + position + count);
    position += count;
    return result;
}

uint32_t crc32Of(const uint8_t* data, size_t size)
{
    uint32_t crc = 0xFFFFFFFFu;
    for (size_t i = 0; i < size; ++i) {
        crc ^= data[i];
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320u & -(crc & 1u));
    }
    return ~crc;
}
