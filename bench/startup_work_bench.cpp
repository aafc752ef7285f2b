// The start-up's own work in one figure, without the boot console's timed
// typing and pauses: the programs, the font, the key-cap, the ground with its
// slopes and the screen texture, as startUp and reopenDisplay do them. Runs
// on the test backend's real GL context (under xvfb-run) with the built
// content of build/run/content.
#include <GL/glew.h>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/window.h"

namespace fs = std::filesystem;

namespace {

// Once per process: the folder that holds content/, and a window (the one
// another benchmark opened, if there is one).
void prepare()
{
    static bool prepared = false;
    if (prepared) return;
    prepared = true;
    if (!fs::exists("content/shaders.sfa")) {
        fs::current_path(GORVAN_RUN_DIR);
    }
    if (!testBackend::window().open) {
        testBackend::reset();
        glfwInit();
        glfwOpenWindowHint(GLFW_FSAA_SAMPLES, 2);
        glfwOpenWindow(1000, 600, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
        glewInit();
    }
    setScreenSize(-1, -1);
}

// The shader logs go to the standard output; they stay out of the report.
class QuietLog {
public:
    QuietLog() : saved(dup(1))
    {
        std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, 1);
        close(nowhere);
    }
    ~QuietLog()
    {
        std::fflush(stdout);
        dup2(saved, 1);
        close(saved);
    }

private:
    int saved;
};

void BM_StartUpWork(benchmark::State& state)
{
    prepare();
    for (auto _ : state) {
        QuietLog quiet;
        loadBasicProgram();
        loadFont();
        loadShaders(nullptr);
        loadPanelButtonTexture();
        generateTextures(nullptr);
        createScreenTexture();
        glFinish();
        state.PauseTiming();
        deleteFont();
        deletePanelButtonTexture();
        freeSurfaceData();
        deleteScreenTextures();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_StartUpWork)->Unit(benchmark::kMillisecond)->Iterations(3)->Repetitions(5);

void BM_LoadFont(benchmark::State& state)
{
    prepare();
    for (auto _ : state) {
        loadFont();
        glFinish();
        state.PauseTiming();
        deleteFont();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_LoadFont)->Unit(benchmark::kMillisecond)->Iterations(5)->Repetitions(5);

}  // namespace
