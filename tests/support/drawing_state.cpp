#include "support/drawing_state.h"

#include <GL/glew.h>
#include <gtest/gtest.h>

#include "render/shaders.h"

void expectCommonDrawingState()
{
    GLint value = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &value);
    EXPECT_EQ(static_cast<GLuint>(value), basicProgram);
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_STENCIL_TEST));
    glGetIntegerv(GL_BLEND_SRC, &value);
    EXPECT_EQ(value, GL_SRC_ALPHA);
    glGetIntegerv(GL_BLEND_DST, &value);
    EXPECT_EQ(value, GL_ONE_MINUS_SRC_ALPHA);
    glGetIntegerv(GL_ACTIVE_TEXTURE, &value);
    EXPECT_EQ(value, GL_TEXTURE0);
    GLfloat colour[4] = {};
    glGetFloatv(GL_CURRENT_COLOR, colour);
    EXPECT_EQ(colour[0] + colour[1] + colour[2] + colour[3], 4.0f);
}
