// What one player sees of a side: the finished field picture, the combo and
// score (or disturb) bars, the cannon and upgrade panels, the balance bar,
// the frame picture over it all, the signs and the key-caps. Drawn in the
// side's own viewport in screen space (800 x 600), so one layout serves every
// window size and each half of a two-player game.
#include <GL/glew.h>

#include "base/numbers.h"
#include "render/hud_layout.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "sim/cannon_bank.h"
#include "sim/panel_button.h"
#include "sim/player.h"

float scoreBarTarget(uint32_t score, uint32_t hiScore, uint32_t parScore)
{
    // The hi-score first; once it is beaten, the par if that is still ahead.
    uint32_t target = (parScore > hiScore && hiScore < score) ? parScore : hiScore;
    return target < 1 ? 1.0f : static_cast<float>(target);
}

float comboBarWidth(float comboTimer)
{
    return clampFloat(mapRange(0, 2, 0, 50, comboTimer), 0, 210);
}

float scoreBarWidth(uint32_t shownScore, float target)
{
    return clampFloat(mapRange(0, target, 0, 210, static_cast<float>(shownScore)), 0, 210);
}

float disturbBarWidth(int16_t disturbCharge)
{
    return clampFloat(mapRange(0, 200, 0, 210, disturbCharge), 0, 210);
}

float balanceBarRedWidth(float resourceRate)
{
    return mapRange(4, 3, 0, 96, resourceRate);
}

namespace {

void flat(float red, float green, float blue, float x, float y, float width, float height)
{
    glColor4f(red, green, blue, 1);
    drawRect(x, y, width, height);
}

// The combo bar fills leftward from its right end as the combo's time runs.
void drawComboBar(float comboTimer)
{
    float w = comboBarWidth(comboTimer);
    flat(1, 1, 1, 450, 55, 210 - w, 40);
    flat(0, 1, 0, 660 - w, 55, w, 40);
}

// One player: the score against the hi-score or the par, red through yellow
// to green. Two players: the disturbance charge, in red.
void drawScoreOrDisturbBar(const Player& player)
{
    float w, red, green;
    if (player.singlePlayer) {
        float target = scoreBarTarget(player.score, player.hiScore, player.parScore);
        float shown = static_cast<float>(player.shownScore);
        float half = target * 0.5f;
        w = scoreBarWidth(player.shownScore, target);
        green = clampFloat(mapRange(0, half, 0, 1, shown), 0, 1);
        red = clampFloat(mapRange(half, target, 1, 0, shown), 0, 1);
    } else {
        w = disturbBarWidth(player.disturbCharge);
        red = 1;
        green = 0;
    }
    flat(1, 1, 1, 575, 15, 210 - w, 40);
    flat(red, green, 0, 785 - w, 15, w, 40);
}

// Red for what standing cannons cost, green for what goes into upgrades.
void drawBalanceBar(uint32_t boxesTexture, float resourceRate)
{
    float w = balanceBarRedWidth(resourceRate);
    useProgram(colorProgram);
    flat(1, 0, 0, 18, 540, w, 30);
    flat(0, 1, 0, 18 + w, 540, 384 - w, 30);
    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
    drawTexturedRect(boxesTexture, 17, 540, 386, 30);
    glColor4f(0, 0, 0, 1);
    drawText("Firepower", 109, 543, 22, 2);
    drawText("Resources", 397, 543, 22, 2);
    glColor4f(1, 1, 1, 1);
}

// Blinks in whole periods of 50 frames while the map's early phase lasts.
void drawSpeedUpSign(const Player& player)
{
    if (player.frame >= player.speedUpFrames)
        return;
    useProgram(speedupProgram);
    glColor4f(1, 1, 1, (50 - player.frame % 50) / 60.0f);
    drawTexturedRect(player.speedUpTexture, 60, 60, 300, 70);
    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
}

void drawKeyCaps(const Player& player)
{
    // The plate sits 10 units up and left of the cap of the current choice.
    drawTexturedRect(player.buttonBackTexture, 96.0f * player.bank->shownCannons(), 553, 52, 52);
    for (const PanelButton* button : player.cannonButtons)
        drawPanelButton(*button);
    drawPanelButton(*player.shareUpButton);
    drawPanelButton(*player.shareDownButton);
    drawPanelButton(*player.useTemporaryButton);
    if (!player.singlePlayer && player.disturbButton)
        drawPanelButton(*player.disturbButton);
}

}  // namespace

void Player::drawView()
{
    glViewport(viewX, viewY, viewWidth, viewHeight);
    // The field pass leaves screen space behind; set it here as well so that
    // the view never depends on what ran before it.
    setOrtho(800, 600);

    if (noise > 0)
        useDisruption(noise, noiseRoll);
    else
        useProgram(basicProgram);
    // 0.749, not 0.75: keeps the copy's last column out of the picture.
    drawTexturedRegion(fieldTexture, 18, 18, 384, 512, 0, 0.749f, 0, 1);

    useProgram(colorProgram);
    drawComboBar(comboTimer);
    drawScoreOrDisturbBar(*this);

    // The glass over both bars.
    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
    drawTexturedRect(boxTexture, 575, 15, 210, 40);
    drawTexturedRect(boxTexture, 450, 55, 210, 40);

    glColor4f(0, 0, 0, 1);
    if (singlePlayer) {
        drawInt(static_cast<int32_t>(shownScore), 780, 20, 30, 2);
        drawText("Score", 582, 20, 25, 0);
    } else {
        drawText("Disturb enemy", 582, 20, 25, 0);
    }
    drawInt(combo, 655, 60, 30, 2);
    drawText("Combo", 457, 60, 25, 0);
    glColor4f(1, 1, 1, 1);

    bank->drawPanel();
    drawBalanceBar(boxesTexture, bank->resourceRate);

    // The frame holds the outlines and is transparent where bars and field show.
    drawTexturedRect(frameTexture, 0, 0, 800, 600);
    scoreSigns.draw();
    drawSpeedUpSign(*this);

    glColor4f(0, 0, 0, 1);
    drawText("Use temporary", 512, 234, 23, 0);
    glColor4f(1, 1, 1, 1);
    drawKeyCaps(*this);
}
