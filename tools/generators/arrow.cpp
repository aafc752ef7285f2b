// pictures: arrow
//
// The tutorial hint's arrow: a golden arrow pointing right (angle 0), with a
// dark outline and a soft shadow, 64 x 64 on a transparent background. Drawn
// from the signed distance to its outline, 4 x 4 samples a pixel.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "supersampling.h"

namespace {

struct Point {
    double x, y;
};

// Outline of the arrow, tip at the right, in pixels (y down).
const std::vector<Point> outline = {
    {6, 25}, {34, 25}, {34, 11}, {59, 32}, {34, 53}, {34, 39}, {6, 39},
};

double distanceToSegment(Point p, Point a, Point b)
{
    double dx = b.x - a.x, dy = b.y - a.y;
    double t = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

// Negative inside the arrow.
double signedDistance(Point p)
{
    double nearest = 1e9;
    bool inside = false;
    for (size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
        Point a = outline[j], b = outline[i];
        nearest = std::min(nearest, distanceToSegment(p, a, b));
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y)) inside = !inside;
    }
    return inside ? -nearest : nearest;
}

// Colour of one sample, before coverage is averaged.
SampleColour sampleAt(Point p)
{
    double d = signedDistance(p);
    if (d < -2.5) {
        double t = std::clamp((p.y - 11) / 42, 0.0, 1.0);  // lighter at the top
        return {255 - 15 * t, 236 - 56 * t, 150 - 110 * t, 1};
    }
    if (d < 0.8) return {70, 45, 15, 1};
    double shadow = signedDistance({p.x - 2, p.y - 3});
    if (shadow < 0.8) return {0, 0, 0, 0.3};
    return {0, 0, 0, 0};
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || std::string(argv[1]) == "--help") {
        fputs("Usage: gen_arrow OUTPUT_FOLDER   writes arrow.png there\n", argc == 2 ? stdout : stderr);
        return argc == 2 ? 0 : 2;
    }
    const int size = 64, samples = 4;
    RgbaPicture picture(size, size);
    supersample(picture, samples, [](double x, double y) { return sampleAt({x, y}); });
    return writeGeneratedPicture(picture, argv[1], "arrow", "gen_arrow");
}
