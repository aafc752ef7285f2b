// One side's stage: the values of a map, the wave clock, the enemies in their
// slots and the bolts over them. It knows nothing of score, cannons or input;
// it answers the questions of the Player and the cannons.
//
// Slots: an enemy never moves to another slot, a null slot is free, new
// enemies fill the lowest free slot, and the array never shrinks, so a slot
// index is a stable identity for the cannons.
#pragma once

#include <cstdint>
#include <vector>

#include "sim/effects.h"
#include "sim/enemy.h"

class Director;

// What step() reports.
constexpr uint8_t STEP_NOTHING = 0;
constexpr uint8_t STEP_FINISHED = 1;
constexpr uint8_t STEP_BREACH = 3;

// Kinds for spawnEnemy: 0 draws by bigEnemyPercent.
constexpr uint8_t ENEMY_KIND_DRAWN = 0;
constexpr uint8_t ENEMY_KIND_SMALL = 4;
constexpr uint8_t ENEMY_KIND_BIG = 8;

class Level {
public:
    // Reads map lines 2 to 14 of path. A missing or short map leaves the
    // defaults of data/map_file.h in place.
    Level(bool survival, const char* path);
    ~Level();
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

    // First in each frame: bolts age, enemies walk, at most one breach is
    // taken. 0 nothing, 1 stage finished, 3 an enemy broke through.
    uint8_t step();
    // After the cannons: the wave clock, and the enemies it creates.
    void advance();
    uint32_t elapsedFrames() const { return frame; }
    uint32_t totalFrames() const;

    // A new enemy in the lowest free slot (or appended); its slot index.
    int32_t spawnEnemy(uint8_t kind, bool nearTop);

    // Removes the first dead enemy and writes where it died: 0 none,
    // 1 a kill, 2 an overkill (two kills).
    uint8_t popDeadEnemy(float& x, float& y, float& size);
    // Position of the enemy furthest down, dead or alive; 1000, 1000 if none.
    void frontEnemy(float& x, float& y) const;
    // The most advanced enemy still needing shots within range of the muzzle
    // at (cannonX, 512); reserves nextDamage on it. Slot or -1.
    int32_t selectTarget(float cannonX, float range, float nextDamage);
    // Position of a living enemy; 1000, 1000 for anything else.
    void enemyPosition(int32_t slot, float& x, float& y) const;
    // A shot lands; false if nothing alive is there.
    bool hitEnemy(int32_t slot, float damage);
    // The next shot at a living enemy is aimed.
    void reserveDamage(int32_t slot, float damage);
    // The planned shots are void: every enemy's reservation is its hit points.
    void resetReservations();
    // Appends the address of every living enemy in slot order; good only
    // until the next enemy is destroyed.
    void liveEnemies(std::vector<Enemy*>& list);
    // The blast: 30 % of full strength plus 0.7 off every living enemy.
    void blastAllEnemies();
    // count strokes of 2.0 damage from (x, y) at living enemies picked at random.
    void chainLightning(int count, float x, float y);
    // The other side's full disturbance charge: now and then an enemy in plain
    // sight. Writes its position, or 1000, 1000 when none was made.
    void disturbTick(float& x, float& y);

    // Drawing lives with the field picture (src/render/).
    void drawEnemies() const;
    void drawBolts() const;
    void drawDirectionalShadows(float dirX, float dirY, float dirZ) const;
    void drawPointShadows(float x, float y, float radius) const;

    std::vector<Enemy*> enemies;  // slots, owned; null is free
    std::vector<Bolt> bolts;      // chain and blast bolts
    Director* director = nullptr;  // always built, idle unless directed
    uint32_t frame = 0;
    uint16_t speedUpFrames;
    float enemyHitPoints;
    float enemyHitPointsGrowth;
    float enemySpeed;
    float enemySpeedGrowth;
    float spawnInterval;
    float spawnIntervalGrowth;
    float minSpawnInterval;
    float bigEnemyPercent;
    int32_t waveFrames;
    int32_t pauseFrames;
    int32_t waveCount;
    int32_t waveIndex = 0;  // wave periods begun after the first
    bool directed;
    bool survival;
    float spawnCredit = 0;    // frames earned towards the next spawn
    float disturbCredit = 0;  // frames earned towards the next disturbance enemy

private:
    void readMap(const char* path);
    bool slotHoldsAlive(int32_t slot) const;
};
