// The bridge's tables from 2.7 to GLFW 3: the key codes the game asks for
// (GLFW 3's numbers, whose header must not be included beside glfw.h) and the
// order of the video modes.
#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "platform/glfw.h"
#include "platform/glfw3_bridge.h"
#include "platform/video_mode_order.h"

using glfw3Bridge::hostKeyFor;

TEST(Glfw3Bridge, KeysMapOneToOneAndModesComeSmallestFirstOnce)
{
    for (int f = 0; f < 25; f++) EXPECT_EQ(hostKeyFor(GLFW_KEY_F1 + f), 290 + f) << "F" << f + 1;
    // Printable keys go by upper-case ASCII; lower case and shifted characters are never keys in 2.7.
    const std::pair<int, int> rows[] = {
        {GLFW_KEY_ESC, 256}, {GLFW_KEY_ENTER, 257}, {GLFW_KEY_UP, 265}, {GLFW_KEY_DOWN, 264},
        {GLFW_KEY_LEFT, 263}, {GLFW_KEY_RIGHT, 262}, {GLFW_KEY_LSHIFT, 340}, {GLFW_KEY_RCTRL, 345},
        {GLFW_KEY_TAB, 258}, {GLFW_KEY_DEL, 261}, {GLFW_KEY_KP_0, 320}, {GLFW_KEY_KP_9, 329},
        {GLFW_KEY_KP_DECIMAL, 330}, {GLFW_KEY_KP_ENTER, 335}, {GLFW_KEY_PAUSE, 284}, {GLFW_KEY_MENU, 348},
        {'0', '0'}, {'Q', 'Q'}, {'Z', 90}, {GLFW_KEY_SPACE, 32}, {',', 44}, {'/', 47}, {'q', -1}, {'!', -1},
        {200, -1}, {GLFW_KEY_UNKNOWN, -1}, {GLFW_KEY_SPECIAL, -1}, {GLFW_KEY_LAST + 1, -1}};
    for (auto [legacy, host] : rows) EXPECT_EQ(hostKeyFor(legacy), host) << "2.7 key " << legacy;
    EXPECT_EQ(GLFW_KEY_LAST, glfw3Bridge::LAST_SPECIAL_KEY);
    std::set<int> seen;
    for (int key = GLFW_KEY_ESC; key <= GLFW_KEY_LAST; key++)
        EXPECT_TRUE(seen.insert(hostKeyFor(key)).second) << "2.7 key " << key;

    // By colour depth, then area, then width; GLFW 3 lists a size once per refresh rate.
    auto mode = [](int w, int h, int bits = 8) { return glfw3Bridge::ModeInfo{w, h, bits, bits, bits}; };
    const std::pair<std::vector<glfw3Bridge::ModeInfo>, std::vector<std::pair<int, int>>> cases[] = {
        {{mode(1920, 1080), mode(800, 600), mode(1280, 1024), mode(1024, 768), mode(640, 480, 5), mode(1600, 900),
          mode(1440, 1000)},
         {{640, 5}, {800, 8}, {1024, 8}, {1280, 8}, {1440, 8}, {1600, 8}, {1920, 8}}},
        {{mode(1200, 800), mode(800, 1200), mode(960, 1000)}, {{800, 8}, {960, 8}, {1200, 8}}},
        {{mode(1920, 1080), mode(1280, 720), mode(1920, 1080), mode(1280, 720)}, {{1280, 8}, {1920, 8}}},
        {{mode(1024, 768, 8), mode(1024, 768, 5)}, {{1024, 5}, {1024, 8}}},
        {{}, {}}};
    for (const auto& [given, widthAndBits] : cases) {
        std::vector<std::pair<int, int>> ordered;
        for (const auto& m : orderModesAsLegacy(given)) ordered.push_back({m.width, m.redBits});
        EXPECT_EQ(ordered, widthAndBits);
    }
}
