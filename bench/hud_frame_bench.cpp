// Milliseconds of one drawn play frame on the test backend's real GL context:
// the HUD of each side alone (drawView), and the whole frame (drawField of
// each side, the clear, drawView of each side), at 1000 x 600 and 1920 x 1080,
// one side and two, some way into a game with the field well filled. Each
// case opens its own window and closes it again, so the benchmarks after it
// find no window of its size left behind. glFinish ends every frame: the
// figure is the finished picture, not the queued commands.
#include <GL/glew.h>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <fcntl.h>
#include <memory>
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

namespace {

// Logs of the shader builds and of missing pictures stay out of the report.
class Quiet {
public:
    Quiet() : savedOut(dup(1)), savedErr(dup(2))
    {
        std::fflush(stdout);
        std::fflush(stderr);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, 1);
        dup2(nowhere, 2);
        close(nowhere);
    }
    ~Quiet()
    {
        std::fflush(stdout);
        std::fflush(stderr);
        dup2(savedOut, 1);
        dup2(savedErr, 2);
        close(savedOut);
        close(savedErr);
    }

private:
    int savedOut, savedErr;
};

// A window of the size with everything a game draws with, and its sides
// some 40 seconds into a stage (one side) or a two-player game, with extra
// enemies on top of what the waves brought.
class PlayStage {
public:
    PlayStage(int width, int height, int sides)
    {
        Quiet quiet;
        if (chdir(GORVAN_RUN_DIR) != 0) return;
        testBackend::reset();
        glfwInit();
        glfwOpenWindowHint(GLFW_FSAA_SAMPLES, 2);
        glfwOpenWindow(width, height, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
        setScreenSize(-1, -1);
        glewInit();
        initAudio();
        loadBasicProgram();
        loadShaders(nullptr);
        loadFont();
        loadPanelButtonTexture();
        createScreenTexture();
        seedRandom(7);
        generateTextures(nullptr);
        setOrtho(800, 600);
        const char* map = "content/maps/map1.txt";
        if (sides == 1) {
            left = std::make_unique<Player>(0, false, map, 1);
        } else {
            left = std::make_unique<Player>(1, true, map, 1);
            right = std::make_unique<Player>(2, true, map, 1);
        }
        for (Player* player : {left.get(), right.get()}) {
            if (!player) continue;
            player->bank->setCannons(3);
            for (int frame = 0; frame < 2400; frame++) player->update();
            for (int i = 0; i < 30; i++) player->level->spawnEnemy(0, false);
            player->comboTimer = 3;
            player->combo = 40;
        }
    }
    ~PlayStage()
    {
        Quiet quiet;
        left.reset();
        right.reset();
        freeSurfaceData();
        deletePanelButtonTexture();
        deleteFont();
        deleteScreenTextures();
        shutdownAudio();
        glfwTerminate();
        testBackend::reset();
    }
    void drawViews()
    {
        left->drawView();
        if (right) right->drawView();
    }
    void drawFrame()
    {
        left->drawField();
        if (right) right->drawField();
        glClear(GL_COLOR_BUFFER_BIT);
        drawViews();
    }

private:
    std::unique_ptr<Player> left, right;
};

// Arguments: window width, height, sides (1 or 2), whole frame (1) or the
// HUD alone (0).
void BM_PlayFrame(benchmark::State& state)
{
    PlayStage stage(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                    static_cast<int>(state.range(2)));
    const bool whole = state.range(3) != 0;
    stage.drawFrame();  // the field textures hold a picture before the HUD alone is timed
    glFinish();
    for (auto _ : state) {
        if (whole)
            stage.drawFrame();
        else
            stage.drawViews();
        glFinish();
    }
}
BENCHMARK(BM_PlayFrame)
    ->ArgNames({"w", "h", "sides", "whole"})
    ->Args({1000, 600, 1, 0})
    ->Args({1000, 600, 2, 0})
    ->Args({1920, 1080, 1, 0})
    ->Args({1920, 1080, 2, 0})
    ->Args({1000, 600, 1, 1})
    ->Args({1000, 600, 2, 1})
    ->Args({1920, 1080, 1, 1})
    ->Args({1920, 1080, 2, 1})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

}  // namespace
