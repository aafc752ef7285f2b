// A Player's frame: the clock of the field, the bank, the kills, the orders
// of lightning and blast, the signs and the panel's input.
#include "base/numbers.h"
#include "base/random.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/panel_button.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"
#include "sound/sound.h"

void Player::update()
{
    frame += 1;
    noise = static_cast<int16_t>(clampInt(noise - 1, 0, 10000));
    noiseRoll = static_cast<int16_t>(clampInt(noiseRoll - 1, 0, 10000));
    if (blastGlow != 0)
        blastGlow -= 1;
    if (shownScore < score && frame % 3 == 0)
        shownScore += 1 + (score - shownScore) / 15;

    comboTimer -= 0.02f;
    if (comboTimer < 0) {
        combo = 0;
        comboTimer = 0;
    }

    uint8_t report = level->step();
    if (endState == 0) {
        if (report == 3) {
            // The breach rule: a second breach within 120 frames is fatal.
            noise = static_cast<int16_t>(noise + 300);
            noiseRoll = static_cast<int16_t>(noise / 3.5 + noiseRoll);
            if (noise > 480)
                endState = 3;
            staticSound->play();
        } else {
            endState = report;
        }
        bank->update();
    } else {
        // A chain or blast ordered in the last moments of play ends with it:
        // the bank no longer counts its frames down, so it would last for ever.
        bank->panel->endActive();
    }
    level->advance();

    if (enemyDisturbCharge == 200) {
        float x, y;
        bank->disturbTick(x, y);
        if (y < 600)
            lights.push_back(PointLight(level, 1.5f, 0, 0, x, y, 65, 75));
    }

    float x, y, size;
    for (uint8_t kills; (kills = level->popDeadEnemy(x, y, size)) != 0;) {
        for (int pass = 0; pass < kills; ++pass)
            bookKill(x, y, size, pass);
    }

    if (bank->hasUpgrade(2)) {
        level->blastAllEnemies();
        lights.push_back(PointLight(level, 7.0f, 0, 0, 192, 600, 400, 250));
        blastGlow = 220;
        comboBigSound->play();
    }
    // At most one order of lightning in two frames; the rest wait their turn.
    if (frame % 2 == 0 && !arcOrders.empty()) {
        ArcOrder order = arcOrders.front();
        level->chainLightning(order.count, order.x, order.y);
        lights.push_back(PointLight(level, 0, 0, 40.0f, order.x, order.y, 100, 165));
        arcOrders.erase(arcOrders.begin());
        comboSound->play();
    }

    ageLights(lights);
    if (singlePlayer) {
        scoreSigns.update();
        scoreSigns.applyRules(score, hiScore, parScore);
    }
    shards.update();

    // After the end the buttons are no longer read, so a press of the last
    // frame of play would stay "just pressed" and click on every frame.
    if (endState == 0) {
        readInput();
        clickPressedButtons();
    }
}

void Player::clickPressedButtons()
{
    bool pressed = false;
    for (PanelButton* button : cannonButtons)
        pressed = pressed || button->justPressed();
    if (pressed || shareUpButton->justPressed() || shareDownButton->justPressed())
        button1Sound->play();
    if (disturbButton && disturbButton->justPressed())
        button1Sound->play();
}

void Player::bookKill(float x, float y, float size, int pass)
{
    combo += 1;
    // The first kills keep the combo alive long; at high combos each adds little.
    comboTimer += 1 / mapRange(0, 10, 0.5f, 2, combo);
    if (endState == 0)
        score += (combo + 1) / 2;  // the score stands still from the end on
    if (combo % 10 == 0)
        arcOrders.push_back(ArcOrder{static_cast<uint8_t>(combo / 20 + 2), x, y});
    if (bank->hasUpgrade(1) && combo % 2 == 0)
        arcOrders.push_back(ArcOrder{1, x, y});
    sparks.push_back(Spark(x, y, size));
    int droplets = randomInt(3, 5);
    for (int i = 0; i < droplets; ++i)
        sparks.push_back(Spark(x, y));
    if (pass != 0)
        shards.add(x, y);  // the second pass of an overkill
}

void Player::readInput()
{
    for (uint8_t i = 0; i < 4; ++i) {
        if (cannonButtons[i]->poll()) {
            bank->setCannons(i);
            break;
        }
    }
    if (shareUpButton->poll())
        bank->addShare(0.7f);
    if (shareDownButton->poll())
        bank->addShare(-0.7f);
    if (useTemporaryButton->poll()) {
        // One press uses one upgrade.
        if (!useTemporaryHeld) {
            if (bank->useTemporary())
                button3Sound->play();
            else
                button2Sound->play();
        }
        useTemporaryHeld = true;
    } else {
        useTemporaryHeld = false;
    }
    if (!singlePlayer)
        chargeDisturbance();
}

void Player::chargeDisturbance()
{
    if (disturbButton->poll()) {
        if (!disturbHeld) {
            disturbOn = !disturbOn;
            disturbHeld = true;
        }
    } else {
        disturbHeld = false;
    }
    disturbCharge = static_cast<int16_t>(clampInt(disturbCharge + (disturbOn ? 1 : -1), 0, 200));
    // The row goes down while charging and comes back as the charge runs out.
    if (disturbCharge == 1 || disturbCharge == 100)
        bank->resume();
    if (disturbCharge == 2 || disturbCharge == 101)
        bank->suspend();
}
