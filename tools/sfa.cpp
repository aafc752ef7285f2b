// sfa: packs files into an .sfa archive, lists one, extracts from one.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "data/archive.h"
#include "data/sfa_format.h"

namespace fs = std::filesystem;

namespace {

const char* usage =
    "Usage:\n"
    "  sfa pack ARCHIVE [INPUT...]      pack files into ARCHIVE; a folder INPUT adds\n"
    "                                   every plain file in it, in name order\n"
    "  sfa list ARCHIVE                 print each entry's name and size\n"
    "  sfa extract ARCHIVE [-o DIR] [NAME...]\n"
    "                                   write entries (all, or the named ones) into DIR\n"
    "                                   (default: the current folder)\n"
    "  sfa --help                       show this text\n"
    "Entry names are file names without their folder; the first of two equal names\n"
    "is the one the game finds, so pack refuses duplicates.\n";

int fail(const std::string& message)
{
    fprintf(stderr, "sfa: %s\n", message.c_str());
    return 1;
}

bool readWholeFile(const fs::path& path, std::string& bytes)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

bool writeWholeFile(const fs::path& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out.flush());
}

// Entries become files in one folder: a name must be a plain file name.
bool isPlainFileName(const std::string& name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
           name.find('\0') == std::string::npos;
}

int pack(const std::vector<std::string>& args)
{
    // No inputs make an archive of its header alone, which the game reads as empty.
    if (args.empty()) return fail("pack needs an archive (see --help)");
    std::vector<fs::path> files;
    for (size_t i = 1; i < args.size(); ++i) {
        std::error_code code;
        if (fs::is_directory(args[i], code)) {
            std::vector<fs::path> inFolder;
            for (const auto& item : fs::directory_iterator(args[i]))
                if (item.is_regular_file()) inFolder.push_back(item.path());
            std::sort(inFolder.begin(), inFolder.end());
            files.insert(files.end(), inFolder.begin(), inFolder.end());
        } else {
            files.push_back(args[i]);
        }
    }
    std::vector<SfaEntry> entries;
    std::set<std::string> names;
    for (const fs::path& file : files) {
        SfaEntry entry;
        entry.name = file.filename().string();
        if (!names.insert(entry.name).second) return fail("two inputs are named " + entry.name);
        if (!readWholeFile(file, entry.data)) return fail("couldn't read " + file.string());
        if (entry.data.size() > UINT32_MAX) return fail(file.string() + " is too big for an entry");
        entries.push_back(std::move(entry));
    }
    if (!writeWholeFile(args[0], packSfa(entries))) return fail("couldn't write " + args[0]);
    return 0;
}

int list(const std::vector<std::string>& args)
{
    if (args.size() != 1) return fail("list needs exactly one archive (see --help)");
    std::string bytes, damage;
    if (!readWholeFile(args[0], bytes)) return fail("couldn't open " + args[0]);
    for (const SfaEntry& entry : unpackSfa(bytes, &damage))
        printf("%10zu  %s\n", entry.data.size(), entry.name.c_str());
    if (!damage.empty()) return fail(args[0] + ": " + damage);
    return 0;
}

int extract(const std::vector<std::string>& args)
{
    if (args.empty()) return fail("extract needs an archive (see --help)");
    fs::path folder = ".";
    std::vector<std::string> wanted;
    for (size_t i = 1; i < args.size(); ++i) {
        if (args[i] == "-o" && i + 1 < args.size()) folder = args[++i];
        else wanted.push_back(args[i]);
    }
    std::error_code code;
    fs::create_directories(folder, code);

    if (wanted.empty()) {
        std::string bytes, damage;
        if (!readWholeFile(args[0], bytes)) return fail("couldn't open " + args[0]);
        for (const SfaEntry& entry : unpackSfa(bytes, &damage)) {
            if (!isPlainFileName(entry.name)) return fail("an entry's name is no plain file name: " + entry.name);
            if (!writeWholeFile(folder / entry.name, entry.data)) return fail("couldn't write " + entry.name);
        }
        if (!damage.empty()) return fail(args[0] + ": " + damage);
        return 0;
    }
    // Named entries are read the way the game reads them.
    for (const std::string& name : wanted) {
        if (!isPlainFileName(name)) return fail("no plain file name: " + name);
        uint32_t size = 0;
        unsigned char* data = Archive::readEntry(args[0].c_str(), name.c_str(), &size);
        if (!data) return 1;
        std::string bytes(reinterpret_cast<char*>(data), size);
        delete[] data;
        if (!writeWholeFile(folder / name, bytes)) return fail("couldn't write " + name);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        fputs(usage, stderr);
        return 2;
    }
    if (args[0] == "--help" || args[0] == "-h") {
        fputs(usage, stdout);
        return 0;
    }
    std::string command = args[0];
    args.erase(args.begin());
    if (command == "pack") return pack(args);
    if (command == "list") return list(args);
    if (command == "extract") return extract(args);
    fputs(usage, stderr);
    return 2;
}
