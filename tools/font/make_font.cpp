// Renders the game's font picture: a 2048 x 512 PNG of fixed cells, 39 x 76
// texels each, 52 to a row from the top, cell n holding character code n
// (printable ASCII 32 to 126; every other cell stays empty).
//
// The game draws glyphs both far larger and far smaller than the cells, with
// linear filtering and no mipmaps. So the glyphs are the bold monospaced face,
// whose strokes are several texels wide and survive being sampled only every
// four or five texels; they are antialiased by FreeType's coverage and kept
// two texels clear of each cell's edges, so that no neighbour bleeds in.
// Texels outside the ink are white with alpha 0: filtering at the glyphs'
// edges then fades the alpha without darkening the colour.
//
// Usage: make_font FONT.ttf OUT.png
#include <ft2build.h>
#include FT_FREETYPE_H
#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

constexpr int imageWidth = 2048;
constexpr int imageHeight = 512;
constexpr int cellWidth = 39;
constexpr int cellHeight = 76;
constexpr int cellsPerRow = 52;
constexpr int padding = 2;

struct Picture {
    std::vector<unsigned char> rgba = std::vector<unsigned char>(imageWidth * imageHeight * 4);

    Picture()
    {
        for (size_t i = 0; i < rgba.size(); i += 4) {
            rgba[i] = rgba[i + 1] = rgba[i + 2] = 255;
            rgba[i + 3] = 0;
        }
    }
    void cover(int x, int y, unsigned char alpha)
    {
        unsigned char& texel = rgba[(static_cast<size_t>(y) * imageWidth + x) * 4 + 3];
        texel = std::max(texel, alpha);
    }
};

bool writePng(const char* path, const Picture& picture)
{
    FILE* file = std::fopen(path, "wb");
    if (!file) {
        std::fprintf(stderr, "make_font: can't write %s\n", path);
        return false;
    }
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
        std::fprintf(stderr, "make_font: error while writing %s\n", path);
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, imageWidth, imageHeight, 8, PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < imageHeight; y++) {
        png_write_row(png, &picture.rgba[static_cast<size_t>(y) * imageWidth * 4]);
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return std::fclose(file) == 0;
}

// The widest ink and the full height of the printable characters, in pixels
// at the current size, so the size can be fitted to the cell.
struct InkExtent {
    int width = 0;
    int top = 0;     // above the baseline
    int bottom = 0;  // below the baseline
};

InkExtent measureInk(FT_Face face)
{
    InkExtent extent;
    for (int code = 33; code <= 126; code++) {
        if (FT_Load_Char(face, code, FT_LOAD_RENDER) != 0) {
            continue;
        }
        const FT_GlyphSlot glyph = face->glyph;
        extent.width = std::max(extent.width, static_cast<int>(glyph->bitmap.width));
        extent.top = std::max(extent.top, glyph->bitmap_top);
        extent.bottom =
            std::max(extent.bottom, static_cast<int>(glyph->bitmap.rows) - glyph->bitmap_top);
    }
    return extent;
}

void drawGlyph(FT_Face face, int code, int baseline, Picture& picture)
{
    if (FT_Load_Char(face, code, FT_LOAD_RENDER) != 0) {
        std::fprintf(stderr, "make_font: no glyph for code %d\n", code);
        return;
    }
    const FT_GlyphSlot glyph = face->glyph;
    const FT_Bitmap& bitmap = glyph->bitmap;
    const int cellX = (code % cellsPerRow) * cellWidth;
    const int cellY = (code / cellsPerRow) * cellHeight;
    // Centre the ink across the cell, whatever its advance.
    const int left = cellX + (cellWidth - static_cast<int>(bitmap.width)) / 2;
    const int top = cellY + baseline - glyph->bitmap_top;
    for (unsigned row = 0; row < bitmap.rows; row++) {
        for (unsigned column = 0; column < bitmap.width; column++) {
            const int x = left + static_cast<int>(column);
            const int y = top + static_cast<int>(row);
            const bool inCell = x >= cellX + padding && x < cellX + cellWidth - padding &&
                                y >= cellY + padding && y < cellY + cellHeight - padding;
            if (inCell) {
                picture.cover(x, y, bitmap.buffer[row * bitmap.pitch + column]);
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_font FONT.ttf OUT.png\n");
        return 2;
    }
    FT_Library library;
    FT_Face face;
    if (FT_Init_FreeType(&library) != 0 || FT_New_Face(library, argv[1], 0, &face) != 0) {
        std::fprintf(stderr, "make_font: can't open the font %s\n", argv[1]);
        return 1;
    }
    // The largest pixel size whose ink fits inside the padded cell.
    const int innerWidth = cellWidth - 2 * padding;
    const int innerHeight = cellHeight - 2 * padding;
    int pixelSize = cellHeight;
    InkExtent ink;
    for (; pixelSize > 8; pixelSize--) {
        FT_Set_Pixel_Sizes(face, 0, pixelSize);
        ink = measureInk(face);
        if (ink.width <= innerWidth && ink.top + ink.bottom <= innerHeight) {
            break;
        }
    }
    // Share the spare height evenly above and below the ink.
    const int baseline = padding + (innerHeight - ink.top - ink.bottom) / 2 + ink.top;
    Picture picture;
    for (int code = 33; code <= 126; code++) {
        drawGlyph(face, code, baseline, picture);
    }
    FT_Done_Face(face);
    FT_Done_FreeType(library);
    std::printf("make_font: %d pixels a em, ink %d wide, %d + %d high, baseline %d\n",
                pixelSize, ink.width, ink.top, ink.bottom, baseline);
    return writePng(argv[2], picture) ? 0 : 1;
}
