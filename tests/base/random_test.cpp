// The game's own generator is the classic one, with 15-bit values, so that a
// seeded game replays the same everywhere.
#include <gtest/gtest.h>

#include "base/random.h"

TEST(GameRandom, ClassicSequenceAndRandomIntCoversBothEnds)
{
    seedRandom(1);  // state = state * 214013 + 2531011, value = (state >> 16) & 0x7FFF
    for (int expected : {41, 18467, 6334}) EXPECT_EQ(gameRand(), expected);
    int counts[3] = {0, 0, 0};  // a draw of 32767 gives hi + 1 and is drawn again
    for (int i = 0; i < 30000; ++i) {
        int value = randomInt(0, 2);
        ASSERT_TRUE(value >= 0 && value <= 2) << value;
        ++counts[value];
    }
    for (int count : counts) EXPECT_NEAR(count, 10000, 600);
}
