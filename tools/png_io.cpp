#include "png_io.h"

#include <png.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

// libpng reports its errors through a jump; the image API hides that.
bool finish(png_image& image, bool ok, std::string* error)
{
    if (!ok && error) *error = image.message[0] ? image.message : "unknown libpng failure";
    png_image_free(&image);
    return ok;
}

}  // namespace

bool readPng(const std::string& path, RgbaPicture& picture, std::string* error)
{
    png_image image;
    memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) return finish(image, false, error);
    // Keep the stored values as they are: no gamma or colour-space conversion
    // on the way to 8 bits, so an 8-bit RGBA file round-trips exactly.
    image.format = PNG_FORMAT_RGBA;
    image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
    std::vector<unsigned char> pixels(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) return finish(image, false, error);
    picture.width = image.width;
    picture.height = image.height;
    picture.pixels = std::move(pixels);
    return finish(image, true, error);
}

bool writePng(const std::string& path, const RgbaPicture& picture, std::string* error)
{
    png_image image;
    memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = picture.width;
    image.height = picture.height;
    image.format = PNG_FORMAT_RGBA;
    bool ok = png_image_write_to_file(&image, path.c_str(), 0, picture.pixels.data(), 0, nullptr);
    return finish(image, ok, error);
}

std::vector<unsigned char> flipRows(const unsigned char* pixels, uint32_t width, uint32_t height)
{
    size_t rowBytes = size_t(width) * 4;
    std::vector<unsigned char> flipped(rowBytes * height);
    for (uint32_t y = 0; y < height; ++y)
        std::copy(pixels + y * rowBytes, pixels + (y + 1) * rowBytes, flipped.begin() + (height - 1 - y) * rowBytes);
    return flipped;
}

int writeGeneratedPicture(const RgbaPicture& picture, const char* folder, const char* name,
                          const char* tool)
{
    std::string error;
    const std::string path = std::string(folder) + "/" + name + ".png";
    if (!writePng(path, picture, &error)) {
        std::fprintf(stderr, "%s: %s: %s\n", tool, path.c_str(), error.c_str());
        return 1;
    }
    return 0;
}
