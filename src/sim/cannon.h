// One cannon of the row: finds its own target by slot, turns its barrel
// towards it and fires when the reload has run out. A shot is a hit at once;
// the bolts only show what already happened.
#pragma once

#include <cstdint>
#include <vector>

#include "sim/effects.h"

class Level;

class Cannon {
public:
    // The textures are the bank's, borrowed for drawing.
    Cannon(int16_t x, uint32_t baseTexture, uint32_t barTexture, uint32_t gearTexture,
           Level* level);

    // The cannon's frame with the bank's effective stats; true if it fired.
    bool update(float damage, float reload, float range);
    void ageBolts();

    // Drawing lives with the field picture (src/render/).
    void drawLight();
    void draw(float y);

    Level* level;
    std::vector<Bolt> bolts;
    int16_t x;              // the muzzle point for range and angle is (x, 512)
    float angle = -1.5707964f;
    float range = 0;        // effective range of the last update
    uint32_t baseTexture, barTexture, gearTexture;
    float reloadTimer;
    float nextDamage = 0;   // damage of the next shot, decided one shot ahead
    int32_t target = -1;    // enemy slot
    float targetX = 1000, targetY = 1000;
    float gear1X, gear1Y, gear1Size;
    float gear2X, gear2Y, gear2Size;
    float gearAngle = 0, gearBaseAngle;

private:
    void aim(float damage, float range);
};
