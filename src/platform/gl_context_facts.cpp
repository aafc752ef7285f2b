#include "platform/gl_context_facts.h"

#include <GL/gl.h>
#include <GL/glext.h>  // Windows' gl.h stops at OpenGL 1.1

#include <cctype>
#include <string>

namespace {

int queryInt(GLenum what)
{
    GLint value = 0;
    glGetIntegerv(what, &value);
    // A query the context does not know leaves an error behind: clear it so
    // the game's own error checks don't see ours.
    while (glGetError() != GL_NO_ERROR) {
    }
    return value;
}

std::string lowerCase(const char* text)
{
    std::string result = text ? text : "";
    for (char& c : result) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return result;
}

}  // namespace

ContextBits readContextBits()
{
    ContextBits bits;
    if (!glGetString(GL_VERSION)) {  // no current context
        return bits;
    }
    bits.red = queryInt(GL_RED_BITS);
    bits.green = queryInt(GL_GREEN_BITS);
    bits.blue = queryInt(GL_BLUE_BITS);
    bits.alpha = queryInt(GL_ALPHA_BITS);
    bits.depth = queryInt(GL_DEPTH_BITS);
    bits.stencil = queryInt(GL_STENCIL_BITS);
    bits.samples = queryInt(GL_SAMPLES);
    return bits;
}

bool isSoftwareRenderer(const char* rendererName)
{
    std::string name = lowerCase(rendererName);
    for (const char* software : {"llvmpipe", "softpipe", "swrast", "software rasterizer"}) {
        if (name.find(software) != std::string::npos) {
            return true;
        }
    }
    return false;
}

bool currentContextIsAccelerated()
{
    const GLubyte* renderer = glGetString(GL_RENDERER);
    if (!renderer) {
        return false;
    }
    return !isSoftwareRenderer(reinterpret_cast<const char*>(renderer));
}
