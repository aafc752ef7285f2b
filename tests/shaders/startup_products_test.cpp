// Two start-up products of the programs: the progress on the boot console
// (the shader build and the ground each show a line of dots), and the
// "Speed up!" sign: red letters blurred into a halo, sharp green letters on
// top, black around, and the drawing state put back.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include "base/random.h"
#include "render/generated_textures.h"
#include "render/shaders.h"
#include "render/text.h"
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

TEST(SpeedUpSign, GreenLettersOnARedGlowOnBlack) {
    ScratchDir scratch;
    writeShaderArchive();
    openShaderTestWindow();
    ::testing::internal::CaptureStdout();
    loadBasicProgram();
    loadShaders(nullptr);
    ::testing::internal::GetCapturedStdout();
    // Every glyph a solid block, so the letters of the sign are plain quads:
    // nine of them, 173.2 units wide, centred on 128, from y 7 to 57.
    fontTexture = makeTexture(4, 4, flatRgba(4, 4, 255, 255, 255));

    uint32_t sign = 0;
    buildSpeedUpTexture(&sign);

    GLint bound = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(bound, GLint(sign));
    GLint width = 0, height = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &height);
    EXPECT_EQ(width, 256);
    EXPECT_EQ(height, 64);

    std::vector<uint8_t> texels(256 * 64 * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, texels.data());
    // Rows are stored bottom first: label y runs down from the top row.
    auto at = [&texels](int x, int y) { return &texels[((63 - y) * 256 + x) * 3]; };
    EXPECT_EQ(at(128, 32)[0], 0);
    EXPECT_EQ(at(128, 32)[1], 255) << "sharp green letters";
    EXPECT_GT(at(38, 32)[0], 20) << "a red glow just beside them";
    EXPECT_EQ(at(38, 32)[1], 0);
    EXPECT_GT(at(128, 3)[0], 10) << "the glow reaches above the letters";
    EXPECT_EQ(at(10, 32)[0], 0) << "black further out";
    EXPECT_EQ(at(250, 60)[0], 0);

    GLint program = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &program);
    EXPECT_EQ(program, GLint(basicProgram));
    float colour[4] = {};
    glGetFloatv(GL_CURRENT_COLOR, colour);
    EXPECT_EQ(colour[0], 1);
    EXPECT_EQ(colour[1], 1);
    EXPECT_EQ(colour[2], 1);
    float projection[16] = {};
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    EXPECT_FLOAT_EQ(projection[0], 2.0f / 800);
    EXPECT_FLOAT_EQ(projection[5], -2.0f / 600);
    closeShaderTestWindow();
}

}  // namespace
