// .sfa archives: the example entry byte for byte, the packer's round trip,
// the scan to the last entry, whole-name matching, and damaged files.
#include <gtest/gtest.h>

#include "data/archive.h"
#include "data/sfa_format.h"
#include "support/captured_output.h"
#include "support/scratch_dir.h"

namespace {

// The entry's data, or "-" when none came back, and what was printed.
std::string lookUp(const std::string& fileBytes, const std::string& name, const char* path = "x.sfa")
{
    writeFileBytes("x.sfa", fileBytes);
    std::string data = "-";
    uint32_t size = 0xdeadbeef;  // written only on success
    std::string errors = stderrOf([&] {
        unsigned char* found = Archive::readEntry(path, name.c_str(), &size);
        if (found) data.assign(reinterpret_cast<char*>(found), size);
        delete[] found;
    });
    return data + "|" + (size == 0xdeadbeef ? "" : std::to_string(size)) + "|" + errors;
}

const std::string entryA = bytes({0xFF, 0xFF, 0xFF, 0xFE, 0x9E, 0xFF, 0xFF, 0xFF, 0xFE, 0xBE});  // "a": 0x41

}  // namespace

TEST(Archive, ExampleLengthsAndThePackersRoundTrip)
{
    ScratchDir scratch;
    EXPECT_EQ(packSfa({{"a", "A"}}).substr(4), entryA);
    EXPECT_EQ(lookUp("HDR!" + entryA, "a"), "A|1|");
    EXPECT_EQ(lookUp(bytes({0, 0xFF, 0x12, 0x80}) + entryA, "a"), "A|1|") << "the header means nothing";
    const std::string data(0x0102, 'q');  // its length is stored FF FF FE FD
    EXPECT_EQ(packSfa({{"long", data}}).substr(12, 4), bytes({0xFF, 0xFF, 0xFE, 0xFD}));
    EXPECT_EQ(lookUp(packSfa({{"long", data}}), "long"), data + "|258|");

    const std::vector<SfaEntry> entries = {{"one", "1"}, {"", "nameless"}, {"empty", ""}, {"three", "333"}};
    const std::string packed = packSfa(entries);
    std::string error, listed;
    for (const SfaEntry& entry : unpackSfa(packed, &error)) listed += entry.name + "=" + entry.data + ";";
    EXPECT_EQ(listed + error, "one=1;=nameless;empty=;three=333;");
    EXPECT_EQ(unpackSfa(packed.substr(0, packed.size() - 1), &error).size(), 3u) << "the entries before damage";
    EXPECT_EQ(error, "the data of three runs past the end of the file");
    EXPECT_EQ(unpackSfa(packed.substr(0, 6), &error).size(), 0u);
    EXPECT_EQ(error, "a name runs past the end of the file");
}

TEST(Archive, ScanFindsEveryEntryToTheLastAndMeetsDamage)
{
    ScratchDir scratch;
    const std::string file = packSfa({{"one", "1"}, {"", "nameless"}, {"empty", ""}, {"same", "first"},
                                      {"same", "second"}, {"three", "333"}});
    const std::string eight = packSfa({{"a", "abcdefgh"}});
    const std::string cutName = packSfa({{"x", "1"}, {"abcdef", "2"}}).substr(0, 21);
    // "a" states 200 bytes of data but holds 1, so "b" is never reached.
    const std::string longSkip = "HDR!" + bytes({255, 255, 255, 254, 0x9E, 255, 255, 255, 0x37, 0xBE}) +
                                 packSfa({{"b", "2"}}).substr(4);
    const std::string rows[][3] = {
        {file, "one", "1|1|"}, {file, "", "nameless|8|"}, {file, "empty", "|0|"}, {file, "same", "first|5|"},
        {file, "three", "333|3|"},
        {file, "thre", "-||Couldn't find thre from x.sfa\n"}, {file, "threee", "-||Couldn't find threee from x.sfa\n"},
        {file, "ONE", "-||Couldn't find ONE from x.sfa\n"},
        // An empty name never matches the phantom entry at the end of the file.
        {packSfa({{"abc", "1"}}), "", "-||Couldn't find  from x.sfa\n"},
        {"", "a", "-||Couldn't find a from x.sfa\n"}, {"HDR!", "a", "-||Couldn't find a from x.sfa\n"},
        // Data cut short comes back at its stated length, zero-filled.
        {eight.substr(0, eight.size() - 5), "a", std::string("abc\0\0\0\0\0", 8) + "|8|"},
        {cutName, "abcdef", "-||Couldn't find abcdef from x.sfa\n"}, {cutName, "abc", "-||Couldn't find abc from x.sfa\n"},
        {cutName, "x", "1|1|"}, {longSkip, "b", "-||Couldn't find b from x.sfa\n"},
        // A data length of 0xFFFFFFF0 in a 14-byte file allocates nothing.
        {"HDR!" + bytes({255, 255, 255, 254, 0x9E, 0, 0, 0, 0x0F, 0xBE}), "a",
         "-||Couldn't read a from x.sfa: its length 4294967280 runs far past the end of the file\n"},
        // A name length of 0xFFFFFFFF, whose + 1 would wrap to 0.
        {"HDR!" + bytes({0, 0, 0, 0, 0x9E}), "a", "-||Couldn't find a from x.sfa\n"},
    };
    for (const auto& [fileBytes, name, result] : rows) EXPECT_EQ(lookUp(fileBytes, name), result) << name;
    EXPECT_EQ(lookUp("", "a", "content/none.sfa"), "-||Couldn't open content/none.sfa\n");
}
