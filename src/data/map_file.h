// The text maps, content/maps/map%i.txt: one value a line, its meaning given
// by its line number, anything behind a value a comment. No reader takes the
// whole file: each consumer opens it and skips to the lines it wants.
//
// Line 1 title; 2 speedUpFrames; 3-10 enemy strength and spawning; 11-13 the
// wave clock; 14 directed; 15-17 cannon damage, reload, range; 18-26 light
// direction, light colour, ambient; 27 par score; 28 unlock points.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

// Enough for the path and for the longest numbered title ("20. " + 127).
constexpr int MAP_TITLE_CAPACITY = 160;
constexpr int MAP_TITLE_MAX_LENGTH = 127;
// A reader passing to the next line discards at most this many characters.
constexpr int MAP_LINE_SKIP_LIMIT = 128;

// "content/maps/map%i.txt"
std::string mapFilePath(int number);

// Opens the map for reading; on failure writes "Couldn't load map '<path>'!"
// to the standard output and returns false.
bool openMapFile(std::ifstream& stream, int number);

// The title as the menus show it, into dest (MAP_TITLE_CAPACITY bytes).
// numbered: "9.  Title" / "10. Title", so that the titles of a list line up.
// A missing file leaves the path in dest, with a line on the standard error.
void readMapTitle(char* dest, int number, bool numbered);

// Line 27; 1 when the file can't be opened or holds 0 (callers divide by it).
uint32_t getMapParScore(int number);

// Line 28; 0 when the file can't be opened or is shorter.
uint32_t getMapUnlockPoints(int number);

// The reading rules that every direct reader shares: values by stream
// extraction (a failed read fails the reader for good and leaves the field
// and all later ones untouched), and line skipping that discards at most
// MAP_LINE_SKIP_LIMIT characters. CR LF line ends read like LF.
class MapReader {
public:
    // Opens silently; isOpen() tells. The caller prints its own message.
    explicit MapReader(const std::string& path);

    bool isOpen() const { return stream.is_open(); }
    // False once a read has failed or the file has run out.
    bool good() const { return !stream.fail(); }
    // The line the reader stands on, counted from 1.
    int line() const { return currentLine; }

    // Passes to the next line, count times.
    void skipLines(int count);
    // Skips forward until the reader stands on line n (nothing if past it).
    void skipToLine(int n) { skipLines(n - currentLine); }

    // Stream extraction of one value, then on to the next line. The target
    // keeps its value when the read fails.
    void readLine(float& value);
    void readLine(uint16_t& value);
    void readLine(int32_t& value);
    void readLine(uint32_t& value);
    // Only the digits 0 and 1; anything else fails the reader.
    void readLine(bool& value);

    // One line on the standard error when a read failed: "Map '<path>' can't
    // be read from line N on; <what> keep their defaults". Prints nothing when
    // the file is missing (the opener said so) or all went well.
    void reportShort(const char* what) const;

private:
    template <typename T> void extract(T& value);

    std::string path;
    std::ifstream stream;
    int currentLine = 1;
    int failedLine = 0;  // the line of the first failed read
};

// Values used where a map is missing or short: a plain, playable stage.
namespace mapDefaults {
constexpr uint16_t speedUpFrames = 0;
constexpr float enemyHitPoints = 4.0f;
constexpr float enemyHitPointsGrowth = 0.0f;
constexpr float enemySpeed = 0.4f;
constexpr float enemySpeedGrowth = 0.0f;
constexpr float spawnInterval = 90.0f;
constexpr float spawnIntervalGrowth = 0.0f;
constexpr float minSpawnInterval = 90.0f;
constexpr float bigEnemyPercent = 10.0f;
constexpr int32_t waveFrames = 1800;
constexpr int32_t pauseFrames = 300;
constexpr int32_t waveCount = 5;
constexpr bool directed = false;
constexpr float damage = 4.0f;
constexpr float reload = 40.0f;
constexpr float range = 250.0f;
constexpr float lightDirection[3] = {0.5f, 0.5f, 0.7f};
constexpr float lightColor[3] = {0.8f, 0.8f, 0.8f};
constexpr float ambient[3] = {0.3f, 0.3f, 0.3f};
constexpr uint32_t parScore = 0;
constexpr uint32_t unlockPoints = 0;
}  // namespace mapDefaults
