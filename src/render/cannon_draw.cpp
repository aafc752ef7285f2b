// The cannons in the field picture: their spot lights once the row stands,
// and the machines (arms, barrel, base, gears) with their bolts and the
// target marker, unlit, over the lit field.
#include <GL/glew.h>

#include <cmath>

#include "base/numbers.h"
#include "render/field_light.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "sim/cannon.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"

namespace {

// The rises of the row: at y 540 the cannons sit below the field, at 505 they stand.
constexpr float downY = 540;
constexpr float upY = 505;
constexpr float barLength = 13;

struct Point {
    float x, y;
};

// One arm of two bars from its foot to the tip on the barrel. mirror is +1
// for the left arm, -1 for the right; an arm that cannot reach is left out.
void drawArm(uint32_t barTexture, Point foot, Point tip, float mirror, float bend, float lift)
{
    const float d = distance(foot.x, foot.y, tip.x, tip.y);
    const float q = barLength * barLength - d * d / 4;
    if (!(q > 0)) return;
    const float k = std::sqrt(q) / d * mirror;
    // The knee on the perpendicular bisector of foot and tip.
    const Point knee = {(foot.x + tip.x) / 2 + (tip.y - foot.y) * k,
                        (foot.y + tip.y) / 2 + (foot.x - tip.x) * k};
    const float a1 = angleTo(foot.x, foot.y, knee.x, knee.y) + mirror * bend;
    drawTexturedRotated(barTexture, foot.x, foot.y, 5, 26, a1);
    drawTexturedRotated(barTexture, foot.x + barLength * std::cos(a1),
                        foot.y + barLength * std::sin(a1), 5, 26,
                        angleTo(knee.x, knee.y, tip.x, tip.y) + mirror * lift);
}

}  // namespace

// No spot lights while the row is being built.
void CannonBank::drawLights()
{
    if (progress != 100) return;
    for (Cannon* cannon : cannons) cannon->drawLight();
}

void CannonBank::drawMachines()
{
    const float y = mapRange(0, 100, downY, upY, progress);
    for (Cannon* cannon : cannons) cannon->draw(y);
    reticle.draw();
}

// The lamp sits 20 units up the barrel and reaches to the end of the range.
void Cannon::drawLight()
{
    const float lampX = x + 20 * std::cos(angle);
    const float lampY = upY + 20 * std::sin(angle);
    const float reach = range - 20;
    castShadows(*level, lampX, lampY, reach);
    useSpotLight(lampX, lampY, angle, reach, 1.1f, 1.0f, 0.9f);
    lightQuad();
}

void Cannon::draw(float y)
{
    // A cannon's wide bolts only get the second layer.
    for (const Bolt& bolt : bolts) bolt.draw(true);

    // The arms fold away while the cannon is down and straighten as it rises.
    const Point tip = {x + 12 * std::cos(angle), y + 12 * std::sin(angle)};
    const float t = mapRange(downY, upY, -0.5f, 1, y);
    const float bend = t * 7 * (t - 1);
    const float lift = clampFloat(mapRange(downY, upY, 1.5f, -0.5f, y), 0, 1.5f);
    glColor4f(0.85f, 0.85f, 0.85f, 1);
    drawArm(barTexture, {static_cast<float>(x) - 16, y - 3}, tip, 1, bend, lift);
    drawArm(barTexture, {static_cast<float>(x) + 16, y - 3}, tip, -1, bend, lift);

    glColor4f(0.65f, 0.65f, 0.65f, 1);
    drawTexturedRotated(barTexture, x, y + mapRange(downY, upY, 30, 0, y), 12, 50, angle);

    glColor4f(1, 1, 1, 1);
    drawTexturedRect(baseTexture, x - 25, y - 10, 50, 26);

    // The two gears turn against each other.
    glColor4f(0.8f, 0.8f, 0.8f, 1);
    drawTexturedRotated(gearTexture, x + gear1X, y + gear1Y, gear1Size, gear1Size, gearAngle);
    drawTexturedRotated(gearTexture, x + gear2X, y + gear2Y, gear2Size, gear2Size,
                        gearBaseAngle - gearAngle);
    glColor4f(1, 1, 1, 1);
}

// Four red bars pointing at the aim, closing in and brightening as it nears.
void Reticle::draw()
{
    if (size > 30) return;
    useProgram(colorProgram);
    glColor4f(1, 0, 0, mapRange(15, 30, 1, 0, size));
    for (int i = 0; i < 4; ++i) {
        const float a = i * 1.5707964f + angle;
        drawRotated(x + size * std::cos(a), y + size * std::sin(a), size * 0.25f, size / 1.5f, a);
    }
    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
}
