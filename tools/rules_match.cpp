#include "rules_match.h"

#include <cstdio>
#include <fstream>
#include <sstream>

#include "base/random.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "replay/tape_ends.h"
#include "shell/window.h"
#include "sim/player.h"

void openHeadlessTable(uint32_t seed, int width, int height)
{
    testBackend::reset();
    testBackend::openWindowsWithoutDisplay(true);
    glfwInit();
    glfwOpenWindow(width, height, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
    setScreenSize(static_cast<int16_t>(width), static_cast<int16_t>(height));
    seedRandom(seed);
}

void closeHeadlessTable()
{
    glfwCloseWindow();
    glfwTerminate();
    testBackend::reset();
}

bool scriptInput(std::istream& in, const std::string& name)
{
    std::string line;
    for (int lineNumber = 1; std::getline(in, line); ++lineNumber) {
        std::istringstream words(line);
        unsigned round;
        std::string what, state;
        if (line.empty() || line[0] == '#')
            continue;
        if (!(words >> round >> what)) {
            std::fprintf(stderr, "%s:%d: expected ROUND KEY down|up or ROUND click X Y\n",
                         name.c_str(), lineNumber);
            return false;
        }
        if (what == "click") {
            int x, y;
            if (!(words >> x >> y)) {
                std::fprintf(stderr, "%s:%d: a click needs X and Y\n", name.c_str(), lineNumber);
                return false;
            }
            testBackend::mouseMoveAt(round, x, y);
            testBackend::mouseButtonAt(round, GLFW_MOUSE_BUTTON_LEFT, true);
            testBackend::mouseButtonAt(round + 1, GLFW_MOUSE_BUTTON_LEFT, false);
            continue;
        }
        words >> state;
        if (what.size() != 1 || (state != "down" && state != "up")) {
            std::fprintf(stderr, "%s:%d: expected ROUND KEY down|up\n", name.c_str(), lineNumber);
            return false;
        }
        int key = static_cast<unsigned char>(what[0]);
        if (key >= 'a' && key <= 'z')
            key -= 'a' - 'A';
        testBackend::keyAt(round, key, state == "down");
    }
    return true;
}

bool loadInputScript(const std::string& path)
{
    std::ifstream in(path);
    if (!in) {
        std::fprintf(stderr, "Couldn't read the script '%s'\n", path.c_str());
        return false;
    }
    return scriptInput(in, path);
}

RulesMatch::RulesMatch(MatchMode mode, const std::string& mapPath, uint8_t mapNumber)
{
    bool survival = mode != stageMatch;
    left = new Player(mode == versusMatch ? 1 : 0, survival, mapPath.c_str(), mapNumber);
    if (mode == versusMatch)
        right = new Player(2, true, mapPath.c_str(), mapNumber);
}

RulesMatch::~RulesMatch()
{
    delete left;
    delete right;
}

bool RulesMatch::playRound(uint32_t maxRounds)
{
    if (closingLeft == 0 || capped)
        return false;
    round += 1;
    glfwPollEvents();
    left->update();
    if (right) {
        right->update();
        left->enemyDisturbCharge = static_cast<uint8_t>(right->disturbCharge);
        right->enemyDisturbCharge = static_cast<uint8_t>(left->disturbCharge);
    }
    if (endMessage != 0) {
        closingLeft -= 1;
        return closingLeft > 0;
    }
    if (!right) {
        endMessage = left->endCode();
    } else if (left->endCode() == 3) {
        right->concede();
        endMessage = 6;
    } else if (right->endCode() == 3) {
        left->concede();
        endMessage = 5;
    }
    if (endMessage != 0)
        endRound = round;
    else if (round >= maxRounds)
        capped = true;
    return !capped;
}

ReplayOutcome playReplayHeadless(const Replay& replay, const std::string& mapPath,
                                 const std::function<void(const RulesMatch&)>& afterRound)
{
    ReplayOutcome outcome{};
    openHeadlessTable(replay.randomState, replay.windowWidth, replay.windowHeight);
    {
        ReplayPlayback playback(replay, false);
        RulesMatch match(static_cast<MatchMode>(replay.mode), mapPath, replay.mapNumber);
        size_t nextPause = 0;
        for (bool going = true; going && match.round < replay.gameRounds;) {
            going = match.playRound(replay.gameRounds);
            if (afterRound) afterRound(match);
            for (; nextPause < replay.pauses.size() && replay.pauses[nextPause].afterRound == match.round;
                 ++nextPause) {
                playback.skipRounds(replay.pauses[nextPause].menuRounds);
                match.left->holdPadsUntilReleased();
                if (match.right) match.right->holdPadsUntilReleased();
            }
        }
        outcome.scores[0] = match.left->score;
        outcome.scores[1] = match.right ? match.right->score : 0;
        outcome.endCode = match.endMessage;
    }
    closeHeadlessTable();
    return outcome;
}
