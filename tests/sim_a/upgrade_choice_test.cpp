#include <gtest/gtest.h>

#include <map>

#include "base/random.h"
#include "sim/upgrade_panel.h"

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

TEST(FairDraw, PermanentWeightsAreThreeTwoOneByLead)
{
    seedRandom(1);
    const uint16_t generated[12] = {4, 5, 6};
    const auto counts = tally(generated, 0, 2, 3, 60000);
    EXPECT_NEAR(counts.at(0) / 60000.0, 3 / 6.0, 0.01);
    EXPECT_NEAR(counts.at(1) / 60000.0, 2 / 6.0, 0.01);
    EXPECT_NEAR(counts.at(2) / 60000.0, 1 / 6.0, 0.01);
}

TEST(FairDraw, AKindThatLeadsBySpreadCantComeUp)
{
    seedRandom(2);
    const uint16_t generated[12] = {2, 5, 3};
    const auto counts = tally(generated, 0, 2, 3, 5000);
    EXPECT_EQ(counts.count(1), 0u);
    EXPECT_NEAR(counts.at(0) / 5000.0, 3 / 5.0, 0.03);
    EXPECT_NEAR(counts.at(2) / 5000.0, 2 / 5.0, 0.03);
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

}  // namespace
