// The sound layer heard through OpenAL's wave writer: the FMOD-shaped calls
// (result texts, which channel a play takes, stale handles, refused calls),
// and Sound with the global audio system, its play spacing timed on the test
// backend's virtual clock.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

#include "audio_capture.h"
#include "base/random.h"
#include "data/settings.h"
#include "platform/testing/test_backend.h"
#include "sound/fmod.h"
#include "sound/sound.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

TEST(FmodLayer, ResultTextsRefusedCallsChannelsAndStaleHandles)
{
    ScratchDir scratch;
    routeAudioToCapture();
    FMOD_SYSTEM* system = nullptr;
    FMOD_SOUND *a = nullptr, *b = nullptr, *c = nullptr;  // a and c the same file
    ASSERT_EQ(FMOD_System_Create(&system), FMOD_OK);
    auto start = [&](int channels) {
        ASSERT_EQ(FMOD_System_Init(system, channels, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
        for (auto [sound, path] : {std::pair{&a, tonePath}, {&b, highPath}, {&c, tonePath}})
            ASSERT_EQ(FMOD_System_CreateSound(system, path, FMOD_LOOP_OFF | FMOD_2D, nullptr, sound), FMOD_OK);
    };
    auto play = [&](FMOD_SOUND* sound) {
        FMOD_CHANNEL* channel = nullptr;
        EXPECT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, false, &channel), FMOD_OK);
        return channel;
    };
    auto channelsPlaying = [&] {
        int count = -1;
        FMOD_System_GetChannelsPlaying(system, &count);
        return count;
    };
    std::set<std::string> texts;
    for (int code = 0; code <= 95; code++) texts.insert(FMOD_ErrorString(static_cast<FMOD_RESULT>(code)));
    EXPECT_EQ(texts.size() - texts.count("Unknown error."), 96u);
    EXPECT_STREQ(FMOD_ErrorString(static_cast<FMOD_RESULT>(96)), "Unknown error.");
    EXPECT_STREQ(FMOD_ErrorString(static_cast<FMOD_RESULT>(-1)), "Unknown error.");

    unsigned int version = 0;
    EXPECT_EQ(FMOD_System_GetVersion(system, &version), FMOD_OK);
    EXPECT_GE(version, 0x44004u);
    FMOD_SYSTEM* other = system;
    EXPECT_EQ(FMOD_System_Create(&other), FMOD_ERR_SYSTEM_EXISTS);
    EXPECT_EQ(other, nullptr);
    FMOD_SOUND* sound = a;
    EXPECT_EQ(FMOD_System_CreateSound(system, tonePath, FMOD_2D, nullptr, &sound), FMOD_ERR_UNINITIALIZED);
    EXPECT_EQ(sound, nullptr);
    start(4);
    EXPECT_EQ(FMOD_System_Init(system, 4, FMOD_INIT_NORMAL, nullptr), FMOD_ERR_ALREADY_INITIALIZED);
    EXPECT_EQ(FMOD_System_CreateSound(system, tonePath, 0x10, nullptr, &sound), FMOD_ERR_UNSUPPORTED_MODE);
    FMOD_CHANNEL* channel = reinterpret_cast<FMOD_CHANNEL*>(0x1);
    EXPECT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, nullptr, false, &channel), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(channel, nullptr);

    // With the channels all busy a play takes the oldest; an idle one comes first.
    ASSERT_EQ(FMOD_System_Close(system), FMOD_OK);
    start(2);
    EXPECT_EQ(channelsPlaying(), 0);
    FMOD_SOUND* unique = nullptr;  // on the first channel, played again there
    ASSERT_EQ(FMOD_System_CreateSound(system, tonePath, FMOD_LOOP_OFF | FMOD_2D | FMOD_UNIQUE, nullptr, &unique),
              FMOD_OK);
    play(unique);
    play(unique);
    EXPECT_EQ(channelsPlaying(), 1) << "a unique sound plays again on its own channel";
    EXPECT_EQ(FMOD_Sound_Release(unique), FMOD_OK);
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
    EXPECT_EQ(FMOD_System_Close(system) + FMOD_System_Release(system), FMOD_OK);
    EXPECT_EQ(FMOD_System_Release(system), FMOD_ERR_INVALID_PARAM) << "released already";
}

class SoundTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        routeAudioToCapture();
        testBackend::reset();
        forgetCachedVolumes();
        stdoutOf(getSoundVolume);  // makes the settings file, with its line, before we listen
        EXPECT_EQ(stdoutOf(initAudio), "FMOD initialized correctly\n");
        testBackend::advanceTime(1.0);
    }
    void TearDown() override { shutdownAudio(); }
    ScratchDir scratch;
};

TEST_F(SoundTest, EffectsAreHeardForTheirLengthAndAPauseHoldsItsPlace)
{
    {
        Sound effect(tonePath, false, false);
        effect.play();
        listen(0.15);
        effect.setPaused(true);
        listen(0.25);
        EXPECT_TRUE(isPlaying(effect.channel)) << "paused, not over";
        effect.setPaused(false);
        listen(0.45);
        EXPECT_FALSE(isPlaying(effect.channel));
        Sound stereo(loopPath, false, false);  // 0.25 s of stereo, decoded whole
        stereo.play();
        listen(0.35);
    }
    shutdownAudio();  // finishes the captured file
    CapturedAudio mix = readCapture();
    EXPECT_NEAR(mix.soundingSeconds(), 0.65, 0.07) << "the rest after the pause, not all of it again";
    EXPECT_GT(mix.peak, 8000) << "half of full scale, centred";
    ASSERT_EQ(mix.gapsInside().size(), 2u) << "the pause, and the wait for the stereo effect";
    EXPECT_NEAR(mix.gapsInside()[0], 0.25, 0.05);
    stdoutOf(initAudio);  // for the fixture to shut down
}

// A stream's ring holds 0.8 s: longer music needs refills, and comes back
// after a longer stall. Music turned down, and effects at sound volume 0,
// play on unheard.
TEST_F(SoundTest, MusicLoopsPausesComesBackAfterAStallAndGoesOnSilently)
{
    {
        Sound music(loopPath, true, true);
        music.play();
        listen(1.0, true);
        music.setPaused(true);
        listen(0.3, true);
        music.setPaused(false);
        listen(1.0);  // no update: the queued 0.8 s run out
        EXPECT_TRUE(isPlaying(music.channel)) << "run dry, not over";
        listen(0.3, true);
        setMusicVolume(0);
        setSoundVolume(0);
        music.applyVolume();
        Sound once(loopPath, false, true), looped(tonePath, true, false);
        once.play();
        looped.play();
        listen(0.6, true);
        EXPECT_TRUE(isPlaying(music.channel)) << "not stopped";
        EXPECT_FALSE(isPlaying(once.channel)) << "a stream without loop ends";
        EXPECT_TRUE(isPlaying(looped.channel)) << "0.4 s, looped";
    }
    shutdownAudio();
    CapturedAudio mix = readCapture();
    ASSERT_GT(mix.sounding.size(), 250u);
    EXPECT_GT(mix.soundingSeconds(), 1.9);
    ASSERT_EQ(mix.gapsInside().size(), 2u) << "no gap but the pause and the stall";
    EXPECT_NEAR(mix.gapsInside()[0], 0.3, 0.05);
    EXPECT_GT(mix.gapsInside()[1], 0.1) << "the stall is heard";
    EXPECT_EQ(std::count(mix.sounding.end() - 50, mix.sounding.end(), true), 0) << "the last half second is still";
    stdoutOf(initAudio);  // for the fixture to shut down
}

TEST_F(SoundTest, PlaySpacingVariantsUniqueSoundsAndFailures)
{
    {  // the sounds go before the audio system is restarted below
        // Plays at 0.05 s (the first tenth after the clock started: none), 0.125,
        // 0.225 (exactly 0.1 later, in binary too: none), 0.235 (0.11 later) and 0.285 (none).
        Sound effect(tonePath, false, false);
        testBackend::reset();
        std::set<FMOD_CHANNEL*> channels;
        for (double step : {0.05, 0.075, 0.1, 0.01, 0.05}) {
            testBackend::advanceTime(step);
            effect.play();
            channels.insert(effect.channel);
        }
        EXPECT_EQ(channels.size(), 3u);
        EXPECT_DOUBLE_EQ(effect.lastPlayTime, 0.235);
        for (FMOD_CHANNEL* channel : channels) EXPECT_TRUE(!channel || isPlaying(channel)) << "effects stack";

        // Plays come as real time allows: a variant is drawn from the cosmetic
        // generator, and the simulation's draws stay apart.
        Sound combo(tonePath, false, false);
        combo.addVariant(highPath);
        RandomGenerator reference(7);
        cosmeticRandom().seed(7);
        seedRandom(5);
        std::set<FMOD_SOUND*> picked;
        for (int i = 0; i < 12; i++) {
            testBackend::advanceTime(0.2);
            combo.play();
            FMOD_SOUND* playing = nullptr;
            ASSERT_EQ(FMOD_Channel_GetCurrentSound(combo.channel, &playing), FMOD_OK);
            EXPECT_EQ(playing, combo.variants[reference.nextInt(0, 1)]) << "play " << i;
            picked.insert(playing);
        }
        EXPECT_EQ(picked, std::set<FMOD_SOUND*>(combo.variants.begin(), combo.variants.end())) << "both by chance";
        EXPECT_EQ(randomState(), 5u);

        // A unique sound restarts instead of stacking; music and loops are unique from the start.
        Sound build(tonePath, false, false);
        EXPECT_TRUE(!build.unique && Sound(loopPath, false, true).unique && Sound(tonePath, true, false).unique);
        build.setUnique();
        build.play();
        FMOD_CHANNEL* firstPlay = build.channel;
        testBackend::advanceTime(0.2);
        build.play();
        EXPECT_TRUE(build.channel != firstPlay && !isPlaying(firstPlay) && isPlaying(build.channel));
    }
    // Failures are printed, and the game goes on silently.
    const std::string notOpened = "FMOD error! (9) The file could not be opened.\n"
                                  "FMOD error! (3) An argument is missing or out of range.\n";
    writeFileBytes("content/sound/text.ogg", "not a sound at all");
    EXPECT_EQ(stdoutOf([] {
                  Sound missing("content/sound/none.ogg", false, false);
                  missing.addVariant(tonePath);
                  EXPECT_EQ(missing.variants.size(), 1u) << "the empty slot stays, nothing is added";
                  missing.play();
                  EXPECT_EQ(missing.channel, nullptr);
              }),
              notOpened);
    EXPECT_EQ(stdoutOf([] { Sound("content/sound/text.ogg", false, false); }),
              "FMOD error! (11) The file is not in a format that can be decoded.\n"
              "FMOD error! (3) An argument is missing or out of range.\n");
    EXPECT_EQ(stdoutOf([] {
                  Sound partly(tonePath, false, false);
                  partly.addVariant("content/sound/none.ogg");
                  EXPECT_EQ(partly.variants.size(), 1u);
                  for (int i = 0; i < 5; i++, testBackend::advanceTime(0.2)) partly.play();  // not the failed one
              }),
              notOpened);
    EXPECT_EQ(stdoutOf([] { Sound(tonePath, false, false).applyVolume(); }),
              "FMOD error! (4) The handle is stale or was never valid.\n");

    // A second start after a shutdown finds no device: one line, then silence.
    shutdownAudio();
    std::filesystem::remove(capturePath());
    std::filesystem::create_directory(capturePath());  // the writer cannot open it
    EXPECT_EQ(stdoutOf(initAudio), "FMOD error! (6) No audio output device could be opened.\n");
    std::filesystem::remove(capturePath());
    EXPECT_EQ(stdoutOf([] {
                  Sound music(loopPath, true, true), effect(tonePath, false, false);
                  EXPECT_TRUE(!music.isLoaded && effect.variants.empty());
                  effect.addVariant(highPath);
                  effect.setUnique();
                  effect.play();
                  music.play();
                  music.setPaused(true);
                  EXPECT_EQ(effect.channel, nullptr);
                  for (int frame = 0; frame < 3; frame++) updateAudio();
              }),
              "");
}

}  // namespace
