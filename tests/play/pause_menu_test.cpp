// The pause menu on its own, one script a row: the answer, the rounds its loop
// ran (a resume plays the opening back, at most 40 rounds) and the button
// selected at the end. In a 200 x 120 window the buttons stand at x 100,
// y 45 + 10 * index pixels.
#include <gtest/gtest.h>

#include <functional>

#include "play/pause_menu.h"
#include "support/input_script.h"
#include "support/play_session.h"

TEST(PauseMenu, AnswersByScript)
{
    struct Case {
        const char* what;
        std::function<void(InputScript&)> script;  // from the menu's third round
        uint8_t result;
        unsigned rounds;
        uint8_t selection;
    };
    const Case cases[] = {
        {"Escape held from the pause does nothing until let go and pressed again",
         [](InputScript& s) {
             testBackend::setKey(GLFW_KEY_ESC, true);
             testBackend::keyAt(s.next + 48, GLFW_KEY_ESC, false);
             s.wait(58).press(GLFW_KEY_ESC);
         },
         1, 61 + 40, 0},
        {"a quick resume plays back what it played", [](InputScript& s) { s.wait(3).press('P'); },
         1, 6 + 6, 0},
        {"Enter on Restart level ends in its round",
         [](InputScript& s) { s.wait(1).press(GLFW_KEY_DOWN).wait(1).press(GLFW_KEY_ENTER); }, 2, 9, 1},
        {"up wraps to the last; down with up in one round nets nothing", [](InputScript& s) {
             s.press(GLFW_KEY_UP);
             InputScript(s.next).press(GLFW_KEY_DOWN);
             s.press(GLFW_KEY_UP).press(GLFW_KEY_ENTER);
         }, 4, 11, 3},
        {"a click confirms the selection, not the button under the mouse", [](InputScript& s) {
             s.wait(1).moveMouse(100, 55).wait(2).press(GLFW_KEY_DOWN).click();  // on "Restart level"
         }, 3, 11, 2},
        {"a click beside the buttons is no answer", [](InputScript& s) {
             s.press(GLFW_KEY_DOWN).moveMouse(5, 5).click().press(GLFW_KEY_ENTER);
         }, 2, 14, 1},
        {"the right button resumes; arrows while it plays back do nothing", [](InputScript& s) {
             s.wait(8).click(GLFW_MOUSE_BUTTON_RIGHT).press(GLFW_KEY_DOWN);
         }, 1, 11 + 11, 0},
        {"closed while a resume plays back", [](InputScript& s) {
             s.wait(28).press('P');
             testBackend::closeAt(s.next + 6);
         }, 1, 40, 0},
        {"a window already closed: no answer", [](InputScript&) {}, 0, 1, 0},
    };
    PlaySession session;
    session.open(1, 200, 120);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        InputScript script;
        c.script(script);
        PauseMenu menu;
        EXPECT_EQ(menu.result, c.result);
        EXPECT_EQ(menu.roundsRun, c.rounds);
        EXPECT_EQ(menu.finalSelection, c.selection);
    }
}
