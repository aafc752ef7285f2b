// The upgrade economy of one cannon bank: permanent upgrades that come due by
// themselves from a look-ahead queue of five, and temporary ones that pile up
// until the player uses them. Output grows with the bank's resource rate and
// is split between the two by the player's share.
#pragma once

#include <cstdint>
#include <vector>

// Kinds: 0 damage, 1 range, 2 reload (permanent); 6 damage, 7 range,
// 8 reload, 9 chain, 10 blast, 11 boost (temporary).
constexpr uint8_t UPGRADE_NONE = 255;

// The fair draw over generated[first] to generated[last]: each kind enters a
// list spread - (its count - the smallest count) times, if that is positive,
// and randomInt picks from the list.
uint8_t chooseFairKind(const uint16_t* generated, uint8_t first, uint8_t last, uint8_t spread);

struct Upgrade {
    // Kinds 9 to 11 load their icon ("upgrade1.spg" to "upgrade3.spg"):
    // that needs a GL context.
    Upgrade(uint8_t kind, float slot);
    ~Upgrade();
    Upgrade(const Upgrade&) = delete;
    Upgrade& operator=(const Upgrade&) = delete;

    // Slides slot towards index and draws the box; src/render/.
    void draw(float index);

    uint8_t kind;
    uint32_t texture = 0;
    bool hasTexture = false;  // kinds 9 to 11; the destructor deletes texture
    float red, green, blue;   // by kind mod 6: red, green, blue, else yellow
    float slot;               // drawn place in its row
};

// The result of one frame of the panel.
struct UpgradeReport {
    uint8_t permanentKind = UPGRADE_NONE;  // 0 to 2 when one came due
    bool temporaryMade = false;
};

class UpgradePanel {
public:
    // Loads the panel's pictures and draws the first five permanent kinds.
    UpgradePanel();
    ~UpgradePanel();
    UpgradePanel(const UpgradePanel&) = delete;
    UpgradePanel& operator=(const UpgradePanel&) = delete;

    // One frame at the bank's resource rate and the player's share (0-100).
    UpgradeReport update(float rate, float share);
    // The fair draw: the kinds made least so far are the likeliest, and one
    // that leads the rarest by spread or more can't come up.
    uint8_t choose(uint8_t first, uint8_t last, uint8_t spread);
    // Uses the head of the temporary queue; UPGRADE_NONE when it is empty.
    uint8_t takeTemporary();
    // Bit 0: the chain runs; bit 1: a blast is ordered.
    uint8_t activeFlags() const;
    // The game is over: a running chain, boost or ordered blast stops.
    void endActive();

    void draw(float resourceRate, float permanentShare);

    std::vector<Upgrade*> permanent;  // always five long
    std::vector<Upgrade*> temporary;  // oldest first
    uint32_t rowTexture = 0, rowHeadTexture = 0, vboxTexture = 0, boxFaceTexture = 0;
    float permanentProgress = 0;
    float temporaryProgress = 0;
    float share = 50;  // copy of the bank's permanentShare, for the HUD
    int16_t chainFrames = 0;
    int16_t blastFrames = 0;
    int16_t boostFrames = 0;
    uint16_t generated[12] = {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0};
};
