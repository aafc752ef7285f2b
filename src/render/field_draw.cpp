// A Player's field picture, 384 x 512, composed in the back buffer's
// lower-left corner in a fixed chain: ground, burnt-in marks, ambient light,
// the directional light with its shadows, the cannons' spot lights, point
// lights, the black enemies, then bolts, cannons and shards, then the
// full-field effects. The result is kept in fieldTexture for the HUD.
#include <GL/glew.h>

#include <cstddef>

#include "data/images.h"
#include "render/field_light.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/texture_release.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"

namespace {

constexpr int fieldWidth = 384;
constexpr int fieldHeight = 512;
constexpr int copySize = 512;
// The field is the left 384 of the 512 columns a copy holds.
constexpr float fieldU = 0.75f;

// The bound texture gets the corner block of the back buffer.
void copyCorner()
{
    glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 0, 0, copySize, copySize, 0);
}

void drawFieldCopy(uint32_t fieldTexture)
{
    drawTexturedRegion(fieldTexture, 0, 0, fieldWidth, fieldHeight, 0, fieldU, 0, 1);
}

// Steps every spark first to last; the spent ones go, the rest keep their order.
void burnSparks(std::vector<Spark>& sparks)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < sparks.size(); ++i) {
        if (sparks[i].step()) {
            if (kept != i) sparks[kept] = sparks[i];
            ++kept;
        }
    }
    sparks.erase(sparks.begin() + static_cast<std::ptrdiff_t>(kept), sparks.end());
}

}  // namespace

void beginShadowMarks()
{
    useProgram(shadowProgram);
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glStencilFunc(GL_ALWAYS, 1, 0xFF);
    glStencilOp(GL_REPLACE, GL_REPLACE, GL_REPLACE);
}

void endShadowMarks()
{
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glStencilFunc(GL_EQUAL, 0, 0xFF);
}

void castShadows(const Level& level, float x, float y, float radius)
{
    beginShadowMarks();
    level.drawPointShadows(x, y, radius);
    endShadowMarks();
}

void lightQuad()
{
    drawRect(0, 0, copySize, copySize);
}

void Player::createFieldTextures()
{
    // Without a GL context (the rules played headless) they wait for the
    // first drawn frame.
    if (!glGetString(GL_VERSION)) return;
    createLinearTexture(&sceneTexture);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, surfaceSize, surfaceSize, 0, GL_RGB, GL_UNSIGNED_BYTE,
                 surfaceData);
    createLinearTexture(&fieldTexture);
    buildSpeedUpTexture(&speedUpTexture);
}

void Player::deleteFieldTextures()
{
    const uint32_t textures[] = {sceneTexture, fieldTexture, speedUpTexture};
    deleteTextures(3, textures);
    sceneTexture = fieldTexture = speedUpTexture = 0;
}

void Player::drawField()
{
    if (fieldTexture == 0) createFieldTextures();
    glColor4f(1, 1, 1, 1);
    glViewport(0, 0, fieldWidth, fieldHeight);
    setOrtho(fieldWidth, fieldHeight);

    // The ground, and the marks burnt into it for good.
    drawTexturedRect(sceneTexture, 0, 0, copySize, copySize);
    burnSparks(sparks);
    glBindTexture(GL_TEXTURE_2D, sceneTexture);
    copyCorner();

    // Ambient light replaces the frame (alpha 1).
    glColor4f(ambient[0], ambient[1], ambient[2], 1);
    drawTexturedRect(sceneTexture, 0, 0, copySize, copySize);

    // The light stage: every light adds to the ambient picture.
    glColor4f(1, 1, 1, 1);
    glEnable(GL_STENCIL_TEST);
    glBlendFunc(GL_ONE, GL_ONE);

    // A shadow falls away from the light; with y down in the field only x turns.
    beginShadowMarks();
    level->drawDirectionalShadows(-lightDirection[0], lightDirection[1], lightDirection[2]);
    endShadowMarks();
    glActiveTexture(GL_TEXTURE1);
    glBindTexture(GL_TEXTURE_2D, surfaceTexture);
    glActiveTexture(GL_TEXTURE0);
    useEnvLight(lightDirection[0], lightDirection[1], lightDirection[2], lightColor[0],
                lightColor[1], lightColor[2]);
    drawTexturedRect(sceneTexture, 0, 0, copySize, copySize);

    bank->drawLights();
    for (const PointLight& light : lights) light.draw();

    glDisable(GL_STENCIL_TEST);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    useProgram(basicProgram);

    level->drawEnemies();
    glBindTexture(GL_TEXTURE_2D, fieldTexture);
    copyCorner();
    drawFieldCopy(fieldTexture);

    // Unlit things on top: bolts, the machines, shards.
    level->drawBolts();
    bank->drawMachines();
    shards.draw();
    glBindTexture(GL_TEXTURE_2D, fieldTexture);
    copyCorner();

    // Full-field effects, each on the result of the one before.
    if (blastGlow != 0) {
        useHurt(blastGlow);
        drawFieldCopy(fieldTexture);
        copyCorner();
        useProgram(basicProgram);
    }
    if (enemyDisturbCharge != 0) {
        useDisturb(enemyDisturbCharge, static_cast<float>(frame));
        drawFieldCopy(fieldTexture);
        copyCorner();
        useProgram(basicProgram);
    }

    setOrtho(800, 600);
}
