// The boot console on virtual time: typing speed, dots, scrolling, where the
// lines stand in the window, the dump to the log; and its made-up lines: what
// each kind may look like, which kinds may follow which, the spoiled quote.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "base/random.h"
#include "gl_test_window.h"
#include "platform/testing/test_backend.h"
#include "render/text.h"
#include "shell/boot_console.h"
#include "shell/window.h"

namespace {

const char* const quoteTexts[] = {
    "Wake up and smell the ashes", "Prepare for unforeseen consequences",
    "Greetings Mortal, are you ready to die?", "Make us whole again", "POOTIS",
    "Need a dispenser here!", "Horrors! Demons in the deep!", "Good thing I'm indestructible",
    "Get out of here, stalker", "If it's hostile, you kill it",
    "Dosh, grab it while you can, lads", "Getting 20% cooler",
};

// How many characters a line differs from the quote of its length (-1: none).
int spoiledCharacters(const std::string& line)
{
    int fewest = -1;
    for (const std::string text : quoteTexts) {
        if (text.size() != line.size())
            continue;
        int differing = 0;
        for (size_t i = 0; i < text.size(); i++)
            differing += text[i] != line[i];
        fewest = fewest < 0 ? differing : std::min(fewest, differing);
    }
    return fewest;
}

bool looksLikeQuote(const std::string& line, int spoiled)
{
    const int differing = spoiledCharacters(line);
    return differing >= 0 && differing <= spoiled;
}

// A plain line: printable ASCII of a readable length (the kinds themselves
// are the generator's tables, not repeated here).
bool isPlain(const std::string& line)
{
    return line.size() >= 5 && line.size() <= 60
        && std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

bool isTenDots(const std::string& line) { return line == ".........."; }

// Short dots or an error: the filler that may not follow itself.
bool isLateFiller(const std::string& line)
{
    static const std::regex someDots("\\.{1,9}");
    static const std::regex errors(
        "A fatal error occurred!!! Ignoring\\.|Couldn't complete command!|"
        "Continue\\? \\(y/n\\) Ignoring user input|"
        "Cannot read user input, continue anyway| error {9}\\.");
    return std::regex_match(line, someDots) || std::regex_match(line, errors);
}

// The eleven lines the start-up has put on the console before the show.
void addStartUpLines(BootConsole& console)
{
    for (const char* line :
         {"Program started", "GLFW initialized", "FMOD initialized", "Window opened",
          "GLEW initialized", "Loading shaders", "...", "Loading images",
          "Generating textures", ".....", "Initializing framebuffers"})
        console.lines.push_back(line);
}

class BootConsoleTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        openTestWindow(1000, 600);
        useCodedFont();
        seedRandom(1234);
    }
    void TearDown() override
    {
        deleteFont();
        closeTestWindow();
    }
    // Reads a row of the console (0 is the top) in the window, where every
    // console pixel stands doubled.
    static std::string consoleRow(int row, int n)
    {
        const float advance = 16 * textAdvancePerSize;
        std::string text;
        for (int i = 0; i < n; i++) {
            const int code = codeAt(static_cast<int>(2 * (16 + advance * (i + 0.5f))),
                                    2 * (row * 16 + 8));
            text += code < 0 ? '?' : static_cast<char>(code);
        }
        return text;
    }
};

TEST_F(BootConsoleTest, TypesTwoCharactersATickAt150Ticks)
{
    testing::internal::CaptureStdout();
    {
        BootConsole console;
        const double start = testBackend::now();
        const unsigned swaps = testBackend::window().swapCount;
        console.addLine("Program started");  // 15 characters: 8 ticks
        EXPECT_NEAR(testBackend::now() - start, 8 / 150.0, 1e-9);
        EXPECT_EQ(testBackend::window().swapCount - swaps, 9u);  // each tick and the end
        EXPECT_EQ(console.currentLine, 1);
        EXPECT_EQ(console.visibleChars, 0);

        const double second = testBackend::now();
        console.addLine("Thirty characters of text here");
        EXPECT_NEAR(testBackend::now() - second, 0.1, 1e-9);
        EXPECT_EQ(console.currentLine, 2);
    }
    testing::internal::GetCapturedStdout();
}

TEST_F(BootConsoleTest, NewestCompleteLineStandsInTheBottomRowDoubled)
{
    testing::internal::CaptureStdout();
    {
        BootConsole console;
        console.addLine("Program started");
        console.addLine("GLFW initialized");
        // The line being typed would stand in row 15; complete lines move up.
        EXPECT_EQ(consoleRow(14, 17), "GLFW initialized?");
        EXPECT_EQ(consoleRow(13, 16), "Program started?");
        EXPECT_EQ(consoleRow(15, 1), "?");
        // Nothing outside the doubled console's 512 x 512 square.
        EXPECT_EQ(codeAt(600, 470), -1);
        EXPECT_EQ(codeAt(40, 540), -1);
    }
    testing::internal::GetCapturedStdout();
}

TEST_F(BootConsoleTest, DotsStandBelowTheirLineAndCloseWithOneMore)
{
    testing::internal::CaptureStdout();
    {
        BootConsole console;
        console.addLine("Loading shaders");
        const double start = testBackend::now();
        console.addDot();
        console.addDot();
        EXPECT_EQ(console.lines.back(), "..");
        EXPECT_EQ(console.visibleChars, 2);
        EXPECT_NEAR(testBackend::now() - start, 0.002, 1e-9);  // a millisecond each
        EXPECT_EQ(consoleRow(15, 3), "..?");

        console.closeDots();
        ASSERT_EQ(console.lines.size(), 2u);
        EXPECT_EQ(console.lines[0], "Loading shaders");
        EXPECT_EQ(console.lines[1], "...");
        EXPECT_EQ(console.currentLine, 2);
        // One tick of typing, then a tenth of a second's pause.
        EXPECT_NEAR(testBackend::now() - start, 0.002 + 1 / 150.0 + 0.1, 1e-9);

        // The next announcement opens a new line of dots.
        console.addLine("Generating textures");
        console.addDot();
        EXPECT_EQ(console.lines.size(), 4u);
        EXPECT_EQ(console.lines.back(), ".");
    }
    testing::internal::GetCapturedStdout();
}

TEST_F(BootConsoleTest, OldLinesScrollAwayAboveTheTopRow)
{
    testing::internal::CaptureStdout();
    {
        BootConsole console;
        for (int i = 0; i < 20; i++)
            console.addLine(("Line " + std::to_string(i)).c_str());
        // Fifteen complete lines are shown: 5 to 19.
        EXPECT_EQ(consoleRow(0, 7), "Line 5?");
        EXPECT_EQ(consoleRow(14, 8), "Line 19?");
    }
    testing::internal::GetCapturedStdout();
}

TEST_F(BootConsoleTest, BootScriptEndsWith31LinesAndTheAuthorOnTop)
{
    testing::internal::CaptureStdout();
    {
        BootConsole console;
        addStartUpLines(console);
        console.currentLine = 11;
        const double start = testBackend::now();
        console.runBootScript();
        EXPECT_EQ(console.lines.size(), 31u);
        EXPECT_EQ(console.lines.back(), "Thingz by Kelvarin");
        EXPECT_EQ(console.currentLine, 45);
        EXPECT_EQ(consoleRow(0, 19), "Thingz by Kelvarin?");
        EXPECT_EQ(consoleRow(1, 1), "?");
        // 14 rows of scrolling at 50 a second and the second's stand.
        EXPECT_GT(testBackend::now() - start, 14 / 50.0 + 1.0);
    }
    testing::internal::GetCapturedStdout();
}

TEST_F(BootConsoleTest, DumpGoesToTheLogBehindItsHeading)
{
    testing::internal::CaptureStdout();
    {
        BootConsole console;
        console.lines.push_back("Program started");
        console.lines.push_back(std::string("Make us wh\xE9le again"));
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\n\n\nThis next thing is just for fun\n"
              "This is the stuff you see when the program starts:\n\n"
              "Program started\nMake us wh\xE9le again\n\n");
}

TEST_F(BootConsoleTest, QuoteLineIsDrawnBetweenTenAnd29AndTheQuoteStandsThere)
{
    testing::internal::CaptureStdout();
    std::vector<int> seen(256, 0);
    seedRandom(300);
    for (int run = 0; run < 300; run++) {
        BootConsole console;
        seen[console.quoteLine]++;
    }
    for (int i = 0; i < 256; i++)
        EXPECT_EQ(seen[i] > 0, i >= 10 && i <= 29) << i;

    for (int run = 0; run < 20; run++) {
        BootConsole console;
        console.quoteLine = 20;
        addStartUpLines(console);
        while (console.lines.size() < 30)
            console.generateLine();
        EXPECT_TRUE(looksLikeQuote(console.lines[20], 4)) << console.lines[20];
    }
    // Line 10 is never met: the start-up has put eleven lines there already.
    for (int run = 0; run < 3; run++) {  // the whole show is slow to draw
        BootConsole console;
        console.quoteLine = 10;
        addStartUpLines(console);
        console.runBootScript();
        for (const std::string& line : console.lines)
            EXPECT_FALSE(looksLikeQuote(line, 4)) << line;
    }
    testing::internal::GetCapturedStdout();
}

TEST(BootLines, EveryLineIsOfOneKindAndFillerNeverFollowsFiller)
{
    int plain = 0, tens = 0, late = 0, lateAfterTen = 0;
    bool zero = false, fiveDigits = false, oneLetterNoDirectory = false;
    const std::regex zeroValue(".* = 0"), fiveDigitValue(".* = [1-9][0-9]{4}");
    const std::regex oneLetter("Loading data from (data|temp|content)\\.[a-z]");
    seedRandom(40);
    for (int run = 0; run < 400; run++) {
        bool fillerAllowed = run % 4 != 0;
        std::string previous = "..........";
        for (int i = 0; i < 40; i++) {
            const bool allowed = fillerAllowed;
            const std::string line = makeBootLine(fillerAllowed);
            EXPECT_EQ(fillerAllowed, !isLateFiller(line)) << line;
            if (isLateFiller(line)) {
                EXPECT_TRUE(allowed) << "'" << previous << "' then '" << line << "'";
                late++;
                lateAfterTen += isTenDots(previous);
            } else if (isTenDots(line)) {
                EXPECT_TRUE(allowed) << "'" << previous << "' then '" << line << "'";
                tens++;
            } else if (isPlain(line)) {
                plain++;
            } else {
                ADD_FAILURE() << "not a made-up line: '" << line << "'";
            }
            zero |= std::regex_match(line, zeroValue);
            fiveDigits |= std::regex_match(line, fiveDigitValue);
            oneLetterNoDirectory |= std::regex_match(line, oneLetter);
            previous = line;
        }
    }
    // All kinds come up, short values and one-letter extensions too.
    EXPECT_GT(plain, 5000);
    EXPECT_GT(tens, 50);
    EXPECT_GT(late, 50);
    EXPECT_GT(lateAfterTen, 0);
    EXPECT_TRUE(zero && fiveDigits && oneLetterNoDirectory);
}

TEST(BootLines, MostQuotesStayWholeAndSpoiledOnesKeepTheirLength)
{
    int whole = 0, highBytes = 0;
    std::set<std::string> wholeSeen;
    seedRandom(1200);
    for (int run = 0; run < 1200; run++) {
        const std::string quote = makeBootQuote();
        const int differing = spoiledCharacters(quote);
        ASSERT_GE(differing, 0) << quote;
        if (differing == 0) {
            whole++;
            wholeSeen.insert(quote);
        }
        for (char c : quote) {
            EXPECT_GE(static_cast<unsigned char>(c), 32);
            highBytes += static_cast<unsigned char>(c) > 127;
        }
    }
    // One pass in six spoils a character: about 5 of 6 stay whole.
    EXPECT_NEAR(whole / 1200.0, 5.0 / 6.0, 0.04);
    EXPECT_GT(highBytes, 0);
    EXPECT_EQ(wholeSeen.size(), 12u);
}

}  // namespace
