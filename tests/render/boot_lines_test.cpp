// The made-up lines of the boot console: what each kind may look like, which
// kinds may follow which, and how the quote gets spoiled.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "base/random.h"
#include "shell/boot_console.h"

namespace {

bool isPlain(const std::string& line)
{
    static const std::regex plainKinds[] = {
        std::regex("Loading( random| access| memory){1,3}"),
        std::regex("Loading data from (data/|temp/|content/|files/)?(data\\.|temp\\.|content\\.)"
                   "(dat|tmp|bin|[a-z]{1,3})"),
        std::regex("Loading (shaders|images|textures|game data|game content)"),
        std::regex("Initializing (rasterizer|fragment prosessor|vertex prosessor|"
                   "Random Number God|screen output system)"),
        std::regex("(char|int|short|float|double) (i|a|temp|id) = ([0-9]|[1-9][0-9]{1,4})"),
        std::regex("Important (memory|data) pointer 0x[0-9A-F]{5,8}"),
        std::regex("[ !-~]{5,25}"),
    };
    for (const std::regex& kind : plainKinds) {
        if (std::regex_match(line, kind)) return true;
    }
    return false;
}

bool isTenDots(const std::string& line) { return line == ".........."; }

// Kinds 8 and 9: a short row of dots or an error. (A garbage line of kind 6
// is at least five characters and only by a long chance all dots.)
bool isLateFiller(const std::string& line)
{
    static const std::regex someDots("\\.{1,9}");
    static const std::regex errors(
        "A fatal error occurred!!! Ignoring\\.|Couldn't complete command!|"
        "Continue\\? \\(y/n\\) Ignoring user input|"
        "Cannot read user input, continue anyway| error {9}\\.");
    return std::regex_match(line, someDots) || std::regex_match(line, errors);
}

TEST(BootLines, EveryLineIsOfOneOfTheKinds)
{
    int plain = 0, tens = 0, late = 0;
    seedRandom(40);
    for (int run = 0; run < 40; run++) {
        bool fillerAllowed = run % 2 == 0;
        for (int i = 0; i < 50; i++) {
            const std::string line = makeBootLine(fillerAllowed);
            if (isLateFiller(line)) late++;
            else if (isTenDots(line)) tens++;
            else if (isPlain(line)) plain++;
            else ADD_FAILURE() << "not a made-up line: '" << line << "'";
        }
    }
    // All kinds come up.
    EXPECT_GT(plain, 1000);
    EXPECT_GT(tens, 20);
    EXPECT_GT(late, 20);
}

TEST(BootLines, NoDotsOrErrorsRightAfterDotsOrErrors)
{
    seedRandom(41);
    for (int run = 0; run < 40; run++) {
        bool fillerAllowed = true;
        std::string previous = "..........";
        for (int i = 0; i < 100; i++) {
            const std::string line = makeBootLine(fillerAllowed);
            if (isLateFiller(previous)) {
                EXPECT_FALSE(isLateFiller(line) || isTenDots(line))
                    << "'" << previous << "' then '" << line << "'";
            }
            EXPECT_EQ(fillerAllowed, !isLateFiller(line)) << line;
            previous = line;
        }
    }
}

TEST(BootLines, WithoutFillerOnlyThePlainKindsComeUp)
{
    seedRandom(200);
    for (int run = 0; run < 200; run++) {
        bool fillerAllowed = false;
        const std::string line = makeBootLine(fillerAllowed);
        EXPECT_TRUE(isPlain(line) && !isLateFiller(line) && !isTenDots(line)) << line;
        EXPECT_TRUE(fillerAllowed);
    }
}

TEST(BootLines, AfterTenDotsAnyKindMayFollow)
{
    int lateAfterTen = 0;
    seedRandom(400);
    for (int run = 0; run < 400; run++) {
        bool fillerAllowed = true;
        std::string previous;
        for (int i = 0; i < 30; i++) {
            const std::string line = makeBootLine(fillerAllowed);
            if (isTenDots(previous) && isLateFiller(line)) lateAfterTen++;
            previous = line;
        }
    }
    EXPECT_GT(lateAfterTen, 0);
}

TEST(BootLines, ShortValuesAndOneLetterExtensionsOccur)
{
    const std::regex zero(".* = 0");
    const std::regex fiveDigitValue(".* = [1-9][0-9]{4}");
    const std::regex oneLetter("Loading data from (data|temp|content)\\.[a-z]");
    bool oneDigitZero = false, fiveDigits = false, oneLetterNoDirectory = false;
    seedRandom(300);
    for (int run = 0; run < 300; run++) {
        bool fillerAllowed = false;
        for (int i = 0; i < 40; i++) {
            const std::string line = makeBootLine(fillerAllowed);
            oneDigitZero |= std::regex_match(line, zero);
            fiveDigits |= std::regex_match(line, fiveDigitValue);
            oneLetterNoDirectory |= std::regex_match(line, oneLetter);
        }
    }
    EXPECT_TRUE(oneDigitZero);
    EXPECT_TRUE(fiveDigits);
    EXPECT_TRUE(oneLetterNoDirectory);
}

TEST(BootLines, MostQuotesStayWholeAndSpoiledOnesKeepTheirLength)
{
    const std::string quotes[] = {
        "Wake up and smell the ashes", "Prepare for unforeseen consequences",
        "Greetings Mortal, are you ready to die?", "Make us whole again", "POOTIS",
        "Need a dispenser here!", "Horrors! Demons in the deep!",
        "Good thing I'm indestructible", "Get out of here, stalker",
        "If it's hostile, you kill it", "Dosh, grab it while you can, lads",
        "Getting 20% cooler"};
    int whole = 0, spoiled = 0, highBytes = 0;
    bool seen[12] = {};
    seedRandom(1200);
    for (int run = 0; run < 1200; run++) {
        const std::string quote = makeBootQuote();
        bool matched = false;
        for (int q = 0; q < 12; q++) {
            if (quote == quotes[q]) {
                matched = true;
                seen[q] = true;
            }
        }
        if (matched) {
            whole++;
            continue;
        }
        spoiled++;
        bool sameLength = false;
        for (const std::string& q : quotes) sameLength |= q.size() == quote.size();
        EXPECT_TRUE(sameLength) << quote;
        for (char c : quote) {
            const int code = static_cast<unsigned char>(c);
            EXPECT_GE(code, 32);
            highBytes += code > 127;
        }
    }
    // One pass in six spoils a character: about 5 of 6 stay whole.
    EXPECT_NEAR(whole / 1200.0, 5.0 / 6.0, 0.04);
    EXPECT_GT(highBytes, 0);
    for (bool s : seen) EXPECT_TRUE(s);
    EXPECT_GT(spoiled, 0);
}

}  // namespace
