// Archive data cut short by the end of the file comes back at its full stated
// length with the missing bytes zero, up to 256 MiB; only a longer length is
// refused, with one line.
#include <gtest/gtest.h>

#include <string>

#include "data/archive.h"
#include "data/sfa_format.h"
#include "support/scratch_dir.h"

TEST(ArchiveCutShort, ComesBackWholeUpToTheCap)
{
    ScratchDir scratch;
    const uint32_t cap = 256u << 20;
    const struct {
        uint32_t length;
        bool found;
    } cases[] = {{1000, true}, {cap, true}, {cap + 1, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.length);
        // "a" holding "xyz" of a stated length, and nothing behind.
        std::string file = packSfa({{"a", "xyz"}});
        for (int i = 0; i < 4; ++i)
            file[file.size() - 7 + i] = static_cast<char>(~(c.length >> (24 - 8 * i)));
        writeFileBytes("x.sfa", file);
        testing::internal::CaptureStderr();
        uint32_t size = 0;
        unsigned char* data = Archive::readEntry("x.sfa", "a", &size);
        const std::string log = testing::internal::GetCapturedStderr();
        ASSERT_EQ(data != nullptr, c.found);
        if (!data) {
            EXPECT_EQ(log, "Couldn't read a from x.sfa: its length 268435457 runs far past "
                           "the end of the file\n");
            continue;
        }
        EXPECT_EQ(size, c.length);
        EXPECT_EQ(std::string(reinterpret_cast<char*>(data), 3), "xyz");
        size_t zeros = 0;
        for (uint32_t i = 3; i < size; ++i) zeros += data[i] == 0;
        EXPECT_EQ(zeros, size - 3u);
        EXPECT_EQ(log, "");
        delete[] data;
    }
}
