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

// The bound texture's filters and width and height, as "9729 9729 3x2".
std::string boundTexture(uint32_t texture)
{
    GLint bound = 0, width = -1, height = -1;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &height);
    EXPECT_EQ(bound, GLint(texture));
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_S) + parameter(GL_TEXTURE_WRAP_T), 2 * GL_REPEAT);
    return std::to_string(parameter(GL_TEXTURE_MIN_FILTER)) + " " + std::to_string(parameter(GL_TEXTURE_MAG_FILTER)) +
           " " + std::to_string(width) + "x" + std::to_string(height);
}

}  // namespace

TEST(Texture, FiltersUploadAndFailedLoads)
{
    ScratchDir scratch;
    testBackend::reset();
    ASSERT_TRUE(glfwInit() == 1 && glfwOpenWindow(64, 64, 8, 8, 8, 8, 0, 8, GLFW_WINDOW) == 1 &&
                glewInit() == GLEW_OK)
        << "no GL context: run under xvfb-run";
    uint32_t linear = 0, nearest = 0;
    createLinearTexture(&linear);
    EXPECT_EQ(boundTexture(linear), "9729 9729 0x0");  // GL_LINEAR
    createNearestTexture(&nearest);
    EXPECT_EQ(boundTexture(nearest), "9728 9728 0x0");  // GL_NEAREST

    // 3 x 2, no power of two; the first stored row comes first in memory.
    const std::string pixels = bytes({1, 2, 3, 255, 4, 5, 6, 128, 7, 8, 9, 0,
                                      10, 11, 12, 255, 13, 14, 15, 255, 16, 17, 18, 64});
    auto odd = encodeSpg(reinterpret_cast<const unsigned char*>(pixels.data()), 3, 2);
    const std::string damaged = bytes({0, 0, 0, 0, 0, 2, 0, 1, 0, 1, 255, 0, 0, 0, 3});  // 3 pixels in 2
    writeFileBytes("content/images.sfa", packSfa({{"odd.spg", std::string(odd.begin(), odd.end())},
                                                  {"damaged.spg", damaged}}));
    for (auto [name, loaded] : {std::pair{"odd.spg", "9729 9729 3x2"}, {"missing.spg", "9729 9729 0x0"},
                                {"damaged.spg", "9729 9729 0x0"}}) {
        uint32_t texture = 0;
        std::string errors = stderrOf([&] { loadTexture(&texture, name); });
        EXPECT_EQ(errors.empty(), name == std::string("odd.spg")) << errors;
        EXPECT_EQ(boundTexture(texture), loaded) << name;
        std::string uploaded(pixels.size(), '\0');
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, uploaded.data());
        EXPECT_EQ(uploaded == pixels, errors.empty()) << name;
        glDeleteTextures(1, &texture);
        EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR)) << name;
    }
    glDeleteTextures(1, &linear);
    glDeleteTextures(1, &nearest);
    testBackend::reset();
}
