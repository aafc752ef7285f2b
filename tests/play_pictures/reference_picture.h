// Whole-window pictures read back from the back buffer and compared with
// reference PNGs in tests/data_files/references/ (README.md there says what
// each shows).
//
// The tolerance. A scripted game or a scene set by hand draws the same
// picture every time; what may still differ is the rasterizer's arithmetic:
// another Mesa release rounds light sums, blending and the edges of text a
// little differently, and the hash noise of the static and dissolve shaders
// can flip single grains. So a pixel counts as different only when one of
// its channels is further off than the tolerance, and a picture matches
// while few enough of its pixels differ. Games, full of noise, get the loose
// tolerance; scenes, which must show a bar one unit too short, the strict one.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

struct Tolerance {
    int channel;          // largest difference of a channel that still counts as equal
    double differingShare;  // share of the pixels that may differ
};
constexpr Tolerance gameTolerance{40, 0.01};
constexpr Tolerance sceneTolerance{12, 0.0003};

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

// Compares with the reference of the name, or writes it when the environment
// holds GORVAN_UPDATE_REFERENCES=1. On a mismatch the picture and a map of
// the differing pixels are left in the build's play_pictures/ folder; the
// message says where and how much.
::testing::AssertionResult matchesReference(const WindowPicture& picture, const std::string& name,
                                            Tolerance tolerance);

// The stencil of the field's corner (384 x 512) is all zero, as every frame
// must leave it.
bool fieldStencilClean();

// The scripts and scenes use the maps as they were when the pictures were
// made (tests/data_files/play_maps/), not the shipped ones, which balancing
// changes: the scratch folder's content/maps holds that map alone, under the
// number the game asks for. Returns its path.
std::string pinMap(const char* file, int number);
