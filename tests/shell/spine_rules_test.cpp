#include <gtest/gtest.h>

#include "base/random.h"
#include "play/game.h"
#include "shell/spine_rules.h"
#include "shell/window.h"

TEST(TrackRule, NeverTheTrackOfTheGameBefore)
{
    seedRandom(99);
    int seen[3] = {0, 0, 0};
    for (int i = 0; i < 3000; ++i) {
        uint8_t last = static_cast<uint8_t>(i % 3);
        uint8_t track = chooseNextTrack(last);
        ASSERT_LT(track, 3);
        ASSERT_NE(track, last);
        ++seen[track];
    }
    for (int count : seen) EXPECT_GT(count, 800);
    // The first game can get any of the three.
    int first[3] = {0, 0, 0};
    for (int i = 0; i < 300; ++i) ++first[chooseNextTrack(noTrack)];
    for (int count : first) EXPECT_GT(count, 50);
}

TEST(TrackRule, TheTableNamesThePlayTracks)
{
    EXPECT_STREQ(playTrackFiles[1], "content/music/Fennick - The Race.ogg");
}

TEST(MenuEntry, ChangeLevelReturnsToLevelSelectionInTheSameMode)
{
    EXPECT_EQ(menuEntryAfter(resultChangeLevel, 1, false), 1);
    EXPECT_EQ(menuEntryAfter(resultChangeLevel, 1, true), 2);
    EXPECT_EQ(menuEntryAfter(resultChangeLevel, 2, true), 3);
    EXPECT_EQ(menuEntryAfter(resultExitToMenu, 1, true), 0);
    EXPECT_EQ(menuEntryAfter(resultResume, 2, true), 0);
    EXPECT_EQ(menuEntryAfter(resultQuit, 1, false), 0);
}

TEST(ScreenGeometry, ScreenTexturesArePowersOfTwoFromTwo)
{
    EXPECT_EQ(screenTextureSize(1000), 1024);
    EXPECT_EQ(screenTextureSize(600), 1024);
    EXPECT_EQ(screenTextureSize(512), 512);
    EXPECT_EQ(screenTextureSize(1024), 1024);
    EXPECT_EQ(screenTextureSize(3), 4);
    EXPECT_EQ(screenTextureSize(2), 2);
    EXPECT_EQ(screenTextureSize(1), 2);
    EXPECT_EQ(screenTextureSize(0), 2);
    setScreenSize(1920, 1080);
    EXPECT_EQ(screenTextureWidth, 2048);
    EXPECT_EQ(screenTextureHeight, 2048);
}

TEST(ClosingOverlay, DarkensOverTwoHundredFramesAndHolds)
{
    EXPECT_FLOAT_EQ(closingOverlayAlpha(500), 0);
    EXPECT_FLOAT_EQ(closingOverlayAlpha(400), 0.4f);
    EXPECT_FLOAT_EQ(closingOverlayAlpha(300), 0.8f);
    EXPECT_FLOAT_EQ(closingOverlayAlpha(10), 0.8f);
    EXPECT_FLOAT_EQ(closingMessageAlpha(400), 0.5f);
    EXPECT_FLOAT_EQ(closingMessageAlpha(151), 1);
}

TEST(TitleHint, CentredByTheTitleLength)
{
    EXPECT_EQ(titleHintX(0, 1000), 480);  // an empty title still shows
    // (10 * -19.243421055 + 1000 - 40) * 0.5 = 383.78...
    EXPECT_EQ(titleHintX(10, 1000), 383);
    EXPECT_EQ(titleHintX(60, 800), -197);
}
