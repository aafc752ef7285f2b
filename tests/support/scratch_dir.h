// A fresh working directory for a test that touches the game's files: made
// under the system's temporary folder with content/ and screenshots/ inside,
// entered on construction, left and removed on destruction.
#pragma once

#include <string>

class ScratchDir {
public:
    ScratchDir();
    ~ScratchDir();
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;

    const std::string& path() const { return scratchPath; }

private:
    std::string scratchPath;
    std::string previousPath;
};

// Whole file as bytes; empty when it can't be read.
std::string readFileBytes(const std::string& path);
void writeFileBytes(const std::string& path, const std::string& bytes);
bool fileExists(const std::string& path);
