#include "sim/effects.h"

#include <cmath>
#include <cstddef>

#include "base/numbers.h"
#include "base/random.h"

Bolt::Bolt(float red, float green, float blue, float x1, float y1, float x2, float y2,
           int32_t lifetime, bool wide)
    : red(red), green(green), blue(blue), lifetime(lifetime), framesLeft(lifetime), wide(wide)
{
    // The glow is cut into steps of about 15 units, two at least.
    const float length = distance(x1, y1, x2, y2);
    const float steps = length < 15 ? 2.0f : length / 15;
    const float dx = (x2 - x1) / steps;
    const float dy = (y2 - y1) / steps;
    const float layout[10][2] = {
        {x1, y1},
        {x2, y2},
        {x1, y1},
        {x1 + 0.7f * dx, y1 + 0.7f * dy},
        {x1 + dy + dx, y1 + dy - dx},
        {x2 - 0.7f * dx, y2 - 0.7f * dy},
        {x2 - dx + dy, y2 - dy - dx},
        {x2, y2},
        {x1 + dx - dy, y1 + dy + dx},
        {x2 - dx - dy, y2 - dy + dx},
    };
    for (int i = 0; i < 10; ++i) {
        points[i][0] = layout[i][0];
        points[i][1] = layout[i][1];
    }
}

bool Bolt::age()
{
    framesLeft -= 1;
    return framesLeft > 0;
}

Spark::Spark(float x, float y, float size)
    : size(size), x(x), y(y), dx(0), dy(0), framesLeft(1), red(0)
{
}

Spark::Spark(float x, float y) : x(x), y(y)
{
    size = 1.5f;
    dx = randomFloat(-0.1f, 0.1f);
    dy = randomFloat(-0.1f, 0.1f);
    framesLeft = static_cast<uint8_t>(randomInt(31, 165));
    red = randomFloat(0.5f, 1);
}

PointLight::PointLight(Level* level, float red, float green, float blue, float x, float y,
                       float radius, int32_t lifetime)
    : level(level), x(x), y(y), radius(radius), red(red), green(green), blue(blue),
      lifetime(lifetime), framesLeft(lifetime)
{
}

bool PointLight::age()
{
    framesLeft -= 1;
    return framesLeft > 0;
}

Shard::Shard(float x, float y) : x(x), y(y)
{
    spinDirection = randomInt(0, 1) == 0 ? 1.0f : -1.0f;
    dx = spinDirection * randomFloat(0.2f, 0.5f);
    dy = randomFloat(-1, -0.6f);
    spin = randomFloat(-0.5f, -0.1f) * spinDirection;
}

bool Shard::update()
{
    dx *= 0.99f;
    dy = (dy + 0.01f) * 0.99f;  // gravity against drag
    x += dx;
    y += dy;
    spin += std::fabs(dy) * spinDirection * 0.01f;
    return dy < 0.5f;
}

namespace {
// Runs keepGoing on each record, first to last; a record for which it returns
// false is removed on the spot and the later ones move up, in order.
template <typename Record, typename Step>
void stepAndDrop(std::vector<Record>& list, Step keepGoing)
{
    size_t kept = 0;
    for (size_t i = 0; i < list.size(); ++i) {
        if (keepGoing(list[i])) {
            if (kept != i)
                list[kept] = list[i];
            ++kept;
        }
    }
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(kept), list.end());
}
}  // namespace

void ageLights(std::vector<PointLight>& lights)
{
    stepAndDrop(lights, [](PointLight& light) { return light.age(); });
}

void ageBolts(std::vector<Bolt>& bolts)
{
    stepAndDrop(bolts, [](Bolt& bolt) { return bolt.age(); });
}

void updateShards(std::vector<Shard>& shards)
{
    stepAndDrop(shards, [](Shard& shard) { return shard.update(); });
}
