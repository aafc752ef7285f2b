// Sound and the global audio system, heard through OpenAL's wave writer, with
// the play spacing timed on the test backend's virtual clock.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "audio_capture.h"
#include "base/random.h"
#include "data/settings.h"
#include "platform/testing/test_backend.h"
#include "sound/fmod.h"
#include "sound/sound.h"
#include "support/scratch_dir.h"

namespace {

class SoundTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        routeAudioToCapture();
        copySoundFixtures();
        testBackend::reset();
        forgetCachedVolumes();
        testing::internal::CaptureStdout();
        getSoundVolume();  // makes the settings file, with its line, before we listen
        testing::internal::GetCapturedStdout();
    }

    void TearDown() override { stopAudio(); }

    // Starts audio and returns what it printed.
    std::string startAudio()
    {
        testing::internal::CaptureStdout();
        initAudio();
        audioStarted = true;
        return testing::internal::GetCapturedStdout();
    }

    // Closes the device, which finishes the captured file.
    void stopAudio()
    {
        if (audioStarted) shutdownAudio();
        audioStarted = false;
    }

    ScratchDir scratch;
    bool audioStarted = false;
};

TEST_F(SoundTest, PlayedEffectIsHeardForItsLength)
{
    EXPECT_EQ(startAudio(), "FMOD initialized correctly\n");
    {
        Sound effect(tonePath, false, false);
        ASSERT_TRUE(effect.isLoaded);
        testBackend::advanceTime(1.0);
        effect.play();
        EXPECT_NE(effect.channel, nullptr);
        EXPECT_DOUBLE_EQ(effect.lastPlayTime, 1.0);
        listen(0.7);
    }
    stopAudio();
    CapturedAudio mix = readCapture();
    ASSERT_EQ(mix.channels, 2);
    EXPECT_NEAR(soundingSeconds(mix), 0.4, 0.06);
    EXPECT_GT(peakLevel(mix), 8000) << "half of full scale, centred";
    EXPECT_EQ(longestGapInside(mix), 0.0);
}

TEST_F(SoundTest, SoundVolumeZeroPlaysSilently)
{
    setSoundVolume(0);
    startAudio();
    {
        Sound effect(tonePath, false, false);
        testBackend::advanceTime(1.0);
        effect.play();
        EXPECT_TRUE(isPlaying(effect.channel)) << "the channel runs, unheard";
        listen(0.3);
    }
    stopAudio();
    CapturedAudio mix = readCapture();
    ASSERT_FALSE(mix.samples.empty());
    EXPECT_EQ(peakLevel(mix), 0);
}

TEST_F(SoundTest, MusicTurnedDownGoesOnSilently)
{
    startAudio();
    {
        Sound music(loopPath, true, true);
        testBackend::advanceTime(1.0);
        music.play();
        listen(0.3, true);
        setMusicVolume(0);
        music.applyVolume();
        listen(0.5, true);
        EXPECT_TRUE(isPlaying(music.channel)) << "not stopped";
    }
    stopAudio();
    CapturedAudio mix = readCapture();
    std::vector<bool> stretches = soundingStretches(mix);
    ASSERT_GT(stretches.size(), 60u);
    EXPECT_GT(soundingSeconds(mix), 0.2) << "heard at 60 percent first";
    for (size_t i = stretches.size() - 25; i < stretches.size(); i++) {
        EXPECT_FALSE(stretches[i]) << "the last quarter second is silent";
    }
}

TEST_F(SoundTest, PlaysCloserThanATenthOfASecondAreDropped)
{
    startAudio();
    Sound exact(tonePath, false, false), close(tonePath, false, false), apart(tonePath, false, false);
    testBackend::advanceTime(0.05);
    exact.play();
    EXPECT_EQ(exact.channel, nullptr) << "the first tenth after the clock started";

    // 0.125 and 0.225 lie exactly 0.1 apart in binary too.
    testBackend::advanceTime(0.075);
    ASSERT_EQ(testBackend::now(), 0.125);
    exact.play();
    FMOD_CHANNEL* exactFirst = exact.channel;
    ASSERT_NE(exactFirst, nullptr);
    testBackend::advanceTime(0.1);
    ASSERT_EQ(testBackend::now() - 0.125, 0.1);
    exact.play();
    EXPECT_EQ(exact.channel, exactFirst) << "exactly 0.1 s apart: one channel";
    EXPECT_DOUBLE_EQ(exact.lastPlayTime, 0.125);

    close.play();
    apart.play();
    FMOD_CHANNEL* closeFirst = close.channel;
    FMOD_CHANNEL* apartFirst = apart.channel;
    testBackend::advanceTime(0.05);
    close.play();
    EXPECT_EQ(close.channel, closeFirst) << "0.05 s apart: one channel";

    testBackend::advanceTime(0.06);
    apart.play();
    EXPECT_NE(apart.channel, apartFirst) << "0.11 s apart: a second channel";
    EXPECT_TRUE(isPlaying(apartFirst));
    EXPECT_TRUE(isPlaying(apart.channel));
}

TEST_F(SoundTest, LoopingStreamPlaysOnPastItsLengthWithoutAGap)
{
    startAudio();
    {
        Sound music(loopPath, true, true);
        testBackend::advanceTime(1.0);
        music.play();
        listen(1.3, true);  // the ring holds 0.8 s, so it must be refilled
        EXPECT_TRUE(isPlaying(music.channel));
    }
    stopAudio();
    CapturedAudio mix = readCapture();
    EXPECT_GT(soundingSeconds(mix), 1.0) << "four times the file's 0.25 s";
    EXPECT_EQ(longestGapInside(mix), 0.0);
}

TEST_F(SoundTest, MusicComesBackAfterAStallLongerThanItsRing)
{
    startAudio();
    {
        Sound music(loopPath, true, true);
        testBackend::advanceTime(1.0);
        music.play();
        listen(1.0);  // no update: the queued 0.8 s run out
        EXPECT_TRUE(isPlaying(music.channel)) << "run dry, not over";
        listen(0.4, true);
    }
    stopAudio();
    CapturedAudio mix = readCapture();
    std::vector<bool> stretches = soundingStretches(mix);
    ASSERT_GT(stretches.size(), 20u);
    EXPECT_GT(longestGapInside(mix), 0.1) << "the stall is heard";
    EXPECT_TRUE(stretches[stretches.size() - 5]) << "and the music after it";
}

TEST_F(SoundTest, StreamWithoutLoopEndsAndLoopingEffectRepeats)
{
    startAudio();
    Sound once(loopPath, false, true);
    Sound looped(tonePath, true, false);
    testBackend::advanceTime(1.0);
    once.play();
    looped.play();
    listen(0.9, true);
    EXPECT_FALSE(isPlaying(once.channel));
    EXPECT_TRUE(isPlaying(looped.channel)) << "0.4 s, looped";
}

TEST_F(SoundTest, PausedChannelIsSilent)
{
    startAudio();
    {
        Sound effect(tonePath, false, false);
        testBackend::advanceTime(1.0);
        effect.play();
        effect.setPaused(true);
        listen(0.5);
        EXPECT_TRUE(isPlaying(effect.channel)) << "paused, not over";

        Sound music(loopPath, true, true);
        music.play();
        music.setPaused(true);
        listen(0.3, true);
    }
    stopAudio();
    EXPECT_LT(soundingSeconds(readCapture()), 0.06) << "at most the mix before each pause";
}

TEST_F(SoundTest, ResumedChannelPlaysTheRest)
{
    startAudio();
    {
        Sound effect(tonePath, false, false);
        testBackend::advanceTime(1.0);
        effect.play();
        effect.setPaused(true);
        listen(0.2);
        effect.setPaused(false);
        listen(0.7);
        EXPECT_FALSE(isPlaying(effect.channel));
    }
    stopAudio();
    EXPECT_NEAR(soundingSeconds(readCapture()), 0.4, 0.06);
}

// A unique sound restarts instead of stacking (music is unique from the
// start); a released sound falls silent, and its stale channel is refused
// without touching the sound that takes the channel next.
TEST_F(SoundTest, UniqueSoundRestartsAndAReleasedSoundsChannelGoesStale)
{
    startAudio();
    testBackend::advanceTime(1.0);
    Sound* first = new Sound(tonePath, false, false);
    first->play();
    FMOD_CHANNEL* stale = first->channel;
    delete first;
    EXPECT_FALSE(isPlaying(stale));
    Sound second(highPath, false, false);
    second.play();  // takes the channel the first one had
    EXPECT_EQ(FMOD_Channel_SetPaused(stale, true), FMOD_ERR_INVALID_HANDLE);
    FMOD_BOOL paused = true;
    EXPECT_EQ(FMOD_Channel_GetPaused(second.channel, &paused), FMOD_OK);
    EXPECT_FALSE(paused);

    Sound build(tonePath, false, false);
    EXPECT_FALSE(build.unique);
    EXPECT_TRUE(Sound(loopPath, true, true).unique);
    build.setUnique();
    build.play();
    FMOD_CHANNEL* firstPlay = build.channel;
    testBackend::advanceTime(0.2);
    build.play();
    ASSERT_NE(build.channel, firstPlay);
    EXPECT_FALSE(isPlaying(firstPlay)) << "one channel per unique sound";
    EXPECT_TRUE(isPlaying(build.channel));
    testing::internal::CaptureStdout();
    build.setPaused(true);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(SoundTest, VariantsArePickedByTheCosmeticGenerator)
{
    startAudio();
    Sound combo(tonePath, false, false);
    combo.addVariant(highPath);
    ASSERT_EQ(combo.variants.size(), 2u);

    RandomGenerator reference(7);
    std::vector<int> expected;
    for (int i = 0; i < 12; i++) expected.push_back(reference.nextInt(0, 1));
    cosmeticRandom().seed(7);
    seedRandom(5);  // plays come as real time allows: the simulation's draws stay apart
    int picked[2] = {0, 0};
    for (int i = 0; i < 12; i++) {
        testBackend::advanceTime(0.2);
        combo.play();
        FMOD_SOUND* playing = nullptr;
        ASSERT_EQ(FMOD_Channel_GetCurrentSound(combo.channel, &playing), FMOD_OK);
        EXPECT_EQ(playing, combo.variants[expected[i]]) << "play " << i;
        picked[expected[i]]++;
    }
    EXPECT_GT(picked[0], 0);
    EXPECT_GT(picked[1], 0);
    EXPECT_EQ(randomState(), 5u);
}

TEST_F(SoundTest, MissingFilesAreReportedAndNeverPlayed)
{
    startAudio();
    testing::internal::CaptureStdout();
    {
        Sound missing("content/sound/none.ogg", false, false);
        EXPECT_FALSE(missing.isLoaded);
        EXPECT_EQ(missing.variants.size(), 1u) << "the empty slot stays";
        missing.addVariant(tonePath);
        EXPECT_EQ(missing.variants.size(), 1u) << "nothing is added to a sound that failed";
        testBackend::advanceTime(1.0);
        missing.play();
        EXPECT_EQ(missing.channel, nullptr);
    }
    std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(printed,
              "FMOD error! (9) The file could not be opened.\n"
              "FMOD error! (3) An argument is missing or out of range.\n");

    Sound partly(tonePath, false, false);
    testing::internal::CaptureStdout();
    partly.addVariant("content/sound/none.ogg");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "FMOD error! (9) The file could not be opened.\n"
              "FMOD error! (3) An argument is missing or out of range.\n");
    ASSERT_EQ(partly.variants.size(), 1u);
    EXPECT_NE(partly.variants[0], nullptr);

    testing::internal::CaptureStdout();
    for (int i = 0; i < 5; i++) {
        testBackend::advanceTime(0.2);
        partly.play();
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(SoundTest, NotAnOggFileIsReported)
{
    writeFileBytes("content/sound/text.ogg", "not a sound at all");
    startAudio();
    testing::internal::CaptureStdout();
    {
        Sound broken("content/sound/text.ogg", false, false);
        EXPECT_FALSE(broken.isLoaded);
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "FMOD error! (11) The file is not in a format that can be decoded.\n"
              "FMOD error! (3) An argument is missing or out of range.\n");
}

TEST_F(SoundTest, VolumeOfASoundNeverPlayedIsRefusedAndTheGameGoesOn)
{
    startAudio();
    Sound effect(tonePath, false, false);
    testing::internal::CaptureStdout();
    effect.applyVolume();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "FMOD error! (4) The handle is stale or was never valid.\n");
}

TEST_F(SoundTest, WithoutADeviceTheGameRunsSilently)
{
    std::filesystem::remove(capturePath());
    std::filesystem::create_directory(capturePath());  // the writer cannot open it
    std::string printed = startAudio();
    std::filesystem::remove(capturePath());
    EXPECT_EQ(printed, "FMOD error! (6) No audio output device could be opened.\n");

    testing::internal::CaptureStdout();
    {
        Sound music(loopPath, true, true);
        Sound effect(tonePath, false, false);
        EXPECT_FALSE(music.isLoaded);
        EXPECT_TRUE(effect.variants.empty());
        effect.addVariant(highPath);
        effect.setUnique();
        testBackend::advanceTime(1.0);
        effect.play();
        music.play();
        music.setPaused(true);
        EXPECT_EQ(effect.channel, nullptr);
        for (int frame = 0; frame < 3; frame++) updateAudio();
    }
    stopAudio();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "one line at the start, no more";
}

}  // namespace
