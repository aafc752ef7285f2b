// .sfa archives: the example entry byte for byte, the scan to the last entry,
// whole-name matching, the packer's round trip, and what damaged files give.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/archive.h"
#include "data/sfa_format.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

// The entry's data, or "-" when it is not found; size and errors beside.
struct Lookup {
    std::string data = "-";
    uint32_t size = 0xdeadbeef;  // left alone on failure
    std::string errors;
};

Lookup lookUp(const std::string& file, const std::string& name)
{
    Lookup result;
    result.errors = stderrOf([&] {
        unsigned char* data = Archive::readEntry(file.c_str(), name.c_str(), &result.size);
        if (data) result.data.assign(reinterpret_cast<char*>(data), result.size);
        delete[] data;
    });
    return result;
}

Lookup lookUpIn(const std::string& fileBytes, const std::string& name)
{
    writeFileBytes("x.sfa", fileBytes);
    return lookUp("x.sfa", name);
}

const std::string header = "HDR!";
// The entry "a" holding the byte 0x41.
const std::string entryA = bytes({0xFF, 0xFF, 0xFF, 0xFE, 0x9E, 0xFF, 0xFF, 0xFF, 0xFE, 0xBE});

}  // namespace

TEST(Archive, ExampleEntryLengthsAndThePackersRoundTrip)
{
    ScratchDir scratch;
    EXPECT_EQ(packSfa({{"a", "A"}}).substr(4), entryA);
    for (const std::string& start : {header, bytes({0, 0xFF, 0x12, 0x80})}) {  // the header means nothing
        Lookup a = lookUpIn(start + entryA, "a");
        EXPECT_EQ(a.data, "A");
        EXPECT_EQ(a.size, 1u);
        EXPECT_EQ(a.errors, "");
    }
    // Lengths are big-endian and complemented: 0x102 is stored FF FF FE FD.
    const std::string data(0x0102, 'q');
    EXPECT_EQ(packSfa({{"long", data}}).substr(12, 4), bytes({0xFF, 0xFF, 0xFE, 0xFD}));
    EXPECT_EQ(lookUpIn(packSfa({{"long", data}}), "long").data, data);

    const std::vector<SfaEntry> entries = {{"one", "1"}, {"", "nameless"}, {"empty", ""}, {"three", "333"}};
    std::string error;
    std::vector<SfaEntry> back = unpackSfa(packSfa(entries), &error);
    ASSERT_EQ(back.size(), entries.size()) << error;
    for (size_t i = 0; i < back.size(); ++i) {
        EXPECT_EQ(back[i].name, entries[i].name);
        EXPECT_EQ(back[i].data, entries[i].data);
    }
    // A damaged file keeps the entries before the damage.
    std::string packed = packSfa(entries);
    EXPECT_EQ(unpackSfa(packed.substr(0, packed.size() - 1), &error).size(), 3u);
    EXPECT_EQ(error, "the data of three runs past the end of the file");
    EXPECT_EQ(unpackSfa(packed.substr(0, 6), &error).size(), 0u);
    EXPECT_EQ(error, "a name runs past the end of the file");
}

TEST(Archive, ScanFindsEveryEntryToTheLastAndNamesCompareWhole)
{
    ScratchDir scratch;
    writeFileBytes("x.sfa", packSfa({{"one", "1"}, {"", "nameless"}, {"empty", ""}, {"same", "first"},
                                     {"same", "second"}, {"three", "333"}}));
    const std::pair<const char*, const char*> found[] = {
        {"one", "1"}, {"", "nameless"}, {"empty", ""}, {"same", "first"}, {"three", "333"}};
    for (const auto& [name, data] : found) {
        Lookup entry = lookUp("x.sfa", name);
        EXPECT_EQ(entry.data, data) << name;
        EXPECT_EQ(entry.size, std::string(data).size()) << name;
        EXPECT_EQ(entry.errors, "") << name;
    }
    for (const char* name : {"thre", "threee", "ONE"}) {
        Lookup miss = lookUp("x.sfa", name);
        EXPECT_EQ(miss.data, "-") << name;
        EXPECT_EQ(miss.size, 0xdeadbeefu) << name;
        EXPECT_EQ(miss.errors, "Couldn't find " + std::string(name) + " from x.sfa\n");
    }
    // An empty name never matches the phantom entry at the end of the file.
    EXPECT_EQ(lookUpIn(packSfa({{"abc", "1"}}), "").errors, "Couldn't find  from x.sfa\n");
    EXPECT_EQ(lookUp("content/none.sfa", "a").errors, "Couldn't open content/none.sfa\n");
}

TEST(Archive, ShortAndDamagedFiles)
{
    ScratchDir scratch;
    const std::string eight = packSfa({{"a", "abcdefgh"}});
    const std::string cutName = packSfa({{"x", "1"}, {"abcdef", "2"}}).substr(0, 4 + 10 + 4 + 3);
    // "a" states 200 bytes of data but holds 1; "b" behind it is never reached.
    const std::string longSkip = header + bytes({0xFF, 0xFF, 0xFF, 0xFE, 0x9E, 0xFF, 0xFF, 0xFF, 0x37, 0xBE}) +
                                 packSfa({{"b", "2"}}).substr(4);
    struct Row {
        std::string file, name, data;
        std::string errors;
    };
    const Row rows[] = {
        {"", "a", "-", "Couldn't find a from x.sfa\n"},
        {"HD", "a", "-", "Couldn't find a from x.sfa\n"},
        {header, "a", "-", "Couldn't find a from x.sfa\n"},
        // Data cut short comes back at its stated length, zero-filled.
        {eight.substr(0, eight.size() - 5), "a", std::string("abc") + std::string(5, '\0'), ""},
        {cutName, "abcdef", "-", "Couldn't find abcdef from x.sfa\n"},
        {cutName, "abc", "-", "Couldn't find abc from x.sfa\n"},
        {cutName, "x", "1", ""},
        {longSkip, "b", "-", "Couldn't find b from x.sfa\n"},
        // A data length of 0xFFFFFFF0 in a 14-byte file allocates nothing.
        {header + bytes({0xFF, 0xFF, 0xFF, 0xFE, 0x9E, 0, 0, 0, 0x0F, 0xBE}), "a", "-",
         "Couldn't read a from x.sfa: its length 4294967280 runs far past the end of the file\n"},
        // A name length of 0xFFFFFFFF, whose + 1 would wrap to 0.
        {header + bytes({0, 0, 0, 0, 0x9E}), "a", "-", "Couldn't find a from x.sfa\n"},
    };
    for (const Row& row : rows) {
        Lookup result = lookUpIn(row.file, row.name);
        EXPECT_EQ(result.data, row.data) << row.file.size() << " bytes, " << row.name;
        EXPECT_EQ(result.errors, row.errors) << row.file.size() << " bytes, " << row.name;
    }
}
