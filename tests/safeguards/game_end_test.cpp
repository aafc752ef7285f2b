// Nothing of play goes on after a game's end: a blast, chain or button press
// of the last frame of play does nothing more, and the stored score is the
// score at the end.
#include <gtest/gtest.h>

#include <cstdlib>

#include "data/scores.h"
#include "platform/testing/test_backend.h"
#include "sim/cannon_bank.h"
#include "sim/player.h"
#include "sim/upgrade_panel.h"
#include "sound/sound.h"
#include "support/play_session.h"

namespace {

// OpenAL's silent device on any machine, heard by nobody. OpenAL reads its
// driver list once a process, so this is set before any test opens audio.
const int silentDevice = setenv("ALSOFT_DRIVERS", "null", 1);

void playFrame(Player& player)
{
    testBackend::advanceTime(1 / 60.0);
    player.update();
}

TEST(GameEnd, OrdersOfTheLastFrameOfPlayDoNothingMore)
{
    PlaySession session;
    session.open();
    uint32_t endScore = 0;
    {
        Player player(0, true, "content/maps/map1.txt", 1);
        ASSERT_TRUE(player.button1Sound->isLoaded);
        for (int i = 0; i < 900; ++i) playFrame(player);  // enemies on the field
        player.bank->panel->temporary.push_back(new Upgrade(10, 0));  // a blast waits
        testBackend::setKey('S', true);
        testBackend::setKey('Q', true);
        playFrame(player);  // orders the blast and clicks Q
        player.arcOrders.push_back(ArcOrder{20, 192, 300});  // lightning waits its turn
        player.concede();
        endScore = player.score;
        const double click = player.button1Sound->lastPlayTime;
        int blasts = 0;
        for (int i = 0; i < 300; ++i) {
            playFrame(player);
            blasts += player.blastGlow == 220;
        }
        EXPECT_LE(blasts, 1);
        EXPECT_EQ(player.button1Sound->lastPlayTime, click);
        EXPECT_EQ(player.score, endScore);
    }
    EXPECT_EQ(getSurvivalScore(1), endScore);
}

}  // namespace
