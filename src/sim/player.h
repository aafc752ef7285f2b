// One side of the game: a field with its Level and CannonBank, the effects
// over it, the score and combo, the breach rule, the panel's input and, in a
// two-player game, the disturbance against the other side.
#pragma once

#include <cstdint>
#include <vector>

#include "sim/effects.h"
#include "sim/score_signs.h"

class CannonBank;
class Level;
class PanelButton;
class Sound;

// Lightning waiting its turn.
struct ArcOrder {
    uint8_t count;  // strokes
    float x, y;     // where they start
};

class Player {
public:
    // side 0 in a one-player game, 1 (left) and 2 (right) in a two-player game.
    Player(uint8_t side, bool survival, const char* mapPath, uint8_t mapNumber);
    // Stores the score of a one-player game.
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    void update();
    // After a pause: the controller's buttons held now wait to be let go.
    void holdPadsUntilReleased();
    // endState refined by the score: 2 and 4 mark a new hi-score.
    uint8_t endCode() const;
    void concede() { endState = 1; }

    // The pictures live in src/render/.
    void drawField();
    void drawView();

    Level* level;
    CannonBank* bank;
    std::vector<ArcOrder> arcOrders;
    std::vector<Spark> sparks;
    std::vector<PointLight> lights;
    PanelButton* cannonButtons[4];
    PanelButton* shareUpButton;
    PanelButton* shareDownButton;
    PanelButton* useTemporaryButton;
    PanelButton* disturbButton = nullptr;  // two-player games only
    ScoreSigns scoreSigns;
    ShardList shards;
    Sound* comboSound;
    Sound* comboBigSound;
    Sound* button1Sound;
    Sound* button2Sound;
    Sound* button3Sound;
    Sound* staticSound;
    bool useTemporaryHeld = false;
    uint32_t frame = 0;
    bool singlePlayer;
    uint8_t side;  // 1 left, 2 right
    bool survival;
    uint8_t mapNumber;
    int16_t viewX = 0, viewY = 0, viewWidth = 0, viewHeight = 0;
    uint32_t sceneTexture = 0, fieldTexture = 0, speedUpTexture = 0;
    uint32_t boxesTexture = 0, buttonBackTexture = 0, boxTexture = 0, frameTexture = 0;
    uint16_t speedUpFrames = 0;  // the "Speed up!" sign shows while frame is below
    float lightDirection[3];
    float lightColor[3];
    float ambient[3];
    uint32_t score = 0;
    uint32_t shownScore = 0;
    uint32_t parScore = 0;
    uint32_t hiScore = 0;
    uint8_t endState = 0;  // 0 playing, 1 stage completed, 3 lost
    int16_t noise = 0;     // the static meter; the breach rule reads it
    int16_t noiseRoll = 0;
    bool disturbOn = false;
    bool disturbHeld = false;
    int16_t disturbCharge = 0;
    uint8_t enemyDisturbCharge = 0;  // written by the Game
    uint8_t blastGlow = 0;
    uint16_t combo = 0;
    float comboTimer = 0;

private:
    void setUpView(int windowWidth, int windowHeight);
    void buildButtons();
    void assignPadButtons();
    void bookKill(float x, float y, float size, int pass);
    void readInput();
    void clickPressedButtons();
    void chargeDisturbance();
    // Made and freed with the field picture (src/render/): at once where a GL
    // context is current, else on the first drawn frame.
    void createFieldTextures();
    void deleteFieldTextures();
};

// The view set-up in isolation: one side's part of a window of the given size.
struct PlayerView {
    int16_t x, y, width, height;
};
PlayerView playerView(int windowWidth, int windowHeight, bool singlePlayer, uint8_t side);
