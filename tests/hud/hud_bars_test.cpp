// The HUD read back from a real window: where the combo, score, disturb,
// stat, balance and timed-upgrade bars end for known values, the boxes of the
// upgrade queues, the progress strip and the signs. The content's pictures
// are replaced by transparent ones, so only the bars themselves are measured.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "hud_window.h"
#include "render/hud_layout.h"
#include "shell/window.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"

namespace {

const Pixel white{255, 255, 255};
const Pixel green{0, 255, 0};
const Pixel red{255, 0, 0};

bool near(const Pixel& a, const Pixel& b, int tolerance = 3)
{
    return std::abs(a.r - b.r) <= tolerance && std::abs(a.g - b.g) <= tolerance &&
           std::abs(a.b - b.b) <= tolerance;
}

// One side at 1000 x 600: the 4:3 view is 800 x 600 pixels from x 100, one
// pixel per screen unit.
class HudBars : public ::testing::Test {
protected:
    void SetUp() override
    {
        window = std::make_unique<HudWindow>(1000, 600);
        player = std::make_unique<Player>(0, false, window->mapPath().c_str(), 1);
        flattenHudPictures(*player);
    }
    void TearDown() override
    {
        player.reset();
        window.reset();
    }
    void draw(Player& p)
    {
        glClear(GL_COLOR_BUFFER_BIT);
        p.drawView();
    }
    void draw() { draw(*player); }
    // The pixel at a point of screen space in the player's view.
    Pixel at(float x, float y) const
    {
        return pixelAt(player->viewX + static_cast<int>(x), static_cast<int>(y));
    }
    // Screen x where a row starts to show `colour` and where it stops, from
    // `from` to `to`; -1, -1 if nowhere.
    std::pair<int, int> spanOf(const Pixel& colour, int y, int from, int to) const
    {
        int first = -1, last = -1;
        for (int x = from; x < to; x++) {
            if (near(at(x + 0.5f, y), colour)) {
                if (first < 0) first = x;
                last = x + 1;
            }
        }
        return {first, last};
    }
    // The same down a column.
    std::pair<int, int> spanDown(const Pixel& colour, int x, int from, int to) const
    {
        int first = -1, last = -1;
        for (int y = from; y < to; y++) {
            if (near(at(x, y), colour)) {
                if (first < 0) first = y;
                last = y + 1;
            }
        }
        return {first, last};
    }
    std::unique_ptr<HudWindow> window;
    std::unique_ptr<Player> player;
};

TEST(HudMeasures, ScoreTargetIsTheHiScoreUntilBeatenThenTheParIfAhead)
{
    EXPECT_EQ(scoreBarTarget(0, 0, 0), 1.0f);  // nothing to beat: full at once
    EXPECT_EQ(scoreBarTarget(100, 500, 1000), 500.0f);
    EXPECT_EQ(scoreBarTarget(500, 500, 1000), 500.0f);  // equal is not beaten
    EXPECT_EQ(scoreBarTarget(501, 500, 1000), 1000.0f);
    EXPECT_EQ(scoreBarTarget(501, 500, 400), 500.0f);   // par behind: stays full
    EXPECT_EQ(scoreBarTarget(3, 0, 1000), 1000.0f);
}

TEST(HudMeasures, BarWidthsForKnownValues)
{
    EXPECT_FLOAT_EQ(comboBarWidth(0), 0);
    EXPECT_FLOAT_EQ(comboBarWidth(2), 50);
    EXPECT_FLOAT_EQ(comboBarWidth(100), 210);
    EXPECT_FLOAT_EQ(scoreBarWidth(500, 1000), 105);
    EXPECT_FLOAT_EQ(scoreBarWidth(2000, 1000), 210);
    EXPECT_FLOAT_EQ(disturbBarWidth(200), 210);
    EXPECT_FLOAT_EQ(balanceBarRedWidth(4), 0);
    EXPECT_FLOAT_EQ(balanceBarRedWidth(3), 96);
    EXPECT_FLOAT_EQ(balanceBarRedWidth(0), 384);
}

TEST(HudMeasures, StatBarPartsClipAtTheTop)
{
    StatBarParts parts = statBarParts(75, 30);
    EXPECT_FLOAT_EQ(parts.permanent, 75);
    EXPECT_FLOAT_EQ(parts.temporary, 30);
    EXPECT_FLOAT_EQ(parts.rest, 45);
    parts = statBarParts(225, 30);  // past its scale: no room for the bonus
    EXPECT_FLOAT_EQ(parts.permanent, 150);
    EXPECT_FLOAT_EQ(parts.temporary, 0);
    EXPECT_FLOAT_EQ(parts.rest, 0);
    parts = statBarParts(-10, 200);
    EXPECT_FLOAT_EQ(parts.permanent, 0);
    EXPECT_FLOAT_EQ(parts.temporary, 150);
}

TEST_F(HudBars, ComboBarGrowsLeftwardFromItsRightEnd)
{
    // Row 92 lies inside the bar (55 to 95) and below its texts.
    for (float timer : {2.0f, 4.0f, 6.0f}) {
        player->comboTimer = timer;
        draw();
        float w = 25 * timer;
        auto greenPart = spanOf(green, 92, 440, 680);
        EXPECT_NEAR(greenPart.first, 660 - w, 1) << timer;
        EXPECT_NEAR(greenPart.second, 660, 1) << timer;
        auto whitePart = spanOf(white, 92, 440, 680);
        EXPECT_NEAR(whitePart.first, 450, 1) << timer;
        EXPECT_NEAR(whitePart.second, 660 - w, 1) << timer;
    }
    player->comboTimer = 0;
    draw();
    EXPECT_EQ(spanOf(green, 92, 440, 680).first, -1);
}

TEST_F(HudBars, ScoreBarMeasuresAgainstTheHiScoreFromRedThroughYellowToGreen)
{
    player->hiScore = 1000;
    player->parScore = 0;
    player->score = player->shownScore = 500;
    draw();
    // Row 52: inside the bar (15 to 55), below the score's digits.
    auto yellowPart = spanOf(Pixel{255, 255, 0}, 52, 560, 800);
    EXPECT_NEAR(yellowPart.first, 785 - 105, 1);
    EXPECT_NEAR(yellowPart.second, 785, 1);
    EXPECT_NEAR(spanOf(white, 52, 560, 800).second, 785 - 105, 1);

    player->score = player->shownScore = 250;  // a quarter: half way to yellow
    draw();
    Pixel quarter = at(780, 52);
    EXPECT_EQ(quarter.r, 255);
    EXPECT_NEAR(quarter.g, 128, 2);
    EXPECT_EQ(quarter.b, 0);

    player->score = player->shownScore = 1000;
    draw();
    EXPECT_NEAR(spanOf(green, 52, 560, 800).first, 575, 1);
}

TEST_F(HudBars, ScoreBarIsFullAndGreenFromTheFirstPointWithNothingToBeat)
{
    player->hiScore = 0;
    player->parScore = 0;
    player->score = player->shownScore = 1;
    draw();
    auto greenPart = spanOf(green, 52, 560, 800);
    EXPECT_NEAR(greenPart.first, 575, 1);
    EXPECT_NEAR(greenPart.second, 785, 1);
}

TEST_F(HudBars, StatBarsStackPermanentThenTemporaryFromTheBottom)
{
    player->bank->damage = 10;       // 75 units
    player->bank->tempDamage = 4;    // 30 units
    player->bank->range = 280;       // 75
    player->bank->tempRange = 0;
    player->bank->reload = 51.25f;   // 75, the scale runs backwards
    player->bank->tempReload = -19.5f;  // 30
    draw();
    // Columns right of the vertical labels (which end 3 + 23 units in).
    auto full = spanDown(red, 478, 370, 540);
    EXPECT_NEAR(full.first, 455, 1);
    EXPECT_NEAR(full.second, 530, 1);
    auto light = spanDown(Pixel{255, 128, 128}, 478, 370, 540);
    EXPECT_NEAR(light.first, 425, 1);
    EXPECT_NEAR(light.second, 455, 1);
    EXPECT_NEAR(spanDown(white, 478, 370, 540).second, 425, 1);

    EXPECT_NEAR(spanDown(green, 538, 370, 540).first, 455, 1);
    EXPECT_EQ(spanDown(Pixel{128, 255, 128}, 538, 370, 540).first, -1);

    EXPECT_NEAR(spanDown(Pixel{0, 0, 255}, 598, 370, 540).first, 455, 1);
    EXPECT_NEAR(spanDown(Pixel{128, 128, 255}, 598, 370, 540).first, 425, 1);
}

TEST_F(HudBars, AStatPastItsScaleLeavesNoRoomForTheBonus)
{
    player->bank->damage = 30;
    player->bank->tempDamage = 4;
    draw();
    auto full = spanDown(red, 478, 370, 540);
    EXPECT_NEAR(full.first, 380, 1);
    EXPECT_EQ(spanDown(Pixel{255, 128, 128}, 478, 370, 540).first, -1);
}

TEST_F(HudBars, BalanceBarIsRedForWhatStandingCannonsCost)
{
    // Row 541: inside the bar (540 to 570), above its texts and the plates.
    for (float rate : {3.0f, 1.0f, 4.0f}) {
        player->bank->resourceRate = rate;
        draw();
        float w = 96 * (4 - rate);
        if (w > 0) {
            auto redPart = spanOf(red, 541, 10, 410);
            EXPECT_NEAR(redPart.first, 18, 1) << rate;
            EXPECT_NEAR(redPart.second, 18 + w, 1) << rate;
        } else {
            EXPECT_EQ(spanOf(red, 541, 10, 410).first, -1);
        }
        auto greenPart = spanOf(green, 541, 10, 410);
        EXPECT_NEAR(greenPart.first, 18 + w, 1) << rate;
        EXPECT_NEAR(greenPart.second, 402, 1) << rate;
    }
}

TEST_F(HudBars, TimedUpgradeBarsFillFromTheBottom)
{
    player->bank->panel->chainFrames = 450;  // half of 900
    player->bank->panel->boostFrames = 600;  // full
    draw();
    auto chain = spanDown(Pixel{128, 255, 0}, 645, 370, 540);
    EXPECT_NEAR(chain.first, 455, 1);
    EXPECT_NEAR(chain.second, 530, 1);
    EXPECT_NEAR(spanDown(Pixel{128, 255, 0}, 705, 370, 540).first, 380, 1);
}

TEST_F(HudBars, RowProgressAndShareSlider)
{
    UpgradePanel& panel = *player->bank->panel;
    panel.permanentProgress = 0.5f;  // 112.5 of 225
    panel.temporaryProgress = 0.2f;  // 45
    panel.share = 25;                // slider level at 45 of 180
    draw();
    // The header rows (150 and 270) carry their labels in the first units
    // and the arrows near the left end: read the right part of the fill.
    EXPECT_NEAR(spanOf(green, 176, 540, 690).second, 562.5f, 1);
    EXPECT_NEAR(spanOf(green, 296, 440, 690).second, 495, 1);
    // Above the level yellow-white, below it pink.
    Pixel upper = at(725, 170);
    EXPECT_EQ(upper.r, 255);
    EXPECT_EQ(upper.g, 255);
    EXPECT_NEAR(upper.b, 96, 2);  // 0.375
    Pixel lower = at(725, 250);
    EXPECT_EQ(lower.r, 255);
    EXPECT_NEAR(lower.g, 32, 2);  // 0.125
    EXPECT_NEAR(spanDown(Pixel{255, 255, 96}, 735, 140, 340).second, 195, 1);
}

TEST_F(HudBars, UpgradeBoxesSlideForwardAndTheLastOneGrowsAsItEnters)
{
    UpgradePanel& panel = *player->bank->panel;
    for (size_t i = 0; i < panel.permanent.size(); i++) {
        panel.permanent[i]->kind = 0;
        panel.permanent[i]->red = 1;
        panel.permanent[i]->green = panel.permanent[i]->blue = 0;
        panel.permanent[i]->slot = static_cast<float>(i);
    }
    panel.permanent[4]->slot = 4.01f;  // one step from 4.0: half grown
    // The first box's slide is done: it stays at its index.
    draw();
    EXPECT_FLOAT_EQ(panel.permanent[0]->slot, 0);
    EXPECT_NEAR(panel.permanent[4]->slot, 4.0f, 1e-5);
    // Five red boxes; the last is 25 wide.
    auto row = spanOf(red, 195, 440, 690);
    EXPECT_NEAR(row.first, 450, 1);
    EXPECT_NEAR(row.second, 675, 1);

    // A box far behind slides 0.01 per drawn frame and shows from 4.5 on.
    panel.permanent[4]->slot = 4.6f;
    draw();
    EXPECT_NEAR(panel.permanent[4]->slot, 4.59f, 1e-5);
    EXPECT_NEAR(spanOf(red, 195, 440, 690).second, 650, 1);
    for (int i = 0; i < 20; i++) draw();
    EXPECT_NEAR(panel.permanent[4]->slot, 4.39f, 1e-4);
    auto entering = spanOf(red, 195, 655, 690);  // 5.5 wide, ending at the row's end
    EXPECT_NEAR(entering.first, 669.5f, 1);
    EXPECT_NEAR(entering.second, 675, 1);
}

TEST_F(HudBars, ProgressStripSinksOverTheStage)
{
    replaceTexture(player->bank->progressTexture, makeFlatTexture(255, 0, 255, 255));
    const Level& level = *player->level;
    float total = static_cast<float>((level.waveFrames + level.pauseFrames) * level.waveCount);
    player->level->frame = static_cast<uint32_t>(total / 2);
    draw();
    // Right of the vertical label, above the balance bar.
    float y = 402 + 128 * player->level->frame / total;
    EXPECT_NEAR(spanDown(Pixel{255, 0, 255}, 46, 380, 540).first, y, 1);
}

TEST_F(HudBars, SurvivalHasNoProgressStrip)
{
    auto survivor = std::make_unique<Player>(0, true, window->mapPath().c_str(), 1);
    flattenHudPictures(*survivor);
    replaceTexture(survivor->bank->progressTexture, makeFlatTexture(255, 0, 255, 255));
    draw(*survivor);
    EXPECT_EQ(spanDown(Pixel{255, 0, 255}, 46, 380, 540).first, -1);
}

TEST_F(HudBars, ScoreSignsShowWithTheirSlideAsOpacity)
{
    ScoreSigns& signs = player->scoreSigns;
    replaceTexture(signs.sign1Texture, makeFlatTexture(255, 0, 255, 255));
    signs.sign1X = 430;  // right of the field, over the cleared background
    signs.sign1Slide = 1;
    draw();
    auto sign = spanOf(Pixel{255, 0, 255}, 30, 410, 570);
    EXPECT_NEAR(sign.first, 430, 1);
    EXPECT_NEAR(sign.second, 526, 1);

    signs.sign1Slide = 0.5f;  // half over black
    draw();
    EXPECT_NEAR(at(480, 30).r, 128, 2);
    EXPECT_EQ(at(480, 30).g, 0);

    signs.sign1Slide = 0;  // at 0 it is not drawn
    draw();
    EXPECT_EQ(at(480, 30).r, 0);
}

}  // namespace
