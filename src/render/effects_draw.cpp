// The short-lived records in the field picture: bolts, the marks that sparks
// burn into the ground, point lights and the floating shards.
#include <GL/glew.h>

#include "base/numbers.h"
#include "render/field_light.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "sim/effects.h"
#include "sim/level.h"

namespace {

void pointWithAlpha(const Bolt& bolt, int index, float alpha)
{
    glColor4f(bolt.red, bolt.green, bolt.blue, alpha);
    glVertex2f(bolt.points[index][0], bolt.points[index][1]);
}

// Six vertices from tip to tip; only the two spine points are opaque.
void glowStrip(const Bolt& bolt, int sideA, int sideB, int sideC, float alpha)
{
    glBegin(GL_TRIANGLE_STRIP);
    pointWithAlpha(bolt, 2, 0);
    pointWithAlpha(bolt, 3, alpha);
    pointWithAlpha(bolt, sideA, 0);
    pointWithAlpha(bolt, 5, alpha);
    pointWithAlpha(bolt, sideB, 0);
    pointWithAlpha(bolt, sideC, 0);
    glEnd();
}

}  // namespace

// A thin bolt shows only in the second layer; a wide one glows in both, the
// first through the noisy `line`, the second through `line2`.
void Bolt::draw(bool secondLayer) const
{
    if (!wide && !secondLayer) return;
    const float alpha = static_cast<float>(framesLeft) / static_cast<float>(lifetime);
    if (!wide) {
        useProgram(colorProgram);
        glColor4f(red, green, blue, alpha);
        glBegin(GL_LINES);
        glVertex2f(points[0][0], points[0][1]);
        glVertex2f(points[1][0], points[1][1]);
        glEnd();
    } else {
        useProgram(secondLayer ? line2Program : lineProgram);
        glowStrip(*this, 4, 6, 7, alpha);
        glowStrip(*this, 8, 9, 7, alpha);
    }
    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
}

// A droplet leaves a dim red dot every 15 frames; a blot, with its one
// frame, one dark square at once.
bool Spark::step()
{
    framesLeft -= 1;
    x += dx;
    y += dy;
    if (framesLeft % 15 == 0) {
        useProgram(colorProgram);
        glColor4f(red, 0, 0, 0.4f);
        drawRect(x - size / 2, y - size / 2, size, size);
        useProgram(basicProgram);
        glColor4f(1, 1, 1, 1);
    }
    return framesLeft != 0;
}

// Shrinks from its full radius to nothing as it ages.
void PointLight::draw() const
{
    const float r = mapRange(static_cast<float>(lifetime), 0, radius, 0,
                             static_cast<float>(framesLeft));
    castShadows(*level, x, y, r);
    usePointLight(x, y, r, red, green, blue);
    lightQuad();
}

// Opaque while it rises, fading as it falls, gone at a fall of 0.5.
void Shard::draw() const
{
    glColor4f(1, 1, 1, mapRange(0, 0.5f, 1, 0, dy));
    drawRotated(x, y, 16, 16, spin);
}

void ShardList::draw() const
{
    glBindTexture(GL_TEXTURE_2D, texture);
    for (const Shard& shard : shards) shard.draw();
    glColor4f(1, 1, 1, 1);
}
