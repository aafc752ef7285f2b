// What some of the programs do to the picture, where it is cheap to see:
// drawn for real and read back.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <vector>

#include "base/random.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "shader_test_support.h"
#include "support/scratch_dir.h"

namespace {

class ShaderPixels : public ::testing::Test {
protected:
    void SetUp() override {
        writeShaderArchive();
        openShaderTestWindow();
        ::testing::internal::CaptureStdout();  // the build logs
        loadBasicProgram();
        loadShaders(nullptr);
        ::testing::internal::GetCapturedStdout();
        setOrtho(512, 512);
    }
    void TearDown() override { closeShaderTestWindow(); }

    // Clears, draws the texture over the whole 512 x 512 window through the
    // current program and reads it back.
    std::vector<uint8_t> drawWhole(uint32_t texture) {
        glClear(GL_COLOR_BUFFER_BIT);
        drawTexturedRect(texture, 0, 0, 512, 512);
        return readBack(512, 512);
    }

    ScratchDir scratch;
};

double channelDeviation(const std::vector<uint8_t>& rgba, int channel) {
    double mean = channelMean(rgba, channel), sum = 0;
    for (size_t i = channel; i < rgba.size(); i += 4)
        sum += (rgba[i] - mean) * (rgba[i] - mean);
    return std::sqrt(sum / (rgba.size() / 4));
}

int largestDifference(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
    int largest = 0;
    for (size_t i = 0; i < a.size(); i++) {
        if (i % 4 == 3) continue;  // alpha of the back buffer is not shown
        largest = std::max(largest, std::abs(int(a[i]) - int(b[i])));
    }
    return largest;
}

// A picture with something in it: noise of 8 x 8 blocks.
std::vector<uint8_t> blockyPicture(int width, int height) {
    seedRandom(7);
    std::vector<uint8_t> rgba = flatRgba(width, height, 0, 0, 0);
    for (int y = 0; y < height; y += 8) {
        for (int x = 0; x < width; x += 8) {
            uint8_t r = uint8_t(randomInt(0, 255)), g = uint8_t(randomInt(0, 255)), b = uint8_t(randomInt(0, 255));
            for (int j = y; j < y + 8 && j < height; j++) {
                for (int i = x; i < x + 8 && i < width; i++) {
                    uint8_t* p = &rgba[(j * width + i) * 4];
                    p[0] = r, p[1] = g, p[2] = b;
                }
            }
        }
    }
    return rgba;
}

TEST_F(ShaderPixels, ColorIsTheColourAloneAndBasicTheTexelTimesTheColour) {
    uint32_t texture = makeTexture(4, 4, flatRgba(4, 4, 200, 100, 50));
    useProgram(colorProgram);
    glColor4f(0.2f, 0.4f, 0.6f, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    drawRect(0, 0, 512, 512);  // the texture stays bound and must not show
    std::vector<uint8_t> flat = readBack(512, 512);
    EXPECT_NEAR(channelMean(flat, 0), 51, 1);
    EXPECT_NEAR(channelMean(flat, 1), 102, 1);
    EXPECT_NEAR(channelMean(flat, 2), 153, 1);

    useProgram(basicProgram);
    glColor4f(0.5f, 1, 1, 1);
    std::vector<uint8_t> tinted = drawWhole(texture);
    EXPECT_NEAR(channelMean(tinted, 0), 100, 1);
    EXPECT_NEAR(channelMean(tinted, 1), 100, 1);
    EXPECT_NEAR(channelMean(tinted, 2), 50, 1);

    glColor4f(1, 1, 1, 0.5f);  // a fade over black
    std::vector<uint8_t> faded = drawWhole(texture);
    EXPECT_NEAR(channelMean(faded, 0), 100, 1);
    glColor4f(1, 1, 1, 1);
}

TEST_F(ShaderPixels, BlursSpreadThePictureAndKeepItsMean) {
    // The label is 256 x 64: red letters on black, blurred down, then across.
    std::vector<uint8_t> label = flatRgba(256, 64, 0, 0, 0);
    for (int y = 20; y < 44; y++) {
        for (int x = 30; x < 226; x += 12)
            label[(y * 256 + x) * 4] = 255;
    }
    uint32_t texture = makeTexture(256, 64, label);
    glViewport(0, 0, 256, 64);
    setOrtho(256, 64);
    for (GLuint program : {blurvProgram, blurhProgram}) {
        useProgram(program);
        glClear(GL_COLOR_BUFFER_BIT);
        drawTexturedRect(texture, 0, 0, 256, 64);
        std::vector<uint8_t> blurred = readBack(256, 64);
        EXPECT_NEAR(channelMean(blurred, 0), channelMean(label, 0), 0.6);
        int peak = 0;
        for (size_t i = 0; i < blurred.size(); i += 4) peak = std::max(peak, int(blurred[i]));
        if (program == blurhProgram) EXPECT_LT(peak, 200) << "thin columns spread sideways";
        else EXPECT_GT(peak, 200) << "tall columns keep their middle";
    }
    // Vertical spread: the rows just outside the letters catch some of them.
    useProgram(blurvProgram);
    glClear(GL_COLOR_BUFFER_BIT);
    drawTexturedRect(texture, 0, 0, 256, 64);
    std::vector<uint8_t> blurred = readBack(256, 64);
    EXPECT_GT(blurred[(18 * 256 + 30) * 4], 20);
    EXPECT_EQ(blurred[(18 * 256 + 31) * 4], 0);
}

TEST_F(ShaderPixels, StaticTransitionDissolvesAFrameIntoStaticOver150Passes) {
    for (uint8_t start : {uint8_t(255), uint8_t(0)}) {
        uint32_t texture = makeTexture(512, 512, flatRgba(512, 512, start, start, start));
        useProgram(staticTransition1Program);
        std::vector<double> means;
        std::vector<uint8_t> frame;
        for (int pass = 1; pass <= 150; pass++) {
            frame = drawWhole(texture);
            glBindTexture(GL_TEXTURE_2D, texture);
            glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 0, 0, 512, 512, 0);
            if (pass == 1 || pass == 10 || pass == 50 || pass == 150) means.push_back(channelMean(frame, 1));
        }
        if (start == 255) {
            EXPECT_GT(means[0], 230) << "one pass is one small step";
            EXPECT_LT(means[1], means[0]);
            EXPECT_LT(means[2], means[1]);
            EXPECT_LT(means[3], means[2]);
            EXPECT_LT(means[3], 80) << "the picture is gone";
        } else {
            EXPECT_GT(means[3], 10) << "a black frame fills with static too";
        }
        EXPECT_GT(channelDeviation(frame, 1), 15) << "static, not a flat grey";
        useProgram(basicProgram);
    }
}

TEST_F(ShaderPixels, RevealsEndOnThePictureUnchanged) {
    std::vector<uint8_t> picture = blockyPicture(512, 512);
    uint32_t texture = makeTexture(512, 512, picture);

    useTransition1(40);
    EXPECT_LE(largestDifference(drawWhole(texture), picture), 1);
    useTransition1(0);
    EXPECT_LT(channelMean(drawWhole(texture), 1), 1) << "nothing shown before the reveal";

    useTransition3(0);
    EXPECT_LE(largestDifference(drawWhole(texture), picture), 1);
    useTransition3(40);
    std::vector<uint8_t> receded = drawWhole(texture);
    EXPECT_LT(channelMean(receded, 1), channelMean(picture, 1) * 0.6);
    useTransition3(100000);
    EXPECT_EQ(largestDifference(drawWhole(texture), receded), 0) << "holds steady while paused";

    useTransition2(0);
    EXPECT_LE(largestDifference(drawWhole(texture), picture), 1);
    useTransition2(70);
    EXPECT_EQ(channelMean(drawWhole(texture), 1), 0) << "dismissed";
    useProgram(basicProgram);
}

TEST_F(ShaderPixels, CrossFadeHalvesSumToThePicture) {
    std::vector<uint8_t> picture = blockyPicture(512, 512);
    uint32_t texture = makeTexture(512, 512, picture);
    glBlendFunc(GL_ONE, GL_ONE);
    for (float fade : {30.0f, 21.0f, 15.0f, 4.0f}) {
        glClear(GL_COLOR_BUFFER_BIT);
        useInfoTransition(30 - fade);
        drawTexturedRect(texture, 0, 0, 512, 512);
        useInfoTransition(fade);
        drawTexturedRect(texture, 0, 0, 512, 512);
        EXPECT_LE(largestDifference(readBack(512, 512), picture), 2) << fade;
    }
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    useProgram(basicProgram);
}

TEST_F(ShaderPixels, HintRevealsShowTheBoxInTheMiddleOfItsLifeAndNothingAtItsEnd) {
    uint32_t texture = makeTexture(4, 4, flatRgba(4, 4, 255, 255, 255));
    useTextTransition1(200, 0, 512);
    EXPECT_GT(channelMean(drawWhole(texture), 1), 254);
    useTextTransition1(549, 0, 512);
    EXPECT_EQ(channelMean(drawWhole(texture), 1), 0);
    // The text is dark ink on the light plate: drawn over white, it shows dark.
    glClearColor(1, 1, 1, 1);
    useTextTransition2(200, 0, 512);
    EXPECT_LT(channelMean(drawWhole(texture), 1), 30);
    useTextTransition2(549, 0, 512);
    EXPECT_EQ(channelMean(drawWhole(texture), 1), 255);
    glClearColor(0, 0, 0, 1);
    useTextTransition1(1, 0, 512);
    EXPECT_LT(channelMean(drawWhole(texture), 1), 5) << "a hint comes in from nothing";
    useProgram(basicProgram);
}

// Ground on unit 0, slopes on unit 1, lit over the whole window.
std::vector<uint8_t> litGround(uint8_t slopeRed, void (*light)()) {
    uint32_t ground = makeTexture(4, 4, flatRgba(4, 4, 200, 150, 100));
    uint32_t slopes = makeTexture(4, 4, flatRgba(4, 4, slopeRed, 127, 200));
    glActiveTexture(GL_TEXTURE1);
    glBindTexture(GL_TEXTURE_2D, slopes);
    glActiveTexture(GL_TEXTURE0);
    glBlendFunc(GL_ONE, GL_ONE);
    light();
    glClear(GL_COLOR_BUFFER_BIT);
    drawTexturedRect(ground, 0, 0, 512, 512);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    useProgram(basicProgram);
    return readBack(512, 512);
}

TEST_F(ShaderPixels, DirectionalLightFollowsTheSlopes) {
    std::vector<uint8_t> overhead = litGround(127, [] { useEnvLight(0, 0, 1, 1, 1, 1); });
    EXPECT_NEAR(channelMean(overhead, 0), 200, 2);
    EXPECT_NEAR(channelMean(overhead, 2), 100, 2);
    std::vector<uint8_t> grazing = litGround(127, [] { useEnvLight(1, 0, 0, 1, 1, 1); });
    EXPECT_LT(channelMean(grazing, 0), 2) << "flat ground, light along it";
    // Ground whose normal leans to the right catches a light from the right.
    std::vector<uint8_t> facing = litGround(167, [] { useEnvLight(1, 0, 0.3f, 1, 1, 1); });
    std::vector<uint8_t> away = litGround(87, [] { useEnvLight(1, 0, 0.3f, 1, 1, 1); });
    EXPECT_GT(channelMean(facing, 0), channelMean(away, 0) + 40);
}

TEST_F(ShaderPixels, PointLightIsACircleThatFadesOutAndSpotLightShinesAlongItsHeading) {
    std::vector<uint8_t> lit = litGround(127, [] { usePointLight(256, 256, 100, 1, 1, 1); });
    auto red = [&lit](int x, int yFromTop) { return int(lit[((511 - yFromTop) * 512 + x) * 4]); };
    EXPECT_GT(red(256, 256), 150);
    EXPECT_GT(red(256, 256), red(300, 256));
    EXPECT_GT(red(300, 256), red(340, 256));
    EXPECT_EQ(red(360, 256), 0);
    EXPECT_EQ(red(256, 100), 0);

    // Heading straight up the field (y down in field space: -pi/2).
    lit = litGround(127, [] { useSpotLight(256, 500, -1.5707964f, 300, 1, 1, 1); });
    EXPECT_GT(red(256, 400), 20);
    EXPECT_EQ(red(100, 480), 0) << "beside the cone";
    EXPECT_EQ(red(256, 150), 0) << "past its reach";
}

TEST_F(ShaderPixels, SpeedUpSignTurnsItsDarkIntoTransparency) {
    std::vector<uint8_t> label = flatRgba(256, 64, 0, 0, 0);
    for (int x = 128; x < 256; x++) {
        for (int y = 0; y < 64; y++) label[(y * 256 + x) * 4 + 1] = 255;
    }
    uint32_t texture = makeTexture(256, 64, label);
    glClearColor(0, 0, 1, 1);
    useProgram(speedupProgram);
    std::vector<uint8_t> shown = drawWhole(texture);
    glClearColor(0, 0, 0, 1);
    useProgram(basicProgram);
    const uint8_t* dark = &shown[(256 * 512 + 100) * 4];
    const uint8_t* green = &shown[(256 * 512 + 400) * 4];
    EXPECT_EQ(dark[2], 255) << "the background shows through the black";
    EXPECT_EQ(green[1], 255);
    EXPECT_EQ(green[2], 0);
}

}  // namespace
