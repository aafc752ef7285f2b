// The program's options, read into a plain record before anything else runs.
// Each option is one row of the table in command_line.cpp: a new option is a
// new field here and a new row there.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct CommandLine {
    bool showHelp = false;
    bool showVersion = false;
    // For this run only; the stored settings stay as they are.
    bool windowTypeGiven = false;
    bool fullscreen = false;
    uint16_t width = 0, height = 0;  // 0: not given
    bool mute = false;
    std::string dataDir;  // the player's folder; empty: the usual place
    // Not empty when the line can't be used: what is wrong, in one line.
    std::string error;
};

// The arguments after the program's name.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

// What --help and --version print.
std::string helpText();
std::string versionText();
