#include "platform/input_tape.h"

#include <utility>

namespace inputTape {

namespace {
Listener listener;
Source source;
RoundInput round;
bool mouseRead = false;
}  // namespace

void listen(Listener newListener)
{
    listener = std::move(newListener);
    mouseRead = false;
}

void play(Source newSource, const RoundInput& first)
{
    source = std::move(newSource);
    round = first;
}

bool playing() { return static_cast<bool>(source); }
const RoundInput& replayed() { return round; }

void pumped(RoundInput (*readLiveInput)())
{
    if (source || listener) {
        const RoundInput live = readLiveInput();
        if (source) round = source(live);
        if (listener) listener(live, mouseRead);
    }
    mouseRead = false;
}

void mousePositionRead() { mouseRead = true; }

int keyState(const RoundInput& input, int key)
{
    return key >= 0 && key <= GLFW_KEY_LAST && input.keys[key] ? GLFW_PRESS : GLFW_RELEASE;
}

int mouseButtonState(const RoundInput& input, int button)
{
    const bool down = button >= 0 && button <= GLFW_MOUSE_BUTTON_LAST && input.mouseButtons[button];
    return down ? GLFW_PRESS : GLFW_RELEASE;
}

int padButtonState(const RoundInput& input, int seat, int button)
{
    if (button < 0 || button > GLFW_PAD_BUTTON_LAST) return GLFW_RELEASE;
    for (int s = 0; s < GLFW_PAD_SEATS; ++s) {
        if ((seat == GLFW_ANY_PAD || seat == s) && (input.padButtons[s] >> button & 1u)) return GLFW_PRESS;
    }
    return GLFW_RELEASE;
}

}  // namespace inputTape
