// The content tools as the build runs them: an .spg goes through a PNG and
// back to the same bytes, and `sfa` packs, lists and extracts. Which way up
// a PNG stands is checked on the built pictures (tests/content).
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "data/sfa_format.h"
#include "data/spg_format.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

int runTool(const std::string& commandLine)
{
    return std::system((std::string(GORVAN_BINARY_DIR) + "/tools/" + commandLine + " >out.txt 2>&1").c_str());
}

}  // namespace

TEST(ContentTools, SpgThroughPngAndBackAndSfaPackListExtract)
{
    ScratchDir scratch;
    const std::string pixels = bytes({255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255,
                                      255, 255, 255, 255, 10, 20, 30, 128, 0, 0, 0, 255});
    auto spg = encodeSpg(reinterpret_cast<const unsigned char*>(pixels.data()), 3, 2);
    writeFileBytes("first.spg", std::string(spg.begin(), spg.end()));
    ASSERT_EQ(runTool("spg decode first.spg back.png"), 0) << "build the default target first";
    ASSERT_EQ(runTool("spg encode back.png second.spg"), 0);
    EXPECT_EQ(readFileBytes("second.spg"), readFileBytes("first.spg"));
    EXPECT_NE(runTool("spg encode missing.png x.spg"), 0);
    writeFileBytes("bad.spg", bytes({'S', 'P', 'G', 1, 0, 2, 0, 1, 0, 1, 255, 0, 0, 0, 3}));  // 3 pixels in 2
    EXPECT_NE(runTool("spg decode bad.spg bad.png"), 0);

    std::filesystem::create_directory("in");
    writeFileBytes("in/b.frag", "void main() {}\n");
    writeFileBytes("in/a.vrt", bytes({0, 0xff, 0x41}));
    ASSERT_EQ(runTool("sfa pack x.sfa in"), 0);
    std::string error;
    std::vector<SfaEntry> entries = unpackSfa(readFileBytes("x.sfa"), &error);
    ASSERT_EQ(entries.size(), 2u) << error;
    EXPECT_EQ(entries[0].name + entries[0].data, "a.vrt" + bytes({0, 0xff, 0x41})) << "sorted by name";
    EXPECT_EQ(runTool("sfa list x.sfa"), 0);
    EXPECT_EQ(readFileBytes("out.txt"), "         3  a.vrt\n        15  b.frag\n");
    ASSERT_EQ(runTool("sfa extract x.sfa -o out b.frag"), 0);
    EXPECT_EQ(readFileBytes("out/b.frag"), "void main() {}\n");
    EXPECT_NE(runTool("sfa extract x.sfa -o out none"), 0);
    writeFileBytes("a.vrt", "x");  // two inputs of one name would hide the second from the game
    EXPECT_NE(runTool("sfa pack y.sfa in a.vrt"), 0);
}
