#include "sim/player.h"

#include <cmath>

#include "base/numbers.h"
#include "data/images.h"
#include "data/map_file.h"
#include "data/scores.h"
#include "platform/glfw.h"
#include "render/texture_release.h"
#include "shell/window.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/panel_button.h"
#include "sound/sound.h"

PlayerView playerView(int windowWidth, int windowHeight, bool singlePlayer, uint8_t side)
{
    // 4:3 for one Player, 8:3 for two, so that each of two gets a 4:3 half.
    float aspect = static_cast<float>(windowWidth) / windowHeight;
    float target = singlePlayer ? 1.3333334f : 2.6666667f;
    int xOff = 0, yOff = 0;
    if (std::fabs(aspect - target) <= 0.001f) {
        // no bars
    } else if (aspect > target) {
        int fitted = static_cast<int>(target * windowHeight);
        xOff = (windowWidth - fitted) / 2;
    } else {
        int fitted = static_cast<int>(windowWidth / target);
        yOff = (windowHeight - fitted) / 2;
    }
    PlayerView view;
    view.width = static_cast<int16_t>((windowWidth - 2 * xOff) / (singlePlayer ? 1 : 2));
    view.height = static_cast<int16_t>(windowHeight - 2 * yOff);
    view.x = static_cast<int16_t>(side == 2 ? xOff + view.width : xOff);
    view.y = static_cast<int16_t>(yOff);
    return view;
}

Player::Player(uint8_t side, bool survival, const char* mapPath, uint8_t mapNumber)
    : singlePlayer(side == 0), side(side == 0 ? 1 : side), survival(survival),
      mapNumber(mapNumber)
{
    // Line 2, then the light and the par (lines 18 to 27).
    uint16_t speedUpLine = mapDefaults::speedUpFrames;
    for (int i = 0; i < 3; ++i) {
        lightDirection[i] = mapDefaults::lightDirection[i];
        lightColor[i] = mapDefaults::lightColor[i];
        ambient[i] = mapDefaults::ambient[i];
    }
    parScore = mapDefaults::parScore;
    MapReader map(mapPath);
    map.skipLines(1);
    map.readLine(speedUpLine);
    map.skipToLine(18);
    for (float& value : lightDirection)
        map.readLine(value);
    for (float& value : lightColor)
        map.readLine(value);
    for (float& value : ambient)
        map.readLine(value);
    map.readLine(parScore);
    if (map.isOpen())
        map.reportShort("the light and the par");
    // The sign shows in whole blinks of 50 frames.
    speedUpFrames = static_cast<uint16_t>(
        std::ceil((static_cast<int>(speedUpLine) - 15) / 50.0) * 50);

    if (survival) {
        parScore = 0;
        hiScore = getSurvivalScore(mapNumber);
    } else {
        hiScore = getStageScore(mapNumber);
    }

    PlayerView view = playerView(windowWidth, windowHeight, singlePlayer, this->side);
    viewX = view.x;
    viewY = view.y;
    viewWidth = view.width;
    viewHeight = view.height;
    buildButtons();
    assignPadButtons();

    createFieldTextures();
    loadTexture(&boxesTexture, "boxes.spg");
    loadTexture(&buttonBackTexture, "button_back.spg");
    loadTexture(&boxTexture, "box_a.spg");
    loadTexture(&frameTexture, "background.spg");

    level = new Level(survival, mapPath);
    float statScale = !survival ? 1.0f : singlePlayer ? 1.1f : 1.2f;
    bank = new CannonBank(level, survival, mapPath, statScale);

    comboSound = new Sound("content/sound/combo1.ogg", false, false);
    comboSound->addVariant("content/sound/combo2.ogg");
    comboBigSound = new Sound("content/sound/combo_big.ogg", false, false);
    button1Sound = new Sound("content/sound/button1.ogg", false, false);
    button2Sound = new Sound("content/sound/button2.ogg", false, false);
    button3Sound = new Sound("content/sound/button3.ogg", false, false);
    staticSound = new Sound("content/sound/static.ogg", false, false);
    staticSound->setUnique();
}

void Player::buildButtons()
{
    static const char* const digits[4] = {"0", "1", "2", "3"};
    static const int16_t cannonX[4] = {10, 106, 202, 298};
    if (singlePlayer) {
        // Every control answers to its key and to a click.
        for (int i = 0; i < 4; ++i)
            cannonButtons[i] = new PanelButton(cannonX[i], 563, digits[i], '0' + i, viewX,
                                               viewY, viewWidth, viewHeight);
        shareUpButton = new PanelButton(724, 134, "Q", 'Q', viewX, viewY, viewWidth, viewHeight);
        shareDownButton =
            new PanelButton(724, 314, "A", 'A', viewX, viewY, viewWidth, viewHeight);
        useTemporaryButton =
            new PanelButton(470, 230, "S", 'S', viewX, viewY, viewWidth, viewHeight);
    } else if (side == 1) {
        // The left side plays by keyboard alone.
        for (int i = 0; i < 4; ++i)
            cannonButtons[i] = new PanelButton(cannonX[i], 563, digits[i], '0' + i);
        shareUpButton = new PanelButton(724, 134, "Q", 'Q');
        shareDownButton = new PanelButton(724, 314, "A", 'A');
        useTemporaryButton = new PanelButton(470, 230, "S", 'S');
        disturbButton = new PanelButton(533, 19, "W", 'W');
    } else {
        // The right side plays by mouse alone.
        for (int i = 0; i < 4; ++i)
            cannonButtons[i] = new PanelButton(cannonX[i], 563, digits[i], 0, viewX, viewY,
                                               viewWidth, viewHeight);
        shareUpButton = new PanelButton(724, 134, "", 0, viewX, viewY, viewWidth, viewHeight);
        shareDownButton = new PanelButton(724, 314, "", 0, viewX, viewY, viewWidth, viewHeight);
        useTemporaryButton =
            new PanelButton(470, 230, "", 0, viewX, viewY, viewWidth, viewHeight);
        disturbButton = new PanelButton(533, 19, "", 0, viewX, viewY, viewWidth, viewHeight);
    }
}

// Controllers: in a one-player game any plays, in a two-player game the first
// the left side and the second the right. The face buttons choose the
// cannons, the left shoulder splits the upgrades, the right one uses them.
void Player::assignPadButtons()
{
    static const int cannonPadButtons[4] = {GLFW_PAD_X, GLFW_PAD_A, GLFW_PAD_B, GLFW_PAD_Y};
    const int seat = singlePlayer ? GLFW_ANY_PAD : side - 1;
    for (int i = 0; i < 4; ++i)
        cannonButtons[i]->answerToPad(seat, cannonPadButtons[i]);
    shareUpButton->answerToPad(seat, GLFW_PAD_LEFT_BUMPER);
    shareDownButton->answerToPad(seat, GLFW_PAD_LEFT_TRIGGER);
    useTemporaryButton->answerToPad(seat, GLFW_PAD_RIGHT_BUMPER);
    if (disturbButton)
        disturbButton->answerToPad(seat, GLFW_PAD_RIGHT_TRIGGER);
}

void Player::holdPadsUntilReleased()
{
    for (PanelButton* button : cannonButtons)
        button->holdPadUntilReleased();
    shareUpButton->holdPadUntilReleased();
    shareDownButton->holdPadUntilReleased();
    useTemporaryButton->holdPadUntilReleased();
    if (disturbButton)
        disturbButton->holdPadUntilReleased();
}

Player::~Player()
{
    deleteFieldTextures();
    uint32_t textures[] = {boxesTexture, buttonBackTexture, boxTexture, frameTexture};
    deleteTextures(4, textures);
    delete comboSound;
    delete comboBigSound;
    delete button1Sound;
    delete button2Sound;
    delete button3Sound;
    delete staticSound;
    delete level;
    delete bank;
    for (PanelButton* button : cannonButtons)
        delete button;
    delete shareUpButton;
    delete shareDownButton;
    delete useTemporaryButton;
    delete disturbButton;

    if (!singlePlayer)
        return;
    if (survival)
        saveSurvivalScore(mapNumber, score);  // leaving by the pause menu counts too
    else if (endState == 1)
        saveStageScore(mapNumber, score);
}

uint8_t Player::endCode() const
{
    if (!singlePlayer)
        return endState;
    if (endState == 1 && score > hiScore)
        return 2;
    if (survival && endState == 3 && score > hiScore)
        return 4;
    return endState;
}
