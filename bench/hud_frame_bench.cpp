// Milliseconds of one drawn play frame on the test backend's real GL context
// (Mesa's llvmpipe under Xvfb here): the whole frame as the game loop draws it
// (drawField of each side, the clear, drawView of each side) and the HUD
// alone (drawView), at 1000 x 600 and 1920 x 1080, one side and two, early,
// late and in a blast's glow on the hardest map (see play_stage.h). Each case
// opens its own window and closes it again. glFinish ends every frame: the
// figure is the finished picture, not the queued commands.
#include <GL/glew.h>
#include <benchmark/benchmark.h>

#include "play_stage.h"

namespace {

void countScene(benchmark::State& state, PlayStage& stage)
{
    state.counters["enemies"] = stage.liveEnemies();
    state.counters["lights"] = stage.lights();
    state.counters["bolts"] = stage.bolts();
}

// Arguments: window width, height, sides (1 or 2), moment (0 early, 1 late,
// 2 blast), whole frame (1) or the HUD alone (0).
void BM_PlayFrame(benchmark::State& state)
{
    PlayStage stage(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                    static_cast<int>(state.range(2)), static_cast<Moment>(state.range(3)));
    const bool whole = state.range(4) != 0;
    stage.drawFrame();  // the field textures hold a picture before the HUD alone is timed
    glFinish();
    for (auto _ : state) {
        if (whole)
            stage.drawFrame();
        else
            stage.drawViews();
        glFinish();
    }
    countScene(state, stage);
}

void frameCases(benchmark::internal::Benchmark* bench)
{
    for (int whole : {1, 0})
        for (int moment : {0, 1, 2})
            for (int sides : {1, 2}) {
                if (!whole && moment != 1) continue;  // the HUD hardly changes with the field
                bench->Args({1000, 600, sides, moment, whole});
                bench->Args({1920, 1080, sides, moment, whole});
            }
}

BENCHMARK(BM_PlayFrame)
    ->ArgNames({"w", "h", "sides", "moment", "whole"})
    ->Apply(frameCases)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// The whole late frame, one side at 1000 x 600, with and without the
// multisampling the game asks for (llvmpipe gives 4 samples for 2): what the
// samples cost in the copies and the full-field passes.
void BM_PlayFrameSamples(benchmark::State& state)
{
    PlayStage stage(1000, 600, 1, Moment::late, static_cast<int>(state.range(0)));
    GLint samples = 0;
    glGetIntegerv(GL_SAMPLES, &samples);
    stage.drawFrame();
    glFinish();
    for (auto _ : state) {
        stage.drawFrame();
        glFinish();
    }
    state.counters["samples"] = samples;
}
BENCHMARK(BM_PlayFrameSamples)
    ->ArgNames({"asked"})
    ->Arg(0)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

}  // namespace
