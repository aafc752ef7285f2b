// The tutorial's timed hints, round by round over the first 3000 rounds of a
// game, and the plate each hint is drawn on.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "data/settings.h"
#include "play/hint.h"
#include "play/tutorial.h"
#include "support/play_session.h"

namespace {

using Rows = std::vector<std::string>;

// Every hint the script of a mode adds: round, text, place, size, arrow and
// plate width. Player 1's field at 7, 11; the views at 13 and 17.
Rows scriptOf(uint8_t mode, uint32_t rounds)
{
    const TutorialPlace place{7, 11, 1000, 13, 17};
    Rows rows;
    std::vector<Hint*> hints;
    for (uint32_t round = 1; round <= rounds; ++round) {
        runTutorialScript(mode, round, place, hints);
        for (Hint* hint : hints) {
            char row[160];
            std::snprintf(row, sizeof row, "%u %s @%u,%u size %g arrow %g width %u", round, hint->text,
                          hint->x, hint->y, hint->size, hint->arrowAngle, hint->plateWidth);
            rows.push_back(row);
            delete hint;
        }
        hints.clear();
    }
    return rows;
}

}  // namespace

TEST(Tutorial, TheRowsOfEachScriptTheSwitchOffInRound2800AndThePlates)
{
    PlaySession session;  // hints make textures
    session.open(1, 100, 60);
    EXPECT_EQ(scriptOf(1, 3000),
              (Rows{"550 Set the amount of cannons @17,491 size 30 arrow 1.7 width 358",
                    "920 Using less cannons generate more upgrades @17,104 size 30 arrow 1.5 width 543",
                    "1550 Choose which upgrades to generate... @277,361 size 30 arrow 4.7 width 485",
                    "1870 ...and use temporary upgrades @57,231 size 30 arrow 6.5 width 404",
                    "2570 You can use mouse or keyboard to play the game @12,161 size 30 arrow -1 width 571"}));
    EXPECT_TRUE(isTutorialEnabled());
    EXPECT_EQ(scriptOf(2, 2799),
              (Rows{"600 Upgrades increase cannons' stats @7,461 size 30 arrow 6.3 width 439",
                    "1020 Temporary upgrades are stronger but don't last forever @7,461 size 30 arrow -1 width 663",
                    "1650 Higher combo gives more score @327,116 size 30 arrow 4.5 width 404",
                    "2400 Tutorial disabled @99,161 size 30 arrow -1 width 236"}));
    EXPECT_TRUE(isTutorialEnabled());  // leaving before round 2800 keeps it on
    EXPECT_EQ(scriptOf(2, 3000).back(), "2820 Re-enable tutorial in settings @24,161 size 30 arrow -1 width 386");
    EXPECT_FALSE(isTutorialEnabled());
    EXPECT_EQ(scriptOf(3, 3000), (Rows{"60 Use keyboard @184,223 size 20 arrow -1 width 132",
                                       "60 Use mouse @695,227 size 20 arrow -1 width 109"}));
    EXPECT_TRUE(scriptOf(0, 3000).empty());

    // Size, then the texture's height (a power of two from 4) and the rows of
    // the plate's top and of its lower band: size + 20 rows in all.
    const int plates[][4] = {{50, 128, 29, 89}, {30, 128, 39, 79}, {20, 128, 44, 74},
                             {70, 256, 83, 163}, {-60, 4, 22, -28}};
    for (const auto& plate : plates) {
        const PlateLayout layout = plateLayout(static_cast<float>(plate[0]));
        EXPECT_EQ(layout.textureHeight, plate[1]) << plate[0];
        EXPECT_EQ(layout.top, plate[2]) << plate[0];
        EXPECT_EQ(layout.bottom, plate[3]) << plate[0];
    }
}
