// Textures in the test backend's real GL context (run under Xvfb): filters and
// wrapping, the upload at the stored size, and the empty but usable texture
// that a failed load leaves.
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

// The bound texture as "wrap s, wrap t, min and mag filter, width x height: pixels".
std::string bound(uint32_t texture)
{
    GLint name = 0, width = -1, height = -1, p[4] = {};
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &name);
    EXPECT_EQ(name, GLint(texture));
    const GLenum parameters[] = {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T, GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER};
    for (int i = 0; i < 4; ++i) glGetTexParameteriv(GL_TEXTURE_2D, parameters[i], &p[i]);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &height);
    std::string pixels(size_t(width * height * 4), '\0');
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return std::to_string(p[0]) + " " + std::to_string(p[1]) + " " + std::to_string(p[2]) + " " + std::to_string(p[3]) +
           " " + std::to_string(width) + "x" + std::to_string(height) + ": " + pixels;
}

}  // namespace

TEST(Texture, FiltersUploadAndFailedLoads)
{
    ScratchDir scratch;
    testBackend::reset();
    ASSERT_TRUE(glfwInit() && glfwOpenWindow(64, 64, 8, 8, 8, 8, 0, 8, GLFW_WINDOW) && glewInit() == GLEW_OK);
    uint32_t linear = 0, nearest = 0;
    createLinearTexture(&linear);
    EXPECT_EQ(bound(linear), "10497 10497 9729 9729 0x0: ");  // GL_REPEAT, GL_LINEAR
    createNearestTexture(&nearest);
    EXPECT_EQ(bound(nearest), "10497 10497 9728 9728 0x0: ");  // GL_NEAREST
    // 3 x 2, no power of two; the first stored row comes first in memory.
    const std::string pixels = bytes({1, 2, 3, 255, 4, 5, 6, 128, 7, 8, 9, 0, 10, 11, 12, 255, 13, 14, 15, 255, 16, 17, 18, 64});
    auto odd = encodeSpg(reinterpret_cast<const unsigned char*>(pixels.data()), 3, 2);
    const std::string damaged = bytes({0, 0, 0, 0, 0, 2, 0, 1, 0, 1, 255, 0, 0, 0, 3});  // 3 pixels in 2
    writeFileBytes("content/images.sfa", packSfa({{"odd.spg", std::string(odd.begin(), odd.end())}, {"bad.spg", damaged}}));
    for (auto [name, loaded] : {std::pair<const char*, std::string>{"odd.spg", "3x2: " + pixels},
                                {"missing.spg", "0x0: "}, {"bad.spg", "0x0: "}}) {
        uint32_t texture = 0;
        std::string errors = stderrOf([&] { loadTexture(&texture, name); });
        EXPECT_EQ(errors.empty(), loaded != "0x0: ") << errors;
        EXPECT_EQ(bound(texture), "10497 10497 9729 9729 " + loaded) << name;
        glDeleteTextures(1, &texture);
        EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR)) << name;
    }
    testBackend::reset();
}
