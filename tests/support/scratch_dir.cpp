#include "support/scratch_dir.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unistd.h>

namespace fs = std::filesystem;

ScratchDir::ScratchDir()
{
    previousPath = fs::current_path().string();
    std::string pattern = (fs::temp_directory_path() / "gorvan-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    scratchPath = pattern;
    fs::create_directory(fs::path(scratchPath) / "content");
    fs::create_directory(fs::path(scratchPath) / "screenshots");
    fs::current_path(scratchPath);
}

ScratchDir::~ScratchDir()
{
    std::error_code ignored;
    fs::current_path(previousPath, ignored);
    fs::remove_all(scratchPath, ignored);
}

std::string readFileBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeFileBytes(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

bool fileExists(const std::string& path) { return fs::exists(path); }
