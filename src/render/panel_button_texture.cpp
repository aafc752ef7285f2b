// The key-cap picture shared by every PanelButton.
#include <GL/glew.h>

#include "data/images.h"
#include "render/text.h"

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
