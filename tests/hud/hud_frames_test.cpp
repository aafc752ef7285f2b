// Whole frames of a game in play, one side and two, saved for a person to
// look at when GORVAN_HUD_FRAMES names a folder (skipped otherwise). Pictures
// that the content does not hold yet are drawn transparent.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "data/images.h"
#include "hud_window.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"

namespace {

// An empty texture draws opaque black; until its picture exists, draw nothing.
void clearIfMissing(uint32_t& texture, const char* entry)
{
    uint16_t width = 0, height = 0;
    uint8_t* pixels = loadImage(entry, &width, &height);
    if (pixels) {
        delete[] pixels;
        return;
    }
    replaceTexture(texture, makeFlatTexture(0, 0, 0, 0));
}

void clearMissingPictures(Player& player)
{
    UpgradePanel& panel = *player.bank->panel;
    clearIfMissing(player.boxesTexture, "boxes.spg");
    clearIfMissing(player.buttonBackTexture, "button_back.spg");
    clearIfMissing(player.boxTexture, "box_a.spg");
    clearIfMissing(player.frameTexture, "background.spg");
    clearIfMissing(player.scoreSigns.sign1Texture, "score_sign1.spg");
    clearIfMissing(player.scoreSigns.sign2Texture, "score_sign2.spg");
    clearIfMissing(player.scoreSigns.sign3Texture, "score_sign3.spg");
    clearIfMissing(player.bank->gearTexture, "gear.spg");
    clearIfMissing(player.bank->vboxTexture, "vbox_a.spg");
    clearIfMissing(player.bank->progressTexture, "progress.spg");
    clearIfMissing(panel.rowTexture, "box.spg");
    clearIfMissing(panel.rowHeadTexture, "box_a.spg");
    clearIfMissing(panel.vboxTexture, "vbox_a.spg");
    // The face tints the boxes: white keeps their colours where it is missing.
    uint16_t width = 0, height = 0;
    uint8_t* face = loadImage("button2.spg", &width, &height);
    if (face)
        delete[] face;
    else
        replaceTexture(panel.boxFaceTexture, makeFlatTexture(255, 255, 255, 255));
}

// A side some minutes into a game: a combo running, upgrades waiting.
void setMidGame(Player& player)
{
    player.frame = 4000;
    player.score = player.shownScore = 640;
    player.hiScore = 1000;
    player.combo = 23;
    player.comboTimer = 3.2f;
    player.disturbCharge = 120;
    CannonBank& bank = *player.bank;
    bank.damage += 4;
    bank.tempDamage = 2;
    bank.range += 100;
    bank.tempReload = -10;
    bank.wantedCannons = 2;
    bank.resourceRate = 2;
    bank.permanentShare = 70;
    bank.level->frame = 3000;
    UpgradePanel& panel = *bank.panel;
    panel.share = 70;
    panel.permanentProgress = 0.6f;
    panel.temporaryProgress = 0.3f;
    panel.chainFrames = 500;
    panel.boostFrames = 200;
    for (uint8_t kind : {6, 8, 7}) {
        panel.temporary.push_back(
            new Upgrade(kind, static_cast<float>(panel.temporary.size())));
    }
    player.scoreSigns.sign2On = true;
    player.scoreSigns.sign2X = 430;
    player.scoreSigns.sign2Slide = 1;
}

void drawFrame(Player& first, Player* second)
{
    first.drawField();
    if (second) second->drawField();
    glClear(GL_COLOR_BUFFER_BIT);
    first.drawView();
    if (second) second->drawView();
}

class HudFrames : public ::testing::TestWithParam<std::pair<int, int>> {};

TEST_P(HudFrames, SavesOneAndTwoSides)
{
    const char* folder = std::getenv("GORVAN_HUD_FRAMES");
    if (!folder) GTEST_SKIP() << "GORVAN_HUD_FRAMES is not set";
    const int width = GetParam().first, height = GetParam().second;
    const std::string size = std::to_string(width) + "x" + std::to_string(height);
    HudWindow window(width, height);
    {
        Player player(0, false, window.mapPath().c_str(), 1);
        clearMissingPictures(player);
        setMidGame(player);
        drawFrame(player, nullptr);
        EXPECT_TRUE(saveFramePpm(std::string(folder) + "/one_side_" + size + ".ppm"));
    }
    Player left(1, true, window.mapPath().c_str(), 1);
    Player right(2, true, window.mapPath().c_str(), 1);
    for (Player* side : {&left, &right}) {
        clearMissingPictures(*side);
        setMidGame(*side);
    }
    right.disturbCharge = 200;
    right.bank->suspended = true;
    drawFrame(left, &right);
    EXPECT_TRUE(saveFramePpm(std::string(folder) + "/two_sides_" + size + ".ppm"));
}

INSTANTIATE_TEST_SUITE_P(WindowSizes, HudFrames,
                         ::testing::Values(std::make_pair(1000, 600),
                                           std::make_pair(1920, 1080)));

}  // namespace
