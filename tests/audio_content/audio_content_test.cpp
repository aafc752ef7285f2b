// The sound and music files of the built game: every file the game names is
// there, opens as Ogg Vorbis, has a sensible length and level, and each music
// track loops without a jump where its end meets its start.
#include <gtest/gtest.h>
#include <vorbis/vorbisfile.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const std::vector<std::string> soundFiles = {
    "content/sound/shot.ogg",    "content/sound/build.ogg",   "content/sound/button1.ogg",
    "content/sound/button2.ogg", "content/sound/button3.ogg", "content/sound/button4.ogg",
    "content/sound/combo1.ogg",  "content/sound/combo2.ogg",  "content/sound/combo_big.ogg",
    "content/sound/static.ogg",  "content/sound/static1.ogg", "content/sound/static2.ogg",
    "content/sound/static3.ogg",
};

const std::vector<std::string> musicFiles = {
    "content/music/Brackwyn.ogg",
    "content/music/Tobrelle, Dunmarrow - Nothing Less remix.ogg",
    "content/music/Fennick - The Race.ogg",
    "content/music/Ondrevia - Setarip Ecaps.ogg",
};

// A whole file decoded to interleaved 16-bit samples.
struct Decoded {
    bool opened = false;
    int channels = 0;
    long rate = 0;
    int64_t framesDeclared = 0;
    std::vector<int16_t> samples;

    int64_t frames() const { return channels ? int64_t(samples.size()) / channels : 0; }
    double seconds() const { return rate ? double(frames()) / rate : 0.0; }
    int16_t at(int64_t frame, int channel) const { return samples[size_t(frame * channels + channel)]; }
};

Decoded decode(const std::string& relativePath)
{
    Decoded d;
    std::string path = std::string(GORVAN_RUN_DIR) + "/" + relativePath;
    OggVorbis_File file;
    if (ov_fopen(path.c_str(), &file) != 0) return d;
    d.opened = true;
    vorbis_info* info = ov_info(&file, -1);
    d.channels = info->channels;
    d.rate = info->rate;
    d.framesDeclared = ov_pcm_total(&file, -1);
    char buffer[8192];
    int section = 0;
    for (;;) {
        long got = ov_read(&file, buffer, sizeof buffer, 0, 2, 1, &section);
        if (got <= 0) break;
        const int16_t* values = reinterpret_cast<const int16_t*>(buffer);
        d.samples.insert(d.samples.end(), values, values + got / 2);
    }
    ov_clear(&file);
    return d;
}

int peakOf(const Decoded& d)
{
    int peak = 0;
    for (int16_t v : d.samples) peak = std::max(peak, std::abs(int(v)));
    return peak;
}

double rmsOf(const Decoded& d)
{
    double sum = 0.0;
    for (int16_t v : d.samples) sum += double(v) * v;
    return d.samples.empty() ? 0.0 : std::sqrt(sum / d.samples.size()) / 32768.0;
}

double decibels(double level) { return 20.0 * std::log10(level); }

// Every "content/sound/..." or "content/music/..." file named in the game's sources.
std::set<std::string> filesNamedBySources()
{
    std::set<std::string> named;
    const std::regex literal("content/(sound|music)/[^\"]+\\.ogg");
    for (const auto& entry : fs::recursive_directory_iterator(std::string(GORVAN_SOURCE_DIR) + "/src")) {
        std::string ext = entry.path().extension().string();
        if (!entry.is_regular_file() || (ext != ".cpp" && ext != ".h")) continue;
        std::ifstream in(entry.path());
        std::stringstream text;
        text << in.rdbuf();
        std::string body = text.str();
        for (std::sregex_iterator it(body.begin(), body.end(), literal), end; it != end; ++it)
            named.insert(it->str());
    }
    return named;
}

TEST(AudioContent, EveryFileTheGameNamesIsBuilt)
{
    std::set<std::string> known(soundFiles.begin(), soundFiles.end());
    known.insert(musicFiles.begin(), musicFiles.end());
    std::set<std::string> named = filesNamedBySources();
    EXPECT_GE(named.size(), 10u) << "the sources should name the game's sounds";
    for (const std::string& file : named)
        EXPECT_TRUE(known.count(file)) << file << " is named by the game but has no recipe here";
    for (const std::string& file : known)
        EXPECT_TRUE(fs::is_regular_file(std::string(GORVAN_RUN_DIR) + "/" + file)) << file << " missing";
}

TEST(AudioContent, EffectsAreShortAudibleAndUnclipped)
{
    for (const std::string& file : soundFiles) {
        SCOPED_TRACE(file);
        Decoded d = decode(file);
        ASSERT_TRUE(d.opened);
        EXPECT_TRUE(d.channels == 1 || d.channels == 2);
        EXPECT_EQ(d.rate, 44100);
        EXPECT_EQ(d.frames(), d.framesDeclared);
        EXPECT_GE(d.seconds(), 0.04);
        EXPECT_LE(d.seconds(), 5.0);
        int peak = peakOf(d);
        EXPECT_GE(peak, 32768 / 4) << "too quiet to be heard over the music";
        EXPECT_LT(peak, 32700) << "clipped";
    }
}

// The shot plays many times a second: it must not stand out above the rest.
TEST(AudioContent, ShotIsQuieterThanTheBigEvents)
{
    double shot = rmsOf(decode("content/sound/shot.ogg"));
    for (const char* loud : {"content/sound/combo_big.ogg", "content/sound/static.ogg"})
        EXPECT_LT(shot, rmsOf(decode(loud))) << loud;
}

TEST(AudioContent, MusicIsLongEnoughLevelAndLoopsWithoutAJump)
{
    for (const std::string& file : musicFiles) {
        SCOPED_TRACE(file);
        Decoded d = decode(file);
        ASSERT_TRUE(d.opened);
        ASSERT_TRUE(d.channels == 1 || d.channels == 2);
        EXPECT_EQ(d.rate, 44100);
        EXPECT_EQ(d.frames(), d.framesDeclared);
        EXPECT_GE(d.seconds(), 90.0);
        EXPECT_LE(d.seconds(), 300.0);
        EXPECT_LT(peakOf(d), 32700) << "clipped";
        double level = decibels(rmsOf(d));
        EXPECT_GT(level, -24.0);
        EXPECT_LT(level, -10.0);

        // The step from the last sample to the first must look like any other
        // step near the join; a seam would be a click far above them.
        const int64_t window = 2048;
        const int64_t last = d.frames() - 1;
        for (int c = 0; c < d.channels; ++c) {
            int largestStep = 0;
            for (int64_t i = 0; i + 1 < window; ++i) {
                largestStep = std::max(largestStep, std::abs(d.at(i + 1, c) - d.at(i, c)));
                largestStep = std::max(largestStep, std::abs(d.at(last - i, c) - d.at(last - i - 1, c)));
            }
            int joinStep = std::abs(d.at(0, c) - d.at(last, c));
            EXPECT_LE(joinStep, largestStep) << "channel " << c;
            EXPECT_LT(joinStep, 32768 / 10) << "channel " << c;
        }
    }
}

}  // namespace
