// The row of 0 to 3 cannons at the bottom of a field, the firing stats they
// share, and the upgrade panel that improves them. The player only chooses
// how many cannons stand; changing that takes the whole row down and up again.
#pragma once

#include <cstdint>
#include <vector>

class Cannon;
class Level;
class Sound;
class UpgradePanel;

// The target marker: follows the front enemy and closes in as it comes near.
struct Reticle {
    float x = 192, y = 0, size = 50, angle = 0;

    void step(float targetX, float targetY, bool fired);
    void draw();
};

class CannonBank {
public:
    // Reads the starting stats (map lines 15 to 17) and scales them.
    CannonBank(Level* level, bool survival, const char* mapPath, float statScale);
    ~CannonBank();
    CannonBank(const CannonBank&) = delete;
    CannonBank& operator=(const CannonBank&) = delete;

    // The bank's frame; runs only while its Player is playing.
    void update();
    // The player's choice of 0 to 3 cannons.
    void setCannons(uint8_t n);
    // The disturbance holds the row down and gives it back.
    void suspend();
    void resume();
    void addShare(float delta);
    // What the HUD shows: the held choice while suspended.
    uint8_t shownCannons() const;
    bool hasUpgrade(uint8_t mask) const;
    // Applies the head of the temporary queue; false when it was empty.
    bool useTemporary();
    void disturbTick(float& x, float& y);

    // Drawing lives with the field and HUD pictures (src/render/).
    void drawLights();
    void drawMachines();
    void drawPanel();

    std::vector<Cannon*> cannons;
    Level* level;
    UpgradePanel* panel;
    Reticle reticle;
    Sound* shotSound;
    Sound* buildSound;
    Sound* button3Sound;
    uint8_t wantedCannons = 1;
    uint8_t heldCannons = 1;
    bool suspended = false;
    uint8_t progress = 1;  // 0 down, 100 standing
    float damage = 0, reload = 0, range = 0;
    float tempDamage = 0, tempReload = 0, tempRange = 0;
    float resourceRate = 3.0f;
    float resourceRateBefore = 3.0f;
    float permanentShare = 50;
    bool survival;
    uint32_t baseTexture = 0, barTexture = 0, gearTexture = 0, vboxTexture = 0,
             progressTexture = 0, socketTexture = 0;

private:
    void rebuild(uint8_t n);
};
