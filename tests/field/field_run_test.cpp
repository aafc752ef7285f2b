// Whole games drawn frame by frame: every field pass of a few hundred rounds
// of play, with lightning, blasts and both sides, leaves no GL error and a
// clean stencil.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <algorithm>
#include <memory>

#include "field_window.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"
#include "sound/sound.h"

namespace {

bool stencilClean()
{
    std::vector<uint8_t> stencil = readFieldStencil();
    return std::all_of(stencil.begin(), stencil.end(), [](uint8_t v) { return v == 0; });
}

}  // namespace

TEST(FieldRun, HardMapDrawnEveryRoundWithoutGlErrors)
{
    FieldWindow window;
    Player player(0, true, mapPath(20).c_str(), 20);
    testBackend::setKey('3', true);  // three cannons
    unsigned errors = 0, dirtyStencils = 0;
    size_t mostEnemies = 0;
    for (int round = 1; round <= 600; ++round) {
        player.update();
        if (round % 97 == 0) player.arcOrders.push_back(ArcOrder{6, 192, 300});
        if (round == 300) {
            player.level->blastAllEnemies();
            player.lights.push_back(PointLight(player.level, 7.0f, 0, 0, 192, 600, 400, 250));
            player.blastGlow = 220;
        }
        player.drawField();
        errors += glGetError() != GL_NO_ERROR;
        if (round % 50 == 0) dirtyStencils += !stencilClean();
        size_t live = static_cast<size_t>(std::count_if(
            player.level->enemies.begin(), player.level->enemies.end(),
            [](const Enemy* e) { return e != nullptr; }));
        mostEnemies = std::max(mostEnemies, live);
    }
    EXPECT_EQ(errors, 0u);
    EXPECT_EQ(dirtyStencils, 0u);
    EXPECT_EQ(player.bank->cannons.size(), 3u);
    EXPECT_GT(mostEnemies, 0u);
}

TEST(FieldRun, TwoPlayerGameThroughTheGameLoop)
{
    FieldWindow window;
    Sound music("content/music/Fennick - The Race.ogg", true, true);
    testBackend::keyAt(20, '3', true);
    testBackend::closeAt(400);
    Game game(&music, 2, true, mapPath(12).c_str(), 12);
    EXPECT_EQ(game.framesPlayed, 400u);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_TRUE(stencilClean());
}
