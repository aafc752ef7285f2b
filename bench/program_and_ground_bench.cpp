// The slow parts of the start-up apart from the console's typing: building
// the 26 programs and computing the ground.
#include <GL/glew.h>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

#include "base/random.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "render/generated_textures.h"
#include "render/shaders.h"

namespace {

// One window for all drawing benchmarks, in the folder that holds content/.
void openWindowOnce() {
    static bool open = false;
    if (open) return;
    open = chdir(GORVAN_RUN_DIR) == 0;
    testBackend::reset();
    glfwInit();
    glfwOpenWindow(512, 512, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
    glewInit();
}

// The build logs go to the standard output; keep them out of the report.
class QuietStdout {
public:
    QuietStdout() : saved(dup(1)) {
        std::fflush(stdout);
        int null = open("/dev/null", O_WRONLY);
        dup2(null, 1);
        close(null);
    }
    ~QuietStdout() {
        std::fflush(stdout);
        dup2(saved, 1);
        close(saved);
    }

private:
    int saved;
};

void BM_BuildAllPrograms(benchmark::State& state) {
    openWindowOnce();
    QuietStdout quiet;
    for (auto _ : state) {
        loadBasicProgram();
        loadShaders(nullptr);
        glFinish();
    }
}
BENCHMARK(BM_BuildAllPrograms)->Unit(benchmark::kMillisecond);

void BM_GenerateSurfaceData(benchmark::State& state) {
    uint32_t seed = 1;
    for (auto _ : state) {
        seedRandom(seed++);
        generateSurfaceData(nullptr);
        benchmark::DoNotOptimize(surfaceData);
    }
    freeSurfaceData();
}
BENCHMARK(BM_GenerateSurfaceData)->Unit(benchmark::kMillisecond);

void BM_BuildSurfaceTexture(benchmark::State& state) {
    openWindowOnce();
    seedRandom(1);
    generateSurfaceData(nullptr);
    for (auto _ : state) {
        buildSurfaceTexture(nullptr);
        glFinish();
        deleteSurfaceTexture();
    }
    freeSurfaceData();
}
BENCHMARK(BM_BuildSurfaceTexture)->Unit(benchmark::kMillisecond);

}  // namespace
