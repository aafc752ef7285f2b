#include "play/game.h"

#include <GL/glew.h>
#include <cstring>

#include "base/numbers.h"
#include "data/map_file.h"
#include "data/settings.h"
#include "platform/glfw.h"
#include "play/hint.h"
#include "play/pause_menu.h"
#include "play/tutorial.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "render/transitions.h"
#include "shell/frame_clock.h"
#include "shell/hotkeys.h"
#include "shell/window.h"
#include "sim/player.h"
#include "sound/sound.h"

namespace {

const uint16_t fadeFrames = 500;
const uint16_t staticFadeStart = 150;  // from here on the picture only dissolves

void drawEndMessage(uint8_t endMessage)
{
    const float size = 0.1f;
    switch (endMessage) {
    case 1: drawText("Stage Completed", 0.5f, 0.4f, size, 1); break;
    case 2:
        drawText("Stage Completed", 0.5f, 0.325f, size, 1);
        drawText("New hi-score!", 0.5f, 0.475f, size, 1);
        break;
    case 3: drawText("Game over", 0.5f, 0.4f, size, 1); break;
    case 4: drawText("New hi-score!", 0.5f, 0.4f, size, 1); break;
    case 5: drawText("Player 1 wins", 0.5f, 0.4f, size, 1); break;
    case 6: drawText("Player 2 wins", 0.5f, 0.4f, size, 1); break;
    default: break;
    }
}

}  // namespace

std::function<void(const Game&)> Game::roundWatcher;

int16_t titleHintX(size_t titleLength, int16_t virtualWidth)
{
    return static_cast<int16_t>((titleLength * -19.243421055 + virtualWidth - 40) * 0.5);
}

float closingOverlayAlpha(uint16_t fadeCountdown)
{
    return clampFloat(mapRange(500, 300, 0, 0.8f, fadeCountdown), 0, 0.8f);
}

float closingMessageAlpha(uint16_t fadeCountdown)
{
    return clampFloat(mapRange(500, 300, 0, 1, fadeCountdown), 0, 1);
}

Game::Game(Sound* music, uint8_t playerCount, bool survival, const char* mapPath,
           uint8_t mapNumber)
    : onePlayer(playerCount == 1), music(music)
{
    virtualWidth = static_cast<int16_t>(windowWidth * 600 / windowHeight);
    if (onePlayer) {
        tutorialMode = (isTutorialEnabled() && mapNumber <= 2) ? mapNumber : 0;
        player1 = new Player(0, survival, mapPath, mapNumber);
    } else {
        tutorialMode = 3;
        player1 = new Player(1, survival, mapPath, mapNumber);
        player2 = new Player(2, survival, mapPath, mapNumber);
    }

    char title[256];
    readMapTitle(title, mapNumber, false);
    hints.push_back(new Hint(title, static_cast<uint16_t>(titleHintX(std::strlen(title), virtualWidth)),
                             245, 50, -1));

    fieldOriginX = static_cast<int16_t>(static_cast<float>(player1->viewX) / windowWidth * virtualWidth);
    fieldOriginY = static_cast<int16_t>(static_cast<float>(player1->viewY) / windowHeight * 600);

    result = resultQuit;
    startSound = new Sound("content/sound/static1.ogg", false, false);
    endSound = new Sound("content/sound/static2.ogg", false, false);
    startSound->play();

    run();

    endSound->play();
    runClosingTransition();
}

Game::~Game()
{
    delete player1;
    delete player2;
    delete startSound;
    delete endSound;
    for (Hint* hint : hints) delete hint;
}

void Game::run()
{
    FrameClock clock(60);
    uint32_t frameNumber = 0;
    uint8_t endMessage = 0;
    uint16_t fadeCountdown = fadeFrames;
    bool pauseKeysHeld = true;  // a control held from the menu does not pause

    while (true) {
        bool leaveLoop = false;
        frameNumber += 1;

        TutorialPlace place{fieldOriginX, fieldOriginY, virtualWidth, player1->viewY,
                            player2 ? player2->viewY : int16_t(0)};
        runTutorialScript(tutorialMode, frameNumber, place, hints);

        updatePlayers();

        if (endMessage == 0) {
            endMessage = checkEnd(endMessage);
        } else {
            fadeCountdown -= 1;
            if (fadeCountdown == 0) {
                result = resultChangeLevel;
                leaveLoop = true;
            }
        }

        ageHints();
        if (roundWatcher) roundWatcher(*this);

        if (fadeCountdown <= staticFadeStart) {
            // The game's picture is no longer redrawn: the last frame is fed
            // through the static again and again, whatever the clock says.
            useProgram(staticTransition1Program);
            copyScreen();
            useProgram(basicProgram);
            glfwSwapBuffers();
        } else if (!clock.shouldDraw()) {
            glfwPollEvents();
        } else {
            drawFrame(frameNumber, endMessage, fadeCountdown, clock);
            glfwSwapBuffers();
        }

        pollHotkeys();

        if (pauseNow(pauseKeysHeld)) {
            music->setPaused(true);
            PauseMenu* pauseMenu = new PauseMenu();
            result = pauseMenu->result;
            pauses.push_back({frameNumber, pauseMenu->roundsRun, result});
            if (result != resultResume) leaveLoop = true;
            clock.resync();
            music->setPaused(false);
            delete pauseMenu;
            pauseKeysHeld = true;
            // A controller's button that chose in the pause menu is no order in play.
            player1->holdPadsUntilReleased();
            if (player2) player2->holdPadsUntilReleased();
        }

        if (glfwGetWindowParam(GLFW_OPENED) == 0) leaveLoop = true;
        updateAudio();
        clock.tick();
        if (leaveLoop) break;
    }
    framesPlayed = frameNumber;
    finalEndMessage = endMessage;
}

void Game::updatePlayers()
{
    player1->update();
    if (!onePlayer) {
        player2->update();
        // Each side sees the charge the other had at the end of the last round.
        player1->enemyDisturbCharge = static_cast<uint8_t>(player2->disturbCharge & 0xFF);
        player2->enemyDisturbCharge = static_cast<uint8_t>(player1->disturbCharge & 0xFF);
    }
}

uint8_t Game::checkEnd(uint8_t endMessage)
{
    if (onePlayer) return player1->endCode();
    // Player 1 is asked first: when both lose in one round, player 2 wins.
    if (player1->endCode() == 3) {
        player2->concede();
        return 6;
    }
    if (player2->endCode() == 3) {
        player1->concede();
        return 5;
    }
    return endMessage;
}

void Game::ageHints()
{
    for (size_t i = 0; i < hints.size();) {
        if (hints[i]->tick()) {
            ++i;
        } else {
            delete hints[i];
            hints.erase(hints.begin() + static_cast<long>(i));
        }
    }
}

void Game::drawFrame(uint32_t frameNumber, uint8_t endMessage, uint16_t fadeCountdown,
                     const FrameClock& clock)
{
    player1->drawField();
    if (!onePlayer) player2->drawField();
    glClear(GL_COLOR_BUFFER_BIT);  // the field passes used the back buffer as scratch
    player1->drawView();
    if (!onePlayer) player2->drawView();

    setOrtho(virtualWidth, 600);
    glViewport(0, 0, windowWidth, windowHeight);
    for (Hint* hint : hints) hint->draw();

    if (fadeCountdown != fadeFrames) {
        setOrtho(1, 1);
        useProgram(colorProgram);
        glColor4f(0, 0, 0, closingOverlayAlpha(fadeCountdown));
        drawRect(0, 0, 1, 1);
        useProgram(basicProgram);
        glColor4f(1, 1, 1, closingMessageAlpha(fadeCountdown));
        drawEndMessage(endMessage);
        glColor4f(1, 1, 1, 1);
    }

    drawOpeningEffect(frameNumber);
    clock.drawStats();
}

bool Game::pauseNow(bool& pauseKeysHeld)
{
    // Losing the focus pauses at once, held keys or not.
    if (glfwGetWindowParam(GLFW_ACTIVE) == 0) return true;
    bool down = pauseControlDown();
    if (!pauseKeysHeld && down) return true;
    if (!down) pauseKeysHeld = false;
    return false;
}
