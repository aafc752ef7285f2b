#include "sim/level.h"

#include <iostream>

#include "base/random.h"
#include "data/map_file.h"
#include "sim/director.h"

Level::Level(bool survival, const char* path)
    : speedUpFrames(mapDefaults::speedUpFrames),
      enemyHitPoints(mapDefaults::enemyHitPoints),
      enemyHitPointsGrowth(mapDefaults::enemyHitPointsGrowth),
      enemySpeed(mapDefaults::enemySpeed),
      enemySpeedGrowth(mapDefaults::enemySpeedGrowth),
      spawnInterval(mapDefaults::spawnInterval),
      spawnIntervalGrowth(mapDefaults::spawnIntervalGrowth),
      minSpawnInterval(mapDefaults::minSpawnInterval),
      bigEnemyPercent(mapDefaults::bigEnemyPercent),
      waveFrames(mapDefaults::waveFrames),
      pauseFrames(mapDefaults::pauseFrames),
      waveCount(mapDefaults::waveCount),
      directed(mapDefaults::directed),
      survival(survival)
{
    readMap(path);
    director = new Director(bigEnemyPercent, spawnInterval);
}

void Level::readMap(const char* path)
{
    MapReader reader(path);
    if (!reader.isOpen()) {
        std::cout << "Couldn't load map '" << path << "'!" << std::endl;
        return;
    }
    reader.skipLines(1);  // the title
    reader.readLine(speedUpFrames);
    reader.readLine(enemyHitPoints);
    reader.readLine(enemyHitPointsGrowth);
    reader.readLine(enemySpeed);
    reader.readLine(enemySpeedGrowth);
    reader.readLine(spawnInterval);
    reader.readLine(spawnIntervalGrowth);
    reader.readLine(minSpawnInterval);
    reader.readLine(bigEnemyPercent);
    reader.readLine(waveFrames);
    reader.readLine(pauseFrames);
    reader.readLine(waveCount);
    reader.readLine(directed);
    reader.reportShort("the stage's values");

    // The wave clock divides by the period: a map that breaks that gets the
    // default clock rather than a crash.
    if (static_cast<int64_t>(waveFrames) + pauseFrames <= 0) {
        std::cerr << "Map '" << path << "' has a wave period of " << waveFrames << " + "
                  << pauseFrames << " frames; the default wave clock is used" << std::endl;
        waveFrames = mapDefaults::waveFrames;
        pauseFrames = mapDefaults::pauseFrames;
    }
}

Level::~Level()
{
    for (Enemy* enemy : enemies)
        delete enemy;
    delete director;
}

uint32_t Level::totalFrames() const
{
    const int64_t period = static_cast<int64_t>(waveFrames) + pauseFrames;
    return static_cast<uint32_t>(period * waveCount);
}

uint8_t Level::step()
{
    frame += 1;
    ageBolts(bolts);

    for (Enemy* enemy : enemies) {
        if (!enemy)
            continue;
        enemy->y += enemy->speed;
        if (frame < speedUpFrames)
            enemy->y += enemy->speed;  // the fast start
    }

    // One breach a frame at most; another enemy past the line waits its turn.
    for (Enemy*& enemy : enemies) {
        if (enemy && enemy->y > 515.0f) {
            delete enemy;
            enemy = nullptr;
            return STEP_BREACH;
        }
    }

    if (!survival && waveIndex >= waveCount) {
        for (const Enemy* enemy : enemies)
            if (enemy)
                return STEP_NOTHING;
        return STEP_FINISHED;
    }
    return STEP_NOTHING;
}

void Level::advance()
{
    if (!survival && waveIndex >= waveCount)
        return;

    if (directed) {
        director->update();
        for (uint8_t kind = director->takePending(); kind != 0; kind = director->takePending())
            spawnEnemy(kind, false);
    }

    // The means grow on through the pauses.
    enemyHitPoints += enemyHitPointsGrowth;
    enemySpeed += enemySpeedGrowth;
    spawnInterval += spawnIntervalGrowth;
    if (spawnInterval < minSpawnInterval)
        spawnInterval = minSpawnInterval;

    spawnCredit += 1;
    if (frame < speedUpFrames)
        spawnCredit += 1;

    const uint32_t m = frame % static_cast<uint32_t>(waveFrames + pauseFrames);
    if (m == 0) {
        waveIndex += 1;
        if (!survival && waveIndex == waveCount)
            return;
    } else if (m > static_cast<uint32_t>(waveFrames)) {
        spawnCredit = 0;  // the pause
        return;
    }

    // On a directed map the clock only earns enemies; the Director releases them.
    while (spawnCredit > spawnInterval) {
        if (!directed) {
            spawnEnemy(ENEMY_KIND_DRAWN, false);
        } else {
            const float r = randomFloat(0, 100);
            if (bigEnemyPercent > r)
                director->earnedBig += 1;
            else
                director->earnedSmall += 1;
        }
        spawnCredit -= spawnInterval;
    }
}

void Level::disturbTick(float& x, float& y)
{
    x = NO_ENEMY;
    y = NO_ENEMY;
    disturbCredit += 1;
    const float threshold = (spawnInterval / waveFrames) * (waveFrames + pauseFrames) * 3.0f;
    if (!(disturbCredit > threshold))
        return;
    const int32_t slot = spawnEnemy(ENEMY_KIND_DRAWN, true);
    x = enemies[slot]->x;
    y = enemies[slot]->y;
    disturbCredit -= threshold;
}
