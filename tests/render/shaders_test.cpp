// The shader catalogue on the real driver: the build logs, in catalogue
// order, of clean, broken and missing sources; the setters that select a
// program and feed its uniforms; and the start-up products made with the
// programs: the boot progress, the ground's slope texture, the "Speed up!" sign.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/random.h"
#include "data/sfa_format.h"
#include "gl_test_window.h"
#include "render/generated_textures.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/boot_console.h"
#include "support/drawing_state.h"
#include "support/scratch_dir.h"

namespace fs = std::filesystem;

namespace {

// content/shaders.sfa from assets/shaders/, with a broken source added, in a
// scratch folder; a 512 x 512 window.
class Shaders : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::vector<SfaEntry> entries;
        for (const auto& file : fs::directory_iterator(fs::path(GORVAN_SOURCE_DIR) / "assets/shaders"))
            entries.push_back({file.path().filename().string(), readFileBytes(file.path().string())});
        entries.push_back({"broken.frag", "#version 110\nvoid main() { gl_FragColor = nothing; }\n"});
        writeFileBytes("content/shaders.sfa", packSfa(entries));
        openTestWindow(512, 512);
    }
    void TearDown() override { closeTestWindow(); }

    // What building `basic` and then the catalogue prints.
    static std::string buildAll()
    {
        ::testing::internal::CaptureStdout();
        loadBasicProgram();
        loadShaders(nullptr);
        std::fflush(stdout);
        return ::testing::internal::GetCapturedStdout();
    }

    ScratchDir scratch;
};

TEST_F(Shaders, CatalogueBuildsInOrderWithEmptyLogsAndBrokenSourcesSayWhy)
{
    // Per program: random.frag first where it is linked in ("+"), then the
    // vertex and the fragment source, and a line end after the empty program log.
    const char* const catalogue[] = {
        "basic.vrt basic.frag", "color.vrt color.frag", "shadow.vrt shadow.frag",
        "env_light.vrt env_light.frag", "light.vrt spot_light.frag", "light.vrt light.frag",
        "+transition1.vrt transition1.frag", "+transition1.vrt transition2.frag",
        "+transition1.vrt transition3.frag", "+transition4.vrt transition4.frag",
        "static_transition1.vrt static_transition1.frag", "static_transition1.vrt static_transition2.frag",
        "+transition1.vrt text_transition1.frag", "+transition1.vrt text_transition2.frag",
        "+transition1.vrt disruption.frag", "+disturb.vrt disturb.frag", "hurt.vrt hurt.frag",
        "+line.vrt line.frag", "color.vrt line2.frag", "credits.vrt credits.frag",
        "+basic.vrt easteregg1.frag", "transition1.vrt easteregg2.frag", "basic.vrt blurv.frag",
        "basic.vrt blurh.frag", "basic.vrt speedup.frag", "+basic.vrt info_transition.frag"};
    std::string expected;
    for (std::string entry : catalogue) {
        if (entry[0] == '+') expected += "Log for random.frag:\n", entry.erase(0, 1);
        expected += "Log for " + entry.replace(entry.find(' '), 1, ":\nLog for ") + ":\n\n";
    }
    glBlendFunc(GL_ONE, GL_ONE);
    EXPECT_EQ(buildAll(), expected);
    expectCommonDrawingState();
    for (GLuint program : {colorProgram, hurtProgram, lineProgram, infoTransitionProgram}) {
        GLint linked = GL_FALSE;
        glGetProgramiv(program, GL_LINK_STATUS, &linked);
        EXPECT_EQ(linked, GL_TRUE);
    }

    // A broken source: its compiler log follows its heading, then the
    // program's own log; the game goes on.
    ::testing::internal::CaptureStdout();
    GLuint broken = 0, missing = 0, fragmentOnly = 0;
    buildProgram(&broken, "basic.vrt", "broken.frag", false);
    buildProgram(&missing, "basic.vrt", "nowhere.frag", false);
    buildProgram(&fragmentOnly, nullptr, "color.frag", false);
    std::fflush(stdout);
    const std::string printed = ::testing::internal::GetCapturedStdout();
    const std::string headings = "Log for basic.vrt:\nLog for broken.frag:\n";
    ASSERT_EQ(printed.rfind(headings, 0), 0u) << printed;
    const size_t programLog = printed.find("Shader program info log:\n");
    EXPECT_GT(programLog, headings.size()) << printed;
    EXPECT_NE(printed.find("\nLog for basic.vrt:\nLog for nowhere.frag:\n", programLog), std::string::npos);
    EXPECT_NE(printed.find("\nLog for color.frag:\n", programLog), std::string::npos);
    EXPECT_NE(broken * missing, 0u);
    GLint attached = 0;
    glGetProgramiv(fragmentOnly, GL_ATTACHED_SHADERS, &attached);
    EXPECT_EQ(attached, 1);
    while (glGetError() != GL_NO_ERROR) {}  // selecting a program that failed to link
}

// Each setter selects its program and sets every uniform it names.
struct SetterCase {
    std::function<void()> call;
    GLuint* program;
    std::vector<std::pair<const char*, std::vector<float>>> uniforms;
};

TEST_F(Shaders, SettersSelectTheirProgramAndFeedEveryUniform)
{
    buildAll();
    const SetterCase cases[] = {
        {[] { useEnvLight(0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f); }, &envLightProgram,
         {{"texture1", {0}}, {"texture2", {1}}, {"light_direction", {0.1f, 0.2f, 0.3f}},
          {"light_color", {0.4f, 0.5f, 0.6f, 1}}}},
        {[] { useSpotLight(11, 12, 0.5f, 300, 0.7f, 0.8f, 0.9f); }, &spotLightProgram,
         {{"texture1", {0}}, {"texture2", {1}}, {"light_position", {11, 12}},
          {"light_direction", {0.5f}}, {"light_distance", {300}},
          {"light_color", {0.7f, 0.8f, 0.9f, 1}}}},
        {[] { usePointLight(21, 22, 100, 0.1f, 0.2f, 0.3f); }, &lightProgram,
         {{"texture1", {0}}, {"texture2", {1}}, {"light_position", {21, 22}},
          {"light_distance", {100}}, {"light_color", {0.1f, 0.2f, 0.3f, 1}}}},
        {[] { useTransition1(3); }, &transition1Program, {{"time", {3}}}},
        {[] { useTransition2(4); }, &transition2Program, {{"time", {4}}}},
        {[] { useTransition3(5); }, &transition3Program, {{"time", {5}}}},
        {[] { useTransition4(6); }, &transition4Program, {{"time", {6}}}},
        {[] { useTextTransition1(7, 8, 9); }, &textTransition1Program,
         {{"time", {7}}, {"start", {8}}, {"end", {9}}}},
        {[] { useTextTransition2(10, 11, 12); }, &textTransition2Program,
         {{"time", {10}}, {"start", {11}}, {"end", {12}}}},
        {[] { useDisruption(13, 14); }, &disruptionProgram, {{"time1", {13}}, {"time2", {14}}}},
        {[] { useDisturb(15, 16); }, &disturbProgram, {{"time1", {15}}, {"time2", {16}}}},
        {[] { useHurt(17); }, &hurtProgram, {{"time", {17}}}},
        {[] { useCredits(18); }, &creditsProgram, {{"time", {18}}}},
        {[] { useEasterEgg1(19, 20); }, &easterEgg1Program, {{"time", {19}}, {"amount", {20}}}},
        {[] { useEasterEgg2(21); }, &easterEgg2Program, {{"time", {21}}}},
        {[] { useInfoTransition(22); }, &infoTransitionProgram, {{"time", {22}}}},
    };
    for (const SetterCase& c : cases) {
        // Every uniform starts off at something the setter must overwrite.
        glUseProgram(*c.program);
        for (const auto& [name, values] : c.uniforms) {
            const GLint location = glGetUniformLocation(*c.program, name);
            ASSERT_GE(location, 0) << name;
            const float junk[4] = {-7, -7, -7, -7};
            const PFNGLUNIFORM1FVPROC setters[] = {glUniform1fv, glUniform2fv, glUniform3fv, glUniform4fv};
            if (std::string(name).rfind("texture", 0) == 0) glUniform1i(location, 5);  // a sampler
            else setters[values.size() - 1](location, 1, junk);
        }
        glUseProgram(basicProgram);
        c.call();
        GLint current = 0;
        glGetIntegerv(GL_CURRENT_PROGRAM, &current);
        EXPECT_EQ(current, static_cast<GLint>(*c.program)) << c.uniforms[0].first;
        for (const auto& [name, values] : c.uniforms) {
            float read[4] = {};
            glGetUniformfv(*c.program, glGetUniformLocation(*c.program, name), read);
            for (size_t i = 0; i < values.size(); i++)
                EXPECT_FLOAT_EQ(read[i], values[i]) << name << " of program " << *c.program;
        }
    }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(Shaders, BootProgressGroundTextureAndTheSpeedUpSign)
{
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

    // The slope texture is the slopes of the ground, rebuilt alike from the kept data.
    constexpr int bytes = surfaceSize * surfaceSize * 3;
    std::vector<uint8_t> expected(bytes), texels(bytes);
    computeSurfaceSlopes(surfaceData, expected.data(), nullptr);
    deleteSurfaceTexture();
    randomInt(0, 100);
    buildSurfaceTexture(nullptr);
    glBindTexture(GL_TEXTURE_2D, surfaceTexture);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, texels.data());
    EXPECT_TRUE(texels == expected);
    freeSurfaceData();

    // Every glyph a solid block: the sign's letters are nine quads, 173.2
    // units wide, centred on 128, from y 7 to 57 of the 256 x 64 label.
    fontTexture = makeNearestTexture(4, 4, std::vector<unsigned char>(4 * 4 * 4, 255));
    uint32_t sign = 0;
    buildSpeedUpTexture(&sign);
    std::vector<uint8_t> label(256 * 64 * 3);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, label.data());
    auto at = [&label](int x, int y) { return &label[((63 - y) * 256 + x) * 3]; };
    EXPECT_EQ(at(128, 32)[0], 0);
    EXPECT_EQ(at(128, 32)[1], 255) << "sharp green letters";
    EXPECT_GT(at(38, 32)[0], 20) << "a red glow just beside them";
    EXPECT_GT(at(128, 3)[0], 10) << "the glow reaches above the letters";
    EXPECT_EQ(at(10, 32)[0], 0) << "black further out";
    // Screen space and white are back.
    expectCommonDrawingState();
    float projection[16] = {};
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    EXPECT_FLOAT_EQ(projection[0], 2.0f / 800);
    EXPECT_FLOAT_EQ(projection[5], -2.0f / 600);
}

}  // namespace
