// The three score signs at the top of a one-player HUD: a sign's slide value
// is its opacity, so it fades in and out where the rules of play put it.
#include <GL/glew.h>

#include "render/primitives.h"
#include "sim/score_signs.h"

void ScoreSigns::draw()
{
    const struct {
        uint32_t texture;
        uint16_t x;
        float slide;
    } signs[3] = {{sign1Texture, sign1X, sign1Slide},
                  {sign2Texture, sign2X, sign2Slide},
                  {sign3Texture, sign3X, sign3Slide}};
    for (const auto& sign : signs) {
        if (sign.slide > 0) {
            glColor4f(1, 1, 1, sign.slide);
            drawTexturedRect(sign.texture, sign.x, 18, 96, 24);
        }
    }
    glColor4f(1, 1, 1, 1);
}
