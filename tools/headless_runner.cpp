// Plays maps without a picture, on the virtual-time test backend, and prints
// how each game went: for balancing the maps and for finding crashes.
//
//   headless_runner [--map N | --all] [--mode stage|survival|versus|all]
//                   [--seed S] [--policy idle|cannons|simple|smart] [--script FILE]
//                   [--max-rounds R] [--run-dir DIR]
//   headless_runner --replay FILE [--run-dir DIR]
//
// With --replay it plays a recorded game (a .gorvanreplay) to its end and
// prints its final score and end code, as `gorvan --replay` does in the
// window: exit 0 when they are the recorded ones, 1 when not, 2 for a file
// it can't play.
//
// The policies are told in runner_policies.h; tools/balance_report.sh plays
// every map with them and writes docs/balance.md.
//
// The rounds follow the Game's order (rules_match.h), with no GL context and
// no X server. A script holds lines "ROUND KEY
// down|up" (KEY a character such as 3, Q, S, W) and "ROUND click X Y" (a
// left click held for one round at window pixel X, Y), applied as the test
// backend applies scripted input.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>

#include "base/random.h"
#include "data/map_file.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "replay/replay_checks.h"
#include "shell/window.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/panel_button.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"

#include "rules_match.h"
#include "runner_policies.h"

namespace {

struct Options {
    int map = 1;
    bool allMaps = false;
    std::vector<int> modes = {0};  // 0 stage, 1 survival, 2 versus
    uint32_t seed = 1;
    Policy policy = simplePolicy;
    std::string script;
    uint32_t maxRounds = 300000;
    std::string replay;
};

// What the runner counts for one side; the Player keeps no such totals.
struct SideStats {
    uint32_t kills = 0;       // enemies destroyed (an overkill counts once)
    uint32_t breaches = 0;    // counted while playing
    uint32_t upgradesUsed = 0;
    uint16_t bestCombo = 0;
    int16_t lastNoise = 0;
    uint8_t lastEndState = 0;
};

// One round of watching: the kills shown as blots, the breaches shown as the
// static's jumps. The marks only feed the field picture, which isn't drawn
// here, so the runner takes them away.
void watch(Player& player, SideStats& stats)
{
    for (const Spark& spark : player.sparks)
        stats.kills += spark.size > 2;
    player.sparks.clear();
    if (player.noise > stats.lastNoise && stats.lastEndState == 0)
        stats.breaches += 1;
    stats.lastNoise = player.noise;
    stats.lastEndState = player.endState;
    if (player.combo > stats.bestCombo)
        stats.bestCombo = player.combo;
}

void printSide(const char* name, const Player& player, const SideStats& stats)
{
    size_t enemiesLeft = 0;
    for (const Enemy* enemy : player.level->enemies)
        enemiesLeft += enemy != nullptr;
    const UpgradePanel& panel = *player.bank->panel;
    unsigned permanent = panel.generated[0] + panel.generated[1] + panel.generated[2] - 5;
    unsigned temporary = 0;
    for (int kind = 6; kind < 12; ++kind)
        temporary += panel.generated[kind];
    temporary -= 1;
    std::printf("  %s score %u endState %u kills %u breaches %u bestCombo %u upgrades made "
                "%u (permanent %u, temporary %u) used %u, stats damage %.2f reload %.2f "
                "range %.1f, enemies left %zu\n",
                name, player.score, player.endState, stats.kills, stats.breaches,
                stats.bestCombo, permanent + temporary, permanent, temporary,
                stats.upgradesUsed, player.bank->damage, player.bank->reload,
                player.bank->range, enemiesLeft);
}

// One game to its end and through the closing phase. False if it hit the cap.
bool playOne(const Options& options, int map, int mode)
{
    static const char* const modeNames[3] = {"stage", "survival", "versus"};
    openHeadlessTable(options.seed);
    if (!options.script.empty() && !loadInputScript(options.script))
        std::exit(2);

    std::string path = "content/maps/map" + std::to_string(map) + ".txt";
    RulesMatch* match = new RulesMatch(static_cast<MatchMode>(mode), path, map);
    Player* left = match->left;
    Player* right = match->right;
    SideStats leftStats, rightStats;
    PolicyMemory memory;
    for (bool going = true; going;) {
        uint32_t round = match->round + 1;
        pressPolicyKeys(options.policy, *left, round, memory);
        if (right && options.policy != idlePolicy)
            clickSimplePolicy(*right, round);  // the mouse side plays simple
        size_t leftQueue = left->bank->panel->temporary.size();
        size_t rightQueue = right ? right->bank->panel->temporary.size() : 0;
        going = match->playRound(options.maxRounds);
        // A use shows as a queue that got shorter (nothing else shortens it).
        leftStats.upgradesUsed += left->bank->panel->temporary.size() < leftQueue;
        if (right)
            rightStats.upgradesUsed += right->bank->panel->temporary.size() < rightQueue;
        watch(*left, leftStats);
        if (right)
            watch(*right, rightStats);
    }

    bool capped = match->capped;
    std::printf("map %d %s seed %u policy %s: %s after %u rounds, endMessage %u\n", map,
                modeNames[mode], options.seed, policyName(options.policy),
                capped ? "capped" : "ended", capped ? match->round : match->endRound,
                match->endMessage);
    printSide(right ? "left " : "player", *left, leftStats);
    if (right)
        printSide("right", *right, rightStats);
    std::fflush(stdout);
    delete match;  // a one-player game stores its score here, as in the game
    closeHeadlessTable();
    return !capped;
}

// A recorded game played again to its end; the exit code as told above.
int playReplay(const std::string& name, const Replay& replay)
{
    if (!checkReplayMap(name, replay)) return 2;
    const ReplayOutcome outcome = playReplayHeadless(replay, mapFilePath(replay.mapNumber));
    return reportOutcome(replay, outcome.scores, outcome.endCode) ? 0 : 1;
}

bool parse(int argc, char** argv, Options& options, std::string& runDir)
{
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        bool hasValue = i + 1 < argc;
        if (arg == "--all") {
            options.allMaps = true;
        } else if (arg == "--map" && hasValue) {
            options.map = std::atoi(argv[++i]);
        } else if (arg == "--mode" && hasValue) {
            std::string mode = argv[++i];
            if (mode == "stage") options.modes = {0};
            else if (mode == "survival") options.modes = {1};
            else if (mode == "versus") options.modes = {2};
            else if (mode == "all") options.modes = {0, 1, 2};
            else return false;
        } else if (arg == "--seed" && hasValue) {
            options.seed = static_cast<uint32_t>(std::strtoul(argv[++i], nullptr, 10));
        } else if (arg == "--policy" && hasValue) {
            int policy = policyFromName(argv[++i]);
            if (policy < 0) return false;
            options.policy = static_cast<Policy>(policy);
        } else if (arg == "--script" && hasValue) {
            options.script = argv[++i];
        } else if (arg == "--max-rounds" && hasValue) {
            options.maxRounds = static_cast<uint32_t>(std::strtoul(argv[++i], nullptr, 10));
        } else if (arg == "--replay" && hasValue) {
            options.replay = argv[++i];
        } else if (arg == "--run-dir" && hasValue) {
            runDir = argv[++i];
        } else {
            return false;
        }
    }
    return options.allMaps || (options.map >= 1 && options.map <= 20) || !options.replay.empty();
}

}  // namespace

int main(int argc, char** argv)
{
    Options options;
    std::string runDir;
    if (!parse(argc, argv, options, runDir)) {
        std::fprintf(stderr,
                     "usage: headless_runner [--map N | --all] [--mode stage|survival|versus|all]"
                     " [--seed S] [--policy idle|cannons|simple|smart] [--script FILE] [--max-rounds R]"
                     " [--run-dir DIR]\n       headless_runner --replay FILE [--run-dir DIR]\n");
        return 2;
    }
    Replay replay;  // read before entering the run folder: FILE is named from here
    if (!options.replay.empty() && !loadReplay(options.replay, replay)) return 2;
    if (!runDir.empty() && chdir(runDir.c_str()) != 0) {
        std::fprintf(stderr, "Couldn't enter '%s'\n", runDir.c_str());
        return 2;
    }
    if (!options.replay.empty()) return playReplay(options.replay, replay);
    int capped = 0;
    for (int map = options.allMaps ? 1 : options.map; map <= (options.allMaps ? 20 : options.map);
         ++map) {
        for (int mode : options.modes)
            capped += !playOne(options, map, mode);
    }
    return capped == 0 ? 0 : 1;
}
