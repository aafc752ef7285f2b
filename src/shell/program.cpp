#include "shell/program.h"

#include <cstdio>
#include <exception>
#include <string>

#include "base/random.h"
#include "menu/menu.h"
#include "platform/desktop_services.h"
#include "play/game.h"
#include "shell/spine_rules.h"
#include "shell/startup.h"
#include "sound/sound.h"

namespace {

// The error line always goes to the error stream; the notice is shown where
// the desktop can show one.
void reportFatal(const std::string& text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
    std::fflush(stderr);
    showErrorNotice("Error!", text.c_str());
}

void runMenuAndGames()
{
    startUp();
    uint8_t lastTrack = noTrack;
    uint8_t menuEntry = 0;
    bool quit = false;
    while (!quit) {
        Menu menu(menuEntry);
        if (!menu.isStartRequested()) {
            quit = true;
        } else {
            menu.stopMusic();  // the two tracks never overlap
            char playTracks[3][100] = {};
            for (int i = 0; i < 3; ++i) std::snprintf(playTracks[i], 100, "%s", playTrackFiles[i]);
            uint8_t track = chooseNextTrack(lastTrack);
            Sound* music = new Sound(playTracks[track], true, true);
            music->play();

            uint8_t result;
            do {
                Game game(music, menu.getPlayerCount(), menu.isSurvivalRules(), menu.getMapPath(),
                          menu.getMapNumber());
                result = game.result;
            } while (result == resultRestart);  // the track plays on through restarts

            menuEntry = menuEntryAfter(result, menu.getPlayerCount(), menu.isSurvivalRules());
            delete music;
            quit = result == resultQuit;
            lastTrack = track;
        }
    }
    shutDown();
}

}  // namespace

int runGorvan()
{
    try {
        runMenuAndGames();
    } catch (const char* text) {
        reportFatal(text);
    } catch (const std::exception& e) {
        reportFatal(std::string("Standard exception: ") + e.what());
    } catch (...) {
        reportFatal("An unknown error occurred!");
    }
    return 0;
}
