// The key-cap of a PanelButton: one shared picture with the button's letter
// printed on it in black.
#include <GL/glew.h>

#include "data/images.h"
#include "render/primitives.h"
#include "render/text.h"
#include "sim/panel_button.h"

uint32_t panelButtonTexture = 0;

void loadPanelButtonTexture()
{
    loadTexture(&panelButtonTexture, "button.spg");
}

void deletePanelButtonTexture()
{
    glDeleteTextures(1, &panelButtonTexture);
    panelButtonTexture = 0;
}

void drawPanelButton(const PanelButton& button)
{
    drawTexturedRect(panelButtonTexture, button.x, button.y, 32, 32);
    glColor4f(0, 0, 0, 1);
    drawText(button.label, button.x + 16, button.y + 4, 24, 1);
    glColor4f(1, 1, 1, 1);
}
