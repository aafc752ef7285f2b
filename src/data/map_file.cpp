#include "data/map_file.h"

#include <cstdio>
#include <cstring>

#include "base/log.h"

std::string mapFilePath(int number)
{
    char path[64];
    std::snprintf(path, sizeof path, "content/maps/map%i.txt", number);
    return path;
}

bool openMapFile(std::ifstream& stream, int number)
{
    const std::string path = mapFilePath(number);
    stream.open(path);
    if (!stream.is_open()) {
        logInfo("Couldn't load map '%s'!", path.c_str());
        return false;
    }
    return true;
}

namespace {

// Discards up to and including the next line end, at most
// MAP_LINE_SKIP_LIMIT characters; a CR LF pair counts as one line end.
void skipOneLine(std::istream& stream)
{
    if (!stream.good())
        return;
    std::streambuf* buffer = stream.rdbuf();
    for (int taken = 0; taken < MAP_LINE_SKIP_LIMIT; ++taken) {
        const int c = buffer->sbumpc();
        if (c == std::char_traits<char>::eof()) {
            stream.setstate(std::ios::eofbit);
            return;
        }
        if (c == '\n')
            return;
        if (c == '\r' && buffer->sgetc() == '\n') {
            buffer->sbumpc();
            return;
        }
    }
}

// Line 1 up to its end, at most MAP_TITLE_MAX_LENGTH characters, without a
// trailing CR.
std::string readTitleLine(std::istream& stream)
{
    std::string title;
    std::streambuf* buffer = stream.rdbuf();
    for (;;) {
        const int c = buffer->sbumpc();
        if (c == std::char_traits<char>::eof() || c == '\n')
            break;
        title.push_back(static_cast<char>(c));
    }
    if (!title.empty() && title.back() == '\r')
        title.pop_back();
    if (title.size() > static_cast<size_t>(MAP_TITLE_MAX_LENGTH))
        title.resize(MAP_TITLE_MAX_LENGTH);
    return title;
}

// Skips `lines` lines and takes the value of the next; false if it failed.
bool readValueAfter(int number, int lines, uint32_t& value)
{
    std::ifstream stream;
    if (!openMapFile(stream, number))
        return false;
    for (int i = 0; i < lines; ++i)
        skipOneLine(stream);
    uint32_t read = 0;
    stream >> read;
    if (stream.fail())
        return false;
    value = read;
    return true;
}

}  // namespace

void readMapTitle(char* dest, int number, bool numbered)
{
    const std::string path = mapFilePath(number);
    std::snprintf(dest, MAP_TITLE_CAPACITY, "%s", path.c_str());
    std::ifstream stream(path);
    if (!stream.is_open()) {
        logError("Couldn't open map file '%s'!", path.c_str());
        return;
    }
    const std::string title = readTitleLine(stream);
    if (numbered)
        std::snprintf(dest, MAP_TITLE_CAPACITY, "%i.%s%s", number, number < 10 ? "  " : " ",
                      title.c_str());
    else
        std::snprintf(dest, MAP_TITLE_CAPACITY, "%s", title.c_str());
}

uint32_t getMapParScore(int number)
{
    uint32_t parScore = 0;
    readValueAfter(number, 26, parScore);
    return parScore == 0 ? 1 : parScore;
}

uint32_t getMapUnlockPoints(int number)
{
    uint32_t unlockPoints = 0;
    readValueAfter(number, 27, unlockPoints);
    return unlockPoints;
}

MapReader::MapReader(const std::string& path) : path(path), stream(path) {}

void MapReader::skipLines(int count)
{
    for (int i = 0; i < count; ++i) {
        skipOneLine(stream);
        ++currentLine;
    }
}

template <typename T> void MapReader::extract(T& value)
{
    T read{};
    stream >> read;
    if (!stream.fail())
        value = read;
    else if (failedLine == 0)
        failedLine = currentLine;
    skipLines(1);
}

void MapReader::readLine(float& value) { extract(value); }
void MapReader::readLine(uint16_t& value) { extract(value); }
void MapReader::readLine(int32_t& value) { extract(value); }
void MapReader::readLine(uint32_t& value) { extract(value); }
void MapReader::readLine(bool& value) { extract(value); }

void MapReader::reportShort(const char* what) const
{
    if (!isOpen() || failedLine == 0)
        return;
    logError("Map '%s' can't be read from line %d on; %s keep their defaults", path.c_str(),
             failedLine, what);
}
