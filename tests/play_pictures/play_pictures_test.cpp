// Reference pictures of scripted games, one per mode, played through the real
// Game loop on virtual time: the frame of a chosen round is read back from the
// back buffer at its swap and compared with a PNG in
// tests/data_files/references/ (the tolerance is told in reference_picture.h).
// Beside the comparison each picture is checked for what it must show, so a
// reference that was wrong when written is caught too.
//
// To write the references afresh, after a deliberate change of the drawing:
//   GORVAN_UPDATE_REFERENCES=1 xvfb-run -a -s "-screen 0 1920x1080x24" ./test_play_pictures
// in the build's tests/ folder, then look at every picture before committing.
//
// The scripts were laid out by following the seeded games round by round:
// The maps are kept with the tests (see pinMap).
// - stage, map 20 "Singularity", seed 2: no cannons and the share on "Temporary" so that the
//   first temporary upgrade (a blast) comes early; three cannons from round
//   600; the blast used at round 820; the combo reaches 10 at round 913 and
//   lightning strikes at 914. Late picture at 916.
// - survival, the same map, seed 1: three cannons, early picture at 300; the row
//   taken down at 320; the first breach at 805 (static at 809), the fatal one
//   at 882; the closing fade at 1032 (150 rounds in); the window closed at
//   1033, and the closing dissolve at its 36th frame.
// - two players, map 12 "Crowded Sky", seed 3, a 16:9 window: the left side with three
//   cannons; both halves at round 400.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <vector>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "reference_picture.h"
#include "sim/player.h"
#include "sound/sound.h"
#include "support/play_session.h"

namespace {

// Takes the pictures of the chosen rounds and, on every frame, the GL error
// flag and (every 10th frame) the stencil of the field corner, which every
// frame must leave at zero.
class FrameRecorder {
public:
    explicit FrameRecorder(std::set<unsigned> rounds) : wanted(std::move(rounds))
    {
        testBackend::watchFrames([this](unsigned round) { look(round); });
    }
    ~FrameRecorder() { testBackend::watchFrames(nullptr); }
    FrameRecorder(const FrameRecorder&) = delete;
    FrameRecorder& operator=(const FrameRecorder&) = delete;

    bool has(unsigned round) const { return pictures.count(round) != 0; }
    const WindowPicture& at(unsigned round) const { return pictures.at(round); }

    unsigned framesWatched = 0;
    unsigned framesWithGlErrors = 0;
    unsigned dirtyStencils = 0;

private:
    void look(unsigned round)
    {
        framesWatched += 1;
        bool error = false;
        while (glGetError() != GL_NO_ERROR) error = true;
        framesWithGlErrors += error;
        if (round % 10 == 0) dirtyStencils += !stencilClean();
        if (wanted.count(round)) pictures[round] = WindowPicture::readBack();
    }
    static bool stencilClean()
    {
        std::vector<uint8_t> stencil(384 * 512, 0xAA);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, 384, 512, GL_STENCIL_INDEX, GL_UNSIGNED_BYTE, stencil.data());
        return std::all_of(stencil.begin(), stencil.end(), [](uint8_t v) { return v == 0; });
    }

    std::set<unsigned> wanted;
    std::map<unsigned, WindowPicture> pictures;
};

// The scripts follow the maps as they were when the pictures were made (kept
// in tests/data_files/play_maps/), not the shipped maps, which balancing
// changes: the scratch folder's content/maps holds that map alone, under the
// number the game asks for (title and par score are read by number).
std::string pinMap(const char* file, int number)
{
    namespace fs = std::filesystem;
    fs::remove("content/maps");  // the link to the built maps
    fs::create_directories("content/maps");
    const std::string path = "content/maps/map" + std::to_string(number) + ".txt";
    fs::copy_file(fs::path(GORVAN_SOURCE_DIR) / "tests/data_files/play_maps" / file, path);
    return path;
}

void press(unsigned round, int key)
{
    testBackend::keyAt(round, key, true);
    testBackend::keyAt(round + 2, key, false);
}

// The field of a side in window pixels, from the top left: screen units
// 18, 18, 384 x 512 in the side's 800 x 600 view.
PixelRect fieldArea(const PlayerView& view, int windowHeight)
{
    const int top = windowHeight - view.y - view.height;
    return PixelRect{view.x + 18 * view.width / 800, top + 18 * view.height / 600,
                     384 * view.width / 800, 512 * view.height / 600};
}

PixelRect inner(const PixelRect& area, int margin)
{
    return PixelRect{area.x + margin, area.y + margin, area.width - 2 * margin,
                     area.height - 2 * margin};
}

// A screen-unit rectangle of a side's view in window pixels.
PixelRect viewArea(const PlayerView& view, int windowHeight, int x, int y, int w, int h)
{
    const int top = windowHeight - view.y - view.height;
    return PixelRect{view.x + x * view.width / 800, top + y * view.height / 600,
                     w * view.width / 800, h * view.height / 600};
}

void expectCleanRun(const FrameRecorder& recorder, unsigned rounds)
{
    EXPECT_EQ(recorder.framesWatched, rounds);
    EXPECT_EQ(recorder.framesWithGlErrors, 0u);
    EXPECT_EQ(recorder.dirtyStencils, 0u);
}

const unsigned closingFrames = 71;

}  // namespace

TEST(PlayPictures, StageLateWithLightningAndABlast)
{
    PlaySession session;
    session.open(2);
    press(1, '0');
    testBackend::keyAt(1, 'A', true);  // the share all the way to "Temporary"
    testBackend::keyAt(90, 'A', false);
    press(600, '3');
    press(820, 'S');
    testBackend::closeAt(917);
    const unsigned late = 916;
    FrameRecorder recorder({late});
    const std::string map = pinMap("hard.txt", 20);
    Game game(session.music(), 1, false, map.c_str(), 20);
    ASSERT_EQ(game.framesPlayed, 917u);
    expectCleanRun(recorder, 917 + closingFrames);
    ASSERT_TRUE(recorder.has(late));
    const WindowPicture& picture = recorder.at(late);
    EXPECT_TRUE(matchesReference(picture, "stage_late_lightning_blast"));

    // The blast's red bolts and warm glow over the whole field. The plain lit
    // ground of this map measures about 99, 62, 18 (see survival_early).
    const PlayerView view = playerView(picture.width, picture.height, true, 0);
    const AreaMeans field = measure(picture, inner(fieldArea(view, picture.height), 8));
    EXPECT_GT(field.red, 160.0);
    EXPECT_GT(field.red, 2 * field.green);
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
    FrameRecorder recorder({early, breach, fade, dissolve});
    const std::string map = pinMap("hard.txt", 20);
    Game game(session.music(), 1, true, map.c_str(), 20);
    ASSERT_EQ(game.framesPlayed, closed);
    EXPECT_EQ(game.finalEndMessage, 4);  // the first survival score of the map is a hi-score
    expectCleanRun(recorder, closed + closingFrames);
    for (unsigned round : {early, breach, fade, dissolve}) ASSERT_TRUE(recorder.has(round));

    EXPECT_TRUE(matchesReference(recorder.at(early), "survival_early"));
    EXPECT_TRUE(matchesReference(recorder.at(breach), "survival_breach_static"));
    EXPECT_TRUE(matchesReference(recorder.at(fade), "survival_closing_fade"));
    EXPECT_TRUE(matchesReference(recorder.at(dissolve), "survival_closing_dissolve"));

    const WindowPicture& first = recorder.at(early);
    const PlayerView view = playerView(first.width, first.height, true, 0);
    const PixelRect field = inner(fieldArea(view, first.height), 8);
    const AreaMeans lit = measure(first, field);
    const AreaMeans noisy = measure(recorder.at(breach), field);
    // A lit ground, neither black nor washed out.
    EXPECT_GT(lit.brightness(), 40.0);
    EXPECT_LT(lit.brightness(), 200.0);
    // The static: the field's grain jumps far above the ground's own.
    EXPECT_GT(noisy.grain, 3 * lit.grain);
    // The combo bar's white part, and the balance bar under its glass: three
    // cannons standing make resources at a rate of 1, a red part of 288 of 384.
    const AreaMeans comboBar = measure(first, viewArea(view, first.height, 460, 85, 40, 6));
    EXPECT_GT(comboBar.brightness(), 200.0);
    const AreaMeans resources = measure(first, viewArea(view, first.height, 330, 566, 50, 3));
    EXPECT_GT(resources.green, 2 * resources.red);
    const AreaMeans firepower = measure(first, viewArea(view, first.height, 40, 566, 200, 3));
    EXPECT_GT(firepower.red, 2 * firepower.green);

    // The closing fade darkens the whole window; the dissolve goes further.
    const PixelRect whole{0, 0, first.width, first.height};
    const double playing = measure(first, whole).brightness();
    EXPECT_LT(measure(recorder.at(fade), whole).brightness(), 0.6 * playing);
}

TEST(PlayPictures, TwoPlayersSideBySide)
{
    PlaySession session;
    session.open(3, 1280, 720);
    press(2, '3');
    const unsigned both = 400;
    testBackend::closeAt(both + 1);
    FrameRecorder recorder({both});
    const std::string map = pinMap("crowded.txt", 12);
    Game game(session.music(), 2, true, map.c_str(), 12);
    ASSERT_EQ(game.framesPlayed, both + 1);
    expectCleanRun(recorder, both + 1 + closingFrames);
    ASSERT_TRUE(recorder.has(both));
    const WindowPicture& picture = recorder.at(both);
    ASSERT_EQ(picture.width, 1280);
    EXPECT_TRUE(matchesReference(picture, "versus_both_sides"));

    // Each half of the 16:9 window holds a lit field of its own.
    for (uint8_t side : {1, 2}) {
        const PlayerView view = playerView(1280, 720, false, side);
        const AreaMeans field = measure(picture, inner(fieldArea(view, 720), 6));
        EXPECT_GT(field.brightness(), 30.0);
        EXPECT_GT(field.grain, 1.0);  // ground, not a flat fill
    }
}
