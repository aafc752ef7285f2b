#include "hud_window.h"

#include <GL/glew.h>

#include "shell/window.h"
#include "sim/cannon_bank.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"

HudWindow::HudWindow(int width, int height)
{
    session.open(1, static_cast<uint16_t>(width), static_cast<uint16_t>(height));
}

std::string HudWindow::mapPath() const
{
    return "content/maps/map1.txt";
}

Pixel pixelAt(int x, int yFromTop)
{
    unsigned char rgb[3] = {0, 0, 0};
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(x, windowHeight - 1 - yFromTop, 1, 1, GL_RGB, GL_UNSIGNED_BYTE, rgb);
    return Pixel{rgb[0], rgb[1], rgb[2]};
}

uint32_t makeFlatTexture(uint8_t r, uint8_t g, uint8_t b, uint8_t a)
{
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    const unsigned char texel[4] = {r, g, b, a};
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, texel);
    return texture;
}

void replaceTexture(uint32_t& texture, uint32_t replacement)
{
    glDeleteTextures(1, &texture);
    texture = replacement;
}

void flattenHudPictures(Player& player, uint8_t r, uint8_t g, uint8_t b, uint8_t a)
{
    UpgradePanel& panel = *player.bank->panel;
    for (uint32_t* texture :
         {&player.boxesTexture, &player.buttonBackTexture, &player.boxTexture,
          &player.frameTexture, &player.scoreSigns.sign1Texture, &player.scoreSigns.sign2Texture,
          &player.scoreSigns.sign3Texture, &player.bank->gearTexture, &player.bank->vboxTexture,
          &player.bank->progressTexture, &panel.rowTexture, &panel.rowHeadTexture,
          &panel.vboxTexture})
        replaceTexture(*texture, makeFlatTexture(r, g, b, a));
    // The boxes are tinted through their face: white keeps their colour pure.
    replaceTexture(panel.boxFaceTexture, makeFlatTexture(255, 255, 255, 255));
}
