// One round of a two-player game's simulation: both Players' updates and the
// exchange of the disturbance charges, with N live enemies on each field,
// three standing cannons a side and the effect lists in use.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/random.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "shell/window.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"

namespace {

// A field where nothing spawns by itself, so that the count stays as set.
std::string writeBenchMap()
{
    std::string folder = std::filesystem::temp_directory_path() / "gorvan-bench";
    std::filesystem::create_directories(folder);
    std::string path = folder + "/map_bench.txt";
    std::ofstream out(path, std::ios::trunc);
    out << "Bench\n0\n4\n0\n0.5\n0\n1000000\n0\n1\n10\n1000\n100\n3\n0\n"
           "4\n20\n300\n0.5\n0.5\n0.7\n0.8\n0.8\n0.8\n0.3\n0.3\n0.3\n1000\n0\n";
    return path;
}

// Standing enemies, one big in five, added until the field holds count of
// them; hitPoints 0 gives enemies that can't be killed, so that the count
// holds by itself and the cannons keep their targets.
void fillField(Player& player, int count, float hitPoints)
{
    std::vector<Enemy*>& slots = player.level->enemies;
    int alive = 0;
    for (const Enemy* enemy : slots)
        alive += enemy != nullptr;
    size_t slot = 0;
    for (int i = alive; i < count; ++i) {
        float hp = hitPoints > 0 ? hitPoints : 1e9f;
        Enemy* enemy = new Enemy{randomFloat(4, 380), randomFloat(0, 500), 0,
                                 i % 5 == 0 ? 8.0f : 4.0f, hp, hp, hp};
        // The lowest free slot, as the Level fills them.
        while (slot < slots.size() && slots[slot] != nullptr)
            ++slot;
        if (slot < slots.size())
            slots[slot] = enemy;
        else
            slots.push_back(enemy);
    }
}

// Keeps the lights, shards and lightning orders of a busy late game in play.
void keepEffects(Player& player)
{
    while (player.lights.size() < 12)
        player.lights.push_back(
            PointLight(player.level, 0, 0, 40, randomFloat(0, 384), randomFloat(0, 512), 100, 165));
    while (player.shards.shards.size() < 6)
        player.shards.add(randomFloat(0, 384), randomFloat(0, 512));
    if (player.arcOrders.size() < 2)
        player.arcOrders.push_back(ArcOrder{3, 192, 300});
}

// hitPoints 0: immortal enemies; otherwise the dead are replaced each round,
// so that targets are lost and chosen again and kills are booked.
void roundOfTwoPlayers(benchmark::State& state, float hitPoints)
{
    testBackend::reset();
    glfwInit();
    glfwOpenWindow(800, 600, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
    setScreenSize(800, 600);
    seedRandom(1);
    std::string path = writeBenchMap();
    Player* left = new Player(1, true, path.c_str(), 1);
    Player* right = new Player(2, true, path.c_str(), 1);
    for (Player* player : {left, right}) {
        player->bank->setCannons(3);
        for (int i = 0; i < 202; ++i)  // the row stands
            player->update();
        fillField(*player, static_cast<int>(state.range(0)), hitPoints);
    }
    for (auto _ : state) {
        if (hitPoints > 0) {  // the refill is timed too: a spawn's worth of work
            fillField(*left, static_cast<int>(state.range(0)), hitPoints);
            fillField(*right, static_cast<int>(state.range(0)), hitPoints);
        }
        keepEffects(*left);
        keepEffects(*right);
        left->update();
        right->update();
        left->enemyDisturbCharge = static_cast<uint8_t>(right->disturbCharge);
        right->enemyDisturbCharge = static_cast<uint8_t>(left->disturbCharge);
        // The marks are consumed by the field picture, which isn't drawn here.
        left->sparks.clear();
        right->sparks.clear();
    }
    state.counters["cannons"] = static_cast<double>(left->bank->cannons.size());
    delete left;
    delete right;
    glfwCloseWindow();
    glfwTerminate();
}
BENCHMARK_CAPTURE(roundOfTwoPlayers, standing, 0.0f)
    ->Arg(100)->Arg(500)->Arg(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(roundOfTwoPlayers, dying, 12.0f)
    ->Arg(100)->Arg(500)->Arg(2000)->Unit(benchmark::kMicrosecond);

}  // namespace
