// Map files written on the spot for the rule tests: 28 lines of a plain stage,
// changed line by line (lines counted from 1, as in the file).
#pragma once

#include <string>
#include <vector>

struct MapText {
    std::vector<std::string> lines = {
        "Plain Field", "0",   "4",   "0",    "0.5", "0",   "100000", "0",    "1",    "0",
        "1000",        "100", "3",   "0",    "4",   "40",  "250",    "0.5",  "0.5",  "0.7",
        "0.8",         "0.8", "0.8", "0.3",  "0.3", "0.3", "1000",   "0"};
    std::string lineEnd = "\n";

    MapText& set(int line, const std::string& value)
    {
        lines.at(line - 1) = value;
        return *this;
    }
    // Writes content/maps/map<number>.txt; returns its path.
    std::string write(int number) const;
};
