// Where rectangles, rotated quads, screen copies and text land, read back
// from a real window; text through a font whose cells are coded by colour.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "gl_test_window.h"
#include "render/primitives.h"
#include "render/text.h"
#include "shell/window.h"

namespace {

const Rgba blue{0, 0, 255, 255}, black{0, 0, 0, 255}, white{255, 255, 255, 255};
using Span = std::pair<int, int>;

// First and one-past-last pixel along a row (x < 0) or down a column (y < 0)
// where `shows` holds; -1, -1 if nowhere.
template <typename Shows>
Span span(int x, int y, Shows shows)
{
    const int length = x < 0 ? windowWidth : windowHeight;
    int first = -1, last = -1;
    for (int i = 0; i < length; i++)
        if (shows(x < 0 ? i : x, y < 0 ? i : y)) {
            first = first < 0 ? i : first;
            last = i + 1;
        }
    return {first, last};
}
Span lit(int x, int y) { return span(x, y, [](int px, int py) { return !(pixelAt(px, py) == black); }); }
Span inked(int x, int y) { return span(x, y, [](int px, int py) { return codeAt(px, py) >= 0; }); }

class Drawing : public ::testing::Test {
protected:
    void SetUp() override { openTestWindow(1000, 600); setOrtho(1000, 600); }
    void TearDown() override { deleteScreenTextures(); deleteFont(); closeTestWindow(); }
};

// The scenes and games draw every kind of rectangle; here what they leave
// out: other projections, texture regions past 1, and a screen copy's slots.
TEST_F(Drawing, ProjectionsRegionsRotationAndScreenCopies)
{
    glDisable(GL_TEXTURE_2D);
    setOrtho(500, 300);  // half the resolution: twice the size
    drawRect(10, 20, 30, 40);
    EXPECT_EQ(lit(-1, 50), Span(20, 80));
    glClear(GL_COLOR_BUFFER_BIT);
    setOrthoRect(100, 50, 1100, 650);  // the window shows this part of the plane
    drawRect(100, 50, 10, 10);
    drawRect(1090, 640, 10, 10);
    EXPECT_EQ(pixelAt(5, 5), white);
    EXPECT_EQ(pixelAt(995, 595), white);
    EXPECT_EQ(pixelAt(500, 300), black);
    setOrtho(1000, 600);
    glClear(GL_COLOR_BUFFER_BIT);
    drawRotated(500, 300, 40, 40, static_cast<float>(M_PI / 4));  // a diamond
    EXPECT_EQ(pixelAt(500, 273), white);
    EXPECT_EQ(pixelAt(519, 281), black);
    glEnable(GL_TEXTURE_2D);
    // A region past 1 repeats the texture.
    const uint32_t texture = makeNearestTexture(2, 1, {255, 0, 0, 255, 0, 255, 0, 255});
    glColor4f(1, 1, 1, 0.5f);
    drawTexturedRegion(texture, 600, 0, 100, 100, 1.0f, 1.5f, 1.0f, 1.5f);
    glColor4f(1, 1, 1, 1);
    EXPECT_NEAR(pixelAt(650, 50).r, 128, 1);
    glDeleteTextures(1, &texture);

    // Slots: copies of the whole window that come back upright in place;
    // one never captured draws nothing and leaves the viewport alone.
    createScreenTexture();
    glClear(GL_COLOR_BUFFER_BIT);
    glColor4f(0, 0, 1, 1);
    drawRect(300, 200, 123, 77);
    glColor4f(1, 1, 1, 1);
    captureScreenSlot(2);
    EXPECT_EQ(screenSlots.size(), 3u);  // slots 0 and 1 come into being empty
    glClear(GL_COLOR_BUFFER_BIT);
    drawScreenSlot(2);
    EXPECT_EQ(pixelAt(300, 200), blue);
    EXPECT_EQ(pixelAt(422, 276), blue);
    EXPECT_EQ(pixelAt(423, 277), black);
    glViewport(10, 20, 300, 400);
    drawScreenSlot(7);
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[0], 10);
    // A copy of the screen is redrawn through the colour, in unit space.
    glColor4f(1, 1, 0.5f, 1);
    copyScreen();
    glColor4f(1, 1, 1, 1);
    EXPECT_NEAR(pixelAt(300, 200).b, 128, 1);
    EXPECT_EQ(pixelAt(299, 199), black);
    glDisable(GL_TEXTURE_2D);
    drawRect(0.5f, 0.5f, 0.5f, 0.5f);
    EXPECT_EQ(pixelAt(501, 301), white);
    EXPECT_EQ(pixelAt(498, 298), black);
    const uint32_t slot = screenSlots[2], main = screenTexture;
    deleteScreenTextures();
    EXPECT_TRUE(screenSlots.empty());
    EXPECT_FALSE(glIsTexture(slot) || glIsTexture(main));
}

TEST_F(Drawing, TextAlignsAndShowsTheCellOfEachCharacter)
{
    useCodedFont();
    // 5 * 25 * 0.3848684211 = 48.1 units: pixel centres up to 147.5 are covered.
    drawText("Score", 100, 100, 25, 0);
    EXPECT_EQ(inked(-1, 110), Span(100, 148));
    EXPECT_EQ(inked(120, -1), Span(100, 125));
    for (const auto& [alignment, expected] :
         {std::make_pair(1, Span(476, 524)), std::make_pair(2, Span(452, 500)),
          std::make_pair(200, Span(452, 500))}) {
        glClear(GL_COLOR_BUFFER_BIT);
        drawText("Score", 500, 100, 25, static_cast<uint8_t>(alignment));
        EXPECT_EQ(inked(-1, 110), expected) << alignment;
    }
    glClear(GL_COLOR_BUFFER_BIT);
    std::string all;
    for (int code = 32; code < 127; code++) all += static_cast<char>(code);
    drawText(all.c_str(), 10, 300, 20, 0);
    EXPECT_EQ(readText(10, 300, 20, 95), all);

    // Upward text: the first character sits just above y; align 1 centres on y.
    glClear(GL_COLOR_BUFFER_BIT);
    drawTextVertical("AB", 200, 300, 50, 0);
    const float advance = 50 * textAdvancePerSize;
    EXPECT_EQ(inked(-1, 290), Span(200, 250));
    EXPECT_EQ(inked(225, -1), Span(262, 300));
    EXPECT_EQ(codeAt(225, static_cast<int>(300 - advance * 0.5f)), 'A');
    EXPECT_EQ(codeAt(225, static_cast<int>(300 - advance * 1.5f)), 'B');
    glClear(GL_COLOR_BUFFER_BIT);
    drawTextVertical("AB", 200, 300, 50, 1);
    EXPECT_EQ(inked(225, -1), Span(281, 319));
    glClear(GL_COLOR_BUFFER_BIT);
    drawTextVertical("AB", 200, 300, 50, 7);
    EXPECT_EQ(inked(225, -1), Span(300, 338));

    // Code 255 is -1 as a signed character: it wraps round to the top row's
    // last texels, in both directions of writing.
    glClear(GL_COLOR_BUFFER_BIT);
    const char high[] = {static_cast<char>(0xFF), 0};
    drawText(high, 100, 100, 100, 0);
    drawTextVertical(high, 400, 300, 100, 0);
    const float width = 100 * textAdvancePerSize;
    EXPECT_EQ(codeAt(static_cast<int>(100 + width * 0.2f), 150), 51);
    EXPECT_EQ(codeAt(static_cast<int>(100 + width * 0.8f), 150), 52);
    EXPECT_EQ(codeAt(450, static_cast<int>(300 - width * 0.8f)), 52);

    // Numbers: signed, no grouping, the decimals asked for; tinted by the colour.
    glClear(GL_COLOR_BUFFER_BIT);
    drawInt(-2147483647 - 1, 990, 10, 20, 2);
    EXPECT_EQ(readText(990 - 11 * 20 * textAdvancePerSize, 10, 20, 11), "-2147483648");
    drawFloat(59.94f, 1, 10, 300, 20, 0);
    EXPECT_EQ(readText(10, 300, 20, 5), "59.9?");
    drawFloat(-0.5f, 2, 10, 400, 20, 0);
    EXPECT_EQ(readText(10, 400, 20, 6), "-0.50?");
    glColor4f(0, 1, 0, 1);
    drawText("W", 100, 500, 50, 0);  // cell 35 of row 1: (140, 40, 200)
    glColor4f(1, 1, 1, 1);
    EXPECT_EQ(pixelAt(109, 525), (Rgba{0, 40, 0, 255}));
}

}  // namespace
