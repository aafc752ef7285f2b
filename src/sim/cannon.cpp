#include "sim/cannon.h"

#include <cmath>

#include "base/numbers.h"
#include "base/random.h"
#include "sim/level.h"

Cannon::Cannon(int16_t x, uint32_t baseTexture, uint32_t barTexture, uint32_t gearTexture,
               Level* level)
    : level(level), x(x), baseTexture(baseTexture), barTexture(barTexture),
      gearTexture(gearTexture)
{
    reloadTimer = randomFloat(10, 20);
    // Two gears that mesh: the second one's size follows from the distance.
    float d = randomFloat(-3, 3);
    gear1X = randomFloat(5, 13) + d;
    gear2X = randomFloat(-13, -5) + d;
    gear1Y = randomFloat(-2, 10);
    gear2Y = randomFloat(-2, 10);
    float l = distance(gear1X, gear1Y, gear2X, gear2Y);
    float k = randomFloat(0.8f, 1.25f);
    gear1Size = l * k * 1.12f;
    gear2Size = (l / k) * 1.12f;
    gearBaseAngle = angleTo(gear2X, gear2Y, gear1X, gear1Y) + 0.2617993875f;
}

void Cannon::aim(float damage, float range)
{
    nextDamage = randomFloat(damage * 0.8f, damage * 1.6f);
    target = level->selectTarget(x, range, nextDamage);
    level->enemyPosition(target, targetX, targetY);
}

bool Cannon::update(float damage, float reload, float range)
{
    bool fired = false;
    reloadTimer -= 1;
    gearAngle += mapRange(2.5f, 100, 0.055f, 0.0075f, reload);
    if (gearAngle > 6.2831853f)
        gearAngle -= 6.2831853f;
    this->range = range;
    level->enemyPosition(target, targetX, targetY);

    if (targetY >= 600) {
        // Lost or never had one: choose now, turn and fire from the next frame.
        aim(damage, range);
    } else {
        float a = angleTo(x, 512, targetX, targetY);
        if (a > angle)
            angle = std::fmin(angle + 0.05f, a);
        else
            angle = std::fmax(angle - 0.05f, a);
        if (!(reloadTimer < 0))
            return false;
        // A barrel still turning gives up the shot and loses the whole cycle.
        if (std::fabs(a - angle) < 0.2f && level->hitEnemy(target, nextDamage)) {
            bolts.push_back(Bolt(mapRange(2, 20, 0, 1, nextDamage), 0, 0, x, 512, targetX,
                                 targetY, 50, false));
            nextDamage = randomFloat(damage * 0.8f, damage * 1.6f);
            level->reserveDamage(target, nextDamage);
            fired = true;
        }
    }
    if (reloadTimer < 0)
        reloadTimer += randomFloat(reload * 0.9f, reload * 1.2f);
    return fired;
}

void Cannon::ageBolts()
{
    ::ageBolts(bolts);
}
