// The upgrade panel of the HUD: the two rows with their progress, the arrows
// that show where the output goes, the share slider, the bars of the timed
// upgrades and the boxes of both queues, which slide forward when the one in
// front of them is used.
#include <GL/glew.h>

#include "base/numbers.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "sim/upgrade_panel.h"

namespace {

// An arrow from the row's left end: a body of `body` units, a point of
// `point` units, denser with the rate (alpha t at the base, A and B ahead).
void drawShareArrow(float top, float body, float point, float t)
{
    float a = 0.55f * t, b = 0.1f * t;
    float x = 450 + body;
    glBegin(GL_TRIANGLE_FAN);
    glColor4f(0, 0, 0, a);
    glVertex2f(x, top + 30);
    glColor4f(0, 0, 0, b);
    glVertex2f(x + point, top + 15);
    glColor4f(0, 0, 0, a);
    glVertex2f(x, top);
    glColor4f(0, 0, 0, t);
    glVertex2f(450, top);
    glVertex2f(450, top + 30);
    glEnd();
}

void drawArrows(float resourceRate, float permanentShare)
{
    float t = mapRange(0, 4, 0.2f, 0.8f, resourceRate);
    float p1 = clampFloat(mapRange(0, 50, 0, 60, permanentShare), 0, 60);
    float p2 = clampFloat(mapRange(50, 100, 0, 60, permanentShare), 0, 60);
    float p3 = clampFloat(mapRange(100, 50, 0, 60, permanentShare), 0, 60);
    float p4 = clampFloat(mapRange(50, 0, 0, 60, permanentShare), 0, 60);
    drawShareArrow(150, p2, p1, t);
    drawShareArrow(270, p4, p3, t);
}

// Yellow-white towards "Permanent" above the level, pink towards "Temporary" below.
void drawShareSlider(float share)
{
    float h = mapRange(0, 100, 0, 180, share);
    glColor4f(1, 1, mapRange(0, 100, 0.5f, 0, share), 1);
    drawRect(710, 150, 30, h);
    float c = mapRange(0, 100, 0, 0.5f, share);
    glColor4f(1, c, c, 1);
    drawRect(710, 150 + h, 30, 180 - h);
}

void drawTimedBar(float x, float height)
{
    glColor4f(1, 1, 1, 1);
    drawRect(x, 380, 30, 150 - height);
    glColor4f(0.5f, 1, 0, 1);
    drawRect(x, 530 - height, 30, height);
}

}  // namespace

void UpgradePanel::draw(float resourceRate, float permanentShare)
{
    useProgram(colorProgram);
    float a = mapRange(0, 1, 0, 225, permanentProgress);
    float b = mapRange(0, 1, 0, 225, temporaryProgress);
    glColor4f(1, 1, 1, 1);
    drawRect(450 + a, 150, 225 - a, 30);
    drawRect(450 + b, 270, 225 - b, 30);
    glColor4f(0, 1, 0, 1);
    drawRect(450, 150, a, 30);
    drawRect(450, 270, b, 30);

    drawArrows(resourceRate, permanentShare);
    drawShareSlider(share);

    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
    for (float y : {150.0f, 270.0f}) {
        drawTexturedRect(rowHeadTexture, 450, y, 225, 30);
        drawTexturedRect(rowTexture, 450, y + 30, 225, 30);
    }
    drawTexturedRect(vboxTexture, 710, 150, 30, 180);
    glColor4f(0, 0, 0, 1);
    drawText("Permanent", 455, 153, 22, 0);
    drawText("Temporary", 455, 273, 22, 0);

    useProgram(colorProgram);
    drawTimedBar(630, clampFloat(mapRange(0, 900, 0, 150, chainFrames), 0, 150));
    drawTimedBar(690, clampFloat(mapRange(0, 600, 0, 150, boostFrames), 0, 150));
    useProgram(basicProgram);
    glColor4f(1, 1, 1, 1);
    drawTexturedRect(vboxTexture, 630, 380, 30, 150);
    drawTexturedRect(vboxTexture, 690, 380, 30, 150);

    // The boxes show the face picture through drawRect; an icon drawn on a
    // temporary box binds its own texture, so that queue binds the face anew.
    glBindTexture(GL_TEXTURE_2D, boxFaceTexture);
    for (size_t i = 0; i < permanent.size(); ++i)
        permanent[i]->draw(static_cast<float>(i));
    for (size_t i = 0; i < temporary.size(); ++i) {
        glBindTexture(GL_TEXTURE_2D, boxFaceTexture);
        temporary[i]->draw(static_cast<float>(i));
    }
}

void Upgrade::draw(float index)
{
    // The slide is per drawn frame, in double precision on the float.
    slot = static_cast<float>(static_cast<double>(slot) - 0.01);
    if (slot < index)
        slot = index;
    if (slot > 4.5f)
        return;
    glColor4f(red, green, blue, 1);
    // The last box of a row grows as it enters.
    float w = slot < 3.5f ? 50.0f : mapRange(4.5f, 3.5f, 0, 50, slot);
    float x = mapRange(0, 1, 0, 50, slot);
    float y = kind <= 5 ? 180.0f : 300.0f;
    drawRect(450 + x, y, w, 30);
    glColor4f(1, 1, 1, 1);
    if (hasTexture)
        drawTexturedRect(texture, 450 + x + w * 10 / 50, y + 2.5f, w * 0.6f, 25);
}
