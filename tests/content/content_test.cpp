// The built content: every picture and sound file the sources name is there
// and decodes; pictures have the shape they are drawn at and are clear or
// solid where the drawing relies on it; sounds are audible and unclipped, and
// music loops without a click where its end meets its start.
#include <gtest/gtest.h>
#include <vorbis/vorbisfile.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

#include "data/images.h"
#include "support/play_session.h"
#include "support/scratch_dir.h"

namespace {

std::set<std::string> namedInSources(const std::string& pattern)
{
    std::set<std::string> named;
    const std::regex literal(pattern);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(GORVAN_SOURCE_DIR "/src")) {
        std::stringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        const std::string source = text.str();
        for (std::sregex_iterator it(source.begin(), source.end(), literal), end; it != end; ++it)
            named.insert((*it)[1]);
    }
    return named;
}

// Frames from start on, interleaved.
std::vector<int16_t> decode(OggVorbis_File& file, int64_t start, int64_t frames)
{
    std::vector<int16_t> samples(size_t(frames * ov_info(&file, -1)->channels));
    ov_pcm_seek(&file, start);
    int section = 0;
    for (size_t done = 0, got = 1; done < samples.size() && got > 0; done += got / 2) {
        long n = ov_read(&file, reinterpret_cast<char*>(&samples[done]), int(samples.size() - done) * 2, 0, 2, 1,
                         &section);
        got = size_t(std::max(0L, n));
    }
    return samples;
}

}  // namespace

TEST(Content, PicturesAreBuiltInTheirShapeAndClearOrSolidWhereDrawingNeedsIt)
{
    ScratchDir scratch;
    linkBuiltContent();
    // Width and height at which a picture is drawn, where the drawing fixes them.
    std::map<std::string, std::pair<double, double>> drawn = {
        {"button.spg", {32, 32}}, {"button_back.spg", {52, 52}}, {"p2.spg", {16, 16}}, {"box.spg", {225, 30}},
        {"background.spg", {800, 600}}, {"boxes.spg", {386, 30}}, {"button2.spg", {50, 30}},
        {"progress.spg", {32, 128}}, {"gear.spg", {50, 50}}, {"cannon_base.spg", {50, 26}}};
    for (int i = 1; i <= 6; ++i) drawn["letter" + std::to_string(i) + ".spg"] = {128, 128};
    for (int i = 1; i <= 5; ++i) drawn["info" + std::to_string(i) + ".spg"] = {800, 550};
    for (int i = 1; i <= 3; ++i) {
        drawn["upgrade" + std::to_string(i) + ".spg"] = {30, 25};
        drawn["score_sign" + std::to_string(i) + ".spg"] = {96, 24};
    }
    std::set<std::string> names = namedInSources("\"([a-z0-9_]+\\.spg)\"");
    for (const auto& entry : drawn) names.insert(entry.first);
    std::map<std::string, std::unique_ptr<unsigned char[]>> pixels;
    std::map<std::string, std::pair<int, int>> sizes;
    for (const std::string& name : names) {
        uint16_t width = 0, height = 0;
        pixels[name].reset(loadImage(name.c_str(), &width, &height));
        ASSERT_TRUE(pixels[name] && width > 0 && height > 0) << name << " (build the target content first)";
        sizes[name] = {width, height};
        auto [w, h] = drawn.count(name) ? drawn[name] : std::pair{double(width), double(height)};
        EXPECT_NEAR(width / w, height / h, width / w * 0.02) << name << ": drawn at " << w << " x " << h;
        EXPECT_TRUE(width >= w && height >= h) << name << ": a pixel per unit at least";
    }
    // Alpha at (x, y) in the units it is drawn with (else 0 to 1), y down from its top edge.
    auto alpha = [&](const std::string& name, double x, double y) {
        auto [w, h] = drawn.count(name) ? drawn[name] : std::pair{1.0, 1.0};
        auto [width, height] = sizes[name];
        return int(pixels[name][(size_t(height - 1 - int(y / h * height)) * width + int(x / w * width)) * 4 + 3]);
    };
    // The HUD frame is clear over the field, its corner and the bars, and solid around them.
    for (auto [x, y] : {std::pair{210, 270}, {30, 520}, {680, 35}, {555, 75}, {560, 195}, {560, 315}, {725, 240},
                        {465, 455}, {705, 455}, {210, 555}, {8, 535}})
        EXPECT_EQ(alpha("background.spg", x, y), 0) << x << ", " << y;
    for (auto [x, y] : {std::pair{410, 300}, {5, 5}, {200, 590}, {620, 120}})
        EXPECT_EQ(alpha("background.spg", x, y), 255) << x << ", " << y;
    // Sprites: the gear's hole, the bar's pivot, solid boxes, glass (at most 63), clear corners, rows upright.
    const std::tuple<const char*, double, double, int> spots[] = {
        {"gear.spg", 25, 25, 0}, {"gear.spg", 25, 8, 255}, {"cannon_bar.spg", 0.2, 0.5, 0},
        {"cannon_bar.spg", 0.75, 0.5, 255}, {"button2.spg", 25, 15, 255}, {"box.spg", 22, 15, 255},
        {"box_a.spg", 0.5, 0.6, 63}, {"vbox_a.spg", 0.6, 0.5, 63}, {"boxes.spg", 38, 18, 63}, {"p2.spg", 0, 0, 0},
        {"upgrade1.spg", 0, 0, 0}, {"score_sign1.spg", 0, 0, 0}, {"progress.spg", 1, 1, 0},
        {"progress.spg", 16, 126, 255}, {"cannon_base.spg", 3, 3, 0}, {"cannon_base.spg", 3, 24, 255}};
    for (auto [name, x, y, expected] : spots)
        EXPECT_TRUE(expected == 63 ? alpha(name, x, y) <= 63 : alpha(name, x, y) == expected) << name << " " << x;
    for (int i = 1; i <= 6; ++i) {  // title letters are drawn additively: ink on clear
        std::string name = "letter" + std::to_string(i) + ".spg";
        int inked = 0;
        for (int y = 20; y < 108; ++y)
            for (int x = 40; x < 88; ++x) inked += alpha(name, x, y) == 255;
        EXPECT_TRUE(inked > 600 && alpha(name, 2, 2) + alpha(name, 125, 125) == 0) << name;
    }
    for (int i = 1; i <= 5; ++i) {  // how-to-play pictures are opaque
        std::string name = "info" + std::to_string(i) + ".spg";
        for (size_t p = 0; p < size_t(sizes[name].first) * sizes[name].second; ++p)
            ASSERT_EQ(pixels[name][p * 4 + 3], 255) << name;
    }
}

TEST(Content, SoundsAreAudibleAndUnclippedAndMusicLoopsWithoutAClick)
{
    std::set<std::string> files = namedInSources("\"(content/(sound|music)/[^\"]+\\.ogg)\"");
    EXPECT_EQ(files.size(), 17u) << "13 sounds and 4 music tracks";
    for (const std::string& path : files) {
        SCOPED_TRACE(path);
        OggVorbis_File file;
        ASSERT_EQ(ov_fopen((GORVAN_RUN_DIR "/" + path).c_str(), &file), 0) << "missing or not Ogg Vorbis";
        const int channels = ov_info(&file, -1)->channels;
        const int64_t frames = ov_pcm_total(&file, -1), second = 44100;
        EXPECT_TRUE(ov_info(&file, -1)->rate == second && (channels == 1 || channels == 2));
        const bool music = path.find("/music/") != std::string::npos;
        EXPECT_TRUE(music ? frames >= 90 * second && frames <= 300 * second
                          : frames >= second / 25 && frames <= 5 * second);
        std::vector<int16_t> heard;  // a sound whole, eight seconds spread over a track
        for (int i = 0; i < (music ? 8 : 1); ++i) {
            auto part = decode(file, frames * i / 8, music ? second : frames);
            heard.insert(heard.end(), part.begin(), part.end());
        }
        int peak = 0;
        for (int16_t v : heard) peak = std::max(peak, std::abs(int(v)));
        EXPECT_TRUE(peak >= (music ? 0 : 32768 / 4) && peak < 32700) << "audible, unclipped: " << peak;
        if (music) {
            double sum = 0;
            for (int16_t v : heard) sum += double(v) * v;
            const double level = 20 * std::log10(std::sqrt(sum / heard.size()) / 32768);
            EXPECT_TRUE(level > -24 && level < -10) << level << " dB";
            // The step from the last frame to the first looks like any other near the join.
            const int64_t window = 2048;
            auto end = decode(file, frames - window, window), start = decode(file, 0, window);
            for (int c = 0; c < channels; ++c) {
                int largest = 0;
                for (int64_t i = c; i + channels < window * channels; i += channels)
                    largest = std::max({largest, std::abs(start[i + channels] - start[i]),
                                        std::abs(end[i + channels] - end[i])});
                int join = std::abs(start[c] - end[(window - 1) * channels + c]);
                EXPECT_TRUE(join <= largest && join < 32768 / 10) << "channel " << c << ": " << join;
            }
        }
        ov_clear(&file);
    }
}
