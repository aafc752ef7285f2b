// What the simulation's tests share: a scratch working folder, a hidden GL
// window on the test backend (the owners load their pictures), and map files
// written on the spot from a list of values.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/scratch_dir.h"

// The 28 values of a map, a plain stage by default; tests change what they need.
struct TestMap {
    std::string title = "Test Field";
    std::string speedUpFrames = "0";
    std::string enemyHitPoints = "4";
    std::string enemyHitPointsGrowth = "0";
    std::string enemySpeed = "0.5";
    std::string enemySpeedGrowth = "0";
    std::string spawnInterval = "100000";  // nothing spawns unless a test says so
    std::string spawnIntervalGrowth = "0";
    std::string minSpawnInterval = "1";
    std::string bigEnemyPercent = "0";
    std::string waveFrames = "1000";
    std::string pauseFrames = "100";
    std::string waveCount = "3";
    std::string directed = "0";
    std::string damage = "4";
    std::string reload = "40";
    std::string range = "250";
    std::string light = "0.5\n0.5\n0.7\n0.8\n0.8\n0.8\n0.3\n0.3\n0.3";
    std::string parScore = "1000";
    std::string unlockPoints = "0";

    // Writes content/maps/map<number>.txt and returns its path.
    std::string write(int number) const;
};

class SimTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::unique_ptr<ScratchDir> scratch;
};
