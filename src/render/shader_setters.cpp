// The setters of the programs that take values: each selects its program and
// sets all of its uniforms. Play only selects and feeds; nothing is looked up.
#include "render/shaders.h"

namespace {

// The light programs read the picture from unit 0 and the ground's slopes
// from unit 1; the samplers are set every time the program is selected.
void setLightSamplers(GLint texture1, GLint texture2) {
    glUniform1i(texture1, 0);
    glUniform1i(texture2, 1);
}

void useTimed(GLuint program, GLint timeLocation, float time) {
    glUseProgram(program);
    glUniform1f(timeLocation, time);
}

void useTextTransition(GLuint program, const TextTransitionUniforms& uniforms, float time,
                       float start, float end) {
    glUseProgram(program);
    glUniform1f(uniforms.time, time);
    glUniform1f(uniforms.start, start);
    glUniform1f(uniforms.end, end);
}

void useTwoMeters(GLuint program, const TwoMeterUniforms& uniforms, float time1, float time2) {
    glUseProgram(program);
    glUniform1f(uniforms.time1, time1);
    glUniform1f(uniforms.time2, time2);
}

}  // namespace

void useEnvLight(float dirX, float dirY, float dirZ, float red, float green, float blue) {
    glUseProgram(envLightProgram);
    setLightSamplers(envLightUniforms.texture1, envLightUniforms.texture2);
    glUniform3f(envLightUniforms.lightDirection, dirX, dirY, dirZ);
    glUniform4f(envLightUniforms.lightColor, red, green, blue, 1);
}

void useSpotLight(float x, float y, float heading, float reach, float red, float green,
                  float blue) {
    glUseProgram(spotLightProgram);
    setLightSamplers(spotLightUniforms.texture1, spotLightUniforms.texture2);
    glUniform2f(spotLightUniforms.lightPosition, x, y);
    glUniform1f(spotLightUniforms.lightDirection, heading);
    glUniform1f(spotLightUniforms.lightDistance, reach);
    glUniform4f(spotLightUniforms.lightColor, red, green, blue, 1);
}

void usePointLight(float x, float y, float radius, float red, float green, float blue) {
    glUseProgram(lightProgram);
    setLightSamplers(pointLightUniforms.texture1, pointLightUniforms.texture2);
    glUniform2f(pointLightUniforms.lightPosition, x, y);
    glUniform1f(pointLightUniforms.lightDistance, radius);
    glUniform4f(pointLightUniforms.lightColor, red, green, blue, 1);
}

void useTransition1(float time) { useTimed(transition1Program, transition1Time, time); }
void useTransition2(float time) { useTimed(transition2Program, transition2Time, time); }
void useTransition3(float time) { useTimed(transition3Program, transition3Time, time); }
void useTransition4(float time) { useTimed(transition4Program, transition4Time, time); }

void useTextTransition1(float time, float start, float end) {
    useTextTransition(textTransition1Program, textTransition1Uniforms, time, start, end);
}

void useTextTransition2(float time, float start, float end) {
    useTextTransition(textTransition2Program, textTransition2Uniforms, time, start, end);
}

void useDisruption(float time1, float time2) {
    useTwoMeters(disruptionProgram, disruptionUniforms, time1, time2);
}

void useDisturb(float time1, float time2) {
    useTwoMeters(disturbProgram, disturbUniforms, time1, time2);
}

void useHurt(float time) { useTimed(hurtProgram, hurtTime, time); }
void useCredits(float time) { useTimed(creditsProgram, creditsTime, time); }

void useEasterEgg1(float time, float amount) {
    glUseProgram(easterEgg1Program);
    glUniform1f(easterEgg1Uniforms.time, time);
    glUniform1f(easterEgg1Uniforms.amount, amount);
}

void useEasterEgg2(float time) { useTimed(easterEgg2Program, easterEgg2Time, time); }
void useInfoTransition(float time) { useTimed(infoTransitionProgram, infoTransitionTime, time); }
