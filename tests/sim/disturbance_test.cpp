#include "sim_fixture.h"

#include "platform/testing/test_backend.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/panel_button.h"
#include "sim/player.h"

namespace {

class DisturbanceTest : public SimTest {
protected:
    void SetUp() override
    {
        SimTest::SetUp();
        path = map.write(1);
        left = new Player(1, true, path.c_str(), 1);
    }
    void TearDown() override
    {
        delete left;
        SimTest::TearDown();
    }
    // A press of W that lasts the given frames, then released.
    void pressW(int frames)
    {
        testBackend::setKey('W', true);
        for (int i = 0; i < frames; ++i)
            left->update();
        testBackend::setKey('W', false);
    }
    // Frames until the charge reaches the value, one update each.
    void runToCharge(int16_t charge)
    {
        for (int guard = 0; left->disturbCharge != charge && guard < 1000; ++guard)
            left->update();
        ASSERT_EQ(left->disturbCharge, charge);
    }

    TestMap map;
    std::string path;
    Player* left = nullptr;
};

TEST_F(DisturbanceTest, ALongPressFlipsTheSwitchOnce)
{
    pressW(30);
    EXPECT_TRUE(left->disturbOn);
    EXPECT_EQ(left->disturbCharge, 30);
    left->update();  // released: the next press counts again
    EXPECT_EQ(left->disturbCharge, 31);
    pressW(1);
    EXPECT_FALSE(left->disturbOn);
    EXPECT_EQ(left->disturbCharge, 30);
}

TEST_F(DisturbanceTest, ChargingSuspendsTheRowFromTwoOn)
{
    CannonBank& bank = *left->bank;
    pressW(1);
    EXPECT_EQ(left->disturbCharge, 1);
    EXPECT_FALSE(bank.suspended);
    left->update();
    EXPECT_EQ(left->disturbCharge, 2);
    EXPECT_TRUE(bank.suspended);
    EXPECT_EQ(bank.wantedCannons, 0);
    EXPECT_EQ(bank.heldCannons, 1);
    EXPECT_EQ(bank.shownCannons(), 1);
    // Released for one frame at 100, suspended again at 101.
    runToCharge(100);
    EXPECT_FALSE(bank.suspended);
    EXPECT_EQ(bank.wantedCannons, 1);
    left->update();
    EXPECT_TRUE(bank.suspended);
    runToCharge(200);
    left->update();
    EXPECT_EQ(left->disturbCharge, 200);
    EXPECT_TRUE(bank.suspended);
    EXPECT_TRUE(bank.cannons.empty());
    EXPECT_FLOAT_EQ(bank.resourceRate, 4.0f);
}

TEST_F(DisturbanceTest, AChoiceDuringTheSuspensionComesIntoForceOnResume)
{
    CannonBank& bank = *left->bank;
    pressW(10);
    testBackend::setKey('3', true);
    left->update();
    testBackend::setKey('3', false);
    EXPECT_EQ(bank.heldCannons, 3);
    EXPECT_EQ(bank.wantedCannons, 0);
    EXPECT_EQ(bank.shownCannons(), 3);
    pressW(1);  // off: the charge falls to 1, where the row is released
    runToCharge(2);
    EXPECT_TRUE(bank.suspended);
    left->update();
    EXPECT_EQ(left->disturbCharge, 1);
    EXPECT_FALSE(bank.suspended);
    EXPECT_EQ(bank.wantedCannons, 3);
}

// Switched off at 150 the charge counts down to 100; at 50, down to 1.
TEST_F(DisturbanceTest, OffAt150GivesTheCannonsBackAfter50FramesAt50After49)
{
    const int rows[][3] = {{150, 50, 100}, {50, 49, 1}};
    for (const auto& row : rows) {
        pressW(1);
        runToCharge(static_cast<int16_t>(row[0]));
        pressW(1);  // this frame already counts down
        int frames = 1;
        while (left->bank->suspended && frames < 1000) {
            left->update();
            ++frames;
        }
        EXPECT_EQ(frames, row[1]) << row[0];
        EXPECT_EQ(left->disturbCharge, row[2]) << row[0];
        runToCharge(0);
    }
}

TEST_F(DisturbanceTest, SuspendAndResumeAreIdempotent)
{
    CannonBank& bank = *left->bank;
    bank.resume();
    EXPECT_FALSE(bank.suspended);
    bank.setCannons(2);
    bank.suspend();
    bank.suspend();
    EXPECT_EQ(bank.heldCannons, 2);
    bank.setCannons(1);
    EXPECT_EQ(bank.heldCannons, 1);
    EXPECT_EQ(bank.wantedCannons, 0);
    bank.resume();
    bank.resume();
    EXPECT_EQ(bank.wantedCannons, 1);
}

TEST_F(DisturbanceTest, OnlyAFullChargeDropsEnemiesOnTheOtherSide)
{
    map.spawnInterval = "10";  // disturbance credit needed: 10 / 1000 * 1100 * 3 = 33
    path = map.write(2);
    Player right(2, true, path.c_str(), 2);
    right.enemyDisturbCharge = 199;
    for (int i = 0; i < 40; ++i)
        right.update();
    EXPECT_EQ(right.level->disturbCredit, 0);
    right.enemyDisturbCharge = 200;
    int redLights = 0;
    for (int i = 0; i < 40; ++i) {
        right.update();
        for (const PointLight& light : right.lights)
            redLights += light.red == 1.5f && light.framesLeft == 74;
    }
    EXPECT_EQ(redLights, 1);
    EXPECT_EQ(right.disturbCharge, 0);
    EXPECT_TRUE(right.disturbButton->mouseEnabled);
}

}  // namespace
