// Texture upload in the test backend's real GL context (run under Xvfb).
#include <gtest/gtest.h>

#include <GL/glew.h>

#include "data/images.h"
#include "image_test_support.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"

namespace {

class TextureTest : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        testBackend::reset();
        ready = glfwInit() == 1 && glfwOpenWindow(64, 64, 8, 8, 8, 8, 0, 8, GLFW_WINDOW) == 1 &&
                glewInit() == GLEW_OK;
    }

    static void TearDownTestSuite()
    {
        testBackend::reset();
        ready = false;
    }

    void SetUp() override
    {
        ASSERT_TRUE(ready) << "no GL context: these tests need an X server (run under xvfb-run)";
        while (glGetError() != GL_NO_ERROR) {
        }
    }

    static GLint boundTexture()
    {
        GLint bound = 0;
        glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
        return bound;
    }

    static GLint parameter(GLenum name)
    {
        GLint value = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, name, &value);
        return value;
    }

    static GLint levelSize(GLenum name)
    {
        GLint value = -1;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, name, &value);
        return value;
    }

    static bool ready;
};

bool TextureTest::ready = false;

}  // namespace

TEST_F(TextureTest, CreatedTexturesRepeatAndFilterAsAsked)
{
    uint32_t linear = 0, nearest = 0;
    createLinearTexture(&linear);
    EXPECT_NE(linear, 0u);
    EXPECT_EQ(boundTexture(), GLint(linear));
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_S), GL_REPEAT);
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_T), GL_REPEAT);
    EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR);
    EXPECT_EQ(parameter(GL_TEXTURE_MAG_FILTER), GL_LINEAR);

    createNearestTexture(&nearest);
    EXPECT_NE(nearest, linear);
    EXPECT_EQ(boundTexture(), GLint(nearest));
    EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), GL_NEAREST);
    EXPECT_EQ(parameter(GL_TEXTURE_MAG_FILTER), GL_NEAREST);
    EXPECT_EQ(levelSize(GL_TEXTURE_WIDTH), 0);

    glDeleteTextures(1, &linear);
    glDeleteTextures(1, &nearest);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(TextureTest, UploadsAtTheStoredSize)
{
    ScratchDir scratch;
    // 3 x 2, no power of two; rows as stored, first row first in memory.
    std::vector<unsigned char> pixels = {1, 2, 3, 255, 4, 5, 6, 128, 7, 8, 9, 0,
                                         10, 11, 12, 255, 13, 14, 15, 255, 16, 17, 18, 64};
    writeImages({{"odd.spg", encodeSpg(pixels.data(), 3, 2)}});

    uint32_t texture = 0;
    loadTexture(&texture, "odd.spg");
    EXPECT_EQ(boundTexture(), GLint(texture));
    EXPECT_EQ(levelSize(GL_TEXTURE_WIDTH), 3);
    EXPECT_EQ(levelSize(GL_TEXTURE_HEIGHT), 2);
    EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR);
    std::vector<unsigned char> uploaded(pixels.size());
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, uploaded.data());
    EXPECT_EQ(uploaded, pixels);
    glDeleteTextures(1, &texture);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(TextureTest, FailedLoadLeavesAnEmptyUsableTexture)
{
    ScratchDir scratch;
    auto damaged = twoRedPixels();
    damaged.back() = 3;  // 3 pixels in a picture of 2
    writeImages({{"damaged.spg", damaged}});
    for (const char* name : {"missing.spg", "damaged.spg"}) {
        uint32_t texture = 0;
        testing::internal::CaptureStderr();
        loadTexture(&texture, name);
        std::string errors = testing::internal::GetCapturedStderr();
        EXPECT_NE(errors, "") << name;
        EXPECT_NE(texture, 0u) << name;
        EXPECT_EQ(boundTexture(), GLint(texture)) << name;
        EXPECT_TRUE(glIsTexture(texture)) << name;
        EXPECT_EQ(levelSize(GL_TEXTURE_WIDTH), 0) << name;
        glDeleteTextures(1, &texture);
        EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR)) << name;
    }
}
