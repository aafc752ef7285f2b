#include "sim/cannon_bank.h"

#include <cmath>

#include "base/numbers.h"
#include "data/images.h"
#include "data/map_file.h"
#include "render/texture_release.h"
#include "sim/cannon.h"
#include "sim/level.h"
#include "sim/upgrade_panel.h"
#include "sound/sound.h"

CannonBank::CannonBank(Level* level, bool survival, const char* mapPath, float statScale)
    : level(level), survival(survival)
{
    panel = new UpgradePanel();
    // A missing or short map leaves the stats of a plain, playable stage.
    damage = mapDefaults::damage;
    reload = mapDefaults::reload;
    range = mapDefaults::range;
    MapReader map(mapPath);
    map.skipLines(14);
    map.readLine(damage);
    map.readLine(reload);
    map.readLine(range);
    if (map.isOpen())
        map.reportShort("the cannon stats");
    damage *= statScale;
    reload /= statScale;
    range *= statScale;

    loadTexture(&baseTexture, "cannon_base.spg");
    loadTexture(&barTexture, "cannon_bar.spg");
    loadTexture(&gearTexture, "gear.spg");
    loadTexture(&vboxTexture, "vbox_a.spg");
    loadTexture(&progressTexture, "progress.spg");
    loadTexture(&socketTexture, "gear_socket.spg");
    shotSound = new Sound("content/sound/shot.ogg", false, false);
    buildSound = new Sound("content/sound/build.ogg", false, false);
    buildSound->setUnique();
    button3Sound = new Sound("content/sound/button3.ogg", false, false);
}

CannonBank::~CannonBank()
{
    delete panel;
    for (Cannon* cannon : cannons)
        delete cannon;
    uint32_t textures[] = {baseTexture,  barTexture,      gearTexture,
                           vboxTexture, progressTexture, socketTexture};
    deleteTextures(6, textures);
    delete shotSound;
    delete buildSound;
    delete button3Sound;
}

void CannonBank::update()
{
    // Upgrades come out of time, whatever the row is doing.
    UpgradeReport report = panel->update(resourceRate, permanentShare);
    if (report.permanentKind == 0)
        damage += 1.5f;
    else if (report.permanentKind == 1)
        range += 75.0f;
    else if (report.permanentKind == 2)
        reload -= 7.5f;
    if (report.permanentKind <= 2 || report.temporaryMade)
        button3Sound->play();

    if (cannons.size() == wantedCannons) {
        if (progress != 100)
            progress += 1;
        resourceRate = mapRange(0, 100, resourceRateBefore, 4.0f - wantedCannons, progress);
    } else {
        if (progress == 100)
            buildSound->play();
        if (progress == 0)
            rebuild(wantedCannons);
        else
            progress -= 1;
        resourceRate = resourceRateBefore;
    }

    tempDamage -= 0.0016666667f;
    tempReload += 0.01f;
    tempRange -= 0.15f;
    if (tempDamage < 0)
        tempDamage = 0;
    if (tempRange < 0)
        tempRange = 0;
    if (tempReload > 0)
        tempReload = 0;

    bool fired = false;
    if (!cannons.empty()) {
        if (progress == 100) {
            for (Cannon* cannon : cannons) {
                if (cannon->update(damage + tempDamage,
                                   clampFloat(reload + tempReload, 2.5f, 1000),
                                   range + tempRange)) {
                    shotSound->play();
                    fired = true;
                }
            }
        }
        for (Cannon* cannon : cannons)
            cannon->ageBolts();
    }

    // The marker hurries as the front enemy comes near.
    float x, y;
    level->frontEnemy(x, y);
    if (y < 600) {
        reticle.step(x, y, fired);
        if (y > 326)
            reticle.step(x, y, false);
        if (y > 388)
            reticle.step(x, y, false);
        if (y > 450)
            reticle.step(x, y, false);
    }
}

void CannonBank::setCannons(uint8_t n)
{
    heldCannons = n;
    if (wantedCannons != n && !suspended) {
        if (cannons.empty())
            progress = 1;  // nothing stands, so there is nothing to take down
        wantedCannons = n;
        resourceRateBefore = resourceRate;
    }
}

void CannonBank::suspend()
{
    if (suspended)
        return;
    uint8_t wanted = wantedCannons;
    setCannons(0);
    heldCannons = wanted;
    suspended = true;
}

void CannonBank::resume()
{
    if (!suspended)
        return;
    suspended = false;
    setCannons(heldCannons);
}

void CannonBank::addShare(float delta)
{
    permanentShare = clampFloat(permanentShare + delta, 0, 100);
}

uint8_t CannonBank::shownCannons() const
{
    return suspended ? heldCannons : wantedCannons;
}

bool CannonBank::hasUpgrade(uint8_t mask) const
{
    return (panel->activeFlags() & mask) != 0;
}

bool CannonBank::useTemporary()
{
    uint8_t kind = panel->takeTemporary();
    if (kind == UPGRADE_NONE)
        return false;
    if (kind == 6)
        tempDamage += 2.5f;
    else if (kind == 7)
        tempRange += 225;
    else if (kind == 8)
        tempReload -= 15;
    return true;
}

void CannonBank::disturbTick(float& x, float& y)
{
    level->disturbTick(x, y);
}

void CannonBank::rebuild(uint8_t n)
{
    for (Cannon* cannon : cannons)
        delete cannon;  // their bolts go with them
    cannons.clear();
    // The shots that the old cannons had planned won't come.
    level->resetReservations();
    if (n == 0)
        return;
    buildSound->play();
    static const int16_t places[3][3] = {{192, 0, 0}, {96, 288, 0}, {64, 192, 320}};
    uint8_t count = n > 3 ? 3 : n;  // the row holds three at most
    for (uint8_t i = 0; i < count; ++i)
        cannons.push_back(
            new Cannon(places[count - 1][i], baseTexture, barTexture, gearTexture, level));
}

void Reticle::step(float targetX, float targetY, bool fired)
{
    size -= 0.1f;
    angle += 0.01f;
    if (angle > 1.570796325f)
        angle -= 1.570796325f;
    float a = angleTo(x, y, targetX, targetY);
    if (targetY < 600 && distanceSquared(x, y, targetX, targetY) > 1) {
        float c = cosine(a);
        x += c;
        y += sine(a);
        size += std::fabs(c / 5);
    }
    size = clampFloat(size + (fired ? 5 : 0), 10, 50);
}
