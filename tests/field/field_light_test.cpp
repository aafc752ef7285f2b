// The light stage of the field picture, read back from the back buffer: the
// shadows fall away from their lights, the spot lights come on only with the
// row standing, and the stencil ends every frame at zero.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <algorithm>
#include <memory>

#include "field_window.h"
#include "render/field_light.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "sim/cannon.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"
#include "support/drawing_state.h"

namespace {

class FieldLight : public ::testing::Test {
protected:
    void SetUp() override
    {
        window = std::make_unique<FieldWindow>();
        player = std::make_unique<Player>(0, false, mapPath(1).c_str(), 1);
        emptyField(*player->level);
        setLight(1, 0, 0.5f, 1, 1, 1);
        player->ambient[0] = player->ambient[1] = player->ambient[2] = 0.3f;
    }
    void TearDown() override
    {
        player.reset();
        window.reset();
    }

    void setLight(float x, float y, float z, float r, float g, float b)
    {
        player->lightDirection[0] = x;
        player->lightDirection[1] = y;
        player->lightDirection[2] = z;
        player->lightColor[0] = r;
        player->lightColor[1] = g;
        player->lightColor[2] = b;
    }
    FieldPicture draw()
    {
        player->drawField();
        return FieldPicture();
    }
    // The lone cannon of a standing row, pointing straight up the field.
    Cannon& standingCannon()
    {
        raiseCannons(*player, 1);
        Cannon& cannon = *player->bank->cannons.at(0);
        cannon.angle = -1.5707964f;
        cannon.range = 300;
        return cannon;
    }

    std::unique_ptr<FieldWindow> window;
    std::unique_ptr<Player> player;
};

void expectSame(const Rgb& a, const Rgb& b, int tolerance = 2)
{
    EXPECT_NEAR(a.r, b.r, tolerance);
    EXPECT_NEAR(a.g, b.g, tolerance);
    EXPECT_NEAR(a.b, b.b, tolerance);
}

}  // namespace

TEST_F(FieldLight, DirectionalShadowFallsOnTheFarSideOfAnEnemy)
{
    // The light stands to the right: the shadow runs 40 units to the left.
    addEnemy(*player->level, 192, 256, 8);
    FieldPicture lit = draw();
    setLight(1, 0, 0.5f, 0, 0, 0);
    FieldPicture ambientOnly = draw();

    expectSame(lit.at(170, 256), ambientOnly.at(170, 256));
    expectSame(lit.at(152, 256), ambientOnly.at(152, 256));
    EXPECT_GT(lit.boxSum(214, 256), ambientOnly.boxSum(214, 256) + 20);
    EXPECT_GT(lit.boxSum(170, 280), ambientOnly.boxSum(170, 280) + 20);
    // Past the shadow's length the ground is lit again.
    EXPECT_GT(lit.boxSum(140, 256), ambientOnly.boxSum(140, 256) + 20);
}

TEST_F(FieldLight, ShadowDirectionFollowsTheLightsDepthAxis)
{
    // y points up the screen in the light's axes, so a light "up" throws the
    // shadow down the field; a steeper light throws a shorter one.
    addEnemy(*player->level, 192, 256, 8);
    setLight(0.01f, 1, 1, 1, 1, 1);
    FieldPicture lit = draw();
    setLight(0.01f, 1, 1, 0, 0, 0);
    FieldPicture ambientOnly = draw();
    expectSame(lit.at(192, 270), ambientOnly.at(192, 270));
    EXPECT_GT(lit.boxSum(192, 240), ambientOnly.boxSum(192, 240) + 20);
    EXPECT_GT(lit.boxSum(192, 285), ambientOnly.boxSum(192, 285) + 20);
}

TEST_F(FieldLight, EnemiesAreBlackUnderEveryLight)
{
    standingCannon();
    addEnemy(*player->level, 192, 420, 8);
    addEnemy(*player->level, 60, 100, 4);
    player->lights.push_back(PointLight(player->level, 0, 0, 40, 70, 110, 100, 165));
    FieldPicture picture = draw();
    for (int dx = -3; dx <= 3; ++dx)
        EXPECT_EQ(picture.at(192 + dx, 420).sum(), 0) << dx;
    EXPECT_EQ(picture.at(60, 100).sum(), 0);
    EXPECT_EQ(picture.at(61, 101).sum(), 0);
    // A pixel beside them is lit.
    EXPECT_GT(picture.at(70, 120).sum(), 60);
}

TEST_F(FieldLight, NoSpotLightBeforeTheRowStands)
{
    standingCannon();
    setLight(1, 0, 0.5f, 0, 0, 0);
    FieldPicture standing = draw();
    player->bank->progress = 99;
    FieldPicture rising = draw();
    std::vector<Cannon*> none;
    std::swap(player->bank->cannons, none);
    FieldPicture noCannons = draw();
    std::swap(player->bank->cannons, none);

    for (int y : {400, 440}) {
        EXPECT_GT(standing.boxSum(192, y), rising.boxSum(192, y) + 15) << y;
        expectSame(rising.at(192, y), noCannons.at(192, y));
    }
}

TEST_F(FieldLight, SpotLightShadowLiesBehindTheEnemy)
{
    Cannon& cannon = standingCannon();
    setLight(1, 0, 0.5f, 0, 0, 0);
    FieldPicture open = draw();
    player->bank->progress = 99;
    FieldPicture dark = draw();
    player->bank->progress = 100;
    addEnemy(*player->level, cannon.x, 440, 8);
    FieldPicture blocked = draw();

    // The lamp sits at (x, 485): the shadow runs up the field from the enemy
    // to the far square round y 395.
    for (int y : {400, 415, 430})
        expectSame(blocked.at(cannon.x, y), dark.at(cannon.x, y));
    EXPECT_GT(open.boxSum(cannon.x, 415), dark.boxSum(cannon.x, 415) + 15);
    // In front of the enemy and beyond its shadow the light still falls.
    EXPECT_GT(blocked.boxSum(cannon.x, 460), dark.boxSum(cannon.x, 460) + 15);
    EXPECT_GT(blocked.boxSum(cannon.x, 370), dark.boxSum(cannon.x, 370) + 5);
}

TEST_F(FieldLight, PointLightShadowLiesBehindTheEnemy)
{
    setLight(1, 0, 0.5f, 0, 0, 0);
    FieldPicture dark = draw();
    // A strong light at (100, 100) of radius 100 and fresh (full radius).
    player->lights.push_back(PointLight(player->level, 4, 4, 4, 100, 100, 100, 50));
    addEnemy(*player->level, 100, 140, 8);  // 40 away: a shadow below it
    FieldPicture picture = draw();
    expectSame(picture.at(100, 160), dark.at(100, 160));
    EXPECT_GT(picture.boxSum(100, 80), dark.boxSum(100, 80) + 20);
    EXPECT_GT(picture.boxSum(130, 160), dark.boxSum(130, 160) + 20);

}

// The shadow marks of one point light alone, read from the stencil.
static std::vector<uint8_t> pointShadowMarks(const Level& level, float x, float y, float radius)
{
    glViewport(0, 0, fieldWidth, fieldHeight);
    setOrtho(fieldWidth, fieldHeight);
    glClear(GL_STENCIL_BUFFER_BIT);
    glEnable(GL_STENCIL_TEST);
    castShadows(level, x, y, radius);
    glDisable(GL_STENCIL_TEST);
    useProgram(basicProgram);
    std::vector<uint8_t> marks = readFieldStencil();
    glClear(GL_STENCIL_BUFFER_BIT);
    setOrtho(800, 600);
    return marks;
}

static uint8_t markAt(const std::vector<uint8_t>& marks, int x, int y)
{
    return marks[static_cast<size_t>(fieldHeight - 1 - y) * fieldWidth + x];
}

TEST_F(FieldLight, PointShadowReachesTwiceTheDistanceAndStopsAtTheRadius)
{
    // Light at (100, 100), enemy 100 below: the outline is thrown to y 300,
    // twice its size there; exactly at the radius it still throws it.
    addEnemy(*player->level, 100, 200, 8);
    std::vector<uint8_t> marks = pointShadowMarks(*player->level, 100, 100, 100);
    EXPECT_EQ(markAt(marks, 100, 250), 1);
    EXPECT_EQ(markAt(marks, 93, 305), 1);
    EXPECT_EQ(markAt(marks, 100, 312), 0);
    EXPECT_EQ(markAt(marks, 100, 190), 0);  // the lit side of the enemy
    EXPECT_EQ(markAt(marks, 115, 300), 0);

    emptyField(*player->level);
    addEnemy(*player->level, 100, 201, 8);
    marks = pointShadowMarks(*player->level, 100, 100, 100);
    EXPECT_TRUE(std::all_of(marks.begin(), marks.end(), [](uint8_t v) { return v == 0; }));
}

TEST_F(FieldLight, StencilIsBackAtZeroAfterAFrame)
{
    auto allZero = [] {
        std::vector<uint8_t> stencil = readFieldStencil();
        return std::all_of(stencil.begin(), stencil.end(), [](uint8_t v) { return v == 0; });
    };
    // Nothing but the directional light and its shadows.
    addEnemy(*player->level, 192, 256, 8);
    addEnemy(*player->level, 10, 10, 8);
    draw();
    EXPECT_TRUE(allZero());

    // Every kind of light at once, with enemies in their reach.
    standingCannon();
    player->bank->cannons[0]->range = 500;
    for (int i = 0; i < 40; ++i) addEnemy(*player->level, 20.0f + 9 * i, 30.0f + 11 * i, 8);
    player->lights.push_back(PointLight(player->level, 7, 0, 0, 192, 600, 400, 250));
    player->lights.push_back(PointLight(player->level, 0, 0, 40, 100, 300, 100, 165));
    draw();
    EXPECT_TRUE(allZero());
}

TEST_F(FieldLight, LeavesTheCommonDrawingState)
{
    standingCannon();
    addEnemy(*player->level, 192, 256, 8);
    player->lights.push_back(PointLight(player->level, 0, 0, 40, 100, 300, 100, 165));
    player->blastGlow = 100;
    player->enemyDisturbCharge = 50;
    player->drawField();

    expectCommonDrawingState();
    GLboolean mask[4] = {};
    glGetBooleanv(GL_COLOR_WRITEMASK, mask);
    EXPECT_TRUE(mask[0] && mask[1] && mask[2] && mask[3]);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}
