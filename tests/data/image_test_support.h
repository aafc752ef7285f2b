// Helpers for the picture tests: .spg entries spelled out byte by byte and
// content/images.sfa written into the scratch folder.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/sfa_format.h"
#include "data/spg_format.h"
#include "support/scratch_dir.h"

inline std::vector<unsigned char> spgBytes(std::vector<int> values)
{
    return std::vector<unsigned char>(values.begin(), values.end());
}

// The header, width, height and hasAlpha.
inline std::vector<unsigned char> spgStart(uint16_t width, uint16_t height, int hasAlpha)
{
    return spgBytes({'S', 'P', 'G', 1, width >> 8, width & 0xff, height >> 8, height & 0xff, hasAlpha});
}

inline void append(std::vector<unsigned char>& out, std::vector<int> values)
{
    out.insert(out.end(), values.begin(), values.end());
}

inline void writeImages(const std::vector<std::pair<std::string, std::vector<unsigned char>>>& pictures)
{
    std::vector<SfaEntry> entries;
    for (const auto& picture : pictures)
        entries.push_back({picture.first, std::string(picture.second.begin(), picture.second.end())});
    writeFileBytes("content/images.sfa", packSfa(entries));
}

// Two opaque red pixels, 2 x 1.
inline std::vector<unsigned char> twoRedPixels()
{
    return spgBytes({0, 0, 0, 0, 0, 2, 0, 1, 0, 1, 255, 0, 0, 0, 2});
}
