// The pause menu on the test backend: navigation, confirmation and its
// opening played backward on a resume.
#include <gtest/gtest.h>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/pause_menu.h"
#include "support/play_session.h"

namespace {

class Pause : public ::testing::Test {
protected:
    void SetUp() override
    {
        session.open();
        start = testBackend::round();
    }
    // Rounds of the pause loop are pumps, counted from its opening.
    unsigned at(unsigned round) const { return start + round; }

    PlaySession session;
    unsigned start = 0;
};

}  // namespace

TEST_F(Pause, TheKeyThatPausedMustBeReleasedAndTheResumePlaysTheOpeningBack)
{
    testBackend::setKey(GLFW_KEY_ESC, true);  // held from the pause
    testBackend::keyAt(at(50), GLFW_KEY_ESC, false);
    testBackend::keyAt(at(60), GLFW_KEY_ESC, true);
    PauseMenu menu;
    EXPECT_EQ(menu.result, 1);
    // Opened for 60 rounds, then at most 40 back down to 0.
    EXPECT_EQ(menu.roundsRun, 61u + 40u);
}

TEST_F(Pause, AQuickResumePlaysBackOnlyWhatItPlayedForward)
{
    testBackend::keyAt(at(5), 'P', true);
    PauseMenu menu;
    EXPECT_EQ(menu.result, 1);
    EXPECT_EQ(menu.roundsRun, 6u + 6u);
}

TEST_F(Pause, EnterOnRestartEndsAtOnceWithTwo)
{
    testBackend::keyAt(at(3), GLFW_KEY_DOWN, true);
    testBackend::keyAt(at(5), GLFW_KEY_DOWN, false);
    testBackend::keyAt(at(8), GLFW_KEY_ENTER, true);
    PauseMenu menu;
    EXPECT_EQ(menu.result, 2);
    EXPECT_EQ(menu.roundsRun, 9u);  // no closing animation
}

TEST_F(Pause, SelectionWrapsAndDownWithUpNetsNothing)
{
    testBackend::keyAt(at(2), GLFW_KEY_UP, true);  // from the first to the last
    testBackend::keyAt(at(3), GLFW_KEY_UP, false);
    testBackend::keyAt(at(4), GLFW_KEY_DOWN, true);
    testBackend::keyAt(at(4), GLFW_KEY_UP, true);  // both in one round
    testBackend::keyAt(at(6), GLFW_KEY_DOWN, false);
    testBackend::keyAt(at(6), GLFW_KEY_UP, false);
    testBackend::keyAt(at(8), GLFW_KEY_ENTER, true);
    PauseMenu menu;
    EXPECT_EQ(menu.finalSelection, 3);
    EXPECT_EQ(menu.result, 4);  // "Exit to menu"
}

TEST_F(Pause, ClosingTheWindowLeavesZeroOrAGivenResume)
{
    testBackend::closeAt(at(10));
    PauseMenu menu;
    EXPECT_EQ(menu.result, 0);
    EXPECT_EQ(menu.roundsRun, 10u);  // the close is seen after the round's pump
}

TEST_F(Pause, AResumeUnderWayStaysAResumeWhenTheWindowCloses)
{
    testBackend::keyAt(at(30), 'P', true);
    testBackend::closeAt(at(40));  // in the middle of the backward opening
    PauseMenu menu;
    EXPECT_EQ(menu.result, 1);
    EXPECT_EQ(menu.roundsRun, 40u);
}

TEST(MenuWidgets, HitAreasAndTheMarker)
{
    PlaySession session;
    session.open();
    ButtonList list(1000);
    list.addButton("Resume game", 500, 225, 30, 1, false);
    list.addButton("Overlapping", 500, 230, 30, 1, false);
    list.addButton("Row", 500, 400, 20, 0, true);
    // Window 1000 x 600: a unit is a pixel. Half width is 0.2 window heights.
    testBackend::setMousePos(500 + 119, 225);
    EXPECT_EQ(list.hoveredItem(), 0);  // the first in list order wins
    EXPECT_EQ(list.hoveredItem(), 255);  // a still mouse reports nothing
    testBackend::setMousePos(500 + 120, 225);
    EXPECT_EQ(list.hoveredItem(), 255);  // an edge is outside
    testBackend::setMousePos(5, 405);
    EXPECT_EQ(list.hoveredItem(), 2);  // a full row takes the whole width
    EXPECT_EQ(list.clickedItem(), 255);  // the button is up
    testBackend::setMouseButton(GLFW_MOUSE_BUTTON_LEFT, true);
    EXPECT_EQ(list.clickedItem(), 2);
    float x, y;
    list.itemPosition(3, &x, &y);
    EXPECT_EQ(x, -200);

    SelectionMarker marker(0, 0);
    marker.size = 1.5f;
    marker.moveTo(15, 0);
    EXPECT_FLOAT_EQ(marker.x, 10);
    EXPECT_FLOAT_EQ(marker.size, 1.6f);
    marker.moveTo(15, 0);
    EXPECT_FLOAT_EQ(marker.x, 15);  // the snap frame adds nothing
    EXPECT_FLOAT_EQ(marker.size, 1.5f);

    RowHighlight highlight{100, 1000, 0, 14, 2};
    EXPECT_FALSE(highlight.update(2));
    EXPECT_FALSE(highlight.update(2));
    EXPECT_EQ(highlight.frames, 15);
    highlight.update(1);
    EXPECT_EQ(highlight.row, -1);
    highlight.update(2);  // a lost frame stays on its way out
    EXPECT_EQ(highlight.frames, 13);
}
