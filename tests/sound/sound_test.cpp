// Sound and the global audio system, heard through OpenAL's wave writer, with
// the play spacing timed on the test backend's virtual clock.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "audio_capture.h"
#include "data/settings.h"
#include "platform/testing/test_backend.h"
#include "sound/fmod.h"
#include "sound/sound.h"
#include "support/captured_output.h"
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
        stdoutOf(getSoundVolume);  // makes the settings file, with its line, before we listen
    }

    void TearDown() override { stopAudio(); }

    std::string startAudio()
    {
        audioStarted = true;
        return stdoutOf(initAudio);
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

TEST_F(SoundTest, EffectIsHeardForItsLengthAndAPauseHoldsItsPlace)
{
    EXPECT_EQ(startAudio(), "FMOD initialized correctly\n");
    {
        Sound effect(tonePath, false, false);
        ASSERT_TRUE(effect.isLoaded);
        testBackend::advanceTime(1.0);
        effect.play();
        EXPECT_DOUBLE_EQ(effect.lastPlayTime, 1.0);
        listen(0.15);
        effect.setPaused(true);
        listen(0.25);
        EXPECT_TRUE(isPlaying(effect.channel)) << "paused, not over";
        effect.setPaused(false);
        listen(0.45);
        EXPECT_FALSE(isPlaying(effect.channel));
    }
    stopAudio();
    CapturedAudio mix = readCapture();
    ASSERT_EQ(mix.channels, 2);
    EXPECT_NEAR(mix.soundingSeconds(), 0.4, 0.06) << "the rest after the pause, not all of it again";
    EXPECT_GT(mix.peak(), 8000) << "half of full scale, centred";
    ASSERT_EQ(mix.gapsInside().size(), 1u);
    EXPECT_NEAR(mix.gapsInside()[0], 0.25, 0.05);
}

// The ring of a stream holds 0.8 s: a second of music needs refills. Music
// turned down, and effects at sound volume 0, play on unheard.
TEST_F(SoundTest, MusicLoopsPausesAndGoesOnSilentlyWhenTurnedDown)
{
    startAudio();
    {
        Sound music(loopPath, true, true);
        testBackend::advanceTime(1.0);
        music.play();
        listen(1.0, true);
        music.setPaused(true);
        listen(0.3, true);
        music.setPaused(false);
        listen(0.2, true);
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
    stopAudio();
    CapturedAudio mix = readCapture();
    ASSERT_GT(mix.sounding.size(), 180u);
    EXPECT_GT(mix.soundingSeconds(), 1.1);
    ASSERT_EQ(mix.gapsInside().size(), 1u) << "no gap but the pause";
    EXPECT_NEAR(mix.gapsInside()[0], 0.3, 0.05);
    for (size_t i = mix.sounding.size() - 50; i < mix.sounding.size(); i++)
        EXPECT_FALSE(mix.sounding[i]) << "the last half second is silent";
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
    ASSERT_GT(mix.sounding.size(), 20u);
    ASSERT_EQ(mix.gapsInside().size(), 1u);
    EXPECT_GT(mix.gapsInside()[0], 0.1) << "the stall is heard";
    EXPECT_TRUE(mix.sounding[mix.sounding.size() - 5]) << "and the music after it";
}

TEST_F(SoundTest, PlaySpacingVariantsAndUniqueSounds)
{
    startAudio();
    Sound exact(tonePath, false, false), close(tonePath, false, false), apart(tonePath, false, false);
    testBackend::advanceTime(0.05);
    exact.play();
    EXPECT_EQ(exact.channel, nullptr) << "the first tenth after the clock started";
    testBackend::advanceTime(0.075);  // 0.125 and 0.225 lie exactly 0.1 apart in binary too
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
    EXPECT_TRUE(isPlaying(apartFirst)) << "effects stack";
    EXPECT_TRUE(isPlaying(apart.channel));

    Sound combo(tonePath, false, false);
    combo.addVariant(highPath);
    ASSERT_EQ(combo.variants.size(), 2u);
    std::set<FMOD_SOUND*> picked;
    for (int i = 0; i < 12; i++) {
        testBackend::advanceTime(0.2);
        combo.play();
        FMOD_SOUND* playing = nullptr;
        ASSERT_EQ(FMOD_Channel_GetCurrentSound(combo.channel, &playing), FMOD_OK);
        picked.insert(playing);
    }
    EXPECT_EQ(picked, std::set<FMOD_SOUND*>(combo.variants.begin(), combo.variants.end()));

    // A unique sound restarts instead of stacking; music is unique from the start.
    Sound build(tonePath, false, false);
    EXPECT_FALSE(build.unique);
    EXPECT_TRUE(Sound(loopPath, true, true).unique);
    EXPECT_TRUE(Sound(tonePath, true, false).unique);
    build.setUnique();
    build.play();
    FMOD_CHANNEL* firstPlay = build.channel;
    testBackend::advanceTime(0.2);
    build.play();
    ASSERT_NE(build.channel, firstPlay);
    EXPECT_FALSE(isPlaying(firstPlay)) << "one channel per unique sound";
    EXPECT_TRUE(isPlaying(build.channel));

    // A released sound falls silent; its stale channel leaves the next sound there alone.
    Sound* released = new Sound(tonePath, false, false);
    released->play();
    FMOD_CHANNEL* stale = released->channel;
    delete released;
    EXPECT_FALSE(isPlaying(stale));
    Sound next(highPath, false, false);
    next.play();
    EXPECT_EQ(FMOD_Channel_SetPaused(stale, true), FMOD_ERR_INVALID_HANDLE);
    FMOD_BOOL paused = true;
    EXPECT_EQ(FMOD_Channel_GetPaused(next.channel, &paused), FMOD_OK);
    EXPECT_FALSE(paused);
}

TEST_F(SoundTest, FailuresArePrintedAndTheGameGoesOnSilently)
{
    const std::string notOpened = "FMOD error! (9) The file could not be opened.\n"
                                  "FMOD error! (3) An argument is missing or out of range.\n";
    writeFileBytes("content/sound/text.ogg", "not a sound at all");
    startAudio();
    testBackend::advanceTime(1.0);
    {
        EXPECT_EQ(stdoutOf([] {
                      Sound missing("content/sound/none.ogg", false, false);
                      EXPECT_FALSE(missing.isLoaded);
                      EXPECT_EQ(missing.variants.size(), 1u) << "the empty slot stays";
                      missing.addVariant(tonePath);
                      EXPECT_EQ(missing.variants.size(), 1u) << "nothing is added to a sound that failed";
                      missing.play();
                      EXPECT_EQ(missing.channel, nullptr);
                  }),
                  notOpened);
        EXPECT_EQ(stdoutOf([] { Sound("content/sound/text.ogg", false, false); }),
                  "FMOD error! (11) The file is not in a format that can be decoded.\n"
                  "FMOD error! (3) An argument is missing or out of range.\n");
        Sound partly(tonePath, false, false);
        EXPECT_EQ(stdoutOf([&] { partly.addVariant("content/sound/none.ogg"); }), notOpened);
        ASSERT_EQ(partly.variants.size(), 1u);
        EXPECT_EQ(stdoutOf([&] {
                      for (int i = 0; i < 5; i++) {
                          testBackend::advanceTime(0.2);
                          partly.play();  // never the failed variant
                      }
                  }),
                  "");
        EXPECT_EQ(stdoutOf([] { Sound(tonePath, false, false).applyVolume(); }),
                  "FMOD error! (4) The handle is stale or was never valid.\n");
    }

    // A second start after a shutdown finds no device: one line, then silence.
    stopAudio();
    std::filesystem::remove(capturePath());
    std::filesystem::create_directory(capturePath());  // the writer cannot open it
    EXPECT_EQ(startAudio(), "FMOD error! (6) No audio output device could be opened.\n");
    std::filesystem::remove(capturePath());
    EXPECT_EQ(stdoutOf([] {
                  Sound music(loopPath, true, true);
                  Sound effect(tonePath, false, false);
                  EXPECT_FALSE(music.isLoaded);
                  EXPECT_TRUE(effect.variants.empty());
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
