// The shader catalogue builds on the real driver: every program compiles and
// links with empty logs, from the right sources, in the right order; the
// uniforms are found and the setters set them.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "render/shaders.h"
#include "shader_test_support.h"
#include "support/scratch_dir.h"

namespace {

struct CatalogueEntry {
    GLuint* program;
    const char* vertex;
    const char* fragment;
    bool withRandom;
};

// The 25 programs of loadShaders, in build order.
const std::vector<CatalogueEntry> catalogue = {
    {&colorProgram, "color.vrt", "color.frag", false},
    {&shadowProgram, "shadow.vrt", "shadow.frag", false},
    {&envLightProgram, "env_light.vrt", "env_light.frag", false},
    {&spotLightProgram, "light.vrt", "spot_light.frag", false},
    {&lightProgram, "light.vrt", "light.frag", false},
    {&transition1Program, "transition1.vrt", "transition1.frag", true},
    {&transition2Program, "transition1.vrt", "transition2.frag", true},
    {&transition3Program, "transition1.vrt", "transition3.frag", true},
    {&transition4Program, "transition4.vrt", "transition4.frag", true},
    {&staticTransition1Program, "static_transition1.vrt", "static_transition1.frag", false},
    {&staticTransition2Program, "static_transition1.vrt", "static_transition2.frag", false},
    {&textTransition1Program, "transition1.vrt", "text_transition1.frag", true},
    {&textTransition2Program, "transition1.vrt", "text_transition2.frag", true},
    {&disruptionProgram, "transition1.vrt", "disruption.frag", true},
    {&disturbProgram, "disturb.vrt", "disturb.frag", true},
    {&hurtProgram, "hurt.vrt", "hurt.frag", false},
    {&lineProgram, "line.vrt", "line.frag", true},
    {&line2Program, "color.vrt", "line2.frag", false},
    {&creditsProgram, "credits.vrt", "credits.frag", false},
    {&easterEgg1Program, "basic.vrt", "easteregg1.frag", true},
    {&easterEgg2Program, "transition1.vrt", "easteregg2.frag", false},
    {&blurvProgram, "basic.vrt", "blurv.frag", false},
    {&blurhProgram, "basic.vrt", "blurh.frag", false},
    {&speedupProgram, "basic.vrt", "speedup.frag", false},
    {&infoTransitionProgram, "basic.vrt", "info_transition.frag", true},
};

// The log a clean build of one program prints: a heading per shader, no log
// text, and the line end after the (empty) program log.
std::string cleanLogOf(const CatalogueEntry& entry) {
    std::string log;
    if (entry.withRandom) log += "Log for random.frag:\n";
    log += std::string("Log for ") + entry.vertex + ":\n";
    log += std::string("Log for ") + entry.fragment + ":\n";
    return log + "\n";
}

GLint currentProgram() {
    GLint program = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &program);
    return program;
}

class ShaderBuild : public ::testing::Test {
protected:
    void SetUp() override {
        writeShaderArchive({{"broken.frag", "#version 110\nvoid main() { gl_FragColor = nothing; }\n"}});
        openShaderTestWindow();
    }
    void TearDown() override { closeShaderTestWindow(); }

    // Builds the whole catalogue and returns what it printed.
    std::string buildAll() {
        ::testing::internal::CaptureStdout();
        loadBasicProgram();
        loadShaders(nullptr);
        std::fflush(stdout);
        return ::testing::internal::GetCapturedStdout();
    }

    ScratchDir scratch;
};

TEST_F(ShaderBuild, EveryProgramCompilesAndLinksWithEmptyLogsInCatalogueOrder) {
    std::string printed = buildAll();

    std::string expected = cleanLogOf({&basicProgram, "basic.vrt", "basic.frag", false});
    for (const CatalogueEntry& entry : catalogue)
        expected += cleanLogOf(entry);
    EXPECT_EQ(printed, expected);

    GLint linked = GL_FALSE;
    glGetProgramiv(basicProgram, GL_LINK_STATUS, &linked);
    EXPECT_EQ(linked, GL_TRUE);
    // Noise programs hold random.frag as a second fragment shader.
    for (const CatalogueEntry& entry : catalogue) {
        glGetProgramiv(*entry.program, GL_LINK_STATUS, &linked);
        EXPECT_EQ(linked, GL_TRUE) << entry.fragment;
        GLuint shaders[4] = {};
        GLsizei count = 0;
        glGetAttachedShaders(*entry.program, 4, &count, shaders);
        int fragments = 0, vertices = 0;
        for (GLsizei i = 0; i < count; i++) {
            GLint type = 0, compiled = GL_FALSE;
            glGetShaderiv(shaders[i], GL_SHADER_TYPE, &type);
            glGetShaderiv(shaders[i], GL_COMPILE_STATUS, &compiled);
            EXPECT_EQ(compiled, GL_TRUE) << entry.fragment;
            (type == GL_FRAGMENT_SHADER ? fragments : vertices)++;
        }
        EXPECT_EQ(vertices, 1) << entry.fragment;
        EXPECT_EQ(fragments, entry.withRandom ? 2 : 1) << entry.fragment;
    }
}

TEST_F(ShaderBuild, LeavesBasicSelectedAndTheDrawingStateSet) {
    glUseProgram(0);
    glBlendFunc(GL_ONE, GL_ONE);
    loadBasicProgram();
    EXPECT_EQ(currentProgram(), GLint(basicProgram));
    GLint source = 0, destination = 0;
    glGetIntegerv(GL_BLEND_SRC, &source);
    glGetIntegerv(GL_BLEND_DST, &destination);
    EXPECT_EQ(source, GL_SRC_ALPHA);
    EXPECT_EQ(destination, GL_ONE_MINUS_SRC_ALPHA);
    EXPECT_TRUE(glIsEnabled(GL_BLEND));

    glUseProgram(hurtProgram);
    loadShaders(nullptr);
    EXPECT_EQ(currentProgram(), GLint(basicProgram));
}

TEST_F(ShaderBuild, EveryUniformIsFoundInItsOwnProgram) {
    buildAll();
    std::vector<GLint> locations = {
        envLightUniforms.texture1, envLightUniforms.texture2, envLightUniforms.lightDirection,
        envLightUniforms.lightColor, spotLightUniforms.texture1, spotLightUniforms.texture2,
        spotLightUniforms.lightPosition, spotLightUniforms.lightDirection,
        spotLightUniforms.lightDistance, spotLightUniforms.lightColor,
        pointLightUniforms.texture1, pointLightUniforms.texture2, pointLightUniforms.lightPosition,
        pointLightUniforms.lightDistance, pointLightUniforms.lightColor, transition1Time,
        transition2Time, transition3Time, transition4Time, textTransition1Uniforms.time,
        textTransition1Uniforms.start, textTransition1Uniforms.end, textTransition2Uniforms.time,
        textTransition2Uniforms.start, textTransition2Uniforms.end, disruptionUniforms.time1,
        disruptionUniforms.time2, disturbUniforms.time1, disturbUniforms.time2, hurtTime,
        creditsTime, easterEgg1Uniforms.time, easterEgg1Uniforms.amount, easterEgg2Time,
        infoTransitionTime};
    for (size_t i = 0; i < locations.size(); i++)
        EXPECT_GE(locations[i], 0) << "uniform " << i;
    // The two light programs share light.vrt but not their locations' owner.
    EXPECT_EQ(pointLightUniforms.lightPosition,
              glGetUniformLocation(lightProgram, "light_position"));
    EXPECT_EQ(spotLightUniforms.lightPosition,
              glGetUniformLocation(spotLightProgram, "light_position"));
}

// Reads one float uniform of a program.
float uniformValue(GLuint program, GLint location, int component = 0) {
    float values[4] = {};
    glGetUniformfv(program, location, values);
    return values[component];
}

// The setters the pixel tests don't draw through: each selects its program
// and sets its own uniforms.
TEST_F(ShaderBuild, TimedSettersSelectTheirProgramAndSetTheirValues) {
    buildAll();
    struct Timed {
        void (*set)(float);
        GLuint* program;
        GLint* location;
    };
    const Timed timed[] = {
        {useTransition4, &transition4Program, &transition4Time},
        {useHurt, &hurtProgram, &hurtTime},
        {useCredits, &creditsProgram, &creditsTime},
        {useEasterEgg2, &easterEgg2Program, &easterEgg2Time},
    };
    float value = -10;
    for (const Timed& t : timed) {
        value += 13.5f;
        t.set(value);
        EXPECT_EQ(currentProgram(), GLint(*t.program));
        EXPECT_FLOAT_EQ(uniformValue(*t.program, *t.location), value);
    }
    struct TwoValued {
        void (*set)(float, float);
        GLuint* program;
        GLint *first, *second;
    };
    const TwoValued twoValued[] = {
        {useDisruption, &disruptionProgram, &disruptionUniforms.time1, &disruptionUniforms.time2},
        {useDisturb, &disturbProgram, &disturbUniforms.time1, &disturbUniforms.time2},
        {useEasterEgg1, &easterEgg1Program, &easterEgg1Uniforms.time, &easterEgg1Uniforms.amount},
    };
    for (const TwoValued& t : twoValued) {
        value += 13.5f;
        t.set(value, 0.25f * value);
        EXPECT_EQ(currentProgram(), GLint(*t.program));
        EXPECT_FLOAT_EQ(uniformValue(*t.program, *t.first), value);
        EXPECT_FLOAT_EQ(uniformValue(*t.program, *t.second), 0.25f * value);
    }
    useProgram(basicProgram);
    EXPECT_EQ(currentProgram(), GLint(basicProgram));
}

TEST_F(ShaderBuild, ABrokenSourcePrintsItsLogsAndTheGameGoesOn) {
    ::testing::internal::CaptureStdout();
    GLuint program = 0;
    buildProgram(&program, "basic.vrt", "broken.frag", false);
    std::fflush(stdout);
    std::string printed = ::testing::internal::GetCapturedStdout();

    EXPECT_EQ(printed.rfind("Log for basic.vrt:\nLog for broken.frag:\n", 0), 0u) << printed;
    size_t programLog = printed.find("Shader program info log:\n");
    ASSERT_NE(programLog, std::string::npos) << printed;
    EXPECT_GT(programLog, std::string("Log for basic.vrt:\nLog for broken.frag:\n").size())
        << "the compiler's own log comes before the program's";
    EXPECT_EQ(printed.substr(printed.size() - 2), "\n\n");
    EXPECT_NE(program, 0u);
    glGetError();  // selecting a program that failed to link is refused
}

TEST_F(ShaderBuild, AMissingEntryLeavesAShaderWithoutSourceAndEitherStageMayBeLeftOut) {
    ::testing::internal::CaptureStdout();
    GLuint program = 0, fragmentOnly = 0;
    buildProgram(&program, "basic.vrt", "nowhere.frag", false);
    buildProgram(&fragmentOnly, nullptr, "color.frag", false);
    std::fflush(stdout);
    std::string printed = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(printed.rfind("Log for basic.vrt:\nLog for nowhere.frag:\n", 0), 0u) << printed;
    EXPECT_NE(program, 0u);
    EXPECT_NE(printed.find("\nLog for color.frag:\n"), std::string::npos) << printed;
    GLint attached = 0;
    glGetProgramiv(fragmentOnly, GL_ATTACHED_SHADERS, &attached);
    EXPECT_EQ(attached, 1);
}

}  // namespace
