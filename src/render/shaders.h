// The 26 GLSL programs every pixel of the game passes through, built from
// content/shaders.sfa, their uniform locations and the setters that select a
// program and feed it.
#pragma once

#include <GL/glew.h>

class BootConsole;

// One handle per program, named after it.
extern GLuint basicProgram;
extern GLuint colorProgram;
extern GLuint shadowProgram;
extern GLuint envLightProgram;
extern GLuint spotLightProgram;
extern GLuint lightProgram;
extern GLuint transition1Program;
extern GLuint transition2Program;
extern GLuint transition3Program;
extern GLuint transition4Program;
extern GLuint staticTransition1Program;
extern GLuint staticTransition2Program;
extern GLuint textTransition1Program;
extern GLuint textTransition2Program;
extern GLuint disruptionProgram;
extern GLuint disturbProgram;
extern GLuint hurtProgram;
extern GLuint lineProgram;
extern GLuint line2Program;
extern GLuint creditsProgram;
extern GLuint easterEgg1Program;
extern GLuint easterEgg2Program;
extern GLuint blurvProgram;
extern GLuint blurhProgram;
extern GLuint speedupProgram;
extern GLuint infoTransitionProgram;

// Uniform locations, each looked up in its own program (the two light
// programs share a vertex source but not their locations). -1 where the
// linker dropped a uniform; glUniform then does nothing.
struct EnvLightUniforms {
    GLint texture1 = -1, texture2 = -1, lightDirection = -1, lightColor = -1;
};
struct SpotLightUniforms {
    GLint texture1 = -1, texture2 = -1, lightPosition = -1, lightDirection = -1,
          lightDistance = -1, lightColor = -1;
};
struct PointLightUniforms {
    GLint texture1 = -1, texture2 = -1, lightPosition = -1, lightDistance = -1,
          lightColor = -1;
};
struct TextTransitionUniforms {
    GLint time = -1, start = -1, end = -1;
};
struct TwoMeterUniforms {
    GLint time1 = -1, time2 = -1;
};
struct EasterEgg1Uniforms {
    GLint time = -1, amount = -1;
};

extern EnvLightUniforms envLightUniforms;
extern SpotLightUniforms spotLightUniforms;
extern PointLightUniforms pointLightUniforms;
extern GLint transition1Time, transition2Time, transition3Time, transition4Time;
extern TextTransitionUniforms textTransition1Uniforms, textTransition2Uniforms;
extern TwoMeterUniforms disruptionUniforms, disturbUniforms;
extern GLint hurtTime, creditsTime, easterEgg2Time, infoTransitionTime;
extern EasterEgg1Uniforms easterEgg1Uniforms;

// Builds `basic` and leaves it selected, with the GL state every drawing
// routine assumes: blending (src alpha, one minus src alpha), black clear
// colour, white colour. Runs before anything is drawn.
void loadBasicProgram();

// Builds the other 25 programs in catalogue order and looks up the uniforms,
// showing progress as dots when a console is given (null after a window
// re-creation). Leaves `basic` selected.
void loadShaders(BootConsole* console);

// Creates *program from two entries of content/shaders.sfa; either file may
// be null to leave that stage out. withRandom links random.frag in as well.
// Prints each shader's log and the program's log; checks no status.
void buildProgram(GLuint* program, const char* vertexFile, const char* fragmentFile,
                  bool withRandom);

void useProgram(GLuint program);

// Setters: each selects its program and sets all of its uniforms.
void useEnvLight(float dirX, float dirY, float dirZ, float red, float green, float blue);
void useSpotLight(float x, float y, float heading, float reach, float red, float green,
                  float blue);
void usePointLight(float x, float y, float radius, float red, float green, float blue);
void useTransition1(float time);
void useTransition2(float time);
void useTransition3(float time);
void useTransition4(float time);
void useTextTransition1(float time, float start, float end);
void useTextTransition2(float time, float start, float end);
void useDisruption(float time1, float time2);
void useDisturb(float time1, float time2);
void useHurt(float time);
void useCredits(float time);
void useEasterEgg1(float time, float amount);
void useEasterEgg2(float time);
void useInfoTransition(float time);
