// Whole-window pictures read back from the back buffer and compared with
// reference PNGs in tests/data_files/references/.
//
// The tolerance. The simulation's effects come from the seeded generator, so a
// scripted game draws the same scene every time; what may still differ is the
// rasterizer's arithmetic: another Mesa release or another CPU path of llvmpipe
// rounds the light sums, the blending and the edges of text and lines a little
// differently, and the hash noise of the static and dissolve shaders can flip
// single grains where a coordinate lands on a rounding edge. So a pixel counts
// as different only when one of its channels is more than `channelTolerance`
// away, and a picture still matches while at most `differingShare` of its
// pixels differ. A drawing fault (a pass left out, a shadow on the wrong side,
// a misplaced viewport, a missing bar) changes far more than that.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

constexpr int channelTolerance = 40;
constexpr double differingShare = 0.01;

struct WindowPicture {
    int width = 0, height = 0;
    std::vector<uint8_t> rgb;  // top row first

    // The back buffer as it stands, the whole window.
    static WindowPicture readBack();
    const uint8_t* at(int x, int yFromTop) const
    {
        return &rgb[(static_cast<size_t>(yFromTop) * width + x) * 3];
    }
};

// A rectangle of window pixels, from the top left.
struct PixelRect {
    int x, y, width, height;
};

// Means over a rectangle: of each channel, and of the absolute difference
// between horizontal neighbours (how grainy it is).
struct AreaMeans {
    double red = 0, green = 0, blue = 0, grain = 0;
    double brightness() const { return (red + green + blue) / 3; }
};
AreaMeans measure(const WindowPicture& picture, const PixelRect& area);

struct Comparison {
    bool sameSize = false;
    double differing = 1;  // share of pixels beyond the tolerance
    bool matches() const { return sameSize && differing <= differingShare; }
};
Comparison compare(const WindowPicture& actual, const WindowPicture& reference);

// GORVAN_UPDATE_REFERENCES=1 in the environment: write the references instead
// of comparing with them.
bool updatingReferences();
std::string referencePath(const std::string& name);
bool readPicturePng(const std::string& path, WindowPicture& picture);
bool writePicturePng(const std::string& path, const WindowPicture& picture);

// Compares with the reference of the name (or writes it when updating). On a
// mismatch the picture and a map of the differing pixels are left in the
// build's play_pictures/ folder; the message says where and how much.
::testing::AssertionResult matchesReference(const WindowPicture& picture,
                                            const std::string& name);
