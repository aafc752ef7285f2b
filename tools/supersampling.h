// Pictures drawn from a colour function, a few samples a pixel, for the
// picture generators: smooth edges without a drawing library.
#pragma once

#include <algorithm>
#include <cmath>

#include "png_io.h"

// A sample's colour: r, g, b from 0 to 255, a (coverage) from 0 to 1.
struct SampleColour {
    double r, g, b, a;
};

// Fills the picture with samples x samples points a pixel, averaged with the
// colours weighted by their alpha, so a clear sample never darkens an edge.
// sampleAt(x, y) takes pixel coordinates, y down.
template <typename SampleAt>
void supersample(RgbaPicture& picture, int samples, SampleAt sampleAt)
{
    for (uint32_t y = 0; y < picture.height; ++y) {
        for (uint32_t x = 0; x < picture.width; ++x) {
            SampleColour sum = {0, 0, 0, 0};
            for (int sy = 0; sy < samples; ++sy) {
                for (int sx = 0; sx < samples; ++sx) {
                    SampleColour c = sampleAt(x + (sx + 0.5) / samples, y + (sy + 0.5) / samples);
                    sum = {sum.r + c.r * c.a, sum.g + c.g * c.a, sum.b + c.b * c.a, sum.a + c.a};
                }
            }
            unsigned char* pixel = picture.at(x, y);
            if (sum.a > 0) {
                pixel[0] = static_cast<unsigned char>(std::lround(std::min(255.0, sum.r / sum.a)));
                pixel[1] = static_cast<unsigned char>(std::lround(std::min(255.0, sum.g / sum.a)));
                pixel[2] = static_cast<unsigned char>(std::lround(std::min(255.0, sum.b / sum.a)));
            }
            pixel[3] = static_cast<unsigned char>(std::lround(sum.a / (samples * samples) * 255));
        }
    }
}
