// Where text lands and which cells of the font it shows, read back through a
// font whose cells are coded by colour.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <string>

#include "gl_test_window.h"
#include "render/primitives.h"
#include "render/text.h"
#include "shell/window.h"

namespace {

class TextTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        openTestWindow(1000, 600);
        setOrtho(1000, 600);
        useCodedFont();
    }
    void TearDown() override
    {
        deleteFont();
        closeTestWindow();
    }
    // First and one-past-last pixel showing any cell along a row (or down a column).
    static std::pair<int, int> textSpan(int yFromTop) { return span(-1, yFromTop, windowWidth); }
    static std::pair<int, int> textSpanDown(int x) { return span(x, -1, windowHeight); }
    static std::pair<int, int> span(int x, int y, int length)
    {
        int first = -1, last = -1;
        for (int i = 0; i < length; i++) {
            if (codeAt(x < 0 ? i : x, y < 0 ? i : y) >= 0) {
                first = first < 0 ? i : first;
                last = i + 1;
            }
        }
        return {first, last};
    }
};

TEST_F(TextTest, ScoreAtSize25IsAbout48UnitsWideAndAlignsAtX)
{
    // 5 * 25 * 0.3848684211 = 48.108552: pixel centres up to 147.5 are covered.
    drawText("Score", 100, 100, 25, 0);
    EXPECT_EQ(textSpan(110), std::make_pair(100, 148));
    EXPECT_EQ(textSpanDown(120), std::make_pair(100, 125));
    EXPECT_EQ(readText(100, 100, 25, 5), "Score");
    // Alignment 1 centres on x; 2 and anything above end at x.
    const std::pair<int, std::pair<int, int>> aligned[] = {
        {1, {476, 524}}, {2, {452, 500}}, {200, {452, 500}}};
    for (const auto& [alignment, span] : aligned) {
        glClear(GL_COLOR_BUFFER_BIT);
        drawText("Score", 500, 100, 25, alignment);
        EXPECT_EQ(textSpan(110), span) << alignment;
    }
    EXPECT_EQ(readText(500 - 5 * 25 * textAdvancePerSize, 100, 25, 5), "Score");

    glClear(GL_COLOR_BUFFER_BIT);
    glBindTexture(GL_TEXTURE_2D, 0);
    drawText("", 100, 100, 25, 1);  // binds the font, draws nothing
    GLint bound = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(static_cast<uint32_t>(bound), fontTexture);
    EXPECT_EQ(textSpan(110), std::make_pair(-1, -1));
}

TEST_F(TextTest, EveryPrintableCharacterShowsItsOwnCell)
{
    std::string all;
    for (int code = 32; code < 127; code++)
        all += static_cast<char>(code);
    // 95 characters at size 20 take 731 units.
    drawText(all.c_str(), 10, 300, 20, 0);
    EXPECT_EQ(readText(10, 300, 20, 95), all);
}

TEST_F(TextTest, VerticalTextReadsUpwardFromY)
{
    drawTextVertical("AB", 200, 300, 50, 0);
    const float advance = 50 * textAdvancePerSize;  // 19.24
    // Columns from x 200 to 250; the first character sits just above y.
    EXPECT_EQ(textSpan(290), std::make_pair(200, 250));
    EXPECT_EQ(textSpanDown(225), std::make_pair(262, 300));  // 261.5 to 300
    EXPECT_EQ(codeAt(225, static_cast<int>(300 - advance * 0.5f)), 'A');
    EXPECT_EQ(codeAt(225, static_cast<int>(300 - advance * 1.5f)), 'B');

    glClear(GL_COLOR_BUFFER_BIT);
    drawTextVertical("AB", 200, 300, 50, 1);
    EXPECT_EQ(textSpanDown(225), std::make_pair(281, 319));  // 280.76 to 319.24
    glClear(GL_COLOR_BUFFER_BIT);
    drawTextVertical("AB", 200, 300, 50, 7);
    EXPECT_EQ(textSpanDown(225), std::make_pair(300, 338));  // 300 to 338.49
}

TEST_F(TextTest, CodesAboveAsciiWrapAroundTheImageInBothDirections)
{
    // Code 255 is -1 as a signed character: column -1 of row 0, which the
    // repeating texture turns into the image's last 39 texels of the top row.
    // Turned anticlockwise, the cell's left edge lies toward y.
    const char text[] = {static_cast<char>(0xFF), 0};
    drawText(text, 100, 100, 100, 0);
    drawTextVertical(text, 400, 300, 100, 0);
    const float width = 100 * textAdvancePerSize;
    EXPECT_EQ(codeAt(static_cast<int>(100 + width * 0.2f), 150), 51);
    EXPECT_EQ(codeAt(static_cast<int>(100 + width * 0.8f), 150), 52);
    EXPECT_EQ(codeAt(450, static_cast<int>(300 - width * 0.2f)), 51);
    EXPECT_EQ(codeAt(450, static_cast<int>(300 - width * 0.8f)), 52);
}

TEST_F(TextTest, NumbersPrintSignedWithoutGroupingAndWithTheAskedDecimals)
{
    drawInt(-2147483647 - 1, 990, 10, 20, 2);
    EXPECT_EQ(readText(990 - 11 * 20 * textAdvancePerSize, 10, 20, 11), "-2147483648");
    drawInt(1234567, 10, 100, 20, 0);
    EXPECT_EQ(readText(10, 100, 20, 8), "1234567?");
    // A count held unsigned prints the same while it fits.
    drawInt(static_cast<int32_t>(2147483647u), 10, 200, 20, 0);
    EXPECT_EQ(readText(10, 200, 20, 10), "2147483647");

    drawFloat(59.94f, 1, 10, 300, 20, 0);
    EXPECT_EQ(readText(10, 300, 20, 5), "59.9?");
    drawFloat(-0.5f, 2, 10, 400, 20, 0);
    EXPECT_EQ(readText(10, 400, 20, 6), "-0.50?");
    drawFloat(3.0f, 0, 10, 500, 20, 0);
    EXPECT_EQ(readText(10, 500, 20, 2), "3?");
    // A right-aligned rate ends at x.
    drawFloat(90.9091f, 1, 900, 300, 20, 2);
    EXPECT_EQ(readText(900 - 4 * 20 * textAdvancePerSize, 300, 20, 4), "90.9");
}

TEST_F(TextTest, UnitSpaceTextStretchesWithTheWindowAndTakesTheColour)
{
    setOrtho(1, 1);
    drawText("Score", 0.5f, 0.3f, 0.05f, 1);
    // Height 0.05 of 600 pixels = 30; width 5 * 0.05 * 0.3849 of 1000 = 96.2.
    EXPECT_EQ(textSpanDown(500), std::make_pair(180, 210));
    EXPECT_EQ(textSpan(195), std::make_pair(452, 548));  // 451.9 to 548.1

    // 'W' is code 87: column 35, row 1, coded (140, 40, 200); tinted green.
    setOrtho(1000, 600);
    glColor4f(0, 1, 0, 1);
    drawText("W", 100, 100, 50, 0);
    glColor4f(1, 1, 1, 1);
    EXPECT_EQ(pixelAt(109, 125), (Rgba{0, 40, 0, 255}));
}

}  // namespace
