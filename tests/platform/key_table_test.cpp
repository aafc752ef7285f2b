// The 2.7 key codes the game asks for, against GLFW 3's keys (numbers from
// GLFW 3's header, which this file must not include beside glfw.h).
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "platform/glfw.h"
#include "platform/glfw3_bridge.h"

using glfw3Bridge::hostKeyFor;

TEST(KeyTable, SpecialKeysOfTheGameMapToGlfw3Keys)
{
    EXPECT_EQ(GLFW_KEY_ESC, 257);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_ESC), 256);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_ENTER), 257);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_UP), 265);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_DOWN), 264);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_LEFT), 263);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_RIGHT), 262);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_F5), 294);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_F12), 301);
}

TEST(KeyTable, EverySpecialKeyHasItsOwnGlfw3Key)
{
    // F1..F25 run on in both; the rest in 2.7's order.
    for (int f = 0; f < 25; f++) {
        EXPECT_EQ(hostKeyFor(GLFW_KEY_F1 + f), 290 + f) << "F" << f + 1;
    }
    const std::pair<int, int> others[] = {
        {GLFW_KEY_LSHIFT, 340}, {GLFW_KEY_RSHIFT, 344}, {GLFW_KEY_LCTRL, 341},
        {GLFW_KEY_RCTRL, 345}, {GLFW_KEY_LALT, 342}, {GLFW_KEY_RALT, 346},
        {GLFW_KEY_TAB, 258}, {GLFW_KEY_BACKSPACE, 259}, {GLFW_KEY_INSERT, 260},
        {GLFW_KEY_DEL, 261}, {GLFW_KEY_PAGEUP, 266}, {GLFW_KEY_PAGEDOWN, 267},
        {GLFW_KEY_HOME, 268}, {GLFW_KEY_END, 269}, {GLFW_KEY_KP_0, 320}, {GLFW_KEY_KP_9, 329},
        {GLFW_KEY_KP_DIVIDE, 331}, {GLFW_KEY_KP_MULTIPLY, 332}, {GLFW_KEY_KP_SUBTRACT, 333},
        {GLFW_KEY_KP_ADD, 334}, {GLFW_KEY_KP_DECIMAL, 330}, {GLFW_KEY_KP_EQUAL, 336},
        {GLFW_KEY_KP_ENTER, 335}, {GLFW_KEY_KP_NUM_LOCK, 282}, {GLFW_KEY_CAPS_LOCK, 280},
        {GLFW_KEY_SCROLL_LOCK, 281}, {GLFW_KEY_PAUSE, 284}, {GLFW_KEY_LSUPER, 343},
        {GLFW_KEY_RSUPER, 347}, {GLFW_KEY_MENU, 348},
    };
    for (auto [legacy, host] : others) {
        EXPECT_EQ(hostKeyFor(legacy), host) << "2.7 key " << legacy;
    }
    EXPECT_EQ(GLFW_KEY_LAST, glfw3Bridge::LAST_SPECIAL_KEY);
    std::set<int> seen;
    for (int key = GLFW_KEY_ESC; key <= GLFW_KEY_LAST; key++) {
        EXPECT_TRUE(seen.insert(hostKeyFor(key)).second) << "2.7 key " << key;
    }
}

TEST(KeyTable, PrintableKeysGoByUpperCaseAscii)
{
    // The keys of play and menus: digits, Q A S W, P, space.
    for (char c : std::string("0123QASWP")) {
        EXPECT_EQ(hostKeyFor(c), c);
    }
    EXPECT_EQ(hostKeyFor('Z'), 90);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_SPACE), 32);
    EXPECT_EQ(hostKeyFor(','), 44);
    EXPECT_EQ(hostKeyFor('/'), 47);
    // 2.7 reports letters in upper case only; lower case is never a key.
    EXPECT_EQ(hostKeyFor('q'), -1);
    EXPECT_EQ(hostKeyFor('a'), -1);
}

TEST(KeyTable, CodesWithoutAKeyMapToNone)
{
    EXPECT_EQ(hostKeyFor(GLFW_KEY_UNKNOWN), -1);
    EXPECT_EQ(hostKeyFor(0), -1);
    EXPECT_EQ(hostKeyFor('!'), -1);  // typed with shift: no key of its own
    EXPECT_EQ(hostKeyFor(GLFW_KEY_SPECIAL), -1);
    EXPECT_EQ(hostKeyFor(GLFW_KEY_LAST + 1), -1);
    EXPECT_EQ(hostKeyFor(200), -1);
}
