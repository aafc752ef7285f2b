#include "menu_script.h"

#include <algorithm>

#include "support/scratch_dir.h"

namespace {

uint32_t le32(const std::string& bytes, size_t at)
{
    uint32_t value = 0;
    for (int i = 3; i >= 0; --i) value = value << 8 | static_cast<uint8_t>(bytes[at + i]);
    return value;
}

}  // namespace

Screenshot::Screenshot(const std::string& path) : bytes(readFileBytes(path))
{
    if (bytes.size() < 54 || bytes.compare(0, 2, "BM") != 0) return;
    width = static_cast<int>(le32(bytes, 18));
    height = static_cast<int>(le32(bytes, 22));
    rowBytes = (width * 3 + 3) & ~3;
    if (bytes.size() < 54u + static_cast<size_t>(rowBytes) * height) width = height = 0;
}

void Screenshot::pixel(int x, int y, int rgb[3]) const
{
    // Rows are stored bottom up, each pixel blue, green, red.
    const size_t at = 54 + static_cast<size_t>(height - 1 - y) * rowBytes + x * 3;
    rgb[0] = static_cast<uint8_t>(bytes[at + 2]);
    rgb[1] = static_cast<uint8_t>(bytes[at + 1]);
    rgb[2] = static_cast<uint8_t>(bytes[at]);
}

int Screenshot::brightest(int left, int top, int right, int bottom) const
{
    int best = 0;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) {
            int rgb[3];
            pixel(x, y, rgb);
            best = std::max({best, rgb[0], rgb[1], rgb[2]});
        }
    return best;
}

bool Screenshot::hasRed(int left, int top, int right, int bottom) const
{
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) {
            int rgb[3];
            pixel(x, y, rgb);
            if (rgb[0] > 100 && rgb[0] > 2 * rgb[1] + 20 && rgb[0] > 2 * rgb[2] + 20) return true;
        }
    return false;
}
