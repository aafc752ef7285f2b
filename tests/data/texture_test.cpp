// Textures in the test backend's real GL context (run under Xvfb): the
// filters and wrapping asked for, the upload at the stored size, and the
// empty but usable texture a failed load leaves.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include "data/images.h"
#include "data/sfa_format.h"
#include "data/spg_format.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

GLint parameter(GLenum name)
{
    GLint value = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, name, &value);
    return value;
}

GLint levelSize(GLenum name)
{
    GLint value = -1;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, name, &value);
    return value;
}

GLint boundTexture()
{
    GLint bound = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    return bound;
}

}  // namespace

TEST(Texture, FiltersUploadAndFailedLoads)
{
    ScratchDir scratch;
    testBackend::reset();
    ASSERT_TRUE(glfwInit() == 1 && glfwOpenWindow(64, 64, 8, 8, 8, 8, 0, 8, GLFW_WINDOW) == 1 &&
                glewInit() == GLEW_OK)
        << "no GL context: run under xvfb-run";

    for (GLint filter : {GL_LINEAR, GL_NEAREST}) {
        uint32_t texture = 0;
        (filter == GL_LINEAR ? createLinearTexture : createNearestTexture)(&texture);
        EXPECT_NE(texture, 0u);
        EXPECT_EQ(boundTexture(), GLint(texture));
        EXPECT_EQ(parameter(GL_TEXTURE_WRAP_S), GL_REPEAT);
        EXPECT_EQ(parameter(GL_TEXTURE_WRAP_T), GL_REPEAT);
        EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), filter);
        EXPECT_EQ(parameter(GL_TEXTURE_MAG_FILTER), filter);
        EXPECT_EQ(levelSize(GL_TEXTURE_WIDTH), 0);
        glDeleteTextures(1, &texture);
    }

    // 3 x 2, no power of two; the first stored row comes first in memory.
    const std::string pixels = bytes({1, 2, 3, 255, 4, 5, 6, 128, 7, 8, 9, 0,
                                      10, 11, 12, 255, 13, 14, 15, 255, 16, 17, 18, 64});
    auto odd = encodeSpg(reinterpret_cast<const unsigned char*>(pixels.data()), 3, 2);
    std::string damaged = bytes({0, 0, 0, 0, 0, 2, 0, 1, 0, 1, 255, 0, 0, 0, 3});  // 3 pixels in 2
    writeFileBytes("content/images.sfa",
                   packSfa({{"odd.spg", std::string(odd.begin(), odd.end())}, {"damaged.spg", damaged}}));
    for (const char* name : {"odd.spg", "missing.spg", "damaged.spg"}) {
        uint32_t texture = 0;
        std::string errors = stderrOf([&] { loadTexture(&texture, name); });
        EXPECT_EQ(errors == "", name == std::string("odd.spg")) << name << errors;
        EXPECT_TRUE(glIsTexture(texture)) << name;
        EXPECT_EQ(boundTexture(), GLint(texture)) << name;
        EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR) << name;
        if (errors == "") {
            EXPECT_EQ(levelSize(GL_TEXTURE_WIDTH), 3);
            EXPECT_EQ(levelSize(GL_TEXTURE_HEIGHT), 2);
            std::string uploaded(pixels.size(), '\0');
            glPixelStorei(GL_PACK_ALIGNMENT, 1);
            glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, uploaded.data());
            EXPECT_EQ(uploaded, pixels);
        } else {
            EXPECT_EQ(levelSize(GL_TEXTURE_WIDTH), 0) << name;
        }
        glDeleteTextures(1, &texture);
        EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR)) << name;
    }
    testBackend::reset();
}
