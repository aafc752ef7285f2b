// Music is never stolen: with every channel busy, a new effect takes the
// channel of the oldest effect, never the music stream's.
#include <gtest/gtest.h>

#include <cstdlib>

#include "sound/fmod.h"
#include "support/play_session.h"
#include "support/scratch_dir.h"

namespace {

bool isPlaying(FMOD_CHANNEL* channel)
{
    FMOD_BOOL playing = false;
    FMOD_Channel_IsPlaying(channel, &playing);
    return playing;
}

TEST(SoundChannels, AFullHouseTakesTheOldestEffectNeverTheMusic)
{
    ScratchDir scratch;  // OpenAL's silent device: set beside the game-end test
    linkBuiltContent();
    FMOD_SYSTEM* system = nullptr;
    ASSERT_EQ(FMOD_System_Create(&system), FMOD_OK);
    ASSERT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
    const FMOD_MODE looping = FMOD_LOOP_NORMAL | FMOD_2D | FMOD_HARDWARE;
    FMOD_SOUND *music = nullptr, *effect = nullptr;
    ASSERT_EQ(FMOD_System_CreateStream(system, "content/music/Brackwyn.ogg", looping, nullptr,
                                       &music), FMOD_OK);
    ASSERT_EQ(FMOD_System_CreateSound(system, "content/sound/static.ogg", looping, nullptr,
                                      &effect), FMOD_OK);

    FMOD_CHANNEL* channels[33] = {};  // the music, then 32 plays of the effect
    for (int i = 0; i < 33; ++i)
        ASSERT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, i == 0 ? music : effect,
                                        false, &channels[i]), FMOD_OK);
    EXPECT_TRUE(isPlaying(channels[0]));
    EXPECT_FALSE(isPlaying(channels[1]));  // the oldest effect made room
    for (int i = 2; i < 33; ++i) EXPECT_TRUE(isPlaying(channels[i])) << i;
    EXPECT_EQ(FMOD_System_Release(system), FMOD_OK);
}

}  // namespace
