// Building the shader catalogue: compiling the sources out of the archive,
// linking, printing the logs, and looking up the uniforms once.
#include "render/shaders.h"

#include <cstdint>
#include <cstdio>

#include "data/archive.h"
#include "shell/boot_console.h"

GLuint basicProgram = 0;
GLuint colorProgram = 0;
GLuint shadowProgram = 0;
GLuint envLightProgram = 0;
GLuint spotLightProgram = 0;
GLuint lightProgram = 0;
GLuint transition1Program = 0;
GLuint transition2Program = 0;
GLuint transition3Program = 0;
GLuint transition4Program = 0;
GLuint staticTransition1Program = 0;
GLuint staticTransition2Program = 0;
GLuint textTransition1Program = 0;
GLuint textTransition2Program = 0;
GLuint disruptionProgram = 0;
GLuint disturbProgram = 0;
GLuint hurtProgram = 0;
GLuint lineProgram = 0;
GLuint line2Program = 0;
GLuint creditsProgram = 0;
GLuint easterEgg1Program = 0;
GLuint easterEgg2Program = 0;
GLuint blurvProgram = 0;
GLuint blurhProgram = 0;
GLuint speedupProgram = 0;
GLuint infoTransitionProgram = 0;

EnvLightUniforms envLightUniforms;
SpotLightUniforms spotLightUniforms;
PointLightUniforms pointLightUniforms;
GLint transition1Time = -1, transition2Time = -1, transition3Time = -1, transition4Time = -1;
TextTransitionUniforms textTransition1Uniforms, textTransition2Uniforms;
TwoMeterUniforms disruptionUniforms, disturbUniforms;
GLint hurtTime = -1, creditsTime = -1, easterEgg2Time = -1, infoTransitionTime = -1;
EasterEgg1Uniforms easterEgg1Uniforms;

namespace {

const char* const shaderArchive = "content/shaders.sfa";

// Prints a shader's or a program's log, if it has one. Programs get a
// heading line; a shader's heading is printed by compileShader.
void printInfoLog(GLuint object, bool isProgram) {
    GLint length = 0;
    if (isProgram) {
        glGetProgramiv(object, GL_INFO_LOG_LENGTH, &length);
    } else {
        glGetShaderiv(object, GL_INFO_LOG_LENGTH, &length);
    }
    if (length <= 0) return;
    char* log = new char[length];
    log[0] = '\0';
    if (isProgram) {
        glGetProgramInfoLog(object, length, nullptr, log);
        std::printf("Shader program info log:\n");
    } else {
        glGetShaderInfoLog(object, length, nullptr, log);
    }
    std::printf("%s\n", log);
    delete[] log;
}

// A missing entry leaves the shader without source; it then compiles to
// nothing useful and the log says so. The game goes on either way.
void compileShader(GLuint* shader, const char* file, GLenum type) {
    uint32_t length = 0;
    unsigned char* source = Archive::readEntry(shaderArchive, file, &length);
    *shader = glCreateShader(type);
    if (source != nullptr) {
        const GLchar* text = reinterpret_cast<const GLchar*>(source);
        GLint textLength = static_cast<GLint>(length);
        glShaderSource(*shader, 1, &text, &textLength);
        delete[] source;
    }
    glCompileShader(*shader);
    std::printf("Log for %s:\n", file);
    printInfoLog(*shader, false);
}

void addDot(BootConsole* console) {
    if (console != nullptr) console->addDot();
}

// Looks up every uniform, in catalogue order.
void lookUpUniforms() {
    envLightUniforms.texture1 = glGetUniformLocation(envLightProgram, "texture1");
    envLightUniforms.texture2 = glGetUniformLocation(envLightProgram, "texture2");
    envLightUniforms.lightDirection = glGetUniformLocation(envLightProgram, "light_direction");
    envLightUniforms.lightColor = glGetUniformLocation(envLightProgram, "light_color");

    spotLightUniforms.texture1 = glGetUniformLocation(spotLightProgram, "texture1");
    spotLightUniforms.texture2 = glGetUniformLocation(spotLightProgram, "texture2");
    spotLightUniforms.lightPosition = glGetUniformLocation(spotLightProgram, "light_position");
    spotLightUniforms.lightDirection = glGetUniformLocation(spotLightProgram, "light_direction");
    spotLightUniforms.lightDistance = glGetUniformLocation(spotLightProgram, "light_distance");
    spotLightUniforms.lightColor = glGetUniformLocation(spotLightProgram, "light_color");

    pointLightUniforms.texture1 = glGetUniformLocation(lightProgram, "texture1");
    pointLightUniforms.texture2 = glGetUniformLocation(lightProgram, "texture2");
    pointLightUniforms.lightPosition = glGetUniformLocation(lightProgram, "light_position");
    pointLightUniforms.lightDistance = glGetUniformLocation(lightProgram, "light_distance");
    pointLightUniforms.lightColor = glGetUniformLocation(lightProgram, "light_color");

    transition1Time = glGetUniformLocation(transition1Program, "time");
    transition2Time = glGetUniformLocation(transition2Program, "time");
    transition3Time = glGetUniformLocation(transition3Program, "time");
    transition4Time = glGetUniformLocation(transition4Program, "time");

    textTransition1Uniforms.time = glGetUniformLocation(textTransition1Program, "time");
    textTransition1Uniforms.start = glGetUniformLocation(textTransition1Program, "start");
    textTransition1Uniforms.end = glGetUniformLocation(textTransition1Program, "end");
    textTransition2Uniforms.time = glGetUniformLocation(textTransition2Program, "time");
    textTransition2Uniforms.start = glGetUniformLocation(textTransition2Program, "start");
    textTransition2Uniforms.end = glGetUniformLocation(textTransition2Program, "end");

    disruptionUniforms.time1 = glGetUniformLocation(disruptionProgram, "time1");
    disruptionUniforms.time2 = glGetUniformLocation(disruptionProgram, "time2");
    disturbUniforms.time1 = glGetUniformLocation(disturbProgram, "time1");
    disturbUniforms.time2 = glGetUniformLocation(disturbProgram, "time2");

    hurtTime = glGetUniformLocation(hurtProgram, "time");
    creditsTime = glGetUniformLocation(creditsProgram, "time");
    easterEgg1Uniforms.time = glGetUniformLocation(easterEgg1Program, "time");
    easterEgg1Uniforms.amount = glGetUniformLocation(easterEgg1Program, "amount");
    easterEgg2Time = glGetUniformLocation(easterEgg2Program, "time");
    infoTransitionTime = glGetUniformLocation(infoTransitionProgram, "time");
}

}  // namespace

void buildProgram(GLuint* program, const char* vertexFile, const char* fragmentFile,
                  bool withRandom) {
    *program = glCreateProgram();
    // The shader objects are never deleted: they live as long as the context.
    GLuint shader = 0;
    if (withRandom) {
        compileShader(&shader, "random.frag", GL_FRAGMENT_SHADER);
        glAttachShader(*program, shader);
    }
    if (vertexFile != nullptr) {
        compileShader(&shader, vertexFile, GL_VERTEX_SHADER);
        glAttachShader(*program, shader);
    }
    if (fragmentFile != nullptr) {
        compileShader(&shader, fragmentFile, GL_FRAGMENT_SHADER);
        glAttachShader(*program, shader);
    }
    glLinkProgram(*program);
    glUseProgram(*program);
    printInfoLog(*program, true);
    std::printf("\n");
}

void useProgram(GLuint program) {
    glUseProgram(program);
}

void loadBasicProgram() {
    buildProgram(&basicProgram, "basic.vrt", "basic.frag", false);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glClearColor(0, 0, 0, 1);
    glColor4f(1, 1, 1, 1);
}

void loadShaders(BootConsole* console) {
    if (console != nullptr) console->addLine("Loading shaders");

    buildProgram(&colorProgram, "color.vrt", "color.frag", false);
    buildProgram(&shadowProgram, "shadow.vrt", "shadow.frag", false);
    buildProgram(&envLightProgram, "env_light.vrt", "env_light.frag", false);
    buildProgram(&spotLightProgram, "light.vrt", "spot_light.frag", false);
    buildProgram(&lightProgram, "light.vrt", "light.frag", false);
    buildProgram(&transition1Program, "transition1.vrt", "transition1.frag", true);
    buildProgram(&transition2Program, "transition1.vrt", "transition2.frag", true);
    buildProgram(&transition3Program, "transition1.vrt", "transition3.frag", true);
    buildProgram(&transition4Program, "transition4.vrt", "transition4.frag", true);
    useProgram(basicProgram);
    addDot(console);

    buildProgram(&staticTransition1Program, "static_transition1.vrt", "static_transition1.frag",
                 false);
    buildProgram(&staticTransition2Program, "static_transition1.vrt", "static_transition2.frag",
                 false);
    buildProgram(&textTransition1Program, "transition1.vrt", "text_transition1.frag", true);
    buildProgram(&textTransition2Program, "transition1.vrt", "text_transition2.frag", true);
    buildProgram(&disruptionProgram, "transition1.vrt", "disruption.frag", true);
    buildProgram(&disturbProgram, "disturb.vrt", "disturb.frag", true);
    buildProgram(&hurtProgram, "hurt.vrt", "hurt.frag", false);
    buildProgram(&lineProgram, "line.vrt", "line.frag", true);
    useProgram(basicProgram);
    addDot(console);

    buildProgram(&line2Program, "color.vrt", "line2.frag", false);
    buildProgram(&creditsProgram, "credits.vrt", "credits.frag", false);
    buildProgram(&easterEgg1Program, "basic.vrt", "easteregg1.frag", true);
    buildProgram(&easterEgg2Program, "transition1.vrt", "easteregg2.frag", false);
    buildProgram(&blurvProgram, "basic.vrt", "blurv.frag", false);
    buildProgram(&blurhProgram, "basic.vrt", "blurh.frag", false);
    buildProgram(&speedupProgram, "basic.vrt", "speedup.frag", false);
    buildProgram(&infoTransitionProgram, "basic.vrt", "info_transition.frag", true);

    lookUpUniforms();
    useProgram(basicProgram);
    if (console != nullptr) console->closeDots();
}
