#include "data/images.h"

#include <GL/glew.h>

#include <string>

#include "base/log.h"
#include "data/archive.h"
#include "data/spg_format.h"

unsigned char* loadImage(const char* name, uint16_t* outWidth, uint16_t* outHeight)
{
    uint32_t size = 0;
    unsigned char* entry = Archive::readEntry("content/images.sfa", name, &size);
    if (!entry) {
        logError("Error while loading image %s", name);
        return nullptr;
    }
    std::string damage;
    unsigned char* pixels = decodeSpg(entry, size, outWidth, outHeight, &damage);
    delete[] entry;
    if (!pixels) {
        logError("Damaged image %s: %s", name, damage.c_str());
    }
    return pixels;
}

namespace {

void createTexture(uint32_t* textureName, GLint filter)
{
    GLuint texture = 0;
    glGenTextures(1, &texture);
    *textureName = texture;
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
}

}  // namespace

void createLinearTexture(uint32_t* textureName) { createTexture(textureName, GL_LINEAR); }

void createNearestTexture(uint32_t* textureName) { createTexture(textureName, GL_NEAREST); }

void loadTexture(uint32_t* textureName, const char* name)
{
    // Without a GL context (the rules played headless) there is nothing to fill.
    if (!glGetString(GL_VERSION)) return;
    createLinearTexture(textureName);
    uint16_t width = 0, height = 0;
    unsigned char* pixels = loadImage(name, &width, &height);
    if (!pixels) return;
    // 4 bytes a pixel: rows always meet the default unpack alignment.
    glTexImage2D(GL_TEXTURE_2D, 0, 4, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels);
    delete[] pixels;
}
