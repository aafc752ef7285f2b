// The menu between two games: ten pages of text buttons, each a value of
// `page` and a ButtonList built when the page opens. The constructor loads
// what the pages need, runs the menu loop until the player has picked a game
// or quits, and leaves the answer for the spine to read through the getters.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "menu/widgets.h"

class FrameClock;
class Sound;

enum class MenuPage : uint8_t {
    Main = 0,
    Settings = 1,
    LevelSelection = 2,
    Resolution = 3,
    WindowType = 4,
    Tutorial = 5,
    MusicVolume = 6,
    SoundVolume = 7,
    HowToPlay = 8,
    Credits = 9,
};

// Where a new Menu opens (the spine passes what the last game asks for).
const uint8_t menuEntryMain = 0;
const uint8_t menuEntryStage = 1;
const uint8_t menuEntrySurvival = 2;
const uint8_t menuEntryTwoPlayers = 3;

// The title's six letters stand on fixed spots, given as offsets from the
// centre of the wide space. After the long wait on the main page a second
// picture comes over each, and the six spell the hidden word.
extern const float titleLetterOffsets[6];
// The entry name of the hidden word's letter on a spot (0 to 5).
std::string hiddenLetterPicture(int spot);

// Shown on the credits page without a scheme; opened with one.
extern const char* const authorWebLabel;
extern const char* const authorWebAddress;

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
    // Releases the menu's music at once, so that it never overlaps a play track.
    void stopMusic();

    Sound* music = nullptr;
    Sound* focusSound = nullptr;  // the selection moved
    Sound* pressSound = nullptr;  // an activation that stays in the menu
    Sound* leaveSound = nullptr;  // the loop has ended
    ButtonList* buttons = nullptr;
    SelectionMarker marker{0, 0};
    std::vector<RowHighlight> rowHighlights;
    uint32_t letterTextures[6] = {};
    uint32_t hiddenTextures[6] = {};
    uint32_t infoTextures[5] = {};
    uint8_t unlockedMaps = 0;
    uint8_t selection = 0;
    MenuPage page = MenuPage::Main;
    bool startRequested = false;
    uint8_t playerCount = 1;
    bool survivalRules = false;
    char mapPath[50] = "content/maps/map1.txt";
    uint8_t mapNumber = 1;
    uint32_t pageFrames = 0;
    uint8_t infoPage = 1;
    uint8_t previousInfoPage = 1;
    uint8_t infoFade = 0;
    int16_t virtualWidth = 0;
    int16_t columnOffset = 0;

    // What the loop went through, for tests: every page opened, in order,
    // and the rounds the loop ran.
    std::vector<MenuPage> pagesOpened;
    uint32_t roundsRun = 0;

private:
    void run();
    // One activation on the current page: true when it ends the loop.
    bool activate(bool escape, FrameClock& clock);
    bool activateMain(bool escape);
    void activateSettings(bool escape);
    bool activateLevelSelection(bool escape);
    void activateResolution(bool escape, FrameClock& clock);
    void activateWindowType(bool escape, FrameClock& clock);
    void activateTutorial(bool escape);
    void activateVolume(bool escape);
    void activateHowToPlay(bool escape);
    void activateCredits(bool escape, FrameClock& clock);

    void updateGeometry();
    void loadTextures();
    void deleteTextures();
    void rebuildDisplay();
    void applyDisplayChoice(bool settingChanged, bool* runChoiceGiven, FrameClock& clock);

    // Page builders; each opens its page with the first button selected.
    void beginPage(MenuPage newPage);
    void finishPage();
    void selectWideSpace() const;
    void showMainPage();
    void showSettingsPage();
    void showResolutionPage();
    void showWindowTypePage();
    void showTutorialPage();
    void showTwoChoicePage(MenuPage choicePage, const char* first, const char* second);
    void showMusicVolumePage();
    void showSoundVolumePage();
    void showVolumeList(MenuPage volumePage);
    void showLevelSelectionPage();
    void drawLevelTable(uint16_t totalPoints) const;
    void showHowToPlayPage();
    void rebuildHowToPlayButtons(uint8_t navigation, uint8_t focus);
    void showCreditsPage();

    // One frame of whatever page is open.
    void draw();
    void drawTitle() const;
    void drawCredits() const;
    void drawInfoPicture() const;
};
