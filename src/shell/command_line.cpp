#include "shell/command_line.h"

#include <cctype>

namespace {

// Window sides the game can lay its views out in.
const unsigned smallestSide = 512;
const unsigned largestSide = 8192;

struct Option {
    const char* name;
    const char* valueName;  // null for an option without a value
    const char* help;
    // Stores the option; returns what is wrong with the value, or "".
    std::string (*apply)(CommandLine& line, const std::string& value);
};

// A side of WIDTHxHEIGHT: digits only, within the sides the game can use.
bool readSide(const std::string& text, uint16_t* side)
{
    if (text.empty() || text.size() > 5) return false;
    unsigned value = 0;
    for (char c : text) {
        if (!std::isdigit(static_cast<unsigned char>(c))) return false;
        value = value * 10 + static_cast<unsigned>(c - '0');
    }
    if (value < smallestSide || value > largestSide) return false;
    *side = static_cast<uint16_t>(value);
    return true;
}

std::string applyResolution(CommandLine& line, const std::string& value)
{
    const size_t x = value.find('x');
    uint16_t width = 0, height = 0;
    if (x == std::string::npos || !readSide(value.substr(0, x), &width) ||
        !readSide(value.substr(x + 1), &height)) {
        return "bad resolution '" + value + "': give WIDTHxHEIGHT, each from " +
               std::to_string(smallestSide) + " to " + std::to_string(largestSide) +
               ", e.g. 1280x720";
    }
    line.width = width;
    line.height = height;
    return "";
}

std::string applyDataDir(CommandLine& line, const std::string& value)
{
    if (value.empty()) return "--data-dir needs a folder";
    line.dataDir = value;
    return "";
}

const Option options[] = {
    {"--help", nullptr, "show this help and exit",
     [](CommandLine& line, const std::string&) { line.showHelp = true; return std::string(); }},
    {"--version", nullptr, "show the version and exit",
     [](CommandLine& line, const std::string&) { line.showVersion = true; return std::string(); }},
    {"--windowed", nullptr, "play in a window this time",
     [](CommandLine& line, const std::string&) {
         line.windowTypeGiven = true;
         line.fullscreen = false;
         return std::string();
     }},
    {"--fullscreen", nullptr, "play on the full screen this time",
     [](CommandLine& line, const std::string&) {
         line.windowTypeGiven = true;
         line.fullscreen = true;
         return std::string();
     }},
    {"--resolution", "WxH", "use this resolution this time, e.g. 1280x720", applyResolution},
    {"--mute", nullptr, "no music and no sound this time",
     [](CommandLine& line, const std::string&) { line.mute = true; return std::string(); }},
    {"--data-dir", "DIR", "keep scores, settings and screenshots in DIR", applyDataDir},
    {"--replay", "FILE", "watch a recorded game again; prints its final score",
     [](CommandLine& line, const std::string& value) {
         line.replayFile = value;
         return std::string(value.empty() ? "--replay needs a file" : "");
     }},
};

const Option* findOption(const std::string& name)
{
    for (const Option& option : options) {
        if (name == option.name) return &option;
    }
    return nullptr;
}

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (size_t i = 0; i < arguments.size() && line.error.empty(); ++i) {
        // Both "--resolution 800x600" and "--resolution=800x600".
        std::string name = arguments[i];
        std::string value;
        const size_t equals = name.find('=');
        const bool valueAttached = name.compare(0, 2, "--") == 0 && equals != std::string::npos;
        if (valueAttached) {
            value = name.substr(equals + 1);
            name = name.substr(0, equals);
        }
        const Option* option = findOption(name);
        if (!option) {
            line.error = name[0] == '-' ? "unknown option " + name : "unexpected argument '" + name + "'";
        } else if (!option->valueName && valueAttached) {
            line.error = name + " takes no value";
        } else if (option->valueName && !valueAttached && i + 1 == arguments.size()) {
            line.error = name + " needs a value: " + name + " " + option->valueName;
        } else {
            if (option->valueName && !valueAttached) value = arguments[++i];
            line.error = option->apply(line, value);
        }
    }
    return line;
}

std::string helpText()
{
    std::string text =
        "Usage: gorvan [OPTION]...\n"
        "Gorvan, an arcade game for one or two players: black squares fall down a lit\n"
        "field, and the cannons at the bottom fire by themselves.\n\nOptions:\n";
    for (const Option& option : options) {
        std::string left = std::string("  ") + option.name;
        if (option.valueName) left += std::string(" ") + option.valueName;
        left.resize(24, ' ');
        text += left + option.help + "\n";
    }
    text +=
        "\nIn play (keyboard / game controller):\n"
        "  0 1 2 3   X A B Y        how many cannons stand\n"
        "  Q         left bumper    more permanent upgrades\n"
        "  A         left trigger   more temporary upgrades\n"
        "  S         right bumper   use the next temporary upgrade\n"
        "  W         right trigger  charge a disturbance (two players)\n"
        "  ESC, P    Start          pause (the right mouse button too)\n"
        "  F5, F12                  screenshot\n"
        "The panel's buttons answer to the left mouse button as well.\n"
        "In menus: arrow keys or d-pad to move, ENTER or A to choose, ESC or B to go\n"
        "back, or the mouse. In a two-player game the first controller plays the left\n"
        "side and the second the right; the left side has the keyboard, the right side\n"
        "the mouse.\n";
#ifdef _WIN32
    text += "\nScores, settings and screenshots are kept in the folder the game is started\n"
            "in, or in the --data-dir folder;";
#else
    text += "\nScores, settings and screenshots are kept in $XDG_DATA_HOME/gorvan (by\n"
            "default ~/.local/share/gorvan) for the installed game, or in the --data-dir\n"
            "folder;";
#endif
    text += " the replays of the last game and of the best one of each map\n"
            "and mode in its replays/ folder.\n";
    return text;
}

std::string versionText() { return std::string("gorvan ") + GORVAN_VERSION + "\n"; }
