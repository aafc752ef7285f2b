// Where the views of one and two sides land in the window, and where the
// key-caps and the plate of the current choice sit, read back from a real
// window. The HUD's pictures are flat colours here, not the content's art.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "hud_window.h"
#include "render/text.h"
#include "shell/window.h"
#include "sim/cannon_bank.h"
#include "sim/player.h"

namespace {

const Pixel black{0, 0, 0};
const Pixel blue{0, 0, 255};
const Pixel yellow{255, 255, 0};
const Pixel magenta{255, 0, 255};
const Pixel cyan{0, 255, 255};

// First and one-past-last pixel of a window row in the colour, or -1, -1.
std::pair<int, int> rowSpan(const Pixel& colour, int y)
{
    int first = -1, last = -1;
    for (int x = 0; x < windowWidth; x++) {
        if (pixelAt(x, y) == colour) {
            if (first < 0) first = x;
            last = x + 1;
        }
    }
    return {first, last};
}

std::pair<int, int> columnSpan(const Pixel& colour, int x)
{
    int first = -1, last = -1;
    for (int y = 0; y < windowHeight; y++) {
        if (pixelAt(x, y) == colour) {
            if (first < 0) first = y;
            last = y + 1;
        }
    }
    return {first, last};
}

// A side whose every HUD picture is one opaque colour: its frame then
// covers the whole view. The speed-up sign is over.
std::unique_ptr<Player> paintedSide(const HudWindow& window, uint8_t side, Pixel colour)
{
    auto player = std::make_unique<Player>(side, side != 0, window.mapPath().c_str(), 1);
    flattenHudPictures(*player, colour.r, colour.g, colour.b, 255);
    player->frame = player->speedUpFrames;
    return player;
}

struct ViewCase {
    int width, height;
    bool twoSides;
    int left, middle, right;  // pixel columns where the views start, meet, end
    int top, bottom;          // pixel rows, from the top
};

class HudViews : public ::testing::TestWithParam<ViewCase> {};

TEST_P(HudViews, SidesFillTheirFourThirdsViewsAndLeaveTheBarsBlack)
{
    const ViewCase& c = GetParam();
    HudWindow window(c.width, c.height);
    auto left = paintedSide(window, c.twoSides ? 1 : 0, blue);
    std::unique_ptr<Player> right;
    if (c.twoSides) right = paintedSide(window, 2, yellow);
    glClear(GL_COLOR_BUFFER_BIT);
    left->drawView();
    if (right) right->drawView();

    // Screen row 300 holds nothing over the frame.
    int row = c.top + (c.bottom - c.top) / 2;
    auto blueSpan = rowSpan(blue, row);
    EXPECT_EQ(blueSpan.first, c.left);
    EXPECT_EQ(blueSpan.second, c.middle);
    if (c.twoSides) {
        auto yellowSpan = rowSpan(yellow, row);
        EXPECT_EQ(yellowSpan.first, c.middle);  // the views touch in the middle
        EXPECT_EQ(yellowSpan.second, c.right);
    }
    EXPECT_EQ(pixelAt(c.left - 1, row), black);
    EXPECT_EQ(pixelAt(c.right, row), black);

    // Column of screen x 790 (the frame's right margin) of the left view.
    int column = c.left + (c.middle - c.left) * 790 / 800;
    auto down = columnSpan(blue, column);
    EXPECT_EQ(down.first, c.top);
    EXPECT_EQ(down.second, c.bottom);
}

INSTANTIATE_TEST_SUITE_P(
    WindowSizes, HudViews,
    ::testing::Values(
        // One side, pillar bars: the 4:3 view centred.
        ViewCase{1000, 600, false, 100, 900, 900, 0, 600},
        ViewCase{1920, 1080, false, 240, 1680, 1680, 0, 1080},
        // Two sides on 16:9: letterboxed 8:3, two 4:3 halves that touch.
        ViewCase{1920, 1080, true, 0, 960, 1920, 180, 900},
        // 1000 / 2.6666667 rounds to 375 in floats: bars of 112 and a view of 376.
        ViewCase{1000, 600, true, 0, 500, 1000, 112, 488}));

class HudKeyCaps : public ::testing::Test {
protected:
    void SetUp() override { window = std::make_unique<HudWindow>(1000, 600); }
    void TearDown() override { window.reset(); }
    // Caps in magenta, the plate in cyan, everything else transparent.
    std::unique_ptr<Player> side(uint8_t which)
    {
        auto player = std::make_unique<Player>(which, which != 0, window->mapPath().c_str(), 1);
        flattenHudPictures(*player);
        replaceTexture(player->buttonBackTexture, makeFlatTexture(0, 255, 255, 255));
        replaceTexture(panelButtonTexture, makeFlatTexture(255, 0, 255, 255));
        return player;
    }
    static void draw(Player& player)
    {
        glClear(GL_COLOR_BUFFER_BIT);
        player.drawView();
    }
    // A corner of a cap, clear of its letter, in window pixels.
    static Pixel capCorner(const Player& player, int x, int y)
    {
        return pixelAt(player.viewX + (x + 3) * player.viewWidth / 800,
                       (600 - player.viewY - player.viewHeight) +
                           (y + 3) * player.viewHeight / 600);
    }
    std::unique_ptr<HudWindow> window;
};

TEST_F(HudKeyCaps, CapsSitWhereTheirButtonsAre)
{
    auto player = side(0);
    draw(*player);
    for (int x : {10, 106, 202, 298})
        EXPECT_EQ(capCorner(*player, x, 563), magenta) << x;
    EXPECT_EQ(capCorner(*player, 724, 134), magenta);
    EXPECT_EQ(capCorner(*player, 724, 314), magenta);
    EXPECT_EQ(capCorner(*player, 470, 230), magenta);
    // A cap's letter is printed in black in its middle.
    bool letter = false;
    for (int y = 569; y < 589; y++)
        for (int x = 121; x < 131; x++) letter = letter || pixelAt(100 + x, y) == black;
    EXPECT_TRUE(letter);
    // No disturb cap in a one-player game.
    EXPECT_EQ(capCorner(*player, 533, 19), black);
}

TEST_F(HudKeyCaps, ThePlateMarksTheCurrentChoiceOrTheHeldOneWhileSuspended)
{
    auto player = side(0);
    // Row 598: below the balance bar and the caps, inside the plate.
    draw(*player);  // one cannon at the start: the plate at 96
    EXPECT_EQ(pixelAt(100 + 96 + 2, 598), cyan);
    EXPECT_EQ(pixelAt(100 + 2, 598), black);

    player->bank->wantedCannons = 3;
    draw(*player);
    EXPECT_EQ(pixelAt(100 + 288 + 2, 598), cyan);
    EXPECT_EQ(pixelAt(100 + 96 + 2, 598), black);

    player->bank->suspended = true;
    player->bank->wantedCannons = 0;
    player->bank->heldCannons = 2;
    draw(*player);
    EXPECT_EQ(pixelAt(100 + 192 + 2, 598), cyan);
    EXPECT_EQ(pixelAt(100 + 2, 598), black);
}

TEST_F(HudKeyCaps, BothSidesOfATwoPlayerGameShowTheDisturbCap)
{
    auto left = side(1);
    auto right = side(2);
    glClear(GL_COLOR_BUFFER_BIT);
    left->drawView();
    right->drawView();
    EXPECT_EQ(capCorner(*left, 533, 19), magenta);
    EXPECT_EQ(capCorner(*right, 533, 19), magenta);
    EXPECT_EQ(capCorner(*right, 10, 563), magenta);
}

}  // namespace
