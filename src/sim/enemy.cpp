// The Level's work on its enemies: creation, the damage model with its
// reservations, target choice, collection of the dead and the area attacks.
#include <cstddef>

#include "base/numbers.h"
#include "base/random.h"
#include "sim/level.h"

namespace {
// Searches for the enemy furthest down start here: nothing above is taken.
constexpr float SEARCH_START_Y = -100;
}  // namespace

int32_t Level::spawnEnemy(uint8_t kind, bool nearTop)
{
    Enemy* enemy = new Enemy();
    const float speed = randomFloat(enemySpeed * 0.8f, enemySpeed * 1.2f);
    if (kind == ENEMY_KIND_DRAWN) {
        const float r = randomFloat(0, 100);
        enemy->size = bigEnemyPercent > r ? BIG_ENEMY_SIZE : SMALL_ENEMY_SIZE;
    } else {
        enemy->size = kind;
    }
    const float hitPoints = randomFloat(enemyHitPoints * 0.8f, enemyHitPoints * 1.2f);
    enemy->x = randomFloat(4, 380);
    enemy->y = nearTop ? randomFloat(0, 50) : -25.0f;

    const bool big = enemy->size > 6;
    enemy->speed = big ? speed * 0.5f : speed;
    enemy->maxHitPoints = big ? hitPoints * 10 : hitPoints;
    enemy->hitPoints = enemy->maxHitPoints;
    enemy->reservedHitPoints = enemy->maxHitPoints;

    for (size_t slot = 0; slot < enemies.size(); ++slot) {
        if (!enemies[slot]) {
            enemies[slot] = enemy;
            return static_cast<int32_t>(slot);
        }
    }
    enemies.push_back(enemy);
    return static_cast<int32_t>(enemies.size() - 1);
}

bool Level::slotHoldsAlive(int32_t slot) const
{
    if (slot < 0 || static_cast<size_t>(slot) >= enemies.size())
        return false;
    const Enemy* enemy = enemies[slot];
    return enemy && enemy->isAlive();
}

int32_t Level::selectTarget(float cannonX, float range, float nextDamage)
{
    int32_t best = -1;
    float bestY = SEARCH_START_Y;
    for (size_t slot = 0; slot < enemies.size(); ++slot) {
        const Enemy* enemy = enemies[slot];
        if (!enemy || !(enemy->reservedHitPoints > 0))
            continue;
        if (!(distanceSquared(enemy->x, enemy->y, cannonX, 512) < range * range))
            continue;
        if (enemy->y > bestY) {
            bestY = enemy->y;
            best = static_cast<int32_t>(slot);
        }
    }
    if (best >= 0)
        enemies[best]->reservedHitPoints -= nextDamage;
    return best;
}

void Level::enemyPosition(int32_t slot, float& x, float& y) const
{
    x = NO_ENEMY;
    y = NO_ENEMY;
    if (slotHoldsAlive(slot)) {
        x = enemies[slot]->x;
        y = enemies[slot]->y;
    }
}

bool Level::hitEnemy(int32_t slot, float damage)
{
    if (!slotHoldsAlive(slot))
        return false;
    enemies[slot]->hitPoints -= damage;
    return true;
}

void Level::reserveDamage(int32_t slot, float damage)
{
    if (slotHoldsAlive(slot))
        enemies[slot]->reservedHitPoints -= damage;
}

void Level::resetReservations()
{
    for (Enemy* enemy : enemies)
        if (enemy)
            enemy->reservedHitPoints = enemy->hitPoints;
}

uint8_t Level::popDeadEnemy(float& x, float& y, float& size)
{
    for (Enemy*& enemy : enemies) {
        if (!enemy || enemy->isAlive())
            continue;
        x = enemy->x;
        y = enemy->y;
        size = enemy->size;
        const uint8_t kills = enemy->isOverkilled() ? 2 : 1;
        delete enemy;
        enemy = nullptr;
        return kills;
    }
    return 0;
}

void Level::frontEnemy(float& x, float& y) const
{
    x = NO_ENEMY;
    y = NO_ENEMY;
    float bestY = SEARCH_START_Y;
    for (const Enemy* enemy : enemies) {
        if (enemy && enemy->y > bestY) {
            bestY = enemy->y;
            x = enemy->x;
            y = enemy->y;
        }
    }
}

void Level::liveEnemies(std::vector<Enemy*>& list)
{
    for (Enemy* enemy : enemies)
        if (enemy && enemy->isAlive())
            list.push_back(enemy);
}

void Level::blastAllEnemies()
{
    std::vector<Enemy*> targets;
    liveEnemies(targets);
    for (Enemy* enemy : targets) {
        const float damage = enemy->maxHitPoints * 0.3f + 0.7f;
        enemy->hitPoints -= damage;
        enemy->reservedHitPoints -= damage;
        bolts.emplace_back(1.0f, 0.0f, 0.0f, 192.0f, 600.0f, enemy->x, enemy->y, 200, true);
    }
}

void Level::chainLightning(int count, float x, float y)
{
    std::vector<Enemy*> targets;
    liveEnemies(targets);
    if (targets.empty())
        return;
    // The list is made once: a stroke may hit an enemy that the chain has killed.
    for (int i = 0; i < count; ++i) {
        Enemy* enemy = targets[randomInt(0, static_cast<int>(targets.size()) - 1)];
        enemy->hitPoints -= 2.0f;
        enemy->reservedHitPoints -= 2.0f;
        bolts.emplace_back(0.5f, 0.5f, 1.0f, x, y, enemy->x, enemy->y, 100, true);
    }
}
