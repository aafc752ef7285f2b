#include "sim_fixture.h"

#include <GL/glew.h>

#include <filesystem>
#include <fstream>

#include "base/random.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "shell/window.h"

std::string TestMap::write(int number) const
{
    std::string path = "content/maps/map" + std::to_string(number) + ".txt";
    std::ofstream out(path, std::ios::trunc);
    out << title << '\n' << speedUpFrames << '\n' << enemyHitPoints << '\n'
        << enemyHitPointsGrowth << '\n' << enemySpeed << '\n' << enemySpeedGrowth << '\n'
        << spawnInterval << '\n' << spawnIntervalGrowth << '\n' << minSpawnInterval << '\n'
        << bigEnemyPercent << '\n' << waveFrames << '\n' << pauseFrames << '\n' << waveCount
        << '\n' << directed << '\n' << damage << '\n' << reload << '\n' << range << '\n'
        << light << '\n' << parScore << '\n' << unlockPoints << '\n';
    return path;
}

void SimTest::SetUp()
{
    scratch = std::make_unique<ScratchDir>();
    std::filesystem::create_directories(scratch->path() + "/content/maps");
    testBackend::reset();
    glfwInit();
    ASSERT_TRUE(glfwOpenWindow(800, 600, 8, 8, 8, 8, 0, 8, GLFW_WINDOW));
    // A Player draws its "Speed up!" sign when it is made: GL entry points needed.
    ASSERT_EQ(glewInit(), GLEW_OK);
    setScreenSize(800, 600);
    seedRandom(1);
}

void SimTest::TearDown()
{
    glfwCloseWindow();
    glfwTerminate();
    scratch.reset();
}
