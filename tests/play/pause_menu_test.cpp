// The pause menu on its own, one script a row: the answer it gives, the rounds
// its loop ran (a resume plays the opening back, at most 40 rounds) and the
// button selected at the end.
#include <gtest/gtest.h>

#include <functional>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "play/pause_menu.h"
#include "support/play_session.h"

namespace {

void press(unsigned round, int key)
{
    testBackend::keyAt(round, key, true);
    testBackend::keyAt(round + 2, key, false);
}

// A 200 x 120 window: the buttons stand at x 100, y 45 + 10 * index pixels.
void pointAt(unsigned round, int index) { testBackend::mouseMoveAt(round, 100, 45 + 10 * index); }

void click(unsigned round, int button = GLFW_MOUSE_BUTTON_LEFT)
{
    testBackend::mouseButtonAt(round, button, true);
    testBackend::mouseButtonAt(round + 4, button, false);
}

}  // namespace

TEST(PauseMenu, AnswersByScript)
{
    struct Case {
        const char* what;
        // Given the round the menu opens after: what is scripted for that
        // round + N is seen in the menu's round N + 1.
        std::function<void(unsigned)> script;
        uint8_t result;
        unsigned rounds;
        uint8_t selection;
    };
    const Case cases[] = {
        {"Escape held from the pause, let go, pressed again",
         [](unsigned s) {
             testBackend::setKey(GLFW_KEY_ESC, true);
             testBackend::keyAt(s + 50, GLFW_KEY_ESC, false);
             press(s + 60, GLFW_KEY_ESC);
         },
         1, 61 + 40, 0},
        {"a quick resume plays back what it played", [](unsigned s) { press(s + 5, 'P'); },
         1, 6 + 6, 0},
        {"Enter on Resume game takes the same road", [](unsigned s) { press(s + 5, GLFW_KEY_ENTER); },
         1, 6 + 6, 0},
        {"Enter on Restart level ends in its round", [](unsigned s) {
             press(s + 3, GLFW_KEY_DOWN);
             press(s + 8, GLFW_KEY_ENTER);
         }, 2, 9, 1},
        {"up wraps to the last; down with up in one round nets nothing", [](unsigned s) {
             press(s + 2, GLFW_KEY_UP);
             press(s + 5, GLFW_KEY_DOWN);
             press(s + 5, GLFW_KEY_UP);
             press(s + 9, GLFW_KEY_ENTER);
         }, 4, 10, 3},
        {"a click confirms the selection, not the button under the mouse", [](unsigned s) {
             pointAt(s + 3, 1);  // "Restart level"
             press(s + 6, GLFW_KEY_DOWN);
             click(s + 10);  // still over "Restart level": "Change level" is chosen
         }, 3, 11, 2},
        {"a click beside the buttons is no answer", [](unsigned s) {
             press(s + 2, GLFW_KEY_DOWN);
             testBackend::mouseMoveAt(s + 4, 10, 10);
             click(s + 6);
             press(s + 9, GLFW_KEY_ENTER);
         }, 2, 10, 1},
        {"the right button resumes; arrows while it plays back do nothing", [](unsigned s) {
             click(s + 10, GLFW_MOUSE_BUTTON_RIGHT);
             press(s + 12, GLFW_KEY_DOWN);
         }, 1, 11 + 11, 0},
        {"closed while a resume plays back", [](unsigned s) {
             press(s + 30, 'P');
             testBackend::closeAt(s + 40);
         }, 1, 40, 0},
        {"a window already closed: no answer", [](unsigned) {}, 0, 1, 0},
    };
    PlaySession session;
    session.open(1, 200, 120);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        c.script(testBackend::round());
        PauseMenu menu;
        EXPECT_EQ(menu.result, c.result);
        EXPECT_EQ(menu.roundsRun, c.rounds);
        EXPECT_EQ(menu.finalSelection, c.selection);
    }
}
