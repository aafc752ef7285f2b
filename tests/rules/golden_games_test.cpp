// Whole games of the rules, scripted and seeded, compared round by round with
// their stored traces (golden_trace.h). Between them they play every mode, the
// directed and the plain wave clock, the three policies of the headless
// runner, panel clicks, share changes, temporary upgrades of every kind
// (blasts, chains, boosts), lightning at high combos, breaches and fatal
// breaches, and a disturbance charged to the full and run out.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "data/scores.h"
#include "golden_trace.h"
#include "platform/testing/test_backend.h"
#include "rules_match.h"
#include "runner_policies.h"
#include "sim/player.h"
#include "sound/sound.h"
#include "support/scratch_dir.h"

namespace {

struct GoldenGame {
    const char* name;    // the trace, in tests/data_files/golden/
    const char* map;     // a frozen map beside it
    MatchMode mode;
    uint32_t seed;
    Policy policy;       // the left side's; the right side clicks the simple policy
    const char* script;  // input on top of the policy's
};

// Names the game by its trace in test listings instead of its bytes.
void PrintTo(const GoldenGame& game, std::ostream* out) { *out << game.name; }

const GoldenGame games[] = {
    {"stage_directed_smart.txt", "map15.txt", stageMatch, 2, smartPolicy,
     // The clicks land on the first and the last pixel inside the Q, A and 3 buttons.
     "1500 click 725 135\n2000 click 755 345\n2500 a down\n2504 a up\n3000 click 299 564\n"
     "4000 q down\n4003 q up\n"},
    {"survival_simple_breaches.txt", "map17.txt", survivalMatch, 5, simplePolicy, ""},
    {"stage_lost_with_cannons.txt", "map20.txt", stageMatch, 1, cannonsPolicy,
     "900 2 down\n902 2 up\n1400 0 down\n1401 0 up\n1500 3 down\n1501 3 up\n"},
    {"survival_rich_field.txt", "rich_field.txt", survivalMatch, 2, smartPolicy,
     "300 s down\n302 s up\n"},
    {"versus_disturbance.txt", "map12.txt", versusMatch, 3, smartPolicy,
     "3000 w down\n3001 w up\n3400 w down\n3401 w up\n6000 w down\n6003 w up\n"
     "6100 w down\n6101 w up\n"},
};

class GoldenGames : public ::testing::TestWithParam<GoldenGame> {
protected:
    static void SetUpTestSuite()
    {
        // A silent device of OpenAL's own: the sounds load and play (and draw
        // their variants) the same on every machine.
        setenv("ALSOFT_DRIVERS", "null", 1);
        initAudio();
    }
    static void TearDownTestSuite() { shutdownAudio(); }
};

TEST_P(GoldenGames, PlayAsTheirTraces)
{
    const GoldenGame& game = GetParam();
    ScratchDir scratch;
    std::filesystem::copy(std::string(GORVAN_RUN_DIR) + "/content/sound", "content/sound",
                          std::filesystem::copy_options::recursive);  // Windows makes no links
    const std::string map = std::string(GORVAN_SOURCE_DIR) + "/tests/data_files/golden/" + game.map;
    openHeadlessTable(game.seed);
    testBackend::setFrameCost(1.0 / 60);  // a round of time per round, for the sounds
    std::istringstream script(game.script);
    ASSERT_TRUE(scriptInput(script, game.name));

    std::vector<std::string> lines;
    {
        RulesMatch match(game.mode, map, 1);
        PolicyMemory memory;
        uint64_t hash = 14695981039346656037ull;
        for (bool going = true; going;) {
            uint32_t round = match.round + 1;
            pressPolicyKeys(game.policy, *match.left, round, memory);
            if (match.right) clickSimplePolicy(*match.right, round);
            going = match.playRound(40000);
            for (Player* side : {match.left, match.right}) {
                if (!side) continue;
                hashSide(*side, hash);
                side->sparks.clear();  // only the picture burns them in
            }
            if (round % 250 != 0 && round != match.endRound && going) continue;
            char head[64];
            std::snprintf(head, sizeof head, "round=%u end=%u hash=%016llx", round,
                          match.endMessage, static_cast<unsigned long long>(hash));
            lines.push_back(head);
            lines.push_back("  " + describeSide(*match.left));
            if (match.right) lines.push_back("  " + describeSide(*match.right));
        }
    }
    // The Player stores its score when it goes, by the mode's rules.
    lines.push_back("stored stage=" + std::to_string(getStageScore(1)) +
                    " survival=" + std::to_string(getSurvivalScore(1)));
    closeHeadlessTable();
    expectTrace(game.name, lines);
}

INSTANTIATE_TEST_SUITE_P(, GoldenGames, ::testing::ValuesIn(games),
                         [](const auto& info) {
                             std::string name = info.param.name;
                             name = name.substr(0, name.find('.'));
                             std::string camel;
                             bool upper = true;
                             for (char c : name) {
                                 if (c == '_') { upper = true; continue; }
                                 camel += upper ? static_cast<char>(std::toupper(c)) : c;
                                 upper = false;
                             }
                             return camel;
                         });

}  // namespace
