// Pictures of the field to look at, not checks: run with
// --gtest_also_run_disabled_tests; the PNGs land in the build's
// field_pictures/ folder.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <filesystem>
#include <memory>

#include "field_window.h"
#include "platform/testing/test_backend.h"
#include "sim/cannon.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"

namespace {

std::string picturePath(const char* name)
{
    const std::filesystem::path folder = std::filesystem::path(GORVAN_BINARY_DIR) / "field_pictures";
    std::filesystem::create_directories(folder);
    return (folder / name).string();
}

}  // namespace

TEST(FieldPictures, DISABLED_EarlyAndLatePlay)
{
    FieldWindow window;
    Player player(0, true, mapPath(20).c_str(), 20);
    testBackend::setKey('3', true);
    for (int round = 1; round <= 260; ++round) {
        player.update();
        player.drawField();
    }
    ASSERT_TRUE(saveCornerPng(picturePath("early.png"), fieldWidth, fieldHeight));

    for (int round = 1; round <= 1500; ++round) {
        player.update();
        if (round > 1450 && round % 10 == 0) player.arcOrders.push_back(ArcOrder{8, 192, 250});
        if (round == 1480) {
            player.level->blastAllEnemies();
            player.lights.push_back(PointLight(player.level, 7.0f, 0, 0, 192, 600, 400, 250));
            player.blastGlow = 220;
        }
        if (round > 1400) player.drawField();
    }
    ASSERT_TRUE(saveCornerPng(picturePath("late.png"), fieldWidth, fieldHeight));
}

TEST(FieldPictures, DISABLED_OneShadow)
{
    FieldWindow window;
    Player player(0, false, mapPath(1).c_str(), 1);
    emptyField(*player.level);
    player.lightDirection[0] = 1;
    player.lightDirection[1] = 0;
    player.lightDirection[2] = 0.5f;
    addEnemy(*player.level, 192, 256, 8);
    player.drawField();
    ASSERT_TRUE(saveCornerPng(picturePath("shadow_lit.png"), fieldWidth, fieldHeight));
    player.lightColor[0] = player.lightColor[1] = player.lightColor[2] = 0;
    player.drawField();
    ASSERT_TRUE(saveCornerPng(picturePath("shadow_ambient.png"), fieldWidth, fieldHeight));
}
