// The how-to-play page with its five pictures and the credits page with its
// lines that come up one after another through a trail.
#include <GL/glew.h>
#include <algorithm>
#include <cstring>

#include "menu/menu.h"
#include "platform/desktop_services.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/frame_clock.h"

const char* const authorWebLabel = "www.kelvarin.net";
const char* const authorWebAddress = "https://www.kelvarin.net/";

namespace {

struct CreditLine {
    int delay;  // frames after the page's first 30
    float y;
    float size;
    const char* text;
};

const CreditLine creditLines[] = {
    {0, 50, 35, "Game created by Kelvarin"},
    {70, 100, 35, "Music by:"},
    {110, 140, 30, "Tobrelle, Dunmarrow"},
    {150, 175, 30, "Fennick"},
    {190, 210, 30, "Ondrevia"},
    {230, 245, 30, "Brackwyn"},
    {300, 295, 35, "Libraries used:"},
    {340, 335, 30, "Audio engine : OpenAL Soft with Ogg Vorbis"},
    {380, 370, 30, "OpenGL Extension Wrangler (glew)"},
    {420, 405, 30, "OpenGL Framework (glfw)"},
};

const int lastInfoPage = 5;
const uint8_t infoFadeFrames = 30;

// rebuildHowToPlayButtons: which turning buttons a picture offers ...
const uint8_t navigationPreviousOnly = 0;
const uint8_t navigationBoth = 1;
const uint8_t navigationNextOnly = 2;
// ... and where the selection lands.
const uint8_t focusPrevious = 0;
const uint8_t focusBack = 1;
const uint8_t focusSecond = 2;

}  // namespace

void Menu::showHowToPlayPage()
{
    beginPage(MenuPage::HowToPlay);
    infoPage = 1;
    previousInfoPage = 1;
    infoFade = 0;
    const float c = static_cast<float>(virtualWidth / 2);
    buttons->addButton("Back", c, 570, 30, 1, false);
    buttons->addButton("Next page", c + 200, 550, 30, 1, false);
    finishPage();
    captureScreenSlot(2);
}

// New buttons for the next picture without opening a new page: the frame
// count and the screen slots stay as they are.
void Menu::rebuildHowToPlayButtons(uint8_t navigation, uint8_t focus)
{
    delete buttons;
    buttons = new ButtonList(virtualWidth);
    const float c = static_cast<float>(virtualWidth / 2);
    buttons->addButton("Back", c, 570, 30, 1, false);
    if (navigation != navigationPreviousOnly) buttons->addButton("Next page", c + 200, 550, 30, 1, false);
    if (navigation != navigationNextOnly) buttons->addButton("Previous page", c - 200, 550, 30, 1, false);

    if (focus == focusBack)
        selection = 0;
    else if (focus == focusSecond)
        selection = 1;
    else
        selection = navigation == navigationPreviousOnly ? 1 : 2;
    float x, y;
    buttons->itemPosition(selection, &x, &y);
    marker = SelectionMarker(x, y);
}

void Menu::activateHowToPlay(bool escape)
{
    if (escape || selection == 0) {
        showMainPage();
        return;
    }
    if (infoFade != 0) return;  // a turn can't begin before the last has faded
    const bool next = std::strcmp(buttons->buttons[selection].text, "Next page") == 0;
    previousInfoPage = infoPage;
    infoFade = infoFadeFrames;
    if (next) {
        ++infoPage;
        if (infoPage == lastInfoPage)
            rebuildHowToPlayButtons(navigationPreviousOnly, focusBack);
        else
            rebuildHowToPlayButtons(navigationBoth, focusSecond);
    } else {
        --infoPage;
        if (infoPage == 1)
            rebuildHowToPlayButtons(navigationNextOnly, focusBack);
        else
            rebuildHowToPlayButtons(navigationBoth, focusPrevious);
    }
}

// The picture stays 800 wide on wide windows, centred, and shrinks below that.
void Menu::drawInfoPicture() const
{
    const float width = static_cast<float>(std::min<int>(virtualWidth, 800));
    const float height = width * 550 / 800;
    const float x = (virtualWidth - width) * 0.5f;
    if (infoFade == 0) {
        drawTexturedRect(infoTextures[infoPage - 1], x, 0, width, height);
        return;
    }
    glBlendFunc(GL_ONE, GL_ONE);
    useInfoTransition(static_cast<float>(infoFadeFrames - infoFade));
    drawTexturedRect(infoTextures[previousInfoPage - 1], x, 0, width, height);
    useInfoTransition(infoFade);
    drawTexturedRect(infoTextures[infoPage - 1], x, 0, width, height);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    useProgram(basicProgram);
}

void Menu::showCreditsPage()
{
    beginPage(MenuPage::Credits);
    const float c = static_cast<float>(virtualWidth / 2);
    buttons->addButton(authorWebLabel, c, 500, 30, 1, false);
    buttons->addButton("Back", c, 550, 30, 1, false);
    finishPage();
    captureScreenSlot(2);
}

void Menu::activateCredits(bool escape, FrameClock& clock)
{
    if (escape || selection == 1) {
        showMainPage();
        return;
    }
    openWebAddress(authorWebAddress);
    clock.resync();
}

void Menu::drawCredits() const
{
    const float c = static_cast<float>(virtualWidth / 2);
    for (const CreditLine& line : creditLines) {
        useCredits(static_cast<float>(static_cast<int32_t>(pageFrames) - 30 - line.delay));
        drawText(line.text, c, line.y, line.size, 1);
        useProgram(basicProgram);
    }
}
