#include "runner_policies.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "sim/cannon_bank.h"
#include "sim/enemy.h"
#include "sim/level.h"
#include "sim/panel_button.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"

namespace {

const char* const policyNames[4] = {"idle", "cannons", "simple", "smart"};

// What a player reads off the field in a glance.
struct FieldView {
    int alive = 0;
    float frontY = -100;  // the lowest living enemy; -100 with none
    // The living enemies by the rounds until each reaches the line, with the
    // average shots that each still takes.
    std::vector<std::pair<float, float>> arrivals;
};

// The row's average shot and the rounds between shots, upgrades included.
float averageShot(const CannonBank& bank)
{
    return 1.2f * (bank.damage + bank.tempDamage);
}

float roundsPerShot(const CannonBank& bank)
{
    float reload = bank.reload + bank.tempReload;
    return 1.05f * (reload < 2.5f ? 2.5f : reload);
}

FieldView lookAt(const Player& player)
{
    FieldView view;
    float shot = averageShot(*player.bank);
    for (const Enemy* enemy : player.level->enemies) {
        if (!enemy || !enemy->isAlive())
            continue;
        view.alive += 1;
        if (enemy->y > view.frontY)
            view.frontY = enemy->y;
        float shots = enemy->hitPoints > 0 ? static_cast<int>(enemy->hitPoints / shot) + 1 : 0;
        view.arrivals.push_back({(515 - enemy->y) / enemy->speed, shots});
    }
    std::sort(view.arrivals.begin(), view.arrivals.end());
    return view;
}

// The least share of its time to the line that any enemy leaves spare when
// n cannons take the enemies in the order they arrive, each shot costing
// the given rounds. Below 0 the row is too late for someone.
float spareShare(const FieldView& view, float roundsPerShot, int n)
{
    float spare = 1;
    float busyRounds = 0;
    for (const std::pair<float, float>& arrival : view.arrivals) {
        busyRounds += arrival.second * roundsPerShot / n;
        float share = 1 - busyRounds / (arrival.first > 1 ? arrival.first : 1);
        if (share < spare)
            spare = share;
    }
    return spare;
}

// Holds a key down on even rounds only, so that each press is a new one.
void tapKey(int key, bool wanted, uint32_t round)
{
    testBackend::setKey(key, wanted && round % 2 == 0);
}

// Moves the slider towards a share of permanent upgrades.
void steerShare(const Player& player, float target)
{
    float share = player.bank->permanentShare;
    testBackend::setKey('Q', share < target - 0.5f);
    testBackend::setKey('A', share > target + 0.5f);
}

void chargeNowAndThen(const Player& player, uint32_t round)
{
    if (!player.singlePlayer)
        testBackend::setKey('W', round % 2400 == 1200 || round % 2400 == 1700);
}

void simpleKeys(const Player& player, uint32_t round)
{
    testBackend::setKey('3', round < 5 && player.bank->heldCannons != 3);
    tapKey('S', !player.bank->panel->temporary.empty(), round);
    chargeNowAndThen(player, round);
}

void cannonsKeys(const Player& player, uint32_t round)
{
    testBackend::setKey('3', round < 5 && player.bank->heldCannons != 3);
}

// The smart player's thresholds.
const float busyY = 420;        // a living enemy this far down needs the full row
const float busySpare = 0.3f;   // so does a field on which one cannon would leave
                                // less than this share of the time spare
const float calmY = 250;        // the calm: nothing below this line, and one
const float calmSpare = 0.7f;   // cannon would leave this much time spare,
const uint32_t calmRounds = 300;  // held this long before the row goes down
const uint32_t changeGap = 400;   // rounds between two changes of the row
const float smartShare = 80;      // percent of permanent upgrades: they last
const int crowd = 6;              // a temporary upgrade helps from this many enemies

// One cannon while the field is calm, since it makes three times the
// upgrades; the full row as soon as one cannon wouldn't clear the field in
// time. Returns the number to press, or -1 for no change.
int smartCannons(const Player& player, const FieldView& view, uint32_t round,
                 PolicyMemory& memory)
{
    const CannonBank& bank = *player.bank;
    float spare = spareShare(view, roundsPerShot(bank), 1);
    bool busy = view.frontY > busyY || spare < busySpare;
    bool calm = view.frontY < calmY && spare > calmSpare;
    if (!calm)
        memory.calmSince = round;
    int wanted = bank.heldCannons;
    if (busy)
        wanted = 3;
    else if (round - memory.calmSince >= calmRounds)
        wanted = 1;
    if (wanted == bank.heldCannons || round - memory.lastCannonChange < changeGap)
        return -1;
    memory.lastCannonChange = round;
    return wanted;
}

// A boost goes at once, since it makes the others; the rest wait for a crowd
// or for an enemy near the line.
bool smartWantsTemporary(const Player& player, const FieldView& view)
{
    const std::vector<Upgrade*>& queue = player.bank->panel->temporary;
    if (queue.empty())
        return false;
    if (queue.front()->kind == 11)
        return true;
    return view.alive >= crowd || view.frontY > 380;
}

void smartKeys(const Player& player, uint32_t round, PolicyMemory& memory)
{
    FieldView view = lookAt(player);
    int cannons = smartCannons(player, view, round, memory);
    for (int n = 0; n < 4; ++n)
        testBackend::setKey('0' + n, n == cannons);
    steerShare(player, smartShare);
    tapKey('S', smartWantsTemporary(player, view), round);
    chargeNowAndThen(player, round);
}

}  // namespace

int policyFromName(const char* name)
{
    for (int i = 0; i < 4; ++i)
        if (std::strcmp(name, policyNames[i]) == 0)
            return i;
    return -1;
}

const char* policyName(Policy policy)
{
    return policyNames[policy];
}

void pressPolicyKeys(Policy policy, const Player& player, uint32_t round, PolicyMemory& memory)
{
    switch (policy) {
    case idlePolicy: break;
    case cannonsPolicy: cannonsKeys(player, round); break;
    case simplePolicy: simpleKeys(player, round); break;
    case smartPolicy: smartKeys(player, round, memory); break;
    }
}

void clickSimplePolicy(const Player& player, uint32_t round)
{
    const PanelButton* button = nullptr;
    if (round < 5 && player.bank->heldCannons != 3)
        button = player.cannonButtons[3];
    else if (!player.bank->panel->temporary.empty() && round % 2 == 0)
        button = player.useTemporaryButton;
    if (!button) {
        testBackend::setMouseButton(GLFW_MOUSE_BUTTON_LEFT, false);
        return;
    }
    testBackend::setMousePos(button->pixelX + button->pixelWidth / 2,
                             button->pixelY + button->pixelHeight / 2);
    testBackend::setMouseButton(GLFW_MOUSE_BUTTON_LEFT, true);
}
