#include "shell/program.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "base/random.h"
#include "menu/menu.h"
#include "platform/desktop_services.h"
#include "play/game.h"
#include "replay/game_recording.h"
#include "replay/replay_checks.h"
#include "shell/command_line.h"
#include "shell/player_folder.h"
#include "shell/replay_watching.h"
#include "shell/spine_rules.h"
#include "shell/startup.h"
#include "shell/window.h"
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

int runMenuAndGames()
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
                GameRecording recording(menu.getPlayerCount(), menu.isSurvivalRules(),
                                        menu.getMapPath(), menu.getMapNumber(), track);
                Game game(music, menu.getPlayerCount(), menu.isSurvivalRules(), menu.getMapPath(),
                          menu.getMapNumber());
                keepReplay(recording.finish(game));
                result = game.result;
            } while (result == resultRestart);  // the track plays on through restarts

            menuEntry = menuEntryAfter(result, menu.getPlayerCount(), menu.isSurvivalRules());
            delete music;
            quit = result == resultQuit;
            lastTrack = track;
        }
    }
    shutDown();
    return 0;
}

// Where this program lies, with links resolved: an install is found from it.
std::string programPath()
{
    std::vector<char> path(4096);
#ifdef _WIN32
    const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const bool whole = length > 0 && length < path.size();
#else
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size() - 1);
    const bool whole = length > 0;
#endif
    return whole ? std::string(path.data(), static_cast<size_t>(length)) : std::string();
}

// The installed game runs in the player's own folder; a build's game stays
// where it was started, unless --data-dir names another folder, which gets
// the content beside the program. On Windows the game always keeps its files
// in the folder it was started in, as it always has there: it has no install
// with a folder per player.
bool enterFolderOfPlayer(const CommandLine& line)
{
    const std::string program = programPath();
#ifdef _WIN32
    std::string content;
    const bool installed = false;
#else
    std::string content = installedContentFor(program);
    const bool installed = !content.empty();
#endif
    if (!installed) {
        if (line.dataDir.empty()) return true;
        content = program.substr(0, program.find_last_of("/\\") + 1) + "content";
    }
    std::string folder = line.dataDir;
    if (folder.empty()) folder = defaultPlayerFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
    std::string reason = "neither XDG_DATA_HOME nor HOME is set; name a folder with --data-dir";
    if (!folder.empty() && enterPlayerFolder(folder, content, &reason)) return true;
    std::fprintf(stderr, "gorvan: %s\n", reason.c_str());
    return false;
}

// This run's choices, which no setting keeps.
void applyRunOptions(const CommandLine& line)
{
    runDisplay.sizeGiven = line.width != 0;
    runDisplay.width = line.width;
    runDisplay.height = line.height;
    runDisplay.typeGiven = line.windowTypeGiven;
    runDisplay.fullscreen = line.fullscreen;
    setMuted(line.mute);
}

int playGorvan(const std::function<int()>& run)
{
    try {
        return run();
    } catch (const char* text) {
        reportFatal(text);
    } catch (const std::exception& e) {
        reportFatal(std::string("Standard exception: ") + e.what());
    } catch (...) {
        reportFatal("An unknown error occurred!");
    }
    return 0;
}

}  // namespace

int runGorvan(int argc, char** argv)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(argv[i]);
    const CommandLine line = parseCommandLine(arguments);
    if (!line.error.empty()) {
        std::fprintf(stderr, "gorvan: %s (see gorvan --help)\n", line.error.c_str());
        return 2;
    }
    if (line.showHelp || line.showVersion) {
        std::fputs((line.showHelp ? helpText() : versionText()).c_str(), stdout);
        return 0;
    }
    Replay replay;  // read before the folder changes: FILE is named from here
    if (!line.replayFile.empty() && !loadReplay(line.replayFile, replay)) return 2;
    if (!enterFolderOfPlayer(line)) return 1;
    applyRunOptions(line);
    if (!line.replayFile.empty()) return playGorvan([&] { return watchReplay(line.replayFile, replay); });
    return playGorvan(runMenuAndGames);
}
