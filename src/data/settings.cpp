#include "data/settings.h"

#include <cstdio>

#include "base/log.h"
#include "data/file_replace.h"

namespace {

const char* const settingsPath = "content/settings.dat";
const char* const fpsPath = "content/fps.dat";
const int settingsSize = 8;
// "Auto" resolution, windowed, tutorial on, music 60, sound 100.
const unsigned char defaultSettings[settingsSize] = {0, 0, 0, 0, 0, 0, 60, 100};
const uint8_t notCached = 255;

uint8_t cachedMusicVolume = notCached;
uint8_t cachedSoundVolume = notCached;

FILE* openSettingsForReading()
{
    static const SmallFileLines lines = {"Created new settings file",
                                         "Couldn't create new settings file!",
                                         "Couldn't open settings file!"};
    return openSmallFile(settingsPath, defaultSettings, settingsSize, lines);
}

// One byte of the file. A file too short to hold it gives that field's
// default; a file that can't be opened gives false.
bool readSettingsByte(int offset, unsigned char* value)
{
    FILE* file = openSettingsForReading();
    if (!file) return false;
    int byte = EOF;
    if (std::fseek(file, offset, SEEK_SET) == 0) byte = std::fgetc(file);
    std::fclose(file);
    *value = byte == EOF ? defaultSettings[offset] : static_cast<unsigned char>(byte);
    return true;
}

uint8_t getVolume(int offset, uint8_t* cache)
{
    if (*cache != notCached) return *cache;
    unsigned char value;
    // Without a readable file the default holds, and the file is tried again
    // next time.
    if (!readSettingsByte(offset, &value)) return defaultSettings[offset];
    *cache = value;
    return *cache;
}

struct Settings {
    uint16_t width, height;
    bool fullscreen, tutorialEnabled;
    uint8_t musicVolume, soundVolume;
};

Settings currentSettings()
{
    Settings s;
    getResolution(&s.width, &s.height);
    s.fullscreen = isFullscreen();
    s.tutorialEnabled = isTutorialEnabled();
    s.musicVolume = getMusicVolume();
    s.soundVolume = getSoundVolume();
    return s;
}

void writeSettings(const Settings& s)
{
    const unsigned char bytes[settingsSize] = {
        static_cast<unsigned char>(s.width >> 8),  static_cast<unsigned char>(s.width & 0xFF),
        static_cast<unsigned char>(s.height >> 8), static_cast<unsigned char>(s.height & 0xFF),
        static_cast<unsigned char>(s.fullscreen ? 1 : 0),
        static_cast<unsigned char>(s.tutorialEnabled ? 0 : 1),  // stored inverted
        s.musicVolume, s.soundVolume};
    if (!replaceFileContents(settingsPath, bytes, settingsSize))
        logError("Cannot save settings!");
}

}  // namespace

void getResolution(uint16_t* width, uint16_t* height)
{
    unsigned char b0, b1, b2, b3;
    if (!readSettingsByte(0, &b0) || !readSettingsByte(1, &b1) || !readSettingsByte(2, &b2) ||
        !readSettingsByte(3, &b3)) {
        *width = 0;
        *height = 0;
        return;
    }
    *width = static_cast<uint16_t>(b0 << 8 | b1);
    *height = static_cast<uint16_t>(b2 << 8 | b3);
}

bool isFullscreen()
{
    unsigned char value;
    return readSettingsByte(4, &value) && value != 0;
}

namespace {
bool tutorialHeld = false;
bool heldTutorial = false;
}  // namespace

void holdTutorialSetting(bool on)
{
    tutorialHeld = true;
    heldTutorial = on;
}

void releaseTutorialSetting() { tutorialHeld = false; }

bool isTutorialEnabled()
{
    if (tutorialHeld) return heldTutorial;
    unsigned char value;
    return !readSettingsByte(5, &value) || value == 0;
}

uint8_t getMusicVolume() { return getVolume(6, &cachedMusicVolume); }
uint8_t getSoundVolume() { return getVolume(7, &cachedSoundVolume); }

void setResolution(uint16_t width, uint16_t height)
{
    Settings s = currentSettings();
    s.width = width;
    s.height = height;
    writeSettings(s);
}

void setFullscreen(bool on)
{
    Settings s = currentSettings();
    s.fullscreen = on;
    writeSettings(s);
}

void setTutorialEnabled(bool on)
{
    if (tutorialHeld) return;
    Settings s = currentSettings();
    s.tutorialEnabled = on;
    writeSettings(s);
}

void setMusicVolume(uint8_t percent)
{
    Settings s = currentSettings();
    s.musicVolume = percent;
    writeSettings(s);
    cachedMusicVolume = percent;  // holds even when the save failed
}

void setSoundVolume(uint8_t percent)
{
    Settings s = currentSettings();
    s.soundVolume = percent;
    writeSettings(s);
    cachedSoundVolume = percent;
}

void forgetCachedVolumes()
{
    cachedMusicVolume = notCached;
    cachedSoundVolume = notCached;
}

bool isFpsCounterEnabled()
{
    static const char defaultText[] = "0\nChange the 0 to 1 to enable fps counter";
    static const SmallFileLines lines = {"Created new fps file", "Couldn't create new fps file!",
                                         "Couldn't open fps file!"};
    FILE* file = openSmallFile(fpsPath, reinterpret_cast<const unsigned char*>(defaultText),
                               sizeof(defaultText) - 1, lines);
    if (!file) return false;
    // An empty file has no byte to read, and that counts as "not 0": on.
    int first = std::fgetc(file);
    std::fclose(file);
    return first != '0';
}
