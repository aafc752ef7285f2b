// The order in which 2.7 listed video modes: smallest first, by colour depth
// (red + green + blue bits), then area, then width; each size and depth once,
// since 2.7 knew no refresh rates in its list.
#pragma once

#include <vector>

#include "platform/glfw3_bridge.h"

std::vector<glfw3Bridge::ModeInfo> orderModesAsLegacy(std::vector<glfw3Bridge::ModeInfo> modes);
