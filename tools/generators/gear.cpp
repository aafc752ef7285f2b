// pictures: gear
//
// The gear: two of them turn against each other on every cannon's base (10 to
// 35 units across, tinted grey) and one marks the stage's progress in the
// HUD's corner (50 units). A light steel wheel of twelve rounded teeth, a rim,
// six round windows, a hub and a hole in the middle, on a transparent
// background, 64 x 64 pixels. Made from the distance to its outline, 4 x 4
// samples a pixel, so the edges stay smooth while it turns.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "supersampling.h"

namespace {

const double pi = 3.14159265358979;
const int size = 64;
const double centre = size / 2.0;
const int teeth = 12;
const double rootRadius = 25.0;  // the wheel between the teeth
const double tipRadius = 31.0;   // the ends of the teeth
const double windowRing = 15.0;  // where the six round windows sit
const double windowRadius = 4.2;
const double holeRadius = 3.2;

// Outer edge at the angle a: flat-topped teeth with sloped flanks.
double outlineRadius(double a)
{
    double phase = std::fmod(a / (2 * pi) * teeth + 100.0, 1.0);  // 0..1 across one tooth
    double d = std::fabs(phase - 0.5) * 2;                         // 0 at a tooth's middle
    double t = std::clamp((0.75 - d) / 0.3, 0.0, 1.0);             // flank
    t = t * t * (3 - 2 * t);
    return rootRadius + (tipRadius - rootRadius) * t;
}

SampleColour sampleAt(double x, double y)
{
    double dx = x - centre, dy = y - centre;
    double r = std::hypot(dx, dy);
    double a = std::atan2(dy, dx);
    if (r > outlineRadius(a) || r < holeRadius) return {0, 0, 0, 0};
    for (int i = 0; i < 6; ++i) {
        double wa = i * pi / 3 + pi / 6;
        if (std::hypot(dx - windowRing * std::cos(wa), dy - windowRing * std::sin(wa)) < windowRadius)
            return {0, 0, 0, 0};
    }
    // Light from the upper left: a bright upper-left half, darker lower right.
    double light = 0.5 - 0.5 * (dx + dy) / (std::sqrt(2.0) * tipRadius);
    double edge = outlineRadius(a) - r;
    if (edge < 1.2) return {70, 74, 80, 1};                    // dark outline of the teeth
    if (r < holeRadius + 1.2) return {70, 74, 80, 1};          // and of the hole
    if (r < 8.5) return {200 + 40 * light, 204 + 40 * light, 210 + 40 * light, 1};  // hub
    if (r < 9.7) return {110, 115, 122, 1};                    // hub's edge
    if (std::fabs(r - 22.5) < 0.7) return {130, 135, 142, 1};  // groove inside the rim
    double base = 175 + 60 * light;
    return {base, base + 3, base + 8, 1};
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || std::string(argv[1]) == "--help") {
        fputs("Usage: gen_gear OUTPUT_FOLDER   writes gear.png there\n", argc == 2 ? stdout : stderr);
        return argc == 2 ? 0 : 2;
    }
    const int samples = 4;
    RgbaPicture picture(size, size);
    supersample(picture, samples, sampleAt);
    return writeGeneratedPicture(picture, argv[1], "gear", "gen_gear");
}
