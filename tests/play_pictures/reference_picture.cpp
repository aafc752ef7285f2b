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
    double pixels = 0, pairs = 0;
    for (int y = area.y; y < area.y + area.height; ++y) {
        for (int x = area.x; x < area.x + area.width; ++x) {
            const uint8_t* p = picture.at(x, y);
            means.red += p[0];
            means.green += p[1];
            means.blue += p[2];
            pixels += 1;
            if (x + 1 < area.x + area.width) {
                const uint8_t* q = picture.at(x + 1, y);
                means.grain += (std::abs(p[0] - q[0]) + std::abs(p[1] - q[1]) +
                                std::abs(p[2] - q[2])) / 3.0;
                pairs += 1;
            }
        }
    }
    if (pixels > 0) {
        means.red /= pixels;
        means.green /= pixels;
        means.blue /= pixels;
    }
    if (pairs > 0) means.grain /= pairs;
    return means;
}

namespace {

bool differs(const uint8_t* a, const uint8_t* b)
{
    for (int c = 0; c < 3; ++c)
        if (std::abs(a[c] - b[c]) > channelTolerance) return true;
    return false;
}

fs::path outputFolder()
{
    const fs::path folder = fs::path(GORVAN_BINARY_DIR) / "play_pictures";
    fs::create_directories(folder);
    return folder;
}

// Differing pixels in red over a dimmed copy of the reference.
WindowPicture differenceMap(const WindowPicture& actual, const WindowPicture& reference)
{
    WindowPicture map = reference;
    for (size_t i = 0; i < map.rgb.size(); i += 3) {
        const bool off = differs(&actual.rgb[i], &reference.rgb[i]);
        for (int c = 0; c < 3; ++c) map.rgb[i + c] = static_cast<uint8_t>(map.rgb[i + c] / 4);
        if (off) map.rgb[i] = 255;
    }
    return map;
}

}  // namespace

Comparison compare(const WindowPicture& actual, const WindowPicture& reference)
{
    Comparison result;
    result.sameSize = actual.width == reference.width && actual.height == reference.height &&
                      actual.rgb.size() == reference.rgb.size();
    if (!result.sameSize || actual.rgb.empty()) return result;
    size_t differing = 0;
    for (size_t i = 0; i < actual.rgb.size(); i += 3)
        differing += differs(&actual.rgb[i], &reference.rgb[i]);
    result.differing = static_cast<double>(differing) / (actual.rgb.size() / 3);
    return result;
}

bool updatingReferences()
{
    const char* value = std::getenv("GORVAN_UPDATE_REFERENCES");
    return value && std::string(value) == "1";
}

std::string referencePath(const std::string& name)
{
    return (fs::path(GORVAN_SOURCE_DIR) / "tests/data_files/references" / (name + ".png")).string();
}

bool readPicturePng(const std::string& path, WindowPicture& picture)
{
    RgbaPicture rgba;
    std::string error;
    if (!readPng(path, rgba, &error)) return false;
    picture.width = static_cast<int>(rgba.width);
    picture.height = static_cast<int>(rgba.height);
    picture.rgb.resize(static_cast<size_t>(rgba.width) * rgba.height * 3);
    for (size_t i = 0, j = 0; i < picture.rgb.size(); i += 3, j += 4)
        std::copy_n(&rgba.pixels[j], 3, &picture.rgb[i]);
    return true;
}

bool writePicturePng(const std::string& path, const WindowPicture& picture)
{
    RgbaPicture rgba(static_cast<uint32_t>(picture.width), static_cast<uint32_t>(picture.height));
    for (size_t i = 0, j = 0; i < picture.rgb.size(); i += 3, j += 4) {
        std::copy_n(&picture.rgb[i], 3, &rgba.pixels[j]);
        rgba.pixels[j + 3] = 255;
    }
    std::string error;
    return writePng(path, rgba, &error);
}

::testing::AssertionResult matchesReference(const WindowPicture& picture, const std::string& name)
{
    const std::string path = referencePath(name);
    if (updatingReferences()) {
        fs::create_directories(fs::path(path).parent_path());
        if (!writePicturePng(path, picture))
            return ::testing::AssertionFailure() << "couldn't write " << path;
        return ::testing::AssertionSuccess() << "wrote " << path;
    }
    WindowPicture reference;
    if (!readPicturePng(path, reference))
        return ::testing::AssertionFailure()
               << "no reference " << path << " (GORVAN_UPDATE_REFERENCES=1 writes it)";
    const Comparison result = compare(picture, reference);
    if (result.matches()) return ::testing::AssertionSuccess();

    const fs::path actualPath = outputFolder() / (name + ".png");
    writePicturePng(actualPath.string(), picture);
    std::ostringstream message;
    message << name << ": ";
    if (!result.sameSize) {
        message << picture.width << " x " << picture.height << " drawn, the reference is "
                << reference.width << " x " << reference.height;
    } else {
        const fs::path mapPath = outputFolder() / (name + "_difference.png");
        writePicturePng(mapPath.string(), differenceMap(picture, reference));
        message << result.differing * 100 << " % of the pixels differ by more than "
                << channelTolerance << " (at most " << differingShare * 100
                << " % may); differing pixels in red: " << mapPath.string();
    }
    message << "; the picture drawn: " << actualPath.string();
    return ::testing::AssertionFailure() << message.str();
}
