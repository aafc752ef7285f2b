// One frame of the menu: the page's still picture, what moves on it, and the
// transition from the page before over its first 41 frames.
#include <GL/glew.h>

#include "base/numbers.h"
#include "menu/menu.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"

namespace {

const float letterTop = 10;
const float letterSize = 128;

// The title's timeline in frames of the main page (60 a second).
const int32_t hiddenWordStart = 3512;   // letters switch to the broken title after this
const int32_t breakUpStart = 4112;      // the break-up amount starts to rise
const int32_t breakUpEnd = 4412;        // ... and is full
const uint32_t secondImagesEnd = 5111;  // the hidden word shows up to here
const uint32_t flashEnd = 5121;         // the letters flash back until here

const int pageTransitionFrames = 40;

}  // namespace

// Left to right; the hidden word's letters stand on the same spots.
const float titleLetterOffsets[6] = {-172, -131, -86, -37, 5, 45};

void Menu::draw()
{
    drawScreenSlot(2);
    selectWideSpace();
    if (page == MenuPage::Credits) {
        // The lines land on the kept picture, and the whole goes back into
        // it through the trail: each frame feeds the next.
        drawCredits();
        useProgram(staticTransition2Program);
        copyScreen();
        captureScreenSlot(2);
        useProgram(basicProgram);
    }
    selectWideSpace();
    if (page == MenuPage::HowToPlay) drawInfoPicture();
    buttons->draw();
    if (page == MenuPage::Main) drawTitle();

    useProgram(colorProgram);
    for (const RowHighlight& highlight : rowHighlights) highlight.draw();
    useProgram(basicProgram);
    marker.draw();

    if (pageFrames <= pageTransitionFrames) {
        // The old page dissolves under the new one as it comes in.
        captureScreenSlot(0);
        glClear(GL_COLOR_BUFFER_BIT);
        useTransition3(static_cast<float>(pageFrames * 2));
        drawScreenSlot(1);
        useTransition1(static_cast<float>(pageFrames));
        drawScreenSlot(0);
        useProgram(basicProgram);
    }
}

// The title letters come in one after another; a player who waits on the
// main page long enough sees them break up into another word and come back.
void Menu::drawTitle() const
{
    const float c = static_cast<float>(virtualWidth / 2);
    glBlendFunc(GL_ONE, GL_ONE);
    for (int i = 0; i < 6; ++i) {
        const int32_t t = static_cast<int32_t>(pageFrames) - 10 * i;
        const float x = c + titleLetterOffsets[i];
        if (t <= hiddenWordStart || pageFrames > secondImagesEnd) {
            useTransition4(static_cast<float>(t));
        } else {
            float amount = 0;
            if (t > breakUpStart)
                amount = clampFloat(mapRange(breakUpStart, breakUpEnd, 0, 1, t), 0, 1);
            useEasterEgg1(static_cast<float>(t), amount);
        }
        drawTexturedRect(letterTextures[i], x, letterTop, letterSize, letterSize);
        if (pageFrames > secondImagesEnd && pageFrames <= flashEnd) {
            glColor4f(1, 1, 1, mapRange(5112, 5122, 1, 0, static_cast<float>(pageFrames)));
            drawTexturedRect(letterTextures[i], x, letterTop, letterSize, letterSize);
            glColor4f(1, 1, 1, 1);
        }
        if (pageFrames > static_cast<uint32_t>(breakUpEnd) && pageFrames <= secondImagesEnd) {
            useEasterEgg2(static_cast<float>(pageFrames - breakUpEnd));
            drawTexturedRect(hiddenTextures[i], x, letterTop, letterSize, letterSize);
        }
        useProgram(basicProgram);
    }
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

    useEasterEgg2(static_cast<float>(pageFrames / 2 + 50));
    drawText("version 1.1", 10, 570, 18, 0);
    useProgram(basicProgram);
}
