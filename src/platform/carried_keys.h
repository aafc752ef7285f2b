// Keys held while the window is rebuilt. A new GLFW 3 window knows no key as
// down until an event for it arrives, and for a key held through the rebuild
// that event is the keyboard's repeat: read as it comes, the key would go up
// at the rebuild and come down again as a fresh press. So the keys down when a
// window closes are carried over: the next window reads them as held until it
// sees them itself, or until the keyboard's repeat would have come (then the
// key was let go while no window was there to hear it).
#pragma once

#include <vector>

class CarriedKeys {
public:
    // Longer than the usual repeat delays of keyboards (a quarter to two
    // thirds of a second).
    static constexpr double repeatWait = 1.0;

    // The window closes with these keys (2.7 codes) down.
    void carry(std::vector<int> keysDown) { keys = std::move(keysDown); }
    // The next window opens at this time (seconds).
    void windowOpened(double now) { openedAt = now; }
    // Whether a key reads as down, given what the window says of it.
    bool isDown(int key, bool windowSaysDown, double now);

private:
    std::vector<int> keys;
    double openedAt = 0;
};
