// One play-through of one map by one or two Players. The constructor builds
// everything and runs the whole loop; afterwards `result` says what comes next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

class Hint;
class Player;
class Sound;

// What a finished Game (or a pause menu) hands back.
enum GameResult : uint8_t {
    resultQuit = 0,
    resultResume = 1,
    resultRestart = 2,
    resultChangeLevel = 3,
    resultExitToMenu = 4,
};

// A pause as the loop met it: after which of its rounds, for how many rounds
// of its own the pause menu ran, and what it answered. A replay played
// without the menu steps over them by these.
struct PauseRecord {
    uint32_t afterRound;
    uint32_t menuRounds;
    uint8_t result;
};

class Game {
public:
    Game(Sound* music, uint8_t playerCount, bool survival, const char* mapPath, uint8_t mapNumber);
    ~Game();
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    bool onePlayer;
    Player* player1 = nullptr;
    Player* player2 = nullptr;
    std::vector<Hint*> hints;
    Sound* music;  // borrowed: only paused and resumed here
    Sound* startSound = nullptr;
    Sound* endSound = nullptr;
    uint8_t result = resultQuit;
    uint8_t tutorialMode = 0;
    int16_t fieldOriginX = 0;
    int16_t fieldOriginY = 0;
    int16_t virtualWidth = 0;

    // What the loop left behind, for whoever watches a game (tests, runners).
    uint32_t framesPlayed = 0;
    uint8_t finalEndMessage = 0;
    std::vector<PauseRecord> pauses;
    // Sees the game after each of its rounds of play (tests, runners).
    static std::function<void(const Game&)> roundWatcher;

private:
    void run();
    void updatePlayers();
    uint8_t checkEnd(uint8_t endMessage);
    void ageHints();
    void drawFrame(uint32_t frameNumber, uint8_t endMessage, uint16_t fadeCountdown,
                   const class FrameClock& clock);
    bool pauseNow(bool& pauseKeysHeld);
};

// x of the title hint: the title centred in the wide space.
int16_t titleHintX(size_t titleLength, int16_t virtualWidth);
// The closing overlay's darkness and the message's opacity at a fade count.
float closingOverlayAlpha(uint16_t fadeCountdown);
float closingMessageAlpha(uint16_t fadeCountdown);
