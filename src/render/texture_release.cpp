#include "render/texture_release.h"

#include <GL/glew.h>

void deleteTextures(int count, const uint32_t* textures)
{
    for (int i = 0; i < count; ++i) {
        if (textures[i] != 0) {
            GLuint name = textures[i];
            glDeleteTextures(1, &name);
        }
    }
}
