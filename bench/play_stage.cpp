#include "play_stage.h"

#include <GL/glew.h>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

#include "base/random.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/window.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"
#include "sound/sound.h"

QuietOutput::QuietOutput() : savedOut(dup(1)), savedErr(dup(2))
{
    std::fflush(stdout);
    std::fflush(stderr);
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, 1);
    dup2(nowhere, 2);
    close(nowhere);
}

QuietOutput::~QuietOutput()
{
    std::fflush(stdout);
    std::fflush(stderr);
    dup2(savedOut, 1);
    dup2(savedErr, 2);
    close(savedOut);
    close(savedErr);
}

namespace {

void playOn(Player& player, Moment moment)
{
    player.bank->setCannons(3);
    const int rounds = moment == Moment::early ? 300 : 2400;
    for (int round = 0; round < rounds; round++) player.update();
    if (moment == Moment::early) return;
    for (int i = 0; i < 40; i++) player.level->spawnEnemy(0, false);
    // Lightning fires through the update, one order every second round, with
    // its light, as after a combo of 10, 20 and 30.
    for (int i = 0; i < 3; i++) player.arcOrders.push_back(ArcOrder{3, 90.0f + 100 * i, 260});
    for (int round = 0; round < 6; round++) player.update();
    if (moment != Moment::blast) return;
    // What a used blast does in the round after the key.
    player.level->blastAllEnemies();
    player.lights.push_back(PointLight(player.level, 7.0f, 0, 0, 192, 600, 400, 250));
    player.blastGlow = 220;
}

}  // namespace

PlayStage::PlayStage(int width, int height, int sides, Moment moment, int samples)
{
    QuietOutput quiet;
    if (chdir(GORVAN_RUN_DIR) != 0) return;
    testBackend::reset();
    glfwInit();
    glfwOpenWindowHint(GLFW_FSAA_SAMPLES, samples);
    glfwOpenWindow(width, height, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
    setScreenSize(-1, -1);
    glewInit();
    initAudio();
    loadBasicProgram();
    loadShaders(nullptr);
    loadFont();
    loadPanelButtonTexture();
    createScreenTexture();
    seedRandom(11);
    generateTextures(nullptr);
    setOrtho(800, 600);
    const char* map = "content/maps/map20.txt";
    for (int side = 0; side < sides; ++side) {
        // Survival rules: the waves don't end while the late moment is reached.
        players[side] = std::make_unique<Player>(sides == 1 ? 0 : side + 1, true, map, 20);
        playOn(*players[side], moment);
    }
}

PlayStage::~PlayStage()
{
    QuietOutput quiet;
    players[0].reset();
    players[1].reset();
    freeSurfaceData();
    deletePanelButtonTexture();
    deleteFont();
    deleteScreenTextures();
    shutdownAudio();
    glfwTerminate();
    testBackend::reset();
}

int PlayStage::liveEnemies() const
{
    const auto& enemies = players[0]->level->enemies;
    return static_cast<int>(
        std::count_if(enemies.begin(), enemies.end(), [](const Enemy* e) { return e != nullptr; }));
}

int PlayStage::lights() const { return static_cast<int>(players[0]->lights.size()); }
int PlayStage::bolts() const { return static_cast<int>(players[0]->level->bolts.size()); }

void PlayStage::drawFields()
{
    for (auto& player : players)
        if (player) player->drawField();
}

void PlayStage::drawViews()
{
    for (auto& player : players)
        if (player) player->drawView();
}

void PlayStage::drawFrame()
{
    drawFields();
    glClear(GL_COLOR_BUFFER_BIT);
    drawViews();
}
