// STAND-IN until the menu pages are built: the menu as the program's spine
// sees it. Its loop shows a black screen; ENTER starts a one-player stage
// game on map 1 (or, opened at level selection, a game of the preset mode on
// map 1); ESC or a closed window ends the program.
#pragma once

#include <cstdint>

class Sound;

class Menu {
public:
    explicit Menu(uint8_t menuEntry);
    ~Menu();
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    bool isStartRequested() const { return startRequested; }
    uint8_t getPlayerCount() const { return playerCount; }
    bool isSurvivalRules() const { return survivalRules; }
    const char* getMapPath() const { return mapPath; }
    uint8_t getMapNumber() const { return mapNumber; }
    void stopMusic();

    Sound* music = nullptr;
    bool startRequested = false;
    uint8_t playerCount = 1;
    bool survivalRules = false;
    char mapPath[64] = "content/maps/map1.txt";
    uint8_t mapNumber = 1;
};
