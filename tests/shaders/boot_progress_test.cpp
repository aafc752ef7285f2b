// The start-up's progress on the boot console: the shader build and the
// ground each show a line of dots.
#include <gtest/gtest.h>

#include "base/random.h"
#include "render/generated_textures.h"
#include "render/shaders.h"
#include "shader_test_support.h"
#include "shell/boot_console.h"
#include "support/scratch_dir.h"

namespace {

TEST(BootProgress, ShadersAnnounceThemselvesAndShowThreeDots) {
    ScratchDir scratch;
    writeShaderArchive();
    openShaderTestWindow();
    ::testing::internal::CaptureStdout();
    {
        BootConsole console;
        loadBasicProgram();
        loadShaders(&console);
        ASSERT_EQ(console.lines.size(), 2u);
        EXPECT_EQ(console.lines[0], "Loading shaders");
        EXPECT_EQ(console.lines[1], "...") << "two batches of programs, then the closing dot";

        console.addLine("Generating textures");
        seedRandom(3);
        generateTextures(&console);
        ASSERT_EQ(console.lines.size(), 4u);
        // Softening, four batches of stones, the end of the data, the rim of
        // the slopes, and the closing dot.
        EXPECT_EQ(console.lines[3], "........");
    }
    ::testing::internal::GetCapturedStdout();
    freeSurfaceData();
    closeShaderTestWindow();
}

}  // namespace
