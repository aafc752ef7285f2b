#include "play/tutorial.h"

#include <cstddef>

#include "data/settings.h"
#include "play/hint.h"

namespace {

struct ScriptRow {
    uint32_t frame;
    const char* text;  // null: no hint on this row
    int16_t x, y;      // relative to player 1's field origin
    float arrowAngle;
};

const ScriptRow firstMapRows[] = {
    {550, "Set the amount of cannons", 10, 480, 1.7f},
    {920, "Using less cannons generate more upgrades", 10, 93, 1.5f},
    {1550, "Choose which upgrades to generate...", 270, 350, 4.7f},
    {1870, "...and use temporary upgrades", 50, 220, 6.5f},
    {2570, "You can use mouse or keyboard to play the game", 5, 150, -1},
};

const ScriptRow secondMapRows[] = {
    {600, "Upgrades increase cannons' stats", 0, 450, 6.3f},
    {1020, "Temporary upgrades are stronger but don't last forever", 0, 450, -1},
    {1650, "Higher combo gives more score", 320, 105, 4.5f},
    {2400, "Tutorial disabled", 92, 150, -1},
    {2800, nullptr, 0, 0, -1},  // the setting turns off here
    {2820, "Re-enable tutorial in settings", 17, 150, -1},
};

template <size_t N>
void runRows(const ScriptRow (&rows)[N], uint32_t frameNumber, const TutorialPlace& place,
             std::vector<Hint*>& hints)
{
    for (const ScriptRow& row : rows) {
        if (row.frame != frameNumber) continue;
        if (!row.text) {
            setTutorialEnabled(false);
            continue;
        }
        hints.push_back(new Hint(row.text, static_cast<uint16_t>(place.fieldOriginX + row.x),
                                 static_cast<uint16_t>(place.fieldOriginY + row.y), 30,
                                 row.arrowAngle));
    }
}

}  // namespace

void runTutorialScript(uint8_t tutorialMode, uint32_t frameNumber, const TutorialPlace& place,
                       std::vector<Hint*>& hints)
{
    if (tutorialMode == 1) runRows(firstMapRows, frameNumber, place, hints);
    if (tutorialMode == 2) runRows(secondMapRows, frameNumber, place, hints);
    if (tutorialMode == 3 && frameNumber == 60) {
        hints.push_back(new Hint("Use keyboard", static_cast<uint16_t>(place.virtualWidth / 4 - 66),
                                 static_cast<uint16_t>(place.player1ViewY + 210), 20, -1));
        hints.push_back(new Hint("Use mouse",
                                 static_cast<uint16_t>(place.virtualWidth * 3 / 4 - 55),
                                 static_cast<uint16_t>(place.player2ViewY + 210), 20, -1));
    }
}
