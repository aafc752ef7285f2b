#include "reference_picture.h"

#include <GL/glew.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "png_io.h"
#include "shell/window.h"

namespace fs = std::filesystem;

WindowPicture WindowPicture::readBack()
{
    WindowPicture picture;
    picture.width = windowWidth;
    picture.height = windowHeight;
    const size_t rowBytes = static_cast<size_t>(picture.width) * 3;
    std::vector<uint8_t> bottomUp(rowBytes * picture.height);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, picture.width, picture.height, GL_RGB, GL_UNSIGNED_BYTE, bottomUp.data());
    picture.rgb.resize(bottomUp.size());
    for (int row = 0; row < picture.height; ++row)  // GL counts rows from the bottom
        std::copy_n(&bottomUp[(picture.height - 1 - row) * rowBytes], rowBytes,
                    &picture.rgb[row * rowBytes]);
    return picture;
}

AreaMeans measure(const WindowPicture& picture, const PixelRect& area)
{
    AreaMeans means;
    for (int y = area.y; y < area.y + area.height; ++y)
        for (int x = area.x; x < area.x + area.width; ++x) {
            means.red += picture.at(x, y)[0];
            means.green += picture.at(x, y)[1];
            means.blue += picture.at(x, y)[2];
        }
    const double pixels = std::max(area.width * area.height, 1);
    means.red /= pixels, means.green /= pixels, means.blue /= pixels;
    return means;
}

bool fieldStencilClean()
{
    std::vector<uint8_t> stencil(384 * 512, 0xAA);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, 384, 512, GL_STENCIL_INDEX, GL_UNSIGNED_BYTE, stencil.data());
    return std::all_of(stencil.begin(), stencil.end(), [](uint8_t v) { return v == 0; });
}

std::string pinMap(const char* file, int number)
{
    fs::remove("content/maps");  // the link to the built maps
    fs::create_directories("content/maps");
    const std::string path = "content/maps/map" + std::to_string(number) + ".txt";
    fs::copy_file(fs::path(GORVAN_SOURCE_DIR) / "tests/data_files/play_maps" / file, path);
    return path;
}

namespace {

bool readPicturePng(const std::string& path, WindowPicture& picture)
{
    RgbaPicture rgba;
    std::string error;
    if (!readPng(path, rgba, &error)) return false;
    picture.width = static_cast<int>(rgba.width);
    picture.height = static_cast<int>(rgba.height);
    picture.rgb.resize(static_cast<size_t>(rgba.width) * rgba.height * 3);
    for (size_t i = 0, j = 0; i < picture.rgb.size(); i += 3, j += 4) std::copy_n(&rgba.pixels[j], 3, &picture.rgb[i]);
    return true;
}

bool writePicturePng(const fs::path& path, const WindowPicture& picture)
{
    RgbaPicture rgba(static_cast<uint32_t>(picture.width), static_cast<uint32_t>(picture.height));
    for (size_t i = 0, j = 0; i < picture.rgb.size(); i += 3, j += 4) {
        std::copy_n(&picture.rgb[i], 3, &rgba.pixels[j]);
        rgba.pixels[j + 3] = 255;
    }
    std::string error;
    fs::create_directories(path.parent_path());
    return writePng(path.string(), rgba, &error);
}

}  // namespace

::testing::AssertionResult matchesReference(const WindowPicture& picture, const std::string& name,
                                            Tolerance tolerance)
{
    const fs::path path = fs::path(GORVAN_SOURCE_DIR) / "tests/data_files/references" / (name + ".png");
    const char* update = std::getenv("GORVAN_UPDATE_REFERENCES");
    if (update && std::string(update) == "1")
        return writePicturePng(path, picture) ? ::testing::AssertionSuccess()
                                              : ::testing::AssertionFailure() << "couldn't write " << path;
    WindowPicture reference;
    if (!readPicturePng(path.string(), reference))
        return ::testing::AssertionFailure() << "no reference " << path << " (GORVAN_UPDATE_REFERENCES=1 writes it)";
    const fs::path drawn = fs::path(GORVAN_BINARY_DIR) / "play_pictures" / (name + ".png");
    std::ostringstream message;
    message << name << ": ";
    if (picture.width != reference.width || picture.height != reference.height) {
        message << picture.width << " x " << picture.height << " drawn, the reference is "
                << reference.width << " x " << reference.height;
    } else {
        // Differing pixels in red over a dimmed copy of the reference.
        WindowPicture map = reference;
        size_t differing = 0;
        for (size_t i = 0; i < map.rgb.size(); i += 3) {
            bool off = false;
            for (int c = 0; c < 3; ++c) {
                off = off || std::abs(picture.rgb[i + c] - reference.rgb[i + c]) > tolerance.channel;
                map.rgb[i + c] = static_cast<uint8_t>(map.rgb[i + c] / 4);
            }
            if (off) map.rgb[i] = 255;
            differing += off;
        }
        const double share = static_cast<double>(differing) / (map.rgb.size() / 3);
        if (share <= tolerance.differingShare) return ::testing::AssertionSuccess();
        const fs::path mapPath = drawn.parent_path() / (name + "_difference.png");
        writePicturePng(mapPath, map);
        message << share * 100 << " % of the pixels differ by more than " << tolerance.channel << " (at most "
                << tolerance.differingShare * 100 << " % may); differing pixels in red: " << mapPath.string();
    }
    writePicturePng(drawn, picture);
    return ::testing::AssertionFailure() << message.str() << "; the picture drawn: " << drawn.string();
}
