// The content tools as the build runs them: an .spg goes through a PNG and
// back to the same bytes, and `sfa` packs, lists and extracts. Which way up
// the PNG stands is checked on the built pictures (tests/content).
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "data/archive.h"
#include "data/spg_format.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

int runTool(const std::string& commandLine)
{
    return std::system((std::string(GORVAN_BINARY_DIR) + "/tools/" + commandLine + " >/dev/null 2>&1").c_str());
}

}  // namespace

TEST(ContentTools, SpgThroughPngAndBackAndSfaPackListExtract)
{
    ScratchDir scratch;
    for (const char* tool : {"sfa", "spg"}) {
        EXPECT_EQ(runTool(std::string(tool) + " --help"), 0) << tool << " (build the default target first)";
        EXPECT_NE(runTool(std::string(tool) + " frobnicate"), 0) << tool;
    }
    const std::string pixels = bytes({255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255,
                                      255, 255, 255, 255, 10, 20, 30, 128, 0, 0, 0, 255});
    auto spg = encodeSpg(reinterpret_cast<const unsigned char*>(pixels.data()), 3, 2);
    writeFileBytes("first.spg", std::string(spg.begin(), spg.end()));
    ASSERT_EQ(runTool("spg decode first.spg back.png"), 0);
    ASSERT_EQ(runTool("spg encode back.png second.spg"), 0);
    EXPECT_EQ(readFileBytes("second.spg"), readFileBytes("first.spg"));
    EXPECT_NE(runTool("spg encode missing.png x.spg"), 0);
    writeFileBytes("bad.spg", bytes({'S', 'P', 'G', 1, 0, 2, 0, 1, 0, 1, 255, 0, 0, 0, 3}));  // 3 pixels in 2
    EXPECT_NE(runTool("spg decode bad.spg bad.png"), 0);

    std::system("mkdir -p in out");
    writeFileBytes("in/b.frag", "void main() {}\n");
    writeFileBytes("in/a.vrt", bytes({0, 0xff, 0x41}));
    ASSERT_EQ(runTool("sfa pack x.sfa in"), 0);
    uint32_t size = 0;
    unsigned char* data = Archive::readEntry("x.sfa", "a.vrt", &size);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(data), size), bytes({0, 0xff, 0x41}));
    delete[] data;
    std::system((std::string(GORVAN_BINARY_DIR) + "/tools/sfa list x.sfa > listing.txt").c_str());
    EXPECT_EQ(readFileBytes("listing.txt"), "         3  a.vrt\n        15  b.frag\n");
    ASSERT_EQ(runTool("sfa extract x.sfa -o out"), 0);
    EXPECT_EQ(readFileBytes("out/b.frag"), "void main() {}\n");
    ASSERT_EQ(runTool("sfa extract x.sfa -o out2 a.vrt"), 0);
    EXPECT_EQ(readFileBytes("out2/a.vrt"), bytes({0, 0xff, 0x41}));
    EXPECT_NE(runTool("sfa extract x.sfa -o out3 none"), 0);
    // Two inputs of one name would hide the second from the game.
    writeFileBytes("out/a.vrt", "x");
    EXPECT_NE(runTool("sfa pack y.sfa in out/a.vrt"), 0);
}
