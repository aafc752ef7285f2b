// STAND-IN until the simulation lands: the Player as the game loop sees it,
// with the operations and fields the loop uses and no rules of play. It never
// ends a game by itself; only pause, a closed window or concede end one.
#pragma once

#include <cstdint>

class Player {
public:
    Player(uint8_t side, bool survival, const char* mapPath, uint8_t mapNumber);

    void update();
    void drawField();
    void drawView();
    uint8_t endCode() const;
    void concede() { endState = 1; }

    uint8_t side;
    bool survival;
    uint8_t endState = 0;  // 0 playing, 1 stage completed, 3 lost
    uint32_t score = 0;
    uint32_t hiScore = 0;
    int16_t viewX = 0, viewY = 0;
    uint16_t disturbCharge = 0;
    uint8_t enemyDisturbCharge = 0;
};
