// Scenes set by hand: Players whose field and HUD hold every kind of thing
// they can show at once, drawn as a frame of the game draws them and compared
// with reference pictures under the strict tolerance; beside them what a
// picture can't pin: the stencil back at zero, the drawing state put back,
// the slide of the boxes, and the measures of the bars.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <algorithm>
#include <array>
#include <vector>

#include "reference_picture.h"
#include "render/hud_layout.h"
#include "sim/cannon.h"
#include "sim/cannon_bank.h"
#include "sim/enemy.h"
#include "sim/level.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"
#include "support/drawing_state.h"
#include "support/play_session.h"

namespace {

// The level's enemies and bolts replaced by these enemies (x, y, size).
void setEnemies(Level& level, std::initializer_list<std::array<float, 3>> enemies)
{
    for (Enemy*& enemy : level.enemies) delete enemy;
    level.enemies.clear();
    level.bolts.clear();
    for (const auto& [x, y, size] : enemies) level.enemies.push_back(new Enemy{x, y, 0, size, 1, 1, 1});
}

// Runs the bank until its row of n cannons stands.
void raiseRow(Player& player, uint8_t n)
{
    player.bank->setCannons(n);
    for (int i = 0; i < 400 && !(player.bank->progress == 100 && player.bank->cannons.size() == n); ++i)
        player.bank->update();
}

TEST(Scenes, OneSideWithEveryLightBoltMarkAndBar)
{
    PlaySession session;
    session.open(4);
    const std::string map = pinMap("hard.txt", 20);
    Player player(0, false, map.c_str(), 20);
    Level& level = *player.level;
    CannonBank& bank = *player.bank;
    raiseRow(player, 3);  // before there is anything to shoot at

    // The field: light from the right and up the screen; enemies in front of
    // the middle lamp, below a point light and exactly at its radius; a thin
    // bolt, a cannon's wide one; a blot and a droplet that burn marks; a
    // closing reticle and a shard. No noise: the strict tolerance holds.
    const float light[9] = {0.8f, 0.5f, 0.6f, 0.9f, 0.8f, 0.6f, 0.3f, 0.28f, 0.25f};
    std::copy_n(light, 3, player.lightDirection);
    std::copy_n(light + 3, 3, player.lightColor);
    std::copy_n(light + 6, 3, player.ambient);
    const float angles[3] = {-1.2f, -1.5707964f, -2.1f};
    for (int i = 0; i < 3; i++) {
        bank.cannons[i]->angle = angles[i];
        bank.cannons[i]->range = 320;
    }
    setEnemies(level, {{192, 430, 8}, {100, 140, 8}, {100, 200, 6}, {300, 110, 16}, {60, 320, 8},
                       {330, 260, 12}});
    player.lights.push_back(PointLight(&level, 4, 3, 2, 100, 100, 100, 50));
    player.lights.push_back(PointLight(&level, 0, 0, 40, 280, 380, 120, 165));
    player.lights.back().framesLeft = 80;
    level.bolts.push_back(Bolt(0, 1, 0, 40, 60.5f, 340, 60.5f, 10, false));
    bank.cannons[2]->bolts.push_back(Bolt(0.3f, 0.5f, 1, bank.cannons[2]->x, 505, 360, 300, 100, true));
    player.sparks.push_back(Spark(150, 470, 8));
    Spark droplet(250, 150);
    droplet.dx = 1.5f, droplet.dy = -1, droplet.framesLeft = 16;  // marks at 15 and at 0
    player.sparks.push_back(droplet);
    bank.reticle = Reticle{300, 420, 20, 0.3f};
    player.shards.add(220, 330);

    // The HUD: combo and score bars, stat bars with their bonus, the panel's
    // rows, arrows, slider, timed bars and boxes mid-slide, signs, the
    // "Speed up!" sign blinking, the stage's progress half done.
    player.comboTimer = 3.3f, player.combo = 12;
    player.score = 1500, player.shownScore = 1400, player.hiScore = 2000;
    bank.damage = 10, bank.tempDamage = 4, bank.range = 280, bank.reload = 51.25f, bank.tempReload = -19.5f;
    bank.resourceRate = 2.5f, bank.permanentShare = 30, bank.wantedCannons = 3;
    UpgradePanel& panel = *bank.panel;
    panel.permanentProgress = 0.5f, panel.temporaryProgress = 0.2f, panel.share = 30;
    panel.chainFrames = 450, panel.boostFrames = 200;
    panel.permanent[3]->slot = 3.6f;
    panel.permanent[4]->slot = 4.3f;
    panel.temporary.push_back(new Upgrade(10, 0));
    panel.temporary.push_back(new Upgrade(9, 1.5f));
    player.scoreSigns.sign1X = 100, player.scoreSigns.sign1Slide = 0.6f;
    player.scoreSigns.sign2X = 250, player.scoreSigns.sign2Slide = 1;
    player.frame = 10;
    level.frame = static_cast<uint32_t>((level.waveFrames + level.pauseFrames) * level.waveCount / 2);

    player.drawField();
    player.drawField();  // the marks of the first frame are part of the ground now
    EXPECT_TRUE(fieldStencilClean());
    expectCommonDrawingState();
    glClear(GL_COLOR_BUFFER_BIT);
    player.drawView();
    expectCommonDrawingState();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    const WindowPicture picture = WindowPicture::readBack();
    EXPECT_TRUE(matchesReference(picture, "scene_one_side", sceneTolerance));
    // Enemies are black under every light; the field starts 18 units into the view.
    for (const auto& [x, y] : {std::make_pair(192, 430), std::make_pair(300, 110)}) {
        const uint8_t* p = picture.at(100 + 18 + x, 18 + y);
        EXPECT_EQ(p[0] + p[1] + p[2], 0) << x << ", " << y;
    }
    EXPECT_FLOAT_EQ(panel.permanent[3]->slot, 3.59f);  // one drawn frame of sliding
    EXPECT_EQ(player.sparks.size(), 1u);                // the blot is spent at once
}

TEST(Scenes, TwoSidesWithGlowDisturbanceAndStatic)
{
    PlaySession session;
    session.open(5, 1280, 720);
    const std::string map = pinMap("crowded.txt", 12);
    Player left(1, true, map.c_str(), 12), right(2, true, map.c_str(), 12);
    raiseRow(left, 2);
    setEnemies(*left.level, {{120, 200, 8}, {250, 330, 12}});
    setEnemies(*right.level, {{192, 300, 16}});
    // Left: a wide bolt in both layers, a blast's glow and the other side's
    // disturbance, hurt first.
    left.level->bolts.push_back(Bolt(1, 0.2f, 0.2f, 192, 600, 300, 180, 200, true));
    left.level->bolts.back().framesLeft = 150;
    left.blastGlow = 120, left.enemyDisturbCharge = 150, left.frame = 77;
    left.disturbCharge = 100, left.comboTimer = 1;
    // Right: static after a breach; the row taken down while suspended.
    right.noise = 200, right.noiseRoll = 30, right.frame = 400, right.disturbCharge = 200;
    right.bank->suspended = true, right.bank->wantedCannons = 0, right.bank->heldCannons = 2;

    left.drawField();
    right.drawField();
    EXPECT_TRUE(fieldStencilClean());
    glClear(GL_COLOR_BUFFER_BIT);
    left.drawView();
    right.drawView();
    expectCommonDrawingState();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    const WindowPicture picture = WindowPicture::readBack();
    EXPECT_TRUE(matchesReference(picture, "scene_two_sides", noisySceneTolerance));
    // Letterboxed 8:3: black bars above and below the two 4:3 halves.
    EXPECT_EQ(picture.at(640, 50)[0] + picture.at(640, 50)[1], 0);
}

TEST(Scenes, BarMeasuresForKnownValues)
{
    // The score bar measures against the hi-score until it is beaten, then
    // against the par if that is ahead; at least 1.
    EXPECT_EQ(scoreBarTarget(0, 0, 0), 1.0f);
    EXPECT_EQ(scoreBarTarget(500, 500, 1000), 500.0f);
    EXPECT_EQ(scoreBarTarget(501, 500, 1000), 1000.0f);
    EXPECT_EQ(scoreBarTarget(501, 500, 400), 500.0f);
    EXPECT_FLOAT_EQ(comboBarWidth(100), 210);
    EXPECT_FLOAT_EQ(scoreBarWidth(2000, 1000), 210);
    EXPECT_FLOAT_EQ(disturbBarWidth(100), 105);
    EXPECT_FLOAT_EQ(balanceBarRedWidth(4), 0);
    EXPECT_FLOAT_EQ(balanceBarRedWidth(0), 384);
    const StatBarParts clipped = statBarParts(225, 30), fits = statBarParts(75, 30);
    EXPECT_EQ(std::vector<float>({clipped.permanent, clipped.temporary, clipped.rest}),
              std::vector<float>({150, 0, 0}));
    EXPECT_EQ(std::vector<float>({fits.permanent, fits.temporary, fits.rest}),
              std::vector<float>({75, 30, 45}));
    EXPECT_FLOAT_EQ(statBarParts(-10, 200).temporary, 150);
}

}  // namespace
