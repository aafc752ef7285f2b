#include "golden_trace.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

#include "sim/cannon.h"
#include "sim/cannon_bank.h"
#include "sim/director.h"
#include "sim/level.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"
#include "sound/sound.h"

namespace {

// FNV-1a over the bytes of each value.
template <typename T>
void mix(uint64_t& hash, const T& value)
{
    unsigned char bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof(T));
    for (unsigned char byte : bytes) hash = (hash ^ byte) * 1099511628211ull;
}

std::string kinds(const std::vector<Upgrade*>& row)
{
    std::string text;
    for (const Upgrade* upgrade : row) text += static_cast<char>('a' + upgrade->kind);
    return text.empty() ? "-" : text;
}

int sumOfStrokes(const Player& player)
{
    int strokes = 0;
    for (const ArcOrder& order : player.arcOrders) strokes += order.count;
    return strokes;
}

}  // namespace

std::string describeSide(const Player& player)
{
    const CannonBank& bank = *player.bank;
    const UpgradePanel& panel = *bank.panel;
    const Level& level = *player.level;
    int alive = 0;
    double hitPoints = 0;
    for (const Enemy* enemy : level.enemies) {
        if (!enemy || !enemy->isAlive()) continue;
        alive += 1;
        hitPoints += enemy->hitPoints;
    }
    char text[512];
    std::snprintf(
        text, sizeof text,
        "score=%u shown=%u combo=%u comboTimer=%.4f noise=%d end=%u glow=%u charge=%d "
        "alive=%d hp=%.2f wave=%d cannons=%zu progress=%u held=%u suspended=%d "
        "damage=%.3f reload=%.3f range=%.2f temp=%.2f/%.2f/%.2f rate=%.3f share=%.1f "
        "perm=%s queue=%s timers=%d/%d/%d strokes=%d lights=%zu bolts=%zu",
        player.score, player.shownScore, player.combo, player.comboTimer, player.noise,
        player.endState, player.blastGlow, player.disturbCharge, alive, hitPoints,
        level.waveIndex, bank.cannons.size(), bank.progress, bank.heldCannons, bank.suspended,
        bank.damage, bank.reload, bank.range, bank.tempDamage, bank.tempReload, bank.tempRange,
        bank.resourceRate, bank.permanentShare, kinds(panel.permanent).c_str(),
        kinds(panel.temporary).c_str(), panel.chainFrames, panel.blastFrames, panel.boostFrames,
        sumOfStrokes(player), player.lights.size(), level.bolts.size());
    return text;
}

void hashSide(const Player& player, uint64_t& hash)
{
    const Level& level = *player.level;
    mix(hash, player.frame);
    mix(hash, player.score);
    mix(hash, player.shownScore);
    mix(hash, player.combo);
    mix(hash, player.comboTimer);
    mix(hash, player.noise);
    mix(hash, player.noiseRoll);
    mix(hash, player.endState);
    mix(hash, player.blastGlow);
    mix(hash, player.disturbCharge);
    mix(hash, player.disturbOn);
    for (size_t slot = 0; slot < level.enemies.size(); ++slot) {
        const Enemy* enemy = level.enemies[slot];
        if (!enemy) continue;
        mix(hash, slot);
        mix(hash, enemy->x);
        mix(hash, enemy->y);
        mix(hash, enemy->speed);
        mix(hash, enemy->size);
        mix(hash, enemy->hitPoints);
        mix(hash, enemy->reservedHitPoints);
    }
    for (const Bolt& bolt : level.bolts) {
        mix(hash, bolt.points);
        mix(hash, bolt.framesLeft);
    }
    mix(hash, level.frame);
    mix(hash, level.waveIndex);
    mix(hash, level.spawnCredit);
    mix(hash, level.disturbCredit);
    const Director& director = *level.director;
    mix(hash, director.earnedSmall);
    mix(hash, director.earnedBig);
    mix(hash, director.releasedSmall);
    mix(hash, director.releasedBig);
    mix(hash, director.bigPercent);
    mix(hash, director.phaseFrames);
    mix(hash, director.credit);
    mix(hash, director.releasing);
    mix(hash, director.pending.size());

    const CannonBank& bank = *player.bank;
    for (const Cannon* cannon : bank.cannons) {
        mix(hash, cannon->angle);
        mix(hash, cannon->range);
        mix(hash, cannon->reloadTimer);
        mix(hash, cannon->nextDamage);
        mix(hash, cannon->target);
        mix(hash, cannon->gearAngle);
        for (const Bolt& bolt : cannon->bolts) {
            mix(hash, bolt.points);
            mix(hash, bolt.framesLeft);
        }
    }
    mix(hash, bank.reticle);
    float stats[] = {bank.damage, bank.reload, bank.range, bank.tempDamage, bank.tempReload,
                     bank.tempRange, bank.resourceRate, bank.permanentShare};
    mix(hash, stats);
    mix(hash, bank.progress);
    mix(hash, bank.wantedCannons);
    mix(hash, bank.heldCannons);
    mix(hash, bank.suspended);
    const UpgradePanel& panel = *bank.panel;
    mix(hash, panel.permanentProgress);
    mix(hash, panel.temporaryProgress);
    mix(hash, panel.generated);
    for (const Upgrade* upgrade : panel.permanent) mix(hash, upgrade->kind);
    for (const Upgrade* upgrade : panel.temporary) mix(hash, upgrade->kind);
    mix(hash, panel.chainFrames);
    mix(hash, panel.blastFrames);
    mix(hash, panel.boostFrames);

    for (const ArcOrder& order : player.arcOrders) {
        mix(hash, order.count);
        mix(hash, order.x);
        mix(hash, order.y);
    }
    for (const Spark& spark : player.sparks) {
        mix(hash, spark.x);
        mix(hash, spark.y);
        mix(hash, spark.size);
    }
    for (const PointLight& light : player.lights) {
        mix(hash, light.x);
        mix(hash, light.y);
        mix(hash, light.radius);
        mix(hash, light.red);
        mix(hash, light.framesLeft);
    }
    for (const Shard& shard : player.shards.shards) {
        mix(hash, shard.x);
        mix(hash, shard.y);
    }
    const ScoreSigns& signs = player.scoreSigns;
    mix(hash, signs.sign1X);
    mix(hash, signs.sign2X);
    mix(hash, signs.sign3X);
    mix(hash, signs.sign1Slide);
    mix(hash, signs.sign2Slide);
    mix(hash, signs.sign3Slide);
    // Sounds heard: the time each one last started.
    const Sound* sounds[] = {player.comboSound,   player.comboBigSound, player.button1Sound,
                             player.button2Sound, player.button3Sound,  player.staticSound,
                             bank.shotSound,      bank.buildSound,      bank.button3Sound};
    for (const Sound* sound : sounds) mix(hash, sound->lastPlayTime);
}

void expectTrace(const std::string& name, const std::vector<std::string>& lines)
{
    const std::string path = std::string(GORVAN_SOURCE_DIR) + "/tests/data_files/golden/" + name;
    const char* update = std::getenv("GORVAN_UPDATE_GOLDEN");
    if (update && std::string(update) == "1") {
        std::ofstream out(path, std::ios::trunc);
        for (const std::string& line : lines) out << line << '\n';
        std::printf("rewrote %s\n", path.c_str());
        return;
    }
    std::ifstream in(path);
    ASSERT_TRUE(in) << "no trace " << path << " (GORVAN_UPDATE_GOLDEN=1 writes it)";
    std::vector<std::string> stored;
    for (std::string line; std::getline(in, line);) stored.push_back(line);
    for (size_t i = 0; i < lines.size() && i < stored.size(); ++i) {
        if (lines[i] == stored[i]) continue;
        // Name the values that differ.
        std::istringstream was(stored[i]), now(lines[i]);
        std::string a, b, differing;
        while (was >> a && now >> b)
            if (a != b) differing += "\n  trace " + a + "\n  now   " + b;
        FAIL() << name << ": first difference at line " << i + 1 << differing;
    }
    EXPECT_EQ(lines.size(), stored.size()) << name << ": the game ran a different length";
}
