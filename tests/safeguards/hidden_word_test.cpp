// The title's hidden word is a real word, in letters that stand as evenly as
// the title's own: the letter each picture's source names, read spot by spot,
// and the middle of each picture's ink on its spot.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "data/images.h"
#include "menu/menu.h"
#include "support/play_session.h"
#include "support/scratch_dir.h"

namespace {

// The middle of the ink, in units from the wide space's centre.
float inkMiddle(const std::string& picture, int spot)
{
    uint16_t width = 0, height = 0;
    unsigned char* rgba = loadImage(picture.c_str(), &width, &height);
    if (!rgba) return 0;
    int left = width, right = -1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (rgba[(y * width + x) * 4 + 3] > 200) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    delete[] rgba;
    return titleLetterOffsets[spot] + (left + right + 1) / 2.0f * 128 / width;
}

TEST(HiddenWord, ARealWordInEvenlyStandingLetters)
{
    ScratchDir scratch;
    linkBuiltContent();
    std::string word;
    const std::regex named("letter \"([A-Z])\"");
    for (int spot = 0; spot < 6; ++spot) {
        const std::string picture = hiddenLetterPicture(spot);
        const std::string source = readFileBytes(std::string(GORVAN_SOURCE_DIR "/assets/images/") +
                                                 picture.substr(0, picture.size() - 4) + ".svg");
        std::smatch letter;
        word += std::regex_search(source, letter, named) ? letter[1].str() : "?";
        if (spot > 0) {
            // The title's letters stand 44 units apart.
            EXPECT_NEAR(inkMiddle(picture, spot) - inkMiddle(hiddenLetterPicture(spot - 1), spot - 1),
                        44, 1.5) << spot;
        }
    }
    EXPECT_EQ(word, "CANNON");
}

}  // namespace
