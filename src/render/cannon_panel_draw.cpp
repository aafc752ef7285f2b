// The cannon bank's part of the HUD: the three stat bars (Damage, Range,
// Speed) with their temporary bonus on top, the upgrade panel, and the stage's
// progress strip and its gear, or outside a stage the gear's empty socket.
#include <GL/glew.h>

#include "base/numbers.h"
#include "render/hud_layout.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/upgrade_panel.h"

StatBarParts statBarParts(float permanent, float temporary)
{
    StatBarParts parts;
    parts.permanent = clampFloat(permanent, 0, 150);
    float rest = 150 - parts.permanent;
    parts.temporary = clampFloat(temporary, 0, rest);
    parts.rest = rest - parts.temporary;
    return parts;
}

namespace {

struct StatBar {
    float x;
    float permanent, temporary;  // mapped onto 0 to 150 units
    float light[3], full[3];
};

// Stacked from the bottom: permanent, then temporary, then white.
void drawStatBar(const StatBar& bar)
{
    StatBarParts parts = statBarParts(bar.permanent, bar.temporary);
    glColor4f(1, 1, 1, 1);
    drawRect(bar.x, 380, 30, parts.rest);
    glColor4f(bar.light[0], bar.light[1], bar.light[2], 1);
    drawRect(bar.x, 530 - parts.permanent - parts.temporary, 30, parts.temporary);
    glColor4f(bar.full[0], bar.full[1], bar.full[2], 1);
    drawRect(bar.x, 530 - parts.permanent, 30, parts.permanent);
}

// The strip sinks from 402 to 530 over the stage; the gear turns a radian per
// 100 frames and stops at the end.
void drawStageProgress(const Level& level, uint32_t progressTexture, uint32_t gearTexture)
{
    float total = (static_cast<float>(level.waveFrames) + static_cast<float>(level.pauseFrames)) *
                  static_cast<float>(level.waveCount);
    float f = static_cast<float>(level.frame);
    float y = 402 + 128 * f / total;
    drawTexturedRect(progressTexture, 18, y, 32, 128);
    glColor4f(0, 0, 0, 1);
    drawTextVertical("Progress", 20, y + 92, 22, 0);
    glColor4f(1, 1, 1, 1);
    drawTexturedRotated(gearTexture, 25, 535, 50, 50, clampFloat(f, 0, total) / 100);
}

}  // namespace

void CannonBank::drawPanel()
{
    // "Speed" shows reload: lower is faster, so its scale runs backwards.
    const StatBar bars[3] = {
        {450, mapRange(0, 20, 0, 150, damage), mapRange(0, 20, 0, 150, tempDamage),
         {1, 0.5f, 0.5f}, {1, 0, 0}},
        {510, mapRange(0, 560, 0, 150, range), mapRange(0, 560, 0, 150, tempRange),
         {0.5f, 1, 0.5f}, {0, 1, 0}},
        {570, mapRange(100, 2.5f, 0, 150, reload), mapRange(0, -97.5f, 0, 150, tempReload),
         {0.5f, 0.5f, 1}, {0, 0, 1}},
    };
    useProgram(colorProgram);
    for (const StatBar& bar : bars)
        drawStatBar(bar);

    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
    for (const StatBar& bar : bars)
        drawTexturedRect(vboxTexture, bar.x, 380, 30, 150);
    glColor4f(0, 0, 0, 1);
    drawTextVertical("Damage", 453, 525, 23, 0);
    drawTextVertical("Range", 513, 525, 23, 0);
    drawTextVertical("Speed", 573, 525, 23, 0);
    glColor4f(1, 1, 1, 1);

    panel->draw(resourceRate, permanentShare);

    // Only a stage has progress to show; elsewhere the gear's socket in the
    // frame shows the empty recess.
    if (survival)
        drawTexturedRect(socketTexture, 0, 510, 50, 50);
    else
        drawStageProgress(*level, progressTexture, gearTexture);
}
