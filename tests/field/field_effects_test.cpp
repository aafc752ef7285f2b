// What lies over the lit field, read back from the back buffer: bolts where
// their geometry says, in their layers; marks burnt into the ground for good;
// the machines rising; the full-field passes.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <memory>

#include "field_window.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "sim/cannon.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"

namespace {

class FieldEffects : public ::testing::Test {
protected:
    void SetUp() override
    {
        window = std::make_unique<FieldWindow>();
        player = std::make_unique<Player>(0, false, mapPath(1).c_str(), 1);
        emptyField(*player->level);
    }
    void TearDown() override
    {
        player.reset();
        window.reset();
    }
    FieldPicture draw()
    {
        player->drawField();
        return FieldPicture();
    }

    std::unique_ptr<FieldWindow> window;
    std::unique_ptr<Player> player;
};

// A cleared field corner to draw single records into.
void clearField()
{
    glViewport(0, 0, fieldWidth, fieldHeight);
    setOrtho(fieldWidth, fieldHeight);
    glClear(GL_COLOR_BUFFER_BIT);
}

}  // namespace

TEST_F(FieldEffects, ThinBoltIsALineBetweenItsEnds)
{
    FieldPicture before = draw();
    player->level->bolts.push_back(Bolt(0, 1, 0, 40, 100.5f, 340, 100.5f, 10, false));
    FieldPicture after = draw();
    for (int x : {60, 190, 320}) {
        Rgb on = after.at(x, 100);
        EXPECT_GT(on.g, 200) << x;
        EXPECT_LT(on.r + on.b, 60) << x;
        EXPECT_EQ(after.at(x, 104).sum(), before.at(x, 104).sum()) << x;
    }
    // Past its ends the ground is untouched.
    EXPECT_EQ(after.at(20, 100).sum(), before.at(20, 100).sum());
    EXPECT_EQ(after.at(360, 100).sum(), before.at(360, 100).sum());
}

TEST_F(FieldEffects, FadedBoltBlendsWithTheGround)
{
    FieldPicture before = draw();
    Bolt bolt(0, 1, 0, 40, 100.5f, 340, 100.5f, 10, false);
    bolt.framesLeft = 5;  // half its life: alpha 0.5
    player->level->bolts.push_back(bolt);
    Rgb ground = before.at(190, 100);
    Rgb on = draw().at(190, 100);
    EXPECT_NEAR(on.g, (ground.g + 255) / 2, 12);
    EXPECT_NEAR(on.r, ground.r / 2, 12);
}

TEST_F(FieldEffects, WideBoltGlowsAlongItsSpineOnly)
{
    FieldPicture before = draw();
    player->level->bolts.push_back(Bolt(0.2f, 0.4f, 1, 100, 300, 100, 400, 20, true));
    FieldPicture after = draw();
    Rgb spine = after.at(100, 350);
    Rgb groundThere = before.at(100, 350);
    EXPECT_GT(spine.b - groundThere.b, 40);
    // Sideways the glow fades out within a step of 15 units.
    EXPECT_EQ(after.at(120, 350).sum(), before.at(120, 350).sum());
    EXPECT_EQ(after.at(100, 420).sum(), before.at(100, 420).sum());
}

TEST_F(FieldEffects, ThinBoltsOnlyInTheSecondLayer)
{
    clearField();
    Bolt thin(1, 0, 0, 10, 10.5f, 200, 10.5f, 10, false);
    thin.draw(false);
    EXPECT_EQ(FieldPicture().at(100, 10).sum(), 0);
    thin.draw(true);
    EXPECT_GT(FieldPicture().at(100, 10).r, 200);

    clearField();
    Bolt wide(1, 1, 1, 100, 100, 100, 300, 10, true);
    wide.draw(false);
    EXPECT_GT(FieldPicture().at(100, 200).sum(), 30);
    setOrtho(800, 600);
}

TEST_F(FieldEffects, MarksBurnIntoTheGroundForGood)
{
    FieldPicture before = draw();
    player->sparks.push_back(Spark(100, 100, 8));  // a blot: one frame
    Spark droplet(200, 200);
    droplet.dx = droplet.dy = 0;
    droplet.framesLeft = 16;  // marks at 15 and at 0
    player->sparks.push_back(droplet);

    draw();
    EXPECT_EQ(player->sparks.size(), 1u);  // the blot is spent at once
    FieldPicture later = draw();
    EXPECT_LT(later.at(100, 100).sum(), before.at(100, 100).sum() * 3 / 4);
    EXPECT_EQ(later.at(112, 100).sum(), before.at(112, 100).sum());
    // The droplet's first dot; it stays after the droplet is gone.
    EXPECT_LT(later.at(200, 200).g + later.at(200, 200).b,
              before.at(200, 200).g + before.at(200, 200).b);
    for (int i = 0; i < 20 && !player->sparks.empty(); ++i) draw();
    EXPECT_TRUE(player->sparks.empty());
    EXPECT_LT(draw().at(100, 100).sum(), before.at(100, 100).sum() * 3 / 4);
}

TEST_F(FieldEffects, CannonsRiseIntoTheField)
{
    raiseCannons(*player, 1);
    const int x = player->bank->cannons.at(0)->x;
    player->bank->progress = 0;
    FieldPicture down = draw();
    player->bank->progress = 100;
    FieldPicture up = draw();
    std::vector<Cannon*> none;
    std::swap(player->bank->cannons, none);
    FieldPicture empty = draw();
    std::swap(player->bank->cannons, none);
    // The base stands from y 495 to 521 when up; at 540 it is below the edge.
    EXPECT_NE(up.at(x, 500).sum(), empty.at(x, 500).sum());
    EXPECT_EQ(down.at(x - 20, 500).sum(), empty.at(x - 20, 500).sum());
}

TEST_F(FieldEffects, ReticleShowsOnlyWhenClose)
{
    FieldPicture before = draw();
    Reticle& reticle = player->bank->reticle;
    reticle.x = 200;
    reticle.y = 200;
    reticle.angle = 0;
    reticle.size = 31;
    EXPECT_EQ(draw().at(220, 200).sum(), before.at(220, 200).sum());
    reticle.size = 15;  // fully opaque, bars 15 out
    Rgb bar = draw().at(215, 200);
    EXPECT_GT(bar.r, 200);
    EXPECT_LT(bar.g + bar.b, 30);
}

TEST_F(FieldEffects, FullFieldPassesChangeThePicture)
{
    FieldPicture plain = draw();
    player->blastGlow = 200;
    FieldPicture hurt = draw();
    player->blastGlow = 0;
    player->enemyDisturbCharge = 150;
    player->frame = 77;
    FieldPicture disturbed = draw();
    int hurtDiff = 0, disturbDiff = 0;
    for (int y = 0; y < fieldHeight; y += 16)
        for (int x = 0; x < fieldWidth; x += 16) {
            hurtDiff += hurt.at(x, y).sum() != plain.at(x, y).sum();
            disturbDiff += disturbed.at(x, y).sum() != plain.at(x, y).sum();
        }
    EXPECT_GT(hurtDiff, 100);
    EXPECT_GT(disturbDiff, 10);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}
