// Where the rectangles, rotated quads and screen copies land, read back from
// a real window.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cmath>

#include "gl_test_window.h"
#include "render/primitives.h"
#include "shell/window.h"

namespace {

const Rgba red{255, 0, 0, 255};
const Rgba green{0, 255, 0, 255};
const Rgba blue{0, 0, 255, 255};
const Rgba yellow{255, 255, 0, 255};
const Rgba black{0, 0, 0, 255};
const Rgba white{255, 255, 255, 255};

class PrimitivesTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        openTestWindow(1000, 600);
        setOrtho(1000, 600);
    }
    void TearDown() override
    {
        deleteScreenTextures();
        closeTestWindow();
    }
    // First and one-past-last lit pixel along a row (or down a column), or (-1, -1).
    static std::pair<int, int> litSpan(int yFromTop) { return span(-1, yFromTop, windowWidth); }
    static std::pair<int, int> litSpanDown(int x) { return span(x, -1, windowHeight); }
    static std::pair<int, int> span(int x, int y, int length)
    {
        int first = -1, last = -1;
        for (int i = 0; i < length; i++) {
            if (!(pixelAt(x < 0 ? i : x, y < 0 ? i : y) == black)) {
                first = first < 0 ? i : first;
                last = i + 1;
            }
        }
        return {first, last};
    }
};

TEST_F(PrimitivesTest, OrthoPutsTheOriginTopLeftInAnyUnits)
{
    glDisable(GL_TEXTURE_2D);
    drawRect(10, 20, 30, 40);
    EXPECT_EQ(litSpan(20), std::make_pair(10, 40));
    EXPECT_EQ(litSpanDown(10), std::make_pair(20, 60));
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_MODELVIEW);

    // The same rectangle in a space of half the resolution doubles.
    glClear(GL_COLOR_BUFFER_BIT);
    setOrtho(500, 300);
    drawRect(10, 20, 30, 40);
    EXPECT_EQ(litSpan(50), std::make_pair(20, 80));
    EXPECT_EQ(litSpanDown(30), std::make_pair(40, 120));

    glClear(GL_COLOR_BUFFER_BIT);
    setOrthoRect(100, 50, 1100, 650);  // the window shows this part of the plane
    drawRect(100, 50, 10, 10);
    drawRect(1090, 640, 10, 10);
    EXPECT_EQ(pixelAt(5, 5), white);
    EXPECT_EQ(pixelAt(995, 595), white);
    EXPECT_EQ(pixelAt(500, 300), black);
}

TEST_F(PrimitivesTest, TexturesShowTheirFirstRowAtTheBottomTintedByTheColour)
{
    const uint32_t texture = makeTinyTexture(red, green, blue, yellow);
    drawTexturedRect(texture, 100, 100, 200, 200);
    EXPECT_EQ(pixelAt(150, 250), red);  // first row, first texel: bottom left
    EXPECT_EQ(pixelAt(250, 250), green);
    EXPECT_EQ(pixelAt(150, 150), blue);
    EXPECT_EQ(pixelAt(250, 150), yellow);
    // A plain rectangle uses the texture bound before.
    glBindTexture(GL_TEXTURE_2D, texture);
    drawRect(400, 0, 100, 100);
    EXPECT_EQ(pixelAt(425, 75), red);
    EXPECT_EQ(pixelAt(475, 25), yellow);
    // A region: the right column of texels only; past 1 the texture repeats.
    drawTexturedRegion(texture, 0, 0, 100, 100, 0.5f, 1.0f, 0.0f, 1.0f);
    EXPECT_EQ(pixelAt(10, 90), green);
    EXPECT_EQ(pixelAt(10, 10), yellow);
    drawTexturedRegion(texture, 200, 0, 100, 100, 1.0f, 1.5f, 1.0f, 1.5f);
    EXPECT_EQ(pixelAt(250, 50), red);
    glDeleteTextures(1, &texture);

    const uint32_t plain = makeTinyTexture(white, white, white, white);
    glColor4f(1, 0, 0, 1);
    drawTexturedRect(plain, 0, 400, 50, 50);
    glColor4f(1, 1, 1, 0.5f);
    drawTexturedRect(plain, 100, 400, 50, 50);
    glColor4f(1, 1, 1, 1);
    EXPECT_EQ(pixelAt(25, 425), red);
    EXPECT_NEAR(pixelAt(125, 425).r, 128, 1);
    glDeleteTextures(1, &plain);
}

TEST_F(PrimitivesTest, RotatedQuadsFollowTheAngle)
{
    glDisable(GL_TEXTURE_2D);
    // Angle 0 lies along the height; a quarter turn stands upright.
    drawRotated(500, 300, 10, 40, 0);
    EXPECT_EQ(litSpan(300), std::make_pair(480, 520));
    EXPECT_EQ(litSpanDown(500), std::make_pair(295, 305));
    glClear(GL_COLOR_BUFFER_BIT);
    drawRotated(500, 300, 10, 40, static_cast<float>(M_PI / 2));
    EXPECT_EQ(litSpan(300), std::make_pair(495, 505));
    EXPECT_EQ(litSpanDown(500), std::make_pair(280, 320));
    // 45 degrees: a square of side 40 becomes a diamond of half-diagonal 28.28.
    glClear(GL_COLOR_BUFFER_BIT);
    drawRotated(500, 300, 40, 40, static_cast<float>(M_PI / 4));
    EXPECT_EQ(pixelAt(500, 273), white);
    EXPECT_EQ(pixelAt(526, 300), white);
    EXPECT_EQ(pixelAt(500, 330), black);
    EXPECT_EQ(pixelAt(519, 281), black);  // the square's own corner is cut off
}

TEST_F(PrimitivesTest, RotatedImageRunsLeftToRightAlongTheAngle)
{
    // Left column of texels red, right column green: the u axis. A quarter
    // turn in a y-down space points down the screen; half a turn mirrors.
    const uint32_t texture = makeTinyTexture(red, green, red, green);
    drawTexturedRotated(texture, 200, 300, 20, 100, 0);
    drawTexturedRotated(texture, 600, 300, 20, 100, static_cast<float>(M_PI / 2));
    drawTexturedRotated(texture, 800, 300, 20, 100, static_cast<float>(M_PI));
    EXPECT_EQ(pixelAt(170, 300), red);
    EXPECT_EQ(pixelAt(230, 300), green);
    EXPECT_EQ(pixelAt(600, 270), red);
    EXPECT_EQ(pixelAt(600, 330), green);
    EXPECT_EQ(pixelAt(770, 300), green);
    EXPECT_EQ(pixelAt(830, 300), red);
    glDeleteTextures(1, &texture);
}

// Something different in every part of the window, the top left corner in
// particular, so that a copy that is shifted, flipped or scaled shows.
void drawTestPattern()
{
    glDisable(GL_TEXTURE_2D);
    setOrtho(windowWidth, windowHeight);
    glViewport(0, 0, windowWidth, windowHeight);
    glColor4f(1, 0, 0, 1);
    drawRect(0, 0, 50, 30);
    glColor4f(0, 1, 0, 1);
    drawRect(windowWidth - 40, windowHeight - 20, 40, 20);
    glColor4f(0, 0, 1, 1);
    drawRect(300, 200, 123, 77);
    glColor4f(1, 1, 1, 1);
    glEnable(GL_TEXTURE_2D);
}

void expectTestPattern()
{
    EXPECT_EQ(pixelAt(0, 0), red);
    EXPECT_EQ(pixelAt(49, 29), red);
    EXPECT_EQ(pixelAt(50, 29), black);
    EXPECT_EQ(pixelAt(windowWidth - 1, windowHeight - 1), green);
    EXPECT_EQ(pixelAt(windowWidth - 40, windowHeight - 20), green);
    EXPECT_EQ(pixelAt(windowWidth - 41, windowHeight - 21), black);
    EXPECT_EQ(pixelAt(300, 200), blue);
    EXPECT_EQ(pixelAt(422, 276), blue);
    EXPECT_EQ(pixelAt(423, 277), black);
}

TEST_F(PrimitivesTest, SlotsComeBackUprightInPlaceEachWithItsOwnPicture)
{
    drawTestPattern();
    captureScreenSlot(2);
    EXPECT_EQ(screenSlots.size(), 3u);  // slots 0 and 1 come into being empty
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 1024);
    EXPECT_EQ(viewport[3], 1024);
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0, 0, 0, 1);
    captureScreenSlot(1);

    glClear(GL_COLOR_BUFFER_BIT);
    drawScreenSlot(2);
    expectTestPattern();
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 1000);
    EXPECT_EQ(viewport[3], 600);
    drawScreenSlot(1);
    EXPECT_EQ(pixelAt(0, 0), blue);
    EXPECT_EQ(pixelAt(999, 599), blue);
}

TEST_F(PrimitivesTest, DrawingASlotNeverCapturedChangesNothing)
{
    setOrtho(800, 600);
    GLfloat projection[16], after[16];
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    drawScreenSlot(0);
    captureScreenSlot(1);
    glViewport(10, 20, 300, 400);
    drawScreenSlot(2);
    drawScreenSlot(255);
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[0], 10);
    EXPECT_EQ(viewport[3], 400);
    glGetFloatv(GL_PROJECTION_MATRIX, after);
    for (int i = 0; i < 16; i++)
        EXPECT_FLOAT_EQ(after[i], projection[i]);
    EXPECT_EQ(pixelAt(500, 300), black);
}

TEST_F(PrimitivesTest, CopyScreenRedrawsTheFrameThroughTheTintAndStaysInUnitSpace)
{
    createScreenTexture();
    drawTestPattern();
    copyScreen();
    expectTestPattern();
    // Unit space is left behind: a quad of 0.5 x 0.5 covers a quarter.
    glDisable(GL_TEXTURE_2D);
    drawRect(0.5f, 0.5f, 0.5f, 0.5f);
    EXPECT_EQ(pixelAt(501, 301), white);
    EXPECT_EQ(pixelAt(498, 298), black);

    drawTestPattern();
    glColor4f(1, 0, 0, 1);  // stands in for an effect program
    copyScreen();
    glColor4f(1, 1, 1, 1);
    EXPECT_EQ(pixelAt(300, 200), black);  // blue with its blue taken away
    EXPECT_EQ(pixelAt(0, 0), red);
}

TEST_F(PrimitivesTest, DeletingScreenTexturesEmptiesTheSlots)
{
    createScreenTexture();
    captureScreenSlot(3);
    const uint32_t slot = screenSlots[3];
    const uint32_t main = screenTexture;
    deleteScreenTextures();
    EXPECT_TRUE(screenSlots.empty());
    EXPECT_FALSE(glIsTexture(slot));
    EXPECT_FALSE(glIsTexture(main));
    captureScreenSlot(0);
    EXPECT_EQ(screenSlots.size(), 1u);
}

TEST_F(PrimitivesTest, APowerOfTwoWindowCopiesWithTheWholeTexture)
{
    closeTestWindow();
    openTestWindow(512, 512);
    EXPECT_EQ(screenTextureWidth, 512);
    drawTestPattern();
    captureScreenSlot(0);
    glClear(GL_COLOR_BUFFER_BIT);
    drawScreenSlot(0);
    expectTestPattern();
}

}  // namespace
