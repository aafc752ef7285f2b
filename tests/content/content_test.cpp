// The built content: every picture and sound file the sources name is there
// and decodes; pictures have the shape they are drawn at and are clear or
// solid where the drawing relies on it; sounds are audible and unclipped, and
// music loops without a jump where its end meets its start.
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

namespace fs = std::filesystem;

namespace {

// Every match of the pattern's first group in the game's sources.
std::set<std::string> namedInSources(const std::string& pattern)
{
    std::set<std::string> named;
    const std::regex literal(pattern);
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(GORVAN_SOURCE_DIR) / "src")) {
        std::stringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        const std::string source = text.str();
        for (std::sregex_iterator it(source.begin(), source.end(), literal), end; it != end; ++it) named.insert((*it)[1]);
    }
    return named;
}

// Samples of frames from start on, interleaved.
std::vector<int16_t> decode(OggVorbis_File& file, int64_t start, int64_t frames)
{
    std::vector<int16_t> samples(size_t(frames * ov_info(&file, -1)->channels));
    ov_pcm_seek(&file, start);
    int section = 0;
    for (size_t done = 0; done < samples.size();) {
        long got = ov_read(&file, reinterpret_cast<char*>(samples.data() + done), int((samples.size() - done) * 2), 0, 2, 1, &section);
        if (got <= 0) break;
        done += size_t(got) / 2;
    }
    return samples;
}

double rms(const std::vector<int16_t>& samples)
{
    double sum = 0;
    for (int16_t v : samples) sum += double(v) * v;
    return std::sqrt(sum / samples.size()) / 32768;
}

int peak(const std::vector<int16_t>& samples)
{
    int peak = 0;
    for (int16_t v : samples) peak = std::max(peak, std::abs(int(v)));
    return peak;
}

}  // namespace

TEST(Content, PicturesAreBuiltInTheirShapeAndClearOrSolidWhereDrawingNeedsIt)
{
    ScratchDir scratch;
    linkBuiltContent();
    ASSERT_TRUE(fileExists("content/images.sfa")) << "build the content first (target content)";
    // Width and height at which each picture is drawn, where the drawing fixes one.
    std::map<std::string, std::pair<double, double>> drawn = {
        {"button.spg", {32, 32}}, {"button_back.spg", {52, 52}}, {"p2.spg", {16, 16}}, {"background.spg", {800, 600}},
        {"boxes.spg", {386, 30}}, {"box.spg", {225, 30}}, {"button2.spg", {50, 30}}, {"progress.spg", {32, 128}},
        {"gear.spg", {50, 50}}, {"cannon_base.spg", {50, 26}}};
    for (int i = 1; i <= 6; ++i) drawn["letter" + std::to_string(i) + ".spg"] = {128, 128};
    for (int i = 1; i <= 5; ++i) drawn["info" + std::to_string(i) + ".spg"] = {800, 550};
    for (int i = 1; i <= 3; ++i) drawn["upgrade" + std::to_string(i) + ".spg"] = {30, 25};
    for (int i = 1; i <= 3; ++i) drawn["score_sign" + std::to_string(i) + ".spg"] = {96, 24};
    std::set<std::string> names = namedInSources("\"([a-z0-9_]+\\.spg)\"");
    for (const auto& entry : drawn) names.insert(entry.first);
    std::map<std::string, std::unique_ptr<unsigned char[]>> pixels;
    std::map<std::string, std::pair<int, int>> sizes;
    for (const std::string& name : names) {
        uint16_t width = 0, height = 0;
        pixels[name].reset(loadImage(name.c_str(), &width, &height));
        ASSERT_TRUE(pixels[name] && width > 0 && height > 0) << name;
        sizes[name] = {width, height};
        if (!drawn.count(name)) continue;
        auto [w, h] = drawn[name];
        EXPECT_NEAR(double(width) / height, w / h, w / h * 0.02) << name;
        EXPECT_TRUE(width >= w && height >= h) << name << ": a pixel per unit at least";
    }
    EXPECT_EQ(sizes["font.spg"], std::make_pair(2048, 512));
    // Alpha at (x, y) in the units it is drawn with (else 0 to 1), y down from its top edge.
    auto alpha = [&](const std::string& name, double x, double y) {
        auto [w, h] = drawn.count(name) ? drawn[name] : std::pair{1.0, 1.0};
        auto [width, height] = sizes[name];
        return int(pixels[name][(size_t(height - 1 - int(y / h * height)) * width + int(x / w * width)) * 4 + 3]);
    };
    struct Spot {
        const char* name;
        double x, y;
        int lowest, highest;  // alpha
        const char* what;
    };
    const Spot spots[] = {
        {"background.spg", 210, 270, 0, 0, "the field"}, {"background.spg", 30, 520, 0, 0, "the field's corner"},
        {"background.spg", 680, 35, 0, 0, "score bar"}, {"background.spg", 555, 75, 0, 0, "combo bar"},
        {"background.spg", 560, 195, 0, 0, "permanent boxes"}, {"background.spg", 560, 315, 0, 0, "temporary boxes"},
        {"background.spg", 725, 240, 0, 0, "share slider"}, {"background.spg", 465, 455, 0, 0, "damage bar"},
        {"background.spg", 705, 455, 0, 0, "boost bar"}, {"background.spg", 210, 555, 0, 0, "balance bar"},
        {"background.spg", 8, 535, 0, 0, "gear's socket"}, {"background.spg", 410, 300, 255, 255, "panel edge"},
        {"background.spg", 5, 5, 255, 255, "corner"}, {"background.spg", 200, 590, 255, 255, "below the balance bar"},
        {"background.spg", 620, 120, 255, 255, "panel above the rows"},
        {"gear.spg", 25, 25, 0, 0, "the gear's hole"}, {"gear.spg", 25, 8, 255, 255, "its rim"},
        {"cannon_bar.spg", 0.2, 0.5, 0, 0, "behind the pivot"}, {"cannon_bar.spg", 0.75, 0.5, 255, 255, "the barrel"},
        {"button2.spg", 25, 15, 255, 255, "box face"}, {"box.spg", 22, 15, 255, 255, "tray"},
        {"box_a.spg", 0.5, 0.6, 0, 63, "glass"}, {"vbox_a.spg", 0.6, 0.5, 0, 63, "glass"}, {"boxes.spg", 38, 18, 0, 63, "glass"},
        {"progress.spg", 1, 1, 0, 0, "rounded top"}, {"progress.spg", 16, 126, 255, 255, "bottom edge: upright"},
        {"cannon_base.spg", 3, 3, 0, 0, "top"}, {"cannon_base.spg", 3, 24, 255, 255, "bottom edge: upright"},
        {"p2.spg", 0, 0, 0, 0, "corner"}, {"upgrade1.spg", 0, 0, 0, 0, "corner"}, {"score_sign1.spg", 0, 0, 0, 0, "corner"},
    };
    for (const Spot& s : spots)
        EXPECT_TRUE(alpha(s.name, s.x, s.y) >= s.lowest && alpha(s.name, s.x, s.y) <= s.highest) << s.name << ": " << s.what;
    auto [w, h] = sizes["background.spg"];
    const unsigned char* light = &pixels["background.spg"][(size_t(h - 1 - 245 * h / 600) * w + 600 * w / 800) * 4];
    EXPECT_GT(light[0] + light[1] + light[2], 3 * 160) << "the panel behind \"Use temporary\", printed in black";
    for (int i = 1; i <= 6; ++i) {  // title letters are drawn additively: ink on clear
        std::string name = "letter" + std::to_string(i) + ".spg";
        int inked = 0;
        for (int y = 20; y < 108; ++y)
            for (int x = 40; x < 88; ++x) inked += alpha(name, x, y) == 255;
        EXPECT_GT(inked, 600) << name;
        EXPECT_EQ(alpha(name, 2, 2) + alpha(name, 125, 2) + alpha(name, 2, 125) + alpha(name, 125, 125), 0) << name;
    }
    for (int i = 1; i <= 5; ++i) {  // how-to-play pictures are opaque
        std::string name = "info" + std::to_string(i) + ".spg";
        for (size_t p = 0; p < size_t(sizes[name].first) * sizes[name].second; ++p)
            ASSERT_EQ(pixels[name][p * 4 + 3], 255) << name;
    }
}

TEST(Content, SoundsAreAudibleAndUnclippedAndMusicLoopsWithoutAJump)
{
    std::set<std::string> files = namedInSources("\"(content/(sound|music)/[^\"]+\\.ogg)\"");
    EXPECT_EQ(files.size(), 17u) << "13 sounds and 4 music tracks";
    std::map<std::string, double> level;
    for (const std::string& path : files) {
        SCOPED_TRACE(path);
        OggVorbis_File file;
        ASSERT_EQ(ov_fopen((std::string(GORVAN_RUN_DIR) + "/" + path).c_str(), &file), 0) << "missing or not Ogg Vorbis";
        const int channels = ov_info(&file, -1)->channels;
        const int64_t frames = ov_pcm_total(&file, -1);
        EXPECT_EQ(ov_info(&file, -1)->rate, 44100);
        EXPECT_TRUE(channels == 1 || channels == 2);
        if (path.find("/sound/") != std::string::npos) {
            EXPECT_TRUE(frames >= 0.04 * 44100 && frames <= 5 * 44100) << frames;
            std::vector<int16_t> all = decode(file, 0, frames);
            EXPECT_TRUE(peak(all) >= 32768 / 4 && peak(all) < 32700) << "heard over the music, unclipped: " << peak(all);
            level[path] = rms(all);
        } else {
            EXPECT_TRUE(frames >= 90 * 44100 && frames <= 300 * 44100) << frames;
            std::vector<int16_t> stretches;  // eight seconds spread over the track
            for (int i = 0; i < 8; ++i) {
                std::vector<int16_t> second = decode(file, frames * i / 8, 44100);
                stretches.insert(stretches.end(), second.begin(), second.end());
            }
            EXPECT_LT(peak(stretches), 32700) << "clipped";
            EXPECT_TRUE(20 * std::log10(rms(stretches)) > -24 && 20 * std::log10(rms(stretches)) < -10);
            // The step from the last frame to the first must look like any other
            // step near the join; a seam would be a click far above them.
            const int64_t window = 2048;
            std::vector<int16_t> end = decode(file, frames - window, window), start = decode(file, 0, window);
            for (int c = 0; c < channels; ++c) {
                int largestStep = 0;
                for (int64_t i = 0; i + 1 < window; ++i) {
                    largestStep = std::max({largestStep, std::abs(start[(i + 1) * channels + c] - start[i * channels + c]),
                                            std::abs(end[(i + 1) * channels + c] - end[i * channels + c])});
                }
                int joinStep = std::abs(start[c] - end[(window - 1) * channels + c]);
                EXPECT_TRUE(joinStep <= largestStep && joinStep < 32768 / 10) << "channel " << c << ": " << joinStep;
            }
        }
        ov_clear(&file);
    }
    for (const char* loud : {"content/sound/combo_big.ogg", "content/sound/static.ogg"})
        EXPECT_LT(level["content/sound/shot.ogg"], level[loud]) << "the shot plays many times a second";
}
