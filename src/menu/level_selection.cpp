// The level selection page: the 20 maps as a table with their scores and
// unlock state, open maps as buttons, locked ones as red text.
#include <GL/glew.h>
#include <cstdio>

#include "base/numbers.h"
#include "data/map_file.h"
#include "data/scores.h"
#include "menu/level_progress.h"
#include "menu/menu.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"

namespace {

// A bar that grows to the left from a fixed right end, red through yellow at
// 50 % to green at 100 %.
void drawPercentBar(float percent, float rightEnd, float y)
{
    const float width = clampFloat(mapRange(0, 100, 0, 200, percent), 0, 200);
    useProgram(colorProgram);
    glColor4f(clampFloat(mapRange(50, 100, 0.7f, 0, percent), 0, 0.7f),
              clampFloat(mapRange(0, 50, 0, 0.7f, percent), 0, 0.7f), 0, 1);
    drawRect(rightEnd - width, y - 1, width, 21);
    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
}

}  // namespace

void Menu::showLevelSelectionPage()
{
    beginPage(MenuPage::LevelSelection);
    const uint16_t total = totalUnlockPoints();
    unlockedMaps = countOpenMaps(total);

    char title[MAP_TITLE_CAPACITY];
    for (int i = 0; i < unlockedMaps; ++i) {
        readMapTitle(title, i + 1, true);
        // A button holds 27 characters; addButton keeps the first of a longer title.
        buttons->addButton(title, columnOffset, i * 24.0f + 45, 20, 0, true);
    }
    buttons->addButton("Back", static_cast<float>(virtualWidth / 2), 570, 30, 1, false);
    finishPage();
    selectWideSpace();
    drawLevelTable(total);
    if (playerCount == 1)
        rowHighlights.push_back(RowHighlight{33, float(virtualWidth), float(columnOffset), 0, 0});
    captureScreenSlot(2);
}

void Menu::drawLevelTable(uint16_t totalPoints) const
{
    const float left = columnOffset;
    const float right = static_cast<float>(virtualWidth - columnOffset);
    const bool soloStage = !survivalRules;
    const bool soloSurvival = survivalRules && playerCount == 1;
    uint32_t sumScore = 0;
    char title[MAP_TITLE_CAPACITY];

    for (int r = 1; r <= campaignMapCount; ++r) {
        const float y = 34.0f + 24 * (r - 1);
        const uint32_t score = survivalRules ? getSurvivalScore(r) : getStageScore(r);
        sumScore += score;
        if (r <= unlockedMaps) {
            if (soloStage) {
                const float percent =
                    static_cast<float>(score) / static_cast<float>(getMapParScore(r)) * 100;
                drawPercentBar(percent, right + 155, y);
                drawInt(static_cast<int32_t>(clampFloat(percent, 0, 100)), right - 75, y, 20, 2);
                drawText("%", right - 60, y, 20, 2);
            }
            if (soloStage || soloSurvival)
                drawInt(static_cast<int32_t>(score), right + 150, y, 20, 2);
        } else {
            glColor4f(1, 0, 0, 1);
            readMapTitle(title, r, true);
            drawText(title, left - 115, y, 20, 0);
            if (soloStage)
                drawInt(static_cast<int32_t>(getMapUnlockPoints(r)), left + 120, y, 20, 2);
            glColor4f(1, 1, 1, 1);
        }
    }

    const float totalY = 514;
    if (soloStage) {
        drawPercentBar(totalPoints / static_cast<float>(fullUnlockTotal) * 100, right + 155, totalY);
        drawInt(totalPoints, right - 75, totalY, 20, 2);
    }
    if (soloStage || soloSurvival) drawInt(static_cast<int32_t>(sumScore), right + 150, totalY, 20, 2);

    drawText("    MAP", left - 115, 7, 20, 0);
    if (playerCount == 1) {
        if (soloStage) drawText("UNLOCK POINTS", right - 60, 7, 20, 2);
        drawText("SCORE", right + 150, 7, 20, 2);
        drawText("Total score", left + 20, 514, 23, 0);
    }
    if (unlockedMaps < campaignMapCount) {
        glColor4f(1, 0, 0, 1);
        const float noteY = unlockedMaps * 24.0f + 35;
        if (soloStage)
            drawText("unlock points needed", left + 128, noteY, 20, 0);
        else
            drawText("unlock in single player", left + 115, noteY, 20, 0);
        glColor4f(1, 1, 1, 1);
    }
}

bool Menu::activateLevelSelection(bool escape)
{
    if (escape || selection >= unlockedMaps) {
        showMainPage();
        return false;
    }
    mapNumber = static_cast<uint8_t>(selection + 1);
    std::snprintf(mapPath, sizeof mapPath, "content/maps/map%i.txt", mapNumber);
    return true;  // startRequested stays true: the game begins
}
