#include "sim/score_signs.h"

#include "base/numbers.h"
#include "data/images.h"
#include "render/texture_release.h"

ScoreSigns::ScoreSigns()
{
    loadTexture(&sign1Texture, "score_sign1.spg");
    loadTexture(&sign2Texture, "score_sign2.spg");
    loadTexture(&sign3Texture, "score_sign3.spg");
}

ScoreSigns::~ScoreSigns()
{
    uint32_t textures[] = {sign1Texture, sign2Texture, sign3Texture};
    deleteTextures(3, textures);
}

void ScoreSigns::update()
{
    sign1Slide = clampFloat(sign1Slide + (sign1On ? 0.04f : -0.04f), -1, 1);
    sign2Slide = clampFloat(sign2Slide + (sign2On ? 0.04f : -0.04f), -1, 1);
    sign3Slide = clampFloat(sign3Slide + (sign3On ? 0.04f : -0.04f), -2, 1);

    if (!sign1On || sign1X < 480)
        sign1X += 1;
    if (!sign2On || sign2X < 480)
        sign2X += 1;

    if (!sign3On) {
        sign3X -= 1;
    } else if (sign1On) {
        if (sign3X > 374)
            sign3X -= 1;
    } else if (sign3X < 464) {
        sign3X += 1;
    } else if (sign3X > 464) {
        sign3X -= 1;
    }
}

void ScoreSigns::applyRules(uint32_t s, uint32_t h, uint32_t p)
{
    // Nothing shows in the first 2 % of the way.
    bool pastStart = h != 0 || s > p * 0.02;
    if (p > h && h < s && s <= p && pastStart) {
        if (!sign1On) {
            sign2On = false;
            sign1On = true;
            sign1X = 430;
        }
    } else if (s <= h && s > h * 0.02) {
        if (!sign2On) {
            sign2On = true;
            sign2X = 430;
        }
    } else {
        sign1On = false;
        sign2On = false;
    }
    if (s > h && pastStart && !sign3On) {
        sign3On = true;
        sign3X = sign1On ? 449 : 539;
    }
}
