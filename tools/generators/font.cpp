// pictures: font
//
// The game's font picture: 2048 x 512, fixed cells of 39 x 76 texels, 52 to a
// row from the top, cell n holding character code n (printable ASCII 33 to
// 126 drawn; the space and every other cell stay empty).
//
// The game draws these glyphs both far larger and far smaller than the cells,
// with linear filtering and no mipmaps: HUD labels of a two-player view are
// about 11 pixels high, a sample every seven texels. So the face is the bold
// monospaced DejaVu, whose strokes are several texels wide; FreeType
// antialiases them by coverage, and a slight blur (a Gaussian of 0.9 texels,
// with the alpha raised by 15 % to keep the weight) widens their edges so
// that a sparse sample lands on a ramp instead of missing a stroke. Large text
// stays crisp enough. Every glyph's ink keeps two texels clear of its cell's
// edges and the blur stays inside the cell, so filtering never pulls in a
// neighbour. Texels outside the ink are white with alpha 0: the filtering at a
// glyph's edge then fades its alpha without darkening it.
//
// Usage: gen_font FOLDER   (writes FOLDER/font.png)
#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "png_io.h"

namespace {

const char* const fontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono-Bold.ttf";

constexpr int imageWidth = 2048;
constexpr int imageHeight = 512;
constexpr int cellWidth = 39;
constexpr int cellHeight = 76;
constexpr int cellsPerRow = 52;
constexpr int padding = 2;
constexpr int firstDrawn = 33;
constexpr int lastDrawn = 126;
constexpr double blurSigma = 0.9;
constexpr double blurGain = 1.15;

// The widest ink and the full height of the drawn characters, in pixels at
// the current size, so that the size can be fitted to the cell.
struct InkExtent {
    int width = 0;
    int top = 0;     // above the baseline
    int bottom = 0;  // below the baseline
};

InkExtent measureInk(FT_Face face)
{
    InkExtent extent;
    for (int code = firstDrawn; code <= lastDrawn; code++) {
        if (FT_Load_Char(face, code, FT_LOAD_RENDER) != 0) {
            continue;
        }
        const FT_GlyphSlot glyph = face->glyph;
        const int rows = static_cast<int>(glyph->bitmap.rows);
        extent.width = std::max(extent.width, static_cast<int>(glyph->bitmap.width));
        extent.top = std::max(extent.top, glyph->bitmap_top);
        extent.bottom = std::max(extent.bottom, rows - glyph->bitmap_top);
    }
    return extent;
}

// The largest pixel size at which every glyph fits inside the padded cell.
InkExtent fitToCell(FT_Face face, int* pixelSize)
{
    InkExtent ink;
    for (*pixelSize = cellHeight; *pixelSize > 8; --*pixelSize) {
        FT_Set_Pixel_Sizes(face, 0, *pixelSize);
        ink = measureInk(face);
        if (ink.width <= cellWidth - 2 * padding &&
            ink.top + ink.bottom <= cellHeight - 2 * padding) {
            break;
        }
    }
    return ink;
}

void drawGlyph(FT_Face face, int code, int baseline, RgbaPicture& picture)
{
    if (FT_Load_Char(face, code, FT_LOAD_RENDER) != 0) {
        std::fprintf(stderr, "gen_font: no glyph for code %d\n", code);
        return;
    }
    const FT_GlyphSlot glyph = face->glyph;
    const FT_Bitmap& bitmap = glyph->bitmap;
    const int cellX = (code % cellsPerRow) * cellWidth;
    const int cellY = (code / cellsPerRow) * cellHeight;
    // The ink is centred across the cell, whatever the glyph's own bearing.
    const int left = cellX + (cellWidth - static_cast<int>(bitmap.width)) / 2;
    const int top = cellY + baseline - glyph->bitmap_top;
    for (unsigned row = 0; row < bitmap.rows; row++) {
        for (unsigned column = 0; column < bitmap.width; column++) {
            const int x = left + static_cast<int>(column);
            const int y = top + static_cast<int>(row);
            const bool inCell = x >= cellX + padding && x < cellX + cellWidth - padding &&
                                y >= cellY + padding && y < cellY + cellHeight - padding;
            if (inCell) {
                unsigned char* texel = picture.at(x, y);
                texel[3] = std::max(texel[3], bitmap.buffer[row * bitmap.pitch + column]);
            }
        }
    }
}

// A Gaussian of `sigma` texels, normalised, from -radius to radius.
std::vector<double> gaussianKernel(double sigma)
{
    const int radius = static_cast<int>(std::ceil(3 * sigma));
    std::vector<double> kernel(2 * radius + 1);
    double sum = 0;
    for (int i = -radius; i <= radius; i++) {
        kernel[i + radius] = std::exp(-i * i / (2 * sigma * sigma));
        sum += kernel[i + radius];
    }
    for (double& weight : kernel) weight /= sum;
    return kernel;
}

// One pass of the blur along x (dx = 1) or y (dy = 1); taps outside the
// texel's own cell count as empty.
std::vector<double> blurPass(const std::vector<double>& alpha, const std::vector<double>& kernel,
                             int dx, int dy)
{
    const int radius = static_cast<int>(kernel.size() / 2);
    std::vector<double> out(alpha.size(), 0.0);
    for (int y = 0; y < imageHeight; y++) {
        for (int x = 0; x < imageWidth; x++) {
            const int cellX = x / cellWidth * cellWidth;
            const int cellY = y / cellHeight * cellHeight;
            double sum = 0;
            for (int i = -radius; i <= radius; i++) {
                const int tx = x + i * dx;
                const int ty = y + i * dy;
                if (tx < cellX || tx >= std::min(cellX + cellWidth, imageWidth) || ty < cellY ||
                    ty >= std::min(cellY + cellHeight, imageHeight)) {
                    continue;
                }
                sum += kernel[i + radius] * alpha[ty * imageWidth + tx];
            }
            out[y * imageWidth + x] = sum;
        }
    }
    return out;
}

void softenEdges(RgbaPicture& picture)
{
    std::vector<double> alpha(imageWidth * imageHeight);
    for (int y = 0; y < imageHeight; y++) {
        for (int x = 0; x < imageWidth; x++) alpha[y * imageWidth + x] = picture.at(x, y)[3];
    }
    const std::vector<double> kernel = gaussianKernel(blurSigma);
    alpha = blurPass(blurPass(alpha, kernel, 1, 0), kernel, 0, 1);
    for (int y = 0; y < imageHeight; y++) {
        for (int x = 0; x < imageWidth; x++) {
            const double value = std::min(255.0, alpha[y * imageWidth + x] * blurGain + 0.5);
            picture.at(x, y)[3] = static_cast<unsigned char>(value);
        }
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: gen_font FOLDER\n");
        return 2;
    }
    FT_Library library;
    FT_Face face;
    if (FT_Init_FreeType(&library) != 0 || FT_New_Face(library, fontFile, 0, &face) != 0) {
        std::fprintf(stderr, "gen_font: can't open the font %s\n", fontFile);
        return 1;
    }
    int pixelSize = 0;
    const InkExtent ink = fitToCell(face, &pixelSize);
    // The spare height is shared evenly above and below the ink.
    const int innerHeight = cellHeight - 2 * padding;
    const int baseline = padding + (innerHeight - ink.top - ink.bottom) / 2 + ink.top;

    RgbaPicture picture(imageWidth, imageHeight);
    for (size_t i = 0; i < picture.pixels.size(); i += 4) {
        picture.pixels[i] = picture.pixels[i + 1] = picture.pixels[i + 2] = 255;
    }
    for (int code = firstDrawn; code <= lastDrawn; code++) {
        drawGlyph(face, code, baseline, picture);
    }
    FT_Done_Face(face);
    FT_Done_FreeType(library);
    softenEdges(picture);

    return writeGeneratedPicture(picture, argv[1], "font", "gen_font");
}
