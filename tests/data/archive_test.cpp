// Archive::readEntry: the byte layout, the scan to the end of the file and its
// two messages, and what damaged files give.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/archive.h"
#include "data/sfa_format.h"
#include "support/scratch_dir.h"

namespace {

struct Lookup {
    bool found = false;
    std::string data;
    uint32_t size = 0xdeadbeef;
    std::string errors;
};

Lookup lookUp(const std::string& archive, const std::string& name)
{
    Lookup result;
    testing::internal::CaptureStderr();
    unsigned char* data = Archive::readEntry(archive.c_str(), name.c_str(), &result.size);
    result.errors = testing::internal::GetCapturedStderr();
    if (data) {
        result.found = true;
        result.data.assign(reinterpret_cast<char*>(data), result.size);
        delete[] data;
    }
    return result;
}

std::string bytes(std::vector<int> values)
{
    return std::string(values.begin(), values.end());
}

const std::string header = "HDR!";
// The entry "a" holding the byte 0x41.
const std::string entryA = bytes({0xFF, 0xFF, 0xFF, 0xFE, 0x9E, 0xFF, 0xFF, 0xFF, 0xFE, 0xBE});

}  // namespace

TEST(ArchiveLayout, ExampleEntryReadsBackAndTheWriterProducesItsBytes)
{
    ScratchDir scratch;
    EXPECT_EQ(packSfa({{"a", "A"}}).substr(4), entryA);
    // The header's bytes mean nothing.
    for (const std::string& start : {header, bytes({0, 0xFF, 0x12, 0x80})}) {
        writeFileBytes("x.sfa", start + entryA);
        Lookup a = lookUp("x.sfa", "a");
        ASSERT_TRUE(a.found);
        EXPECT_EQ(a.size, 1u);
        EXPECT_EQ(a.data, "A");
        EXPECT_EQ(a.errors, "");
    }
    // Lengths are complemented and big-endian: 0x102 after header, name length and name.
    const std::string data(0x0102, 'q');
    writeFileBytes("x.sfa", packSfa({{"long", data}}));
    EXPECT_EQ(readFileBytes("x.sfa").substr(4 + 4 + 4, 4), bytes({0xFF, 0xFF, 0xFE, 0xFD}));
    EXPECT_EQ(lookUp("x.sfa", "long").data, data);
}

TEST(ArchiveScan, FindsEveryEntryToTheLastAndTheFirstOfEqualNames)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"one", "1"}, {"", "nameless"}, {"empty", ""}, {"same", "first"},
                                     {"same", "second"}, {"three", "333"}}));
    const std::pair<const char*, const char*> rows[] = {
        {"one", "1"}, {"", "nameless"}, {"empty", ""}, {"same", "first"}, {"three", "333"}};
    for (const auto& [name, data] : rows) {
        Lookup found = lookUp("x.sfa", name);
        EXPECT_TRUE(found.found) << name;
        EXPECT_EQ(found.data, data);
        EXPECT_EQ(found.size, std::string(data).size());
        EXPECT_EQ(found.errors, "");
    }
}

TEST(ArchiveScan, NamesCompareWholeAndMissesSayWhatWasNotFound)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"abc", "1"}}));
    // An empty name never matches the phantom at the end.
    for (const char* name : {"ab", "abcd", "ABC", ""}) {
        Lookup miss = lookUp("x.sfa", name);
        EXPECT_FALSE(miss.found) << name;
        EXPECT_EQ(miss.size, 0xdeadbeefu);  // untouched on failure
        EXPECT_EQ(miss.errors, "Couldn't find " + std::string(name) + " from x.sfa\n");
    }
    EXPECT_EQ(lookUp("content/none.sfa", "a").errors, "Couldn't open content/none.sfa\n");
    for (std::string content : {std::string(), std::string("HD"), header}) {
        writeFileBytes("x.sfa", content);
        EXPECT_EQ(lookUp("x.sfa", "a").errors, "Couldn't find a from x.sfa\n") << content.size();
    }
}

TEST(ArchiveFailures, DataCutShortComesBackZeroFilled)
{
    ScratchDir scratch;
    std::string file = packSfa({{"a", "abcdefgh"}});
    writeFileBytes("x.sfa", file.substr(0, file.size() - 5));
    Lookup cut = lookUp("x.sfa", "a");
    ASSERT_TRUE(cut.found);
    EXPECT_EQ(cut.size, 8u);
    EXPECT_EQ(cut.data, std::string("abc") + std::string(5, '\0'));
}

TEST(ArchiveFailures, NameCutShortIsNotFound)
{
    ScratchDir scratch;
    std::string file = packSfa({{"x", "1"}, {"abcdef", "2"}});
    writeFileBytes("x.sfa", file.substr(0, 4 + 10 + 4 + 3));
    EXPECT_EQ(lookUp("x.sfa", "abcdef").errors, "Couldn't find abcdef from x.sfa\n");
    // The part that is there does not match either: the end comes first.
    EXPECT_FALSE(lookUp("x.sfa", "abc").found);
    EXPECT_EQ(lookUp("x.sfa", "x").data, "1");
}

TEST(ArchiveFailures, SkippedDataRunningPastTheEndEndsTheScan)
{
    ScratchDir scratch;
    // "a" states 200 bytes of data but holds 1; "b" is never reached.
    std::string file = header + bytes({0xFF, 0xFF, 0xFF, 0xFE, 0x9E, 0xFF, 0xFF, 0xFF, 0x37, 0xBE});
    writeFileBytes("x.sfa", file + packSfa({{"b", "2"}}).substr(4));
    EXPECT_EQ(lookUp("x.sfa", "b").errors, "Couldn't find b from x.sfa\n");
}

TEST(ArchiveFailures, HugeLengthsDoNotAllocate)
{
    ScratchDir scratch;
    // Name "a" with a data length of 0xFFFFFFF0 in a 14-byte file.
    writeFileBytes("x.sfa", header + bytes({0xFF, 0xFF, 0xFF, 0xFE, 0x9E, 0, 0, 0, 0x0F, 0xBE}));
    Lookup huge = lookUp("x.sfa", "a");
    EXPECT_FALSE(huge.found);
    EXPECT_EQ(huge.size, 0xdeadbeefu);
    EXPECT_EQ(huge.errors, "Couldn't read a from x.sfa: its length 4294967280 runs far past the end of the file\n");

    // A name length of 0xFFFFFFFF (its +1 would wrap to 0 in 32 bits).
    writeFileBytes("x.sfa", header + bytes({0, 0, 0, 0, 0x9E}));
    EXPECT_EQ(lookUp("x.sfa", "a").errors, "Couldn't find a from x.sfa\n");
}
