// A game played without a picture or a GL context: the rounds in the Game's
// order (the left Player, the right one, the exchange of disturbance charges,
// the end check, then the 500 rounds of the closing phase in which both sides
// go on). The headless runner and the rule tests play with it.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>

class Player;
struct Replay;

// Resets the test backend and opens a display-less window (800 x 600 unless
// a replay's window is asked for), so that scripted input reaches the
// Players; seeds the game's generator.
void openHeadlessTable(uint32_t seed, int width = 800, int height = 600);
// Closes what openHeadlessTable opened.
void closeHeadlessTable();

// Scripted input for the rounds to come, as the test backend applies it: lines
// "ROUND KEY down|up" (KEY a character such as 3, Q, S, W) and "ROUND click X
// Y" (a left click held for one round at window pixel X, Y); # starts a
// comment. A bad line is reported with its number; false then.
bool scriptInput(std::istream& in, const std::string& name);
bool loadInputScript(const std::string& path);

enum MatchMode { stageMatch, survivalMatch, versusMatch };

class RulesMatch {
public:
    RulesMatch(MatchMode mode, const std::string& mapPath, uint8_t mapNumber);
    // Deletes the Players: a one-player game stores its score, as in the game.
    ~RulesMatch();
    RulesMatch(const RulesMatch&) = delete;
    RulesMatch& operator=(const RulesMatch&) = delete;

    // Pumps the round's scripted input and plays one round. False once the
    // closing phase is over, or when the game reaches maxRounds unfinished.
    bool playRound(uint32_t maxRounds = 300000);

    Player* left;
    Player* right = nullptr;  // two-player games only
    uint32_t round = 0;
    uint32_t endRound = 0;    // the round the end was found
    uint8_t endMessage = 0;   // as the Game's: the end code, or 5/6 for a side's loss
    uint16_t closingLeft = 500;
    bool capped = false;      // stopped at maxRounds unfinished
};

// A replay's game played to the round it ended, on a table of its window's
// size with its playback running (the first round at the first pump: the
// table pumps before each round). The rounds of its pause menus are stepped
// over, as the Game's loop spent them there; afterRound sees every round.
// Nothing is stored: the playback holds the scores while the Players go.
struct ReplayOutcome {
    uint32_t scores[2];
    uint8_t endCode;
};
ReplayOutcome playReplayHeadless(const Replay& replay, const std::string& mapPath,
                                 const std::function<void(const RulesMatch&)>& afterRound = {});
