// Reference pictures of scripted games, one per mode, played through the real
// Game loop on virtual time. Only the rounds up to a picture are drawn (the
// test backend leaves out the drawing of the others), so marks burnt into the
// ground in other rounds are missing. Every drawn frame must leave no GL error
// and a clean stencil; beside the comparison each picture is checked for what
// it must show, so a reference that was wrong when written is caught too.
// tests/data_files/references/README.md says how to write them afresh.
//
// The scripts were laid out by following the seeded games round by round:
// - stage, map 20 "Singularity", seed 2: no cannons and the share on
//   "Temporary" so that the first temporary upgrade (a blast) comes early;
//   three cannons from round 600; "S" scripted for round 820 is taken by the
//   input of round 821, and the blast strikes in the frame after, 822; the
//   combo reaches 10 at round 913 and lightning strikes at 914. Late
//   picture at 916.
// - survival, the same map, seed 1: three cannons, early picture at 300; the
//   row taken down at 320; the first breach at 805 (static at 809), the fatal
//   one at 882; the closing fade at 1032 (150 rounds in); the window closed
//   at 1033, and the closing dissolve at its 36th frame.
// - two players, map 12 "Crowded Sky", seed 3, a 16:9 window: the opening
//   reveal at round 20; the left side with three cannons; both halves at 400.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <map>
#include <set>

#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "reference_picture.h"
#include "sim/player.h"
#include "support/play_session.h"

namespace {

const unsigned closingFrames = 71;

// Draws round 1 and the four rounds up to each picture, leaves out the
// drawing of every other round up to `lastRound`, and takes the pictures.
class ScriptedGame {
public:
    ScriptedGame(const std::set<unsigned>& pictureRounds, unsigned lastRound)
    {
        std::set<unsigned> drawn;
        for (unsigned round : pictureRounds)
            for (unsigned r = round > 5 ? round - 4 : 2; r <= round; ++r) drawn.insert(r);
        unsigned from = 2;
        for (unsigned round : drawn) {
            if (round > from) testBackend::leaveOutDrawing(from, round - 1);
            from = round + 1;
        }
        testBackend::leaveOutDrawing(from, lastRound);
        testBackend::watchFrames([this, pictureRounds](unsigned round) {
            bool error = false;
            while (glGetError() != GL_NO_ERROR) error = true;
            EXPECT_FALSE(error) << "round " << round;
            EXPECT_TRUE(fieldStencilClean()) << "round " << round;
            if (pictureRounds.count(round)) pictures[round] = WindowPicture::readBack();
        });
    }
    ~ScriptedGame() { testBackend::watchFrames(nullptr); }

    std::map<unsigned, WindowPicture> pictures;
};

void press(unsigned round, int key)
{
    testBackend::keyAt(round, key, true);
    testBackend::keyAt(round + 2, key, false);
}

// A screen-unit rectangle of a side's 800 x 600 view in window pixels; by
// default the side's field without its outermost pixels.
PixelRect viewArea(const PlayerView& view, int windowHeight, int x = 26, int y = 26, int w = 368,
                   int h = 496)
{
    const int top = windowHeight - view.y - view.height;
    return PixelRect{view.x + x * view.width / 800, top + y * view.height / 600,
                     w * view.width / 800, h * view.height / 600};
}

TEST(PlayPictures, StageBlastInTheFrameAfterThePressAndLateLightning)
{
    PlaySession session;
    session.open(2);
    press(1, '0');
    testBackend::keyAt(1, 'A', true);  // the share all the way to "Temporary"
    testBackend::keyAt(90, 'A', false);
    press(600, '3');
    press(820, 'S');
    testBackend::closeAt(917);
    const unsigned pressed = 821, blast = 822, late = 916;
    ScriptedGame script({pressed, blast, late}, 917 + closingFrames);
    const std::string map = pinMap("hard.txt", 20);
    Game game(session.music(), 1, false, map.c_str(), 20);
    ASSERT_EQ(game.framesPlayed, 917u);
    ASSERT_EQ(script.pictures.size(), 3u);
    EXPECT_TRUE(matchesReference(script.pictures[blast], "stage_blast", gameTolerance));
    EXPECT_TRUE(matchesReference(script.pictures[late], "stage_late_lightning", gameTolerance));

    // The blast's red bolts and warm glow cover the field in the frame after
    // the press, not before; the glow saturates red, so its red light shows
    // later: 94 rounds on it still reddens the ground between the cannons.
    const PlayerView view = playerView(1000, 600, true, 0);
    const AreaMeans before = measure(script.pictures[pressed], viewArea(view, 600));
    const AreaMeans after = measure(script.pictures[blast], viewArea(view, 600));
    EXPECT_LT(before.red, 130.0);
    EXPECT_GT(after.red, before.red + 100);
    EXPECT_GT(after.brightness(), 1.5 * before.brightness());
    const AreaMeans lit = measure(script.pictures[late], viewArea(view, 600, 274, 466, 64, 64));
    EXPECT_GT(lit.red, 2 * lit.green);
}

TEST(PlayPictures, SurvivalEarlyPlayBreachStaticAndClosingFade)
{
    PlaySession session;
    session.open(1);
    press(2, '3');
    press(320, '0');
    const unsigned early = 300, breach = 809, fade = 1032, closed = 1033;
    const unsigned dissolve = closed + 36;
    testBackend::closeAt(closed);
    ScriptedGame script({early, breach, fade, closed + 1, dissolve}, closed + closingFrames);
    const std::string map = pinMap("hard.txt", 20);
    Game game(session.music(), 1, true, map.c_str(), 20);
    ASSERT_EQ(game.framesPlayed, closed);
    EXPECT_EQ(game.finalEndMessage, 4);  // the first survival score of the map is a hi-score
    ASSERT_EQ(script.pictures.size(), 5u);
    const WindowPicture& first = script.pictures[early];
    for (const auto& [round, name] : {std::make_pair(early, "survival_early"),
                                      std::make_pair(breach, "survival_breach_static"),
                                      std::make_pair(fade, "survival_closing_fade"),
                                      std::make_pair(dissolve, "survival_closing_dissolve")})
        EXPECT_TRUE(matchesReference(script.pictures[round], name, gameTolerance));

    const PlayerView view = playerView(1000, 600, true, 0);
    const AreaMeans lit = measure(first, viewArea(view, 600));
    EXPECT_GT(lit.brightness(), 40.0);  // a lit ground, neither black nor washed out
    EXPECT_LT(lit.brightness(), 200.0);
    // Three cannons standing make resources at a rate of 1: a red part of 288 of 384.
    const AreaMeans firepower = measure(first, viewArea(view, 600, 40, 566, 200, 3));
    EXPECT_GT(firepower.red, 2 * firepower.green);
    const AreaMeans resources = measure(first, viewArea(view, 600, 330, 566, 50, 3));
    EXPECT_GT(resources.green, 2 * resources.red);
    // The closing fade darkens the whole window; the dissolve starts from the last frame.
    auto whole = [&script](unsigned round) { return measure(script.pictures[round], {0, 0, 1000, 600}); };
    EXPECT_LT(whole(fade).brightness(), 0.6 * whole(early).brightness());
    EXPECT_GT(whole(closed + 1).brightness(), whole(dissolve).brightness());
}

TEST(PlayPictures, TwoPlayersSideBySide)
{
    PlaySession session;
    session.open(3, 1280, 720);
    press(2, '3');
    const unsigned opening = 20, both = 400;
    testBackend::closeAt(both + 1);
    ScriptedGame script({opening, both}, both + 1 + closingFrames);
    const std::string map = pinMap("crowded.txt", 12);
    Game game(session.music(), 2, true, map.c_str(), 12);
    ASSERT_EQ(game.framesPlayed, both + 1);
    ASSERT_EQ(script.pictures.size(), 2u);
    EXPECT_TRUE(matchesReference(script.pictures[opening], "versus_opening", gameTolerance));
    EXPECT_TRUE(matchesReference(script.pictures[both], "versus_both_sides", gameTolerance));

    // Each half of the 16:9 window holds a lit field of its own.
    for (uint8_t side : {1, 2}) {
        const AreaMeans field = measure(script.pictures[both], viewArea(playerView(1280, 720, false, side), 720));
        EXPECT_GT(field.brightness(), 30.0) << int(side);
    }
}

}  // namespace
