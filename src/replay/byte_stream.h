// Bytes of the replay file: unsigned numbers as varints (seven bits a byte,
// the lowest first, the top bit set on all but the last), signed ones
// zigzagged into them, so that small values and small steps take one byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class ByteWriter {
public:
    void putByte(uint8_t value) { bytes.push_back(value); }
    void putVarint(uint64_t value);
    void putSigned(int64_t value);
    void putBytes(const std::vector<uint8_t>& more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

    std::vector<uint8_t> bytes;
};

// Reads within the bytes it was given. A read past the end, or a varint
// longer than its type, fails the reader for good and gives 0.
class ByteReader {
public:
    ByteReader(const uint8_t* data, size_t size) : data(data), size(size) {}

    uint8_t getByte();
    uint64_t getVarint();
    int64_t getSigned();
    // A varint that must not exceed `limit`; a larger one fails the reader.
    uint64_t getBounded(uint64_t limit);
    // `count` bytes as they stand; empty when that many are not there.
    std::vector<uint8_t> getBytes(uint64_t count);

    bool ok() const { return good; }
    bool atEnd() const { return position == size; }
    size_t offset() const { return position; }

private:
    const uint8_t* data;
    size_t size;
    size_t position = 0;
    bool good = true;
};

// The CRC-32 of zlib and PNG: it finds every changed bit and every burst of
// changes up to 32 bits long.
uint32_t crc32Of(const uint8_t* data, size_t size);
