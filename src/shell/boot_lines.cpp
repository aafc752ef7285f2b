// The made-up log lines of the boot console and its hidden quote. They mean
// nothing and nothing reads them; only the order of the random draws matters,
// so that a seeded run types the same text.
#include <string>

#include "base/random.h"
#include "shell/boot_console.h"

namespace {

const char* const quotes[] = {
    "Wake up and smell the ashes",
    "Prepare for unforeseen consequences",
    "Greetings Mortal, are you ready to die?",
    "Make us whole again",
    "POOTIS",
    "Need a dispenser here!",
    "Horrors! Demons in the deep!",
    "Good thing I'm indestructible",
    "Get out of here, stalker",
    "If it's hostile, you kill it",
    "Dosh, grab it while you can, lads",
    "Getting 20% cooler",
};

char randomChar(int lo, int hi)
{
    return static_cast<char>(randomInt(lo, hi));
}

std::string loadingWords()
{
    static const char* const words[] = {" random", " access", " memory"};
    std::string line = "Loading";
    const int count = randomInt(1, 3);
    for (int i = 0; i < count; i++) {
        line += words[randomInt(0, 2)];
    }
    return line;
}

std::string loadingFromPath()
{
    static const char* const directories[] = {"data/", "temp/", "content/", "files/"};
    static const char* const names[] = {"data.", "temp.", "content."};
    static const char* const extensions[] = {"dat", "tmp", "bin"};
    std::string line = "Loading data from ";
    if (randomInt(0, 1) != 0) {
        line += directories[randomInt(0, 3)];
    }
    line += names[randomInt(0, 2)];
    const int extension = randomInt(0, 3);
    if (extension < 3) {
        line += extensions[extension];
    } else {
        const int letters = randomInt(1, 3);
        for (int i = 0; i < letters; i++) {
            line += randomChar('a', 'z');
        }
    }
    return line;
}

std::string loadingThing()
{
    static const char* const things[] = {"shaders", "images", "textures", "game data",
                                         "game content"};
    return std::string("Loading ") + things[randomInt(0, 4)];
}

std::string initializingThing()
{
    static const char* const things[] = {"rasterizer", "fragment prosessor",
                                         "vertex prosessor", "Random Number God",
                                         "screen output system"};
    return std::string("Initializing ") + things[randomInt(0, 4)];
}

// A declaration with a value: one digit (0 among them) or a number of two to
// five digits that never starts with 0.
std::string variableLine()
{
    static const char* const types[] = {"char ", "int ", "short ", "float ", "double "};
    static const char* const names[] = {"i = ", "a = ", "temp = ", "id = "};
    std::string line = types[randomInt(0, 4)];
    line += names[randomInt(0, 3)];
    if (randomInt(0, 2) == 0) {
        line += randomChar('0', '9');
    } else {
        line += randomChar('1', '9');
        const int more = randomInt(1, 4);
        for (int i = 0; i < more; i++) {
            line += randomChar('0', '9');
        }
    }
    return line;
}

std::string pointerLine()
{
    static const char* const kinds[] = {"memory pointer 0x", "data pointer 0x"};
    std::string line = "Important ";
    line += kinds[randomInt(0, 1)];
    const int digits = randomInt(5, 8);
    for (int i = 0; i < digits; i++) {
        if (randomInt(0, 15) < 10) {
            line += randomChar('0', '9');
        } else {
            line += randomChar('A', 'F');
        }
    }
    return line;
}

std::string garbageLine()
{
    std::string line;
    const int length = randomInt(5, 25);
    for (int i = 0; i < length; i++) {
        if (randomInt(0, 2) == 0) {
            line += ' ';
        } else {
            line += randomChar(33, 126);
        }
    }
    return line;
}

std::string errorLine()
{
    static const char* const errors[] = {
        "A fatal error occurred!!! Ignoring.", "Couldn't complete command!",
        "Continue? (y/n) Ignoring user input", "Cannot read user input, continue anyway",
        " error         ."};
    return errors[randomInt(0, 4)];
}

std::string lineOfKind(int kind)
{
    switch (kind) {
    case 0: return loadingWords();
    case 1: return loadingFromPath();
    case 2: return loadingThing();
    case 3: return initializingThing();
    case 4: return variableLine();
    case 5: return pointerLine();
    case 6: return garbageLine();
    case 7: return "..........";
    case 8: return std::string(static_cast<size_t>(randomInt(1, 9)), '.');
    default: return errorLine();
    }
}

}  // namespace

std::string makeBootQuote()
{
    std::string quote = quotes[randomInt(0, 11)];
    // Each pass has a chance of one in six to spoil one more character.
    while (randomInt(0, 5) == 0) {
        const int position = randomInt(0, static_cast<int>(quote.size()) - 1);
        quote[position] = static_cast<char>(randomInt(32, 255));
    }
    return quote;
}

std::string makeBootLine(bool& fillerAllowed)
{
    // Dots and errors (kinds 8 and 9) never come twice in a row.
    const int kind = fillerAllowed ? randomInt(0, 9) : randomInt(0, 6);
    std::string line = lineOfKind(kind);
    fillerAllowed = kind <= 7;
    return line;
}

void BootConsole::generateLine()
{
    if (lines.size() == quoteLine) {
        lines.push_back(makeBootQuote());
        fillerAllowed = false;
        return;
    }
    lines.push_back(makeBootLine(fillerAllowed));
}
