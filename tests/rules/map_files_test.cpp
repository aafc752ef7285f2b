// The text maps as the game reads them: titles, par and unlock points, what a
// line may hold, and files that are short, damaged or missing.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "data/map_file.h"
#include "map_text.h"
#include "support/scratch_dir.h"

namespace {

std::string title(int number, bool numbered)
{
    char dest[MAP_TITLE_CAPACITY];
    readMapTitle(dest, number, numbered);
    return dest;
}

TEST(MapFiles, TitlesAreLineOneNumberedWithTwoBlanksBelowTenAndCutAt127)
{
    ScratchDir scratch;
    const std::string longest(127, 'a');
    MapText().set(1, "Quiet Shore").write(3);
    MapText().set(1, "x").write(9);
    MapText().set(1, "x").write(10);
    MapText().set(1, longest + "bcd").write(2);
    MapText crLf;
    crLf.lineEnd = "\r\n";
    crLf.set(1, longest).write(4);  // loses the carriage return
    const std::tuple<int, bool, std::string> rows[] = {
        {3, false, "Quiet Shore"}, {9, true, "9.  x"}, {10, true, "10. x"},
        {2, false, longest},       {4, true, "4.  " + longest}};
    for (const auto& [number, numbered, expected] : rows)
        EXPECT_EQ(title(number, numbered), expected) << number << " " << numbered;

    testing::internal::CaptureStderr();
    EXPECT_EQ(title(17, true), "content/maps/map17.txt");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Couldn't open map file 'content/maps/map17.txt'!\n");
}

TEST(MapFiles, ParIsLine27AndNeverZeroUnlockIsLine28AndZeroForShortFiles)
{
    ScratchDir scratch;
    MapText crLf;  // values with comments behind them, and CR LF line ends
    crLf.lineEnd = "\r\n";
    crLf.set(27, "777  par: what a good player makes").set(28, "12\tpoints").write(1);
    MapText().set(27, "0").write(2);
    MapText shortText;
    shortText.lines.resize(27);
    shortText.write(4);
    EXPECT_EQ(getMapParScore(1), 777u);
    EXPECT_EQ(getMapUnlockPoints(1), 12u);
    EXPECT_EQ(getMapParScore(2), 1u);
    EXPECT_EQ(getMapUnlockPoints(4), 0u);

    testing::internal::CaptureStdout();
    EXPECT_EQ(getMapParScore(5), 1u);
    EXPECT_EQ(getMapUnlockPoints(6), 0u);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Couldn't load map 'content/maps/map5.txt'!\n"
              "Couldn't load map 'content/maps/map6.txt'!\n");
}

TEST(MapFiles, ALineHoldsAValueAndAtMost127MoreCharacters)
{
    ScratchDir scratch;
    // A skipped line may hold 127 characters; with 128 the rest of the line
    // counts as the next one.
    MapText().set(1, std::string(127, 't')).set(28, "5").write(1);
    MapText().set(1, std::string(128, 't')).set(28, "5").write(2);
    EXPECT_EQ(getMapUnlockPoints(1), 5u);
    EXPECT_EQ(getMapUnlockPoints(2), 1000u);
    // Behind a value the same: 129 characters leave a tail taken for the next.
    const std::string fits = MapText().set(3, "4" + std::string(127, '#')).write(3);
    const std::string tooLong = MapText().set(3, "4" + std::string(128, '#') + "9").write(4);
    for (const std::string& path : {fits, tooLong}) {
        MapReader reader(path);
        reader.skipToLine(3);
        float hitPoints = 0, growth = -1;
        reader.readLine(hitPoints);
        reader.readLine(growth);
        EXPECT_FLOAT_EQ(hitPoints, 4);
        EXPECT_FLOAT_EQ(growth, path == fits ? 0.0f : 9.0f) << path;
    }
}

TEST(MapFiles, AFailedReadLeavesThatValueAndAllLaterOnesAlone)
{
    ScratchDir scratch;
    MapReader reader(MapText().set(14, "2").write(1));
    reader.skipToLine(13);
    int32_t waveCount = 0;
    bool directed = true;
    float damage = -1;
    reader.readLine(waveCount);
    reader.readLine(directed);  // only 0 or 1 are bools
    reader.readLine(damage);
    EXPECT_EQ(waveCount, 3);
    EXPECT_TRUE(directed);
    EXPECT_FLOAT_EQ(damage, -1);
    testing::internal::CaptureStderr();
    reader.reportShort("the test's values");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Map 'content/maps/map1.txt' can't be read from line 14 on; the test's values keep "
              "their defaults\n");

    MapText text;  // a short file fails at its end
    text.lines.resize(10);
    MapReader shortReader(text.write(2));
    shortReader.skipToLine(10);
    float percent = -1, waveFrames = -1;
    shortReader.readLine(percent);
    shortReader.readLine(waveFrames);
    EXPECT_FLOAT_EQ(percent, 0);
    EXPECT_FLOAT_EQ(waveFrames, -1);
    EXPECT_FALSE(shortReader.good());

    MapReader missing("content/maps/map99.txt");  // says nothing of its own
    float value = 7;
    missing.readLine(value);
    EXPECT_FLOAT_EQ(value, 7);
    testing::internal::CaptureStderr();
    missing.reportShort("nothing");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
