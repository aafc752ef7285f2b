// The fair draw of upgrade kinds, and the panel. The panel and the shard list
// own pictures: a hidden GL window of the test backend, without the pictures
// (a missing one leaves an empty texture).
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>

#include "base/random.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "sim/effects.h"
#include "sim/upgrade_panel.h"
#include "support/scratch_dir.h"

namespace {

// How often each kind comes up over many draws from the same counts.
std::map<int, int> tally(const uint16_t* generated, uint8_t first, uint8_t last, uint8_t spread,
                         int draws)
{
    std::map<int, int> counts;
    for (int i = 0; i < draws; ++i)
        counts[chooseFairKind(generated, first, last, spread)] += 1;
    return counts;
}

TEST(FairDraw, PermanentWeightsAreThreeTwoOneByLeadAndNoneAtTheSpread)
{
    seedRandom(1);
    const uint16_t generated[12] = {4, 5, 6};
    const auto counts = tally(generated, 0, 2, 3, 60000);
    EXPECT_NEAR(counts.at(0) / 60000.0, 3 / 6.0, 0.01);
    EXPECT_NEAR(counts.at(1) / 60000.0, 2 / 6.0, 0.01);
    EXPECT_NEAR(counts.at(2) / 60000.0, 1 / 6.0, 0.01);

    // A kind that leads by the spread can't come up.
    const uint16_t leading[12] = {2, 5, 3};
    const auto without = tally(leading, 0, 2, 3, 5000);
    EXPECT_EQ(without.count(1), 0u);
    EXPECT_NEAR(without.at(0) / 5000.0, 3 / 5.0, 0.03);
    EXPECT_NEAR(without.at(2) / 5000.0, 2 / 5.0, 0.03);
}


TEST(FairDraw, TemporaryStartGivesKindSevenHalfTheWeight)
{
    seedRandom(3);
    const uint16_t generated[12] = {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0};
    const auto counts = tally(generated, 6, 11, 2, 110000);
    // Lists of 2 for each kind but 7, which has 1: eleven lots in all.
    for (int kind = 6; kind <= 11; ++kind)
        EXPECT_NEAR(counts.at(kind) / 110000.0, (kind == 7 ? 1 : 2) / 11.0, 0.006) << kind;
}

TEST(FairDraw, PicksTheListEntryOfTheDraw)
{
    // Kinds 0, 0, 0, 1, 1, 2 for counts 0, 1, 2: the draw indexes that list.
    const uint16_t generated[12] = {0, 1, 2};
    for (uint32_t seed = 1; seed < 40; ++seed) {
        seedRandom(seed);
        const int index = randomInt(0, 5);
        seedRandom(seed);
        const int expected = index < 3 ? 0 : index < 5 ? 1 : 2;
        EXPECT_EQ(chooseFairKind(generated, 0, 2, 3), expected) << seed;
    }
}

TEST(FairDraw, ThePermanentStatsRiseNearlyInStep)
{
    seedRandom(4);
    uint16_t generated[12] = {};
    for (int i = 0; i < 3000; ++i) {
        generated[chooseFairKind(generated, 0, 2, 3)] += 1;
        const int low = std::min({generated[0], generated[1], generated[2]});
        const int high = std::max({generated[0], generated[1], generated[2]});
        ASSERT_LE(high - low, 3);
    }
}


class UpgradePanelTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        testBackend::reset();
        glfwInit();
        ASSERT_TRUE(glfwOpenWindow(800, 600, 8, 8, 8, 8, 0, 8, GLFW_WINDOW));
        seedRandom(1);
        testing::internal::CaptureStderr();  // the missing pictures say so
        panel = std::make_unique<UpgradePanel>();
    }

    void TearDown() override
    {
        panel.reset();
        glfwCloseWindow();
        glfwTerminate();
        testing::internal::GetCapturedStderr();
    }

    // Frames of update until a permanent upgrade comes due.
    int framesToPermanent(float rate, float share)
    {
        for (int frame = 1; frame < 100000; ++frame)
            if (panel->update(rate, share).permanentKind != UPGRADE_NONE)
                return frame;
        return -1;
    }

    int framesToTemporary(float rate, float share)
    {
        for (int frame = 1; frame < 100000; ++frame)
            if (panel->update(rate, share).temporaryMade)
                return frame;
        return -1;
    }

    ScratchDir scratch;
    std::unique_ptr<UpgradePanel> panel;
};

TEST_F(UpgradePanelTest, StartsWithFiveFairlyDrawnPermanentUpgrades)
{
    uint16_t generated[12] = {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0};
    uint8_t expected[5];
    seedRandom(8);
    for (uint8_t& kind : expected) {
        kind = chooseFairKind(generated, 0, 2, 3);
        generated[kind] += 1;
    }
    seedRandom(8);
    UpgradePanel fresh;
    ASSERT_EQ(fresh.permanent.size(), 5u);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(fresh.permanent[i]->kind, expected[i]);
        EXPECT_EQ(fresh.permanent[i]->slot, i);
    }
    for (int kind = 0; kind < 12; ++kind)
        EXPECT_EQ(fresh.generated[kind], generated[kind]) << kind;
    EXPECT_TRUE(fresh.temporary.empty());
    EXPECT_EQ(fresh.activeFlags(), 0);
}

TEST_F(UpgradePanelTest, ColoursFollowTheKindModSixAndOnlySpecialsHaveIcons)
{
    const float colours[6][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0}, {1, 1, 0}, {1, 1, 0}};
    for (uint8_t kind : {0, 1, 2, 6, 7, 8, 9, 10, 11}) {
        Upgrade upgrade(kind, 0);
        EXPECT_EQ(upgrade.red, colours[kind % 6][0]) << int(kind);
        EXPECT_EQ(upgrade.green, colours[kind % 6][1]) << int(kind);
        EXPECT_EQ(upgrade.blue, colours[kind % 6][2]) << int(kind);
        EXPECT_EQ(upgrade.hasTexture, kind >= 9) << int(kind);
        EXPECT_EQ(upgrade.texture != 0, kind >= 9) << int(kind);
    }
}

TEST_F(UpgradePanelTest, PermanentComesDueStrictlyAboveOneFromTheHeadOfTheQueue)
{
    panel->permanentProgress = 1;
    EXPECT_EQ(panel->update(0, 50).permanentKind, UPGRADE_NONE);  // exactly 1
    const uint8_t head = panel->permanent[0]->kind;
    const Upgrade* second = panel->permanent[1];
    const int before = panel->generated[0] + panel->generated[1] + panel->generated[2];
    const UpgradeReport report = panel->update(1, 50);
    EXPECT_EQ(report.permanentKind, head);
    EXPECT_FALSE(report.temporaryMade);
    EXPECT_EQ(panel->permanentProgress, 0);  // what passed 1 is dropped
    ASSERT_EQ(panel->permanent.size(), 5u);
    EXPECT_EQ(panel->permanent[0], second);
    EXPECT_EQ(panel->permanent[4]->slot, 5);
    EXPECT_EQ(panel->generated[0] + panel->generated[1] + panel->generated[2], before + 1);

    // Both coming due in one frame are both reported.
    panel->permanentProgress = 1.5f;
    panel->temporaryProgress = 1.5f;
    const UpgradeReport both = panel->update(1, 50);
    EXPECT_NE(both.permanentKind, UPGRADE_NONE);
    EXPECT_TRUE(both.temporaryMade);
}

TEST_F(UpgradePanelTest, TemporaryJoinsTheBackOfItsQueueAtItsLength)
{
    panel->temporaryProgress = 1.5f;
    const UpgradeReport first = panel->update(1, 50);
    EXPECT_TRUE(first.temporaryMade);
    EXPECT_EQ(first.permanentKind, UPGRADE_NONE);
    panel->temporaryProgress = 1.5f;
    panel->update(1, 50);
    ASSERT_EQ(panel->temporary.size(), 2u);
    EXPECT_EQ(panel->temporary[0]->slot, 0);
    EXPECT_EQ(panel->temporary[1]->slot, 1);
    for (const Upgrade* upgrade : panel->temporary) {
        EXPECT_GE(upgrade->kind, 6);
        EXPECT_LE(upgrade->kind, 11);
    }
}

TEST_F(UpgradePanelTest, RatesFollowTheShareAndTheResourceRate)
{
    EXPECT_NEAR(framesToPermanent(1, 50), 6667, 3);
    EXPECT_NEAR(framesToPermanent(4, 100), 834, 2);
    panel->temporaryProgress = 0;
    EXPECT_NEAR(framesToTemporary(1, 50), 5000, 3);

    for (int frame = 0; frame < 20000; ++frame) {
        panel->update(4, 100);
        ASSERT_EQ(panel->temporaryProgress, 0);
    }
    panel->permanentProgress = 0;
    for (int frame = 0; frame < 20000; ++frame) {
        panel->update(4, 0);
        ASSERT_EQ(panel->permanentProgress, 0);
        panel->update(0, 50);
        ASSERT_EQ(panel->permanentProgress, 0);
    }
    EXPECT_EQ(panel->share, 50);
}

TEST_F(UpgradePanelTest, BoostTriplesBothProgressValuesWhileItLasts)
{
    panel->boostFrames = 3;
    panel->update(2, 40);
    EXPECT_NEAR(panel->permanentProgress, 2 * 40 * 0.000003 * 3, 1e-9);
    EXPECT_NEAR(panel->temporaryProgress, 60 * 2 * 0.000004 * 3, 1e-9);
    EXPECT_EQ(panel->boostFrames, 2);
}

TEST_F(UpgradePanelTest, TemporaryQueueIsUsedOldestFirstAndSpecialsStartTheirTimers)
{
    EXPECT_EQ(panel->takeTemporary(), UPGRADE_NONE);
    for (uint8_t kind : {9, 10, 11, 6})
        panel->temporary.push_back(new Upgrade(kind, static_cast<float>(panel->temporary.size())));

    EXPECT_EQ(panel->takeTemporary(), 9);
    EXPECT_EQ(panel->chainFrames, 901);
    EXPECT_EQ(panel->activeFlags(), 1);
    EXPECT_EQ(panel->takeTemporary(), 10);
    EXPECT_EQ(panel->blastFrames, 2);
    EXPECT_EQ(panel->activeFlags(), 3);
    EXPECT_EQ(panel->takeTemporary(), 11);
    EXPECT_EQ(panel->boostFrames, 601);
    EXPECT_EQ(panel->takeTemporary(), 6);
    EXPECT_EQ(panel->takeTemporary(), UPGRADE_NONE);

    // One blast: the order shows for one frame after the press.
    panel->update(1, 50);
    EXPECT_EQ(panel->blastFrames, 1);
    EXPECT_EQ(panel->activeFlags() & 2, 2);
    panel->update(1, 50);
    EXPECT_EQ(panel->activeFlags() & 2, 0);
    EXPECT_EQ(panel->chainFrames, 899);

    panel->chainFrames = 12000;  // stacked timers are held at ten thousand
    panel->update(1, 50);
    EXPECT_EQ(panel->chainFrames, 10000);
}

TEST_F(UpgradePanelTest, ShardListFliesItsShardsAndDropsTheLanded)
{
    ShardList list;
    EXPECT_NE(list.texture, 0u);
    list.add(10, 20);
    list.add(30, 40);
    list.shards[0].dy = 0.7f;
    list.update();
    ASSERT_EQ(list.shards.size(), 1u);
    EXPECT_NEAR(list.shards[0].y, 40, 1);
    for (int frame = 0; frame < 200; ++frame)
        list.update();
    EXPECT_TRUE(list.shards.empty());
}

}  // namespace
