#include "platform/video_mode_order.h"

#include <algorithm>
#include <tuple>

using glfw3Bridge::ModeInfo;

namespace {

auto sortKey(const ModeInfo& mode)
{
    return std::make_tuple(mode.redBits + mode.greenBits + mode.blueBits,
                           mode.width * mode.height, mode.width,
                           mode.redBits, mode.greenBits, mode.blueBits);
}

}  // namespace

std::vector<ModeInfo> orderModesAsLegacy(std::vector<ModeInfo> modes)
{
    std::stable_sort(modes.begin(), modes.end(),
                     [](const ModeInfo& a, const ModeInfo& b) { return sortKey(a) < sortKey(b); });
    auto sameMode = [](const ModeInfo& a, const ModeInfo& b) {
        return sortKey(a) == sortKey(b) && a.height == b.height;
    };
    modes.erase(std::unique(modes.begin(), modes.end(), sameMode), modes.end());
    return modes;
}
