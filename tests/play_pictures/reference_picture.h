// Whole-window pictures read back from the back buffer and compared with
// reference PNGs in tests/data_files/references/ (its README says what each
// shows). A pixel differs when a channel is further off than the tolerance;
// a picture matches while few enough pixels differ. The tolerance covers the
// rasterizer's arithmetic (another Mesa rounds light sums, blending, text
// edges and the hash noise of static a little differently): games, full of
// noise, get the loose one; a scene without noise, which must show a bar one
// unit too short, the strict one.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

struct Tolerance {
    int channel;
    double differingShare;
};
constexpr Tolerance gameTolerance{40, 0.01};
constexpr Tolerance noisySceneTolerance{24, 0.002};
constexpr Tolerance sceneTolerance{6, 0.00002};

struct WindowPicture {
    int width = 0, height = 0;
    std::vector<uint8_t> rgb;  // top row first

    static WindowPicture readBack();  // the whole back buffer as it stands
    const uint8_t* at(int x, int yFromTop) const { return &rgb[(static_cast<size_t>(yFromTop) * width + x) * 3]; }
};

struct PixelRect {
    int x, y, width, height;  // window pixels from the top left
};

// Means of each channel over a rectangle.
struct AreaMeans {
    double red = 0, green = 0, blue = 0;
    double brightness() const { return (red + green + blue) / 3; }
};
AreaMeans measure(const WindowPicture& picture, const PixelRect& area);

// Compares with the named reference, or writes it when the environment holds
// GORVAN_UPDATE_REFERENCES=1. A mismatch leaves the picture and a map of the
// differing pixels in the build's play_pictures/ folder and says where.
::testing::AssertionResult matchesReference(const WindowPicture& picture, const std::string& name,
                                            Tolerance tolerance);

// The stencil of the field's corner is all zero, as every frame leaves it.
bool fieldStencilClean();

// The maps as they were when the pictures were made (tests/data_files/
// play_maps/), not the shipped ones, which balancing changes: content/maps
// of the scratch folder holds that map alone, under the number asked for.
std::string pinMap(const char* file, int number);
