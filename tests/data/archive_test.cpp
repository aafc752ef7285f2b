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

TEST(ArchiveLayout, ExampleEntryReadsBack)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", header + entryA);
    Lookup a = lookUp("x.sfa", "a");
    ASSERT_TRUE(a.found);
    EXPECT_EQ(a.size, 1u);
    EXPECT_EQ(a.data, "A");
    EXPECT_EQ(a.errors, "");
}

TEST(ArchiveLayout, WriterProducesTheSameBytes)
{
    std::string packed = packSfa({{"a", "A"}});
    EXPECT_EQ(packed.substr(4), entryA);
    EXPECT_EQ(packed.size(), 14u);
}

TEST(ArchiveLayout, HeaderBytesMeanNothing)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", bytes({0, 0xFF, 0x12, 0x80}) + entryA);
    EXPECT_TRUE(lookUp("x.sfa", "a").found);
}

TEST(ArchiveLayout, LengthsAreBigEndian)
{
    ScratchDir scratch;
    std::string data(0x0102, 'q');
    writeFileBytes("x.sfa", packSfa({{"long", data}}));
    std::string file = readFileBytes("x.sfa");
    // Data length 0x00000102 complemented, after header, name length and name.
    EXPECT_EQ(file.substr(4 + 4 + 4, 4), bytes({0xFF, 0xFF, 0xFE, 0xFD}));
    Lookup found = lookUp("x.sfa", "long");
    EXPECT_EQ(found.size, 0x102u);
    EXPECT_EQ(found.data, data);
}

TEST(ArchiveScan, FindsEveryEntryIncludingTheLast)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"one", "1"}, {"two", "22"}, {"three", "333"}}));
    EXPECT_EQ(lookUp("x.sfa", "one").data, "1");
    EXPECT_EQ(lookUp("x.sfa", "two").data, "22");
    Lookup last = lookUp("x.sfa", "three");
    ASSERT_TRUE(last.found);
    EXPECT_EQ(last.data, "333");
    EXPECT_EQ(last.errors, "");
}

TEST(ArchiveScan, EmptyDataGivesABufferOfSizeZero)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"empty", ""}, {"after", "z"}}));
    Lookup empty = lookUp("x.sfa", "empty");
    EXPECT_TRUE(empty.found);
    EXPECT_EQ(empty.size, 0u);
    EXPECT_EQ(lookUp("x.sfa", "after").data, "z");
}

TEST(ArchiveScan, EmptyNameIsPassedOverLikeAnyOther)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"", "nameless"}, {"b", "bee"}}));
    EXPECT_EQ(lookUp("x.sfa", "b").data, "bee");
    // Stored, it is an entry like any other.
    EXPECT_EQ(lookUp("x.sfa", "").data, "nameless");
}

TEST(ArchiveScan, EmptyNameNeverMatchesThePhantomAtTheEnd)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"b", "bee"}}));
    Lookup nameless = lookUp("x.sfa", "");
    EXPECT_FALSE(nameless.found);
    EXPECT_EQ(nameless.errors, "Couldn't find  from x.sfa\n");
}

TEST(ArchiveScan, NamesCompareWhole)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"abc", "1"}}));
    Lookup shorter = lookUp("x.sfa", "ab");
    EXPECT_FALSE(shorter.found);
    EXPECT_EQ(shorter.size, 0xdeadbeefu);  // untouched on failure
    EXPECT_EQ(shorter.errors, "Couldn't find ab from x.sfa\n");
    Lookup longer = lookUp("x.sfa", "abcd");
    EXPECT_FALSE(longer.found);
    EXPECT_EQ(longer.errors, "Couldn't find abcd from x.sfa\n");
    EXPECT_FALSE(lookUp("x.sfa", "ABC").found);
}

TEST(ArchiveScan, FirstOfTwoEqualNamesWins)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"same", "first"}, {"same", "second"}}));
    EXPECT_EQ(lookUp("x.sfa", "same").data, "first");
}

TEST(ArchiveFailures, MissingArchive)
{
    ScratchDir scratch;
    Lookup missing = lookUp("content/none.sfa", "a");
    EXPECT_FALSE(missing.found);
    EXPECT_EQ(missing.size, 0xdeadbeefu);
    EXPECT_EQ(missing.errors, "Couldn't open content/none.sfa\n");
}

TEST(ArchiveFailures, EmptyOrHeaderOnlyArchive)
{
    ScratchDir scratch;
    for (std::string content : {std::string(), std::string("HD"), header}) {
        writeFileBytes("x.sfa", content);
        Lookup result = lookUp("x.sfa", "a");
        EXPECT_FALSE(result.found) << content.size() << " bytes";
        EXPECT_EQ(result.errors, "Couldn't find a from x.sfa\n") << content.size() << " bytes";
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
