// Every frame of a game, the static of its closing included, leaves the
// common drawing state (basic selected): a pause in the static phase draws
// the first frame of its panel through basic, not through the static.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <vector>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/game.h"
#include "render/shaders.h"
#include "support/play_session.h"
#include "support/scratch_dir.h"

TEST(ClosingState, EveryFrameOfAGameEndsWithBasicSelected)
{
    PlaySession session;
    session.open();
    testBackend::setFrameCost(0.05);  // a slow machine: most frames go undrawn
    // Fast enemies and no cannons: the breaches come soon.
    writeFileBytes("content/fast.txt", "Fast\n200\n8\n0\n4\n0\n20\n0\n16\n25\n3500\n260\n9\n0\n"
                                       "5.5\n32\n290\n0\n0.7\n0.6\n0.7\n0.9\n0.6\n0.3\n0.3\n0.3\n0\n0\n");
    testBackend::keyAt(2, '0', true);
    testBackend::keyAt(4, '0', false);
    std::vector<GLuint> programAtSwap(1, 0);  // by round
    testBackend::watchFrames([&](unsigned round) {
        GLint program = 0;
        glGetIntegerv(GL_CURRENT_PROGRAM, &program);
        programAtSwap.resize(round + 1, 0);
        programAtSwap[round] = static_cast<GLuint>(program);
    });
    Game game(session.music(), 1, true, "content/fast.txt", 1);
    ASSERT_EQ(game.result, resultChangeLevel);  // played to the end of the fade
    ASSERT_GT(programAtSwap.size(), game.framesPlayed);
    for (unsigned round = 1; round <= game.framesPlayed; ++round) {
        if (programAtSwap[round] != 0) {
            ASSERT_EQ(programAtSwap[round], basicProgram) << round << " of " << game.framesPlayed;
        }
    }
}
