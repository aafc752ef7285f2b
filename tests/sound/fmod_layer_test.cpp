// The FMOD-shaped layer on its own: result texts, which channel a play takes,
// stale handles, and the calls it refuses with their result codes.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "audio_capture.h"
#include "sound/fmod.h"
#include "support/scratch_dir.h"

namespace {

// A system on the capture device with three sounds: a and c the same file.
class FmodLayer : public ::testing::Test {
protected:
    void SetUp() override
    {
        routeAudioToCapture();
        ASSERT_EQ(FMOD_System_Create(&system), FMOD_OK);
    }
    void TearDown() override { EXPECT_EQ(FMOD_System_Close(system) + FMOD_System_Release(system), FMOD_OK); }

    void start(int channels)
    {
        ASSERT_EQ(FMOD_System_Init(system, channels, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
        for (auto [sound, path] : {std::pair{&a, tonePath}, {&b, highPath}, {&c, tonePath}})
            ASSERT_EQ(FMOD_System_CreateSound(system, path, FMOD_LOOP_OFF | FMOD_2D | FMOD_HARDWARE, nullptr, sound),
                      FMOD_OK);
    }
    FMOD_CHANNEL* play(FMOD_SOUND* sound)
    {
        FMOD_CHANNEL* channel = nullptr;
        EXPECT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, false, &channel), FMOD_OK);
        return channel;
    }
    int channelsPlaying()
    {
        int count = -1;
        FMOD_System_GetChannelsPlaying(system, &count);
        return count;
    }

    ScratchDir scratch;
    FMOD_SYSTEM* system = nullptr;
    FMOD_SOUND *a = nullptr, *b = nullptr, *c = nullptr;
};

TEST_F(FmodLayer, ResultTextsVersionAndRefusedCalls)
{
    std::set<std::string> texts;
    for (int code = 0; code <= 95; code++) texts.insert(FMOD_ErrorString(static_cast<FMOD_RESULT>(code)));
    EXPECT_EQ(texts.size() - texts.count("Unknown error."), 96u);
    EXPECT_STREQ(FMOD_ErrorString(static_cast<FMOD_RESULT>(96)), "Unknown error.");
    EXPECT_STREQ(FMOD_ErrorString(static_cast<FMOD_RESULT>(-1)), "Unknown error.");

    unsigned int version = 0;
    EXPECT_EQ(FMOD_System_GetVersion(system, &version), FMOD_OK);
    EXPECT_GE(version, 0x44004u);
    FMOD_SYSTEM* second = system;
    EXPECT_EQ(FMOD_System_Create(&second), FMOD_ERR_SYSTEM_EXISTS);
    EXPECT_EQ(second, nullptr);
    FMOD_SOUND* sound = a;
    EXPECT_EQ(FMOD_System_CreateSound(system, tonePath, FMOD_2D, nullptr, &sound), FMOD_ERR_UNINITIALIZED);
    EXPECT_EQ(sound, nullptr);
    start(4);
    EXPECT_EQ(FMOD_System_Init(system, 4, FMOD_INIT_NORMAL, nullptr), FMOD_ERR_ALREADY_INITIALIZED);
    EXPECT_EQ(FMOD_System_CreateSound(system, tonePath, FMOD_LOOP_OFF | FMOD_LOOP_NORMAL, nullptr, &sound), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_CreateSound(system, tonePath, 0x10, nullptr, &sound), FMOD_ERR_UNSUPPORTED_MODE);
    FMOD_CHANNEL* channel = reinterpret_cast<FMOD_CHANNEL*>(0x1);
    EXPECT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, nullptr, false, &channel), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(channel, nullptr);
    EXPECT_EQ(FMOD_Channel_SetVolume(nullptr, 1.0f), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_SetPaused(reinterpret_cast<FMOD_CHANNEL*>(0x105), true), FMOD_ERR_INVALID_HANDLE);
}

TEST_F(FmodLayer, PlaysTakeAnIdleChannelElseTheOldestAndOldHandlesGoStale)
{
    start(2);
    EXPECT_EQ(channelsPlaying(), 0);
    FMOD_CHANNEL* first = play(a);
    FMOD_CHANNEL* second = play(b);
    FMOD_CHANNEL* third = play(c);
    EXPECT_EQ(channelsPlaying(), 2);
    EXPECT_FALSE(isPlaying(first)) << "the oldest play gives way";
    EXPECT_TRUE(isPlaying(second) && isPlaying(third));
    // The stale handle reaches neither the sound now on its channel nor any other.
    FMOD_SOUND* current = nullptr;
    FMOD_BOOL paused = true;
    EXPECT_EQ(FMOD_Channel_SetPaused(first, true), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_SetVolume(first, 0.5f), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_GetCurrentSound(first, &current), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_GetCurrentSound(third, &current) + FMOD_Channel_GetPaused(third, &paused), FMOD_OK);
    EXPECT_TRUE(current == c && !paused);

    FMOD_CHANNEL* fourth = play(a);  // now the second is the oldest
    EXPECT_TRUE(!isPlaying(second) && isPlaying(third));
    EXPECT_EQ(FMOD_Sound_Release(a), FMOD_OK);  // frees the fourth's channel
    EXPECT_FALSE(isPlaying(fourth));
    FMOD_CHANNEL* fifth = play(b);
    EXPECT_TRUE(isPlaying(third) && isPlaying(fifth)) << "the busy channel is left alone";
    EXPECT_NE(fifth, fourth) << "a new play on the same channel gets a new handle";
    EXPECT_EQ(FMOD_Sound_Release(a), FMOD_ERR_INVALID_HANDLE) << "released already";

    ASSERT_EQ(FMOD_System_Close(system), FMOD_OK);
    EXPECT_EQ(FMOD_Sound_Release(b), FMOD_ERR_INVALID_HANDLE) << "closing released every sound";
    start(2);
    EXPECT_NE(play(a), fifth);
    EXPECT_EQ(FMOD_Channel_SetPaused(fifth, true), FMOD_ERR_INVALID_HANDLE);
}

}  // namespace
