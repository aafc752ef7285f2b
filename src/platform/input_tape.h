// Where a replay meets the window layer. A round is one pump of events; the
// input of a round is everything the game can read through glfw.h until the
// next pump. While a recording listens, each backend hands it the player's
// input after every pump; while a replay plays, the backends answer every
// question about input from the replayed round instead of the player.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/glfw.h"

struct RoundInput {
    bool keys[GLFW_KEY_LAST + 1] = {};
    bool mouseButtons[GLFW_MOUSE_BUTTON_LAST + 1] = {};
    int mouseX = 0, mouseY = 0;
    bool focused = true;
    bool closeRequested = false;  // the window's close button
    uint32_t padButtons[GLFW_PAD_SEATS] = {};  // bit b: GLFW_PAD button b held in that seat
};

namespace inputTape {

// Hears the player's input after every pump, with whether the game asked
// where the mouse was since the pump before.
using Listener = std::function<void(const RoundInput& live, bool mousePositionRead)>;
// Gives the round the game is to see after a pump, from the player's input
// at that pump (a replay still listens to the one who watches it).
using Source = std::function<RoundInput(const RoundInput& live)>;

// An empty function ends the recording or the replay.
void listen(Listener listener);
// The replayed round starts as `first`.
void play(Source source, const RoundInput& first);
bool playing();
const RoundInput& replayed();

// For the backends: the answers of glfw.h from a round.
int keyState(const RoundInput& input, int key);
int mouseButtonState(const RoundInput& input, int button);
int padButtonState(const RoundInput& input, int seat, int button);  // seat: GLFW_ANY_PAD too

// For the backends: after each pump of events, with their way to read the
// player's input (read only while a recording or a replay runs); on each
// glfwGetMousePos.
void pumped(RoundInput (*readLiveInput)());
void mousePositionRead();
// Each backend's own: what the player is doing now. (The backends are
// chosen at link time, below this layer's common part, which therefore
// never calls it but through pumped.)
RoundInput liveInput();

}  // namespace inputTape
