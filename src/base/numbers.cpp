#include "base/numbers.h"

#include <cmath>

float clampFloat(float x, float lo, float hi)
{
    if (x < lo) return lo;
    if (x > hi) return hi;
    return x;
}

int clampInt(int x, int lo, int hi)
{
    if (x < lo) return lo;
    if (x > hi) return hi;
    return x;
}

float mapRange(float a, float b, float c, float d, float x)
{
    return c + (x - a) * (c - d) / (a - b);
}

float distanceSquared(float x1, float y1, float x2, float y2)
{
    float dx = x2 - x1;
    float dy = y2 - y1;
    return dx * dx + dy * dy;
}

float distance(float x1, float y1, float x2, float y2)
{
    return std::sqrt(distanceSquared(x1, y1, x2, y2));
}

float angleTo(float x1, float y1, float x2, float y2)
{
    return static_cast<float>(std::atan2(static_cast<double>(y2 - y1), static_cast<double>(x2 - x1)));
}

float cosine(float angle) { return static_cast<float>(std::cos(static_cast<double>(angle))); }

float sine(float angle) { return static_cast<float>(std::sin(static_cast<double>(angle))); }
