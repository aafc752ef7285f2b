// Enemies in the field picture: black squares, and the shadow volumes they
// write into the stencil for each light. Shadows are only coverage; the
// caller has the `shadow` program selected and colour writes off.
#include <GL/glew.h>

#include <cmath>

#include "base/numbers.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "sim/enemy.h"
#include "sim/level.h"

namespace {

void strip(float x1, float y1, float x2, float y2, float x3, float y3, float x4, float y4)
{
    glBegin(GL_TRIANGLE_STRIP);
    glVertex2f(x1, y1);
    glVertex2f(x2, y2);
    glVertex2f(x3, y3);
    glVertex2f(x4, y4);
    glEnd();
}

}  // namespace

void Enemy::draw() const
{
    drawRect(x - size / 2, y - size / 2, size, size);
}

// Sweeps the two edges that lead along the shadow; the square itself is
// painted black over it later, so it needs no shadow of its own.
void Enemy::drawDirectionalShadow(float dirX, float dirY, float length) const
{
    const float h = size / 2;
    const float px = x + dirX * length;
    const float py = y + dirY * length;
    const float hx = dirX > 0 ? h : -h;
    const float hy = dirY > 0 ? h : -h;
    strip(px + hx, py - h, x + hx, y - h, px + hx, py + h, x + hx, y + h);
    strip(px - h, py + hy, x - h, y + hy, px + h, py + hy, x + h, y + hy);
}

// The outline thrown to twice its distance from the light, where it is twice
// its size: the near edges joined to that far square, and the square filled.
void Enemy::drawPointShadow(float lx, float ly, float radiusSquared) const
{
    if (distanceSquared(x, y, lx, ly) > radiusSquared) return;
    const float h = size / 2;
    const float sx = lx > x ? h : -h;
    const float sy = ly > y ? h : -h;
    const float cx = 2 * x - lx;
    const float cy = 2 * y - ly;
    const float s = size;
    const float edgeX = 2 * (x + sx) - lx;
    const float edgeY = 2 * (y + sy) - ly;
    strip(edgeX, cy - s, x + sx, y - h, edgeX, cy + s, x + sx, y + h);
    strip(cx - s, edgeY, x - h, y + sy, cx + s, edgeY, x + h, y + sy);
    strip(cx + s, cy - s, cx - s, cy - s, cx + s, cy + s, cx - s, cy + s);
}

void Level::drawEnemies() const
{
    useProgram(colorProgram);
    glColor4f(0, 0, 0, 1);
    for (const Enemy* enemy : enemies)
        if (enemy) enemy->draw();
    glColor4f(1, 1, 1, 1);
    useProgram(basicProgram);
}

// dirX, dirY point the way the shadow falls, in field space; a steep light
// (large dirZ) gives a short shadow.
void Level::drawDirectionalShadows(float dirX, float dirY, float dirZ) const
{
    const float flat = std::sqrt(dirX * dirX + dirY * dirY);
    const float nx = dirX / flat;
    const float ny = dirY / flat;
    const float steepness = std::fabs(dirZ);
    const float length = steepness > 0 ? 20 / steepness : 0;
    for (const Enemy* enemy : enemies)
        if (enemy) enemy->drawDirectionalShadow(nx, ny, length);
}

void Level::drawPointShadows(float x, float y, float radius) const
{
    for (const Enemy* enemy : enemies)
        if (enemy) enemy->drawPointShadow(x, y, radius * radius);
}

// First layers of all bolts under all second layers.
void Level::drawBolts() const
{
    for (const Bolt& bolt : bolts) bolt.draw(false);
    for (const Bolt& bolt : bolts) bolt.draw(true);
}
