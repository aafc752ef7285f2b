// Where the time of a drawn frame goes: the field pictures alone (drawField
// of each side) in the scenes of play_stage.h, and single passes of the
// field's chain, each timed alone in the field's corner. glFinish ends every
// step: the figure is the finished picture.
#include <GL/glew.h>
#include <benchmark/benchmark.h>

#include "play_stage.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"

namespace {

// Arguments: window width, height, sides (1 or 2), moment (0 early, 1 late, 2 blast).
void BM_FieldPictures(benchmark::State& state)
{
    PlayStage stage(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                    static_cast<int>(state.range(2)), static_cast<Moment>(state.range(3)));
    stage.drawFields();
    glFinish();
    for (auto _ : state) {
        stage.drawFields();
        glFinish();
    }
}
BENCHMARK(BM_FieldPictures)
    ->ArgNames({"w", "h", "sides", "moment"})
    ->ArgsProduct({{1000}, {600}, {1, 2}, {0, 1, 2}})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// One step of the chain alone, late in a blast: 0 a 512 x 512 copy of the
// corner, 1 a ground quad through `basic`, 2 the directional light, 3 a spot
// light, 4 a point light, 5 the blast's glow pass, 6 the disturbance pass,
// 7 the shadows of all enemies for one point light, 8 the bolts, 9 the
// machines, 10 the ambient quad plus the enemies.
void BM_FieldStep(benchmark::State& state)
{
    PlayStage stage(1000, 600, 1, Moment::blast);
    Player& player = stage.first();
    stage.drawFields();
    glViewport(0, 0, 384, 512);
    setOrtho(384, 512);
    const int step = static_cast<int>(state.range(0));
    glFinish();
    for (auto _ : state) {
        switch (step) {
        case 0:
            glBindTexture(GL_TEXTURE_2D, player.fieldTexture);
            glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 0, 0, 512, 512, 0);
            break;
        case 1: drawTexturedRect(player.sceneTexture, 0, 0, 512, 512); break;
        case 2:
            useEnvLight(0.7f, 0.6f, 0.7f, 1, 1, 1);
            drawTexturedRect(player.sceneTexture, 0, 0, 512, 512);
            break;
        case 3:
            useSpotLight(192, 485, -1.5f, 270, 1.1f, 1, 0.9f);
            drawRect(0, 0, 512, 512);
            break;
        case 4:
            usePointLight(192, 300, 200, 1, 1, 1);
            drawRect(0, 0, 512, 512);
            break;
        case 5:
            useHurt(150);
            drawTexturedRegion(player.fieldTexture, 0, 0, 384, 512, 0, 0.75f, 0, 1);
            break;
        case 6:
            useDisturb(150, 77);
            drawTexturedRegion(player.fieldTexture, 0, 0, 384, 512, 0, 0.75f, 0, 1);
            break;
        case 7:
            glEnable(GL_STENCIL_TEST);
            useProgram(shadowProgram);
            glColorMask(0, 0, 0, 0);
            glStencilFunc(GL_ALWAYS, 0, 0xFF);
            glStencilOp(GL_REPLACE, GL_REPLACE, GL_REPLACE);
            player.level->drawPointShadows(192, 485, 400);
            glColorMask(1, 1, 1, 1);
            glDisable(GL_STENCIL_TEST);
            break;
        case 8: player.level->drawBolts(); break;
        case 9: player.bank->drawMachines(); break;
        case 10:
            glColor4f(0.3f, 0.3f, 0.3f, 1);
            drawTexturedRect(player.sceneTexture, 0, 0, 512, 512);
            glColor4f(1, 1, 1, 1);
            player.level->drawEnemies();
            break;
        }
        useProgram(basicProgram);
        glFinish();
    }
    setOrtho(800, 600);
}
BENCHMARK(BM_FieldStep)
    ->ArgNames({"step"})
    ->DenseRange(0, 10)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);

}  // namespace
