// The built content/images.sfa holds every picture the game asks for, each
// decodes, has the shape its drawing code gives it, and is clear or solid
// where the drawing relies on it (the HUD frame's windows, the additive title
// letters, the how-to-play pictures, the cannon bar's pivot end).
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "data/images.h"
#include "support/play_session.h"
#include "support/scratch_dir.h"

namespace fs = std::filesystem;

namespace {

struct Picture {
    std::unique_ptr<unsigned char[]> pixels;  // first stored row = bottom of the picture
    uint16_t width = 0;
    uint16_t height = 0;

    // Pixel at (u, v) given in the units the picture is drawn with (drawnWidth x
    // drawnHeight, y down from its top edge, as the drawing code places it).
    const unsigned char* at(double u, double v, double drawnWidth, double drawnHeight) const
    {
        int x = static_cast<int>(u / drawnWidth * width);
        int rowFromTop = static_cast<int>(v / drawnHeight * height);
        int storedRow = height - 1 - rowFromTop;
        return &pixels[(size_t(storedRow) * width + x) * 4];
    }
    int alphaAt(double u, double v, double w, double h) const { return at(u, v, w, h)[3]; }
    double brightnessAt(double u, double v, double w, double h) const
    {
        const unsigned char* p = at(u, v, w, h);
        return (p[0] + p[1] + p[2]) / 3.0;
    }
};

// Every picture the game loads, by entry name.
const std::vector<std::string> allPictures = {
    "font.spg",        "button.spg",      "arrow.spg",       "p2.spg",
    "background.spg",  "box_a.spg",       "boxes.spg",       "button_back.spg",
    "box.spg",         "button2.spg",     "vbox_a.spg",      "cannon_bar.spg",
    "cannon_base.spg", "gear.spg",        "progress.spg",    "score_sign1.spg",
    "score_sign2.spg", "score_sign3.spg", "upgrade1.spg",    "upgrade2.spg",
    "upgrade3.spg",    "letter1.spg",     "letter2.spg",     "letter3.spg",
    "letter4.spg",     "letter5.spg",     "letter6.spg",     "info1.spg",
    "info2.spg",       "info3.spg",       "info4.spg",       "info5.spg",
};

// Width and height, in screen units, at which each picture is drawn (where the
// drawing code fixes one size); the picture must have that shape and at least
// one pixel per unit.
const std::map<std::string, std::pair<double, double>> drawnSizes = {
    {"button.spg", {32, 32}},       {"button_back.spg", {52, 52}}, {"p2.spg", {16, 16}},
    {"background.spg", {800, 600}}, {"boxes.spg", {386, 30}},      {"box.spg", {225, 30}},
    {"button2.spg", {50, 30}},      {"progress.spg", {32, 128}},   {"gear.spg", {50, 50}},
    {"cannon_base.spg", {50, 26}},  {"score_sign1.spg", {96, 24}}, {"score_sign2.spg", {96, 24}},
    {"score_sign3.spg", {96, 24}},  {"upgrade1.spg", {30, 25}},    {"upgrade2.spg", {30, 25}},
    {"upgrade3.spg", {30, 25}},     {"letter1.spg", {128, 128}},   {"letter2.spg", {128, 128}},
    {"letter3.spg", {128, 128}},    {"letter4.spg", {128, 128}},   {"letter5.spg", {128, 128}},
    {"letter6.spg", {128, 128}},    {"info1.spg", {800, 550}},     {"info2.spg", {800, 550}},
    {"info3.spg", {800, 550}},      {"info4.spg", {800, 550}},     {"info5.spg", {800, 550}},
};

class PicturesTest : public testing::Test {
protected:
    void SetUp() override
    {
        dir = std::make_unique<ScratchDir>();
        linkBuiltContent();
        ASSERT_TRUE(fileExists("content/images.sfa")) << "build the content first (target content)";
    }

    static Picture load(const std::string& name)
    {
        Picture picture;
        picture.pixels.reset(loadImage(name.c_str(), &picture.width, &picture.height));
        return picture;
    }

    std::unique_ptr<ScratchDir> dir;
};

TEST_F(PicturesTest, EveryPictureTheGameAsksForIsThereAndDecodes)
{
    for (const std::string& name : allPictures) {
        Picture picture = load(name);
        ASSERT_NE(picture.pixels, nullptr) << name;
        EXPECT_GT(picture.width, 0) << name;
        EXPECT_GT(picture.height, 0) << name;
    }
    Picture font = load("font.spg");
    EXPECT_EQ(font.width, 2048);
    EXPECT_EQ(font.height, 512);
}

// Catches a picture name added to the code without its picture: every entry
// name written out in the sources is in the list above.
TEST_F(PicturesTest, TheListCoversEveryNameInTheSources)
{
    const std::set<std::string> listed(allPictures.begin(), allPictures.end());
    const std::regex literal("\"([a-z0-9_]+\\.spg)\"");
    std::set<std::string> missing;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(GORVAN_SOURCE_DIR) / "src")) {
        if (!entry.is_regular_file()) continue;
        std::ifstream file(entry.path());
        std::stringstream text;
        text << file.rdbuf();
        const std::string source = text.str();
        for (std::sregex_iterator it(source.begin(), source.end(), literal), end; it != end; ++it) {
            if (!listed.count((*it)[1])) missing.insert((*it)[1]);
        }
    }
    EXPECT_TRUE(missing.empty()) << "named in src/ but not checked here: " << *missing.begin();
}

TEST_F(PicturesTest, PicturesHaveTheShapeTheyAreDrawnAtAndAreSharpThere)
{
    for (const auto& [name, size] : drawnSizes) {
        Picture picture = load(name);
        ASSERT_NE(picture.pixels, nullptr) << name;
        double drawnAspect = size.first / size.second;
        double aspect = double(picture.width) / picture.height;
        EXPECT_NEAR(aspect, drawnAspect, drawnAspect * 0.02) << name;
        EXPECT_GE(picture.width, size.first) << name;
        EXPECT_GE(picture.height, size.second) << name;
    }
}

// The frame is drawn over the field and the bars: clear in every window, solid
// panel around them, and light where "Use temporary" is printed in black on it.
TEST_F(PicturesTest, TheHudFrameIsClearOverFieldAndBarsAndSolidAroundThem)
{
    Picture frame = load("background.spg");
    ASSERT_NE(frame.pixels, nullptr);
    struct Spot {
        double x, y;
        const char* what;
    };
    const Spot clear[] = {
        {210, 270, "field"},          {30, 520, "field's lower left corner"},
        {680, 35, "score bar"},       {555, 75, "combo bar"},
        {560, 165, "permanent header"}, {560, 195, "permanent boxes"},
        {560, 285, "temporary header"}, {560, 315, "temporary boxes"},
        {725, 240, "share slider"},   {465, 455, "damage bar"},
        {525, 455, "range bar"},      {585, 455, "speed bar"},
        {645, 455, "chain bar"},      {705, 455, "boost bar"},
        {210, 555, "balance bar"},    {8, 535, "progress gear's socket"},
    };
    for (const Spot& s : clear) EXPECT_EQ(frame.alphaAt(s.x, s.y, 800, 600), 0) << s.what;
    const Spot solid[] = {
        {410, 300, "between field and panel"}, {5, 5, "top left corner"},
        {200, 590, "below the balance bar"},   {780, 250, "right of the slider"},
        {200, 535, "between field and balance bar"}, {620, 120, "panel above the rows"},
    };
    for (const Spot& s : solid) EXPECT_EQ(frame.alphaAt(s.x, s.y, 800, 600), 255) << s.what;
    EXPECT_GT(frame.brightnessAt(600, 245, 800, 600), 160) << "the panel behind \"Use temporary\" must be light";
}

// Title letters are drawn additively on black: clear around the glyph, with
// ink in the middle of the spot.
TEST_F(PicturesTest, TitleLettersAreInkOnClear)
{
    for (int i = 1; i <= 6; ++i) {
        std::string name = "letter" + std::to_string(i) + ".spg";
        Picture letter = load(name);
        ASSERT_NE(letter.pixels, nullptr) << name;
        for (double corner : {2.0, 125.0}) {
            EXPECT_EQ(letter.alphaAt(corner, corner, 128, 128), 0) << name;
            EXPECT_EQ(letter.alphaAt(corner, 128 - corner, 128, 128), 0) << name;
        }
        int inked = 0;
        for (int y = 20; y < 108; ++y) {
            for (int x = 40; x < 88; ++x) inked += letter.alphaAt(x, y, 128, 128) == 255;
        }
        EXPECT_GT(inked, 600) << name;
    }
}

TEST_F(PicturesTest, HowToPlayPicturesAreOpaque)
{
    for (int i = 1; i <= 5; ++i) {
        std::string name = "info" + std::to_string(i) + ".spg";
        Picture info = load(name);
        ASSERT_NE(info.pixels, nullptr) << name;
        size_t count = size_t(info.width) * info.height;
        size_t seeThrough = 0;
        for (size_t p = 0; p < count; ++p) seeThrough += info.pixels[p * 4 + 3] != 255;
        EXPECT_EQ(seeThrough, 0u) << name;
    }
}

// Sprites lie over the field or the panel: clear in their corners.
TEST_F(PicturesTest, SpritesAreClearAroundTheirShapes)
{
    for (const char* name : {"p2.spg", "gear.spg", "upgrade1.spg", "upgrade2.spg", "upgrade3.spg",
                             "score_sign1.spg", "progress.spg", "cannon_base.spg"}) {
        Picture sprite = load(name);
        ASSERT_NE(sprite.pixels, nullptr) << name;
        EXPECT_EQ(sprite.alphaAt(0, 0, 1, 1), 0) << name << ": top left";
    }
    // The gear's middle is a hole, its rim solid.
    Picture gear = load("gear.spg");
    EXPECT_EQ(gear.alphaAt(0.5, 0.5, 1, 1), 0);
    EXPECT_EQ(gear.alphaAt(0.5, 0.16, 1, 1), 255);
    // A bar turns about its centre and reaches forward only: the right half.
    Picture bar = load("cannon_bar.spg");
    ASSERT_NE(bar.pixels, nullptr);
    EXPECT_EQ(bar.alphaAt(0.2, 0.5, 1, 1), 0);
    EXPECT_EQ(bar.alphaAt(0.75, 0.5, 1, 1), 255);
    // The upgrade box face and the tray under it are solid.
    EXPECT_EQ(load("button2.spg").alphaAt(0.5, 0.5, 1, 1), 255);
    EXPECT_EQ(load("box.spg").alphaAt(0.1, 0.5, 1, 1), 255);
    // The glass over the bars lets them through in the middle.
    EXPECT_LT(load("box_a.spg").alphaAt(0.5, 0.6, 1, 1), 64);
    EXPECT_LT(load("vbox_a.spg").alphaAt(0.6, 0.5, 1, 1), 64);
    EXPECT_LT(load("boxes.spg").alphaAt(0.1, 0.6, 1, 1), 64);
}

// Rows are stored bottom first: the progress tab's rounded top is clear at
// its corners while its bottom edge is solid across.
TEST_F(PicturesTest, PicturesStandUpright)
{
    Picture tab = load("progress.spg");
    ASSERT_NE(tab.pixels, nullptr);
    EXPECT_EQ(tab.alphaAt(1, 1, 32, 128), 0);
    EXPECT_EQ(tab.alphaAt(16, 126, 32, 128), 255);
    Picture base = load("cannon_base.spg");
    EXPECT_EQ(base.alphaAt(3, 3, 50, 26), 0);
    EXPECT_EQ(base.alphaAt(3, 24, 50, 26), 255);
}

}  // namespace
