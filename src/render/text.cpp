// Text from the fixed-cell font, and the font's own texture.
#include "render/text.h"

#include <GL/glew.h>

#include <cstdio>
#include <cstring>

#include "data/images.h"

uint32_t fontTexture = 0;

namespace {

// The font picture: 2048 x 512 texels, cells of 39 x 76, 52 cells to a row,
// rows counted from the top.
constexpr float fontImageWidth = 2048.0f;
constexpr float fontImageHeight = 512.0f;
constexpr int cellWidth = 39;
constexpr int cellHeight = 76;
constexpr int cellsPerRow = 52;

struct CellCoordinates {
    float uLeft, uRight, vTop, vBottom;
};

// Character codes are taken as signed: codes above 127 come out negative and
// their coordinates wrap around the repeating texture onto a fragment of it.
CellCoordinates cellOf(char character)
{
    const int code = static_cast<signed char>(character);
    const int column = code % cellsPerRow;
    const int row = code / cellsPerRow;
    CellCoordinates cell;
    cell.uLeft = column * cellWidth / fontImageWidth;
    cell.uRight = (column + 1) * cellWidth / fontImageWidth;
    cell.vTop = 1.0f - row * cellHeight / fontImageHeight;
    cell.vBottom = 1.0f - (row + 1) * cellHeight / fontImageHeight;
    return cell;
}

// Share of the string's length that lies before the anchor.
float alignShare(uint8_t align)
{
    if (align == 0) {
        return 0.0f;
    }
    return align == 1 ? 0.5f : 1.0f;
}

}  // namespace

void loadFont()
{
    loadTexture(&fontTexture, "font.spg");
}

void deleteFont()
{
    glDeleteTextures(1, &fontTexture);
    fontTexture = 0;
}

void drawText(const char* text, float x, float y, float size, uint8_t align)
{
    const float advance = size * textAdvancePerSize;
    const size_t length = std::strlen(text);
    const float start = x - length * advance * alignShare(align);
    glBindTexture(GL_TEXTURE_2D, fontTexture);
    for (size_t i = 0; i < length; i++) {
        const CellCoordinates cell = cellOf(text[i]);
        const float left = start + advance * i;
        const float right = start + advance * (i + 1);
        glBegin(GL_TRIANGLE_STRIP);
        glTexCoord2f(cell.uLeft, cell.vBottom);
        glVertex2f(left, y + size);
        glTexCoord2f(cell.uRight, cell.vBottom);
        glVertex2f(right, y + size);
        glTexCoord2f(cell.uLeft, cell.vTop);
        glVertex2f(left, y);
        glTexCoord2f(cell.uRight, cell.vTop);
        glVertex2f(right, y);
        glEnd();
    }
}

void drawTextVertical(const char* text, float x, float y, float size, uint8_t align)
{
    const float advance = size * textAdvancePerSize;
    const size_t length = std::strlen(text);
    const float start = y + length * advance * alignShare(align);
    glBindTexture(GL_TEXTURE_2D, fontTexture);
    for (size_t i = 0; i < length; i++) {
        const CellCoordinates cell = cellOf(text[i]);
        const float a = start - advance * i;
        const float b = start - advance * (i + 1);
        glBegin(GL_TRIANGLE_STRIP);
        glTexCoord2f(cell.uLeft, cell.vBottom);
        glVertex2f(x + size, a);
        glTexCoord2f(cell.uRight, cell.vBottom);
        glVertex2f(x + size, b);
        glTexCoord2f(cell.uLeft, cell.vTop);
        glVertex2f(x, a);
        glTexCoord2f(cell.uRight, cell.vTop);
        glVertex2f(x, b);
        glEnd();
    }
}

void drawInt(int32_t value, float x, float y, float size, uint8_t align)
{
    char buffer[12];  // "-2147483648" and its terminator
    std::snprintf(buffer, sizeof buffer, "%i", static_cast<int>(value));
    drawText(buffer, x, y, size, align);
}

void drawFloat(float value, uint8_t decimals, float x, float y, float size, uint8_t align)
{
    char format[8];
    std::snprintf(format, sizeof format, "%%.%if", static_cast<int>(decimals));
    char buffer[20];
    std::snprintf(buffer, sizeof buffer, format, static_cast<double>(value));
    drawText(buffer, x, y, size, align);
}
