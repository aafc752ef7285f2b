// Which game controller plays where. A controller plugged in takes the lowest
// free seat and keeps it until it is unplugged, so unplugging one never moves
// another: the second player's controller stays the second player's. Both
// backends seat their controllers here (by joystick number, 0 to 15).
// Neutral of both GLFW headers, so that the GLFW 3 bridge can use it too.
#pragma once

class PadSeats {
public:
    static constexpr int count = 4;
    static constexpr int anySeat = -1;

    void plugIn(int joystick);  // no seat when all are taken
    void unplug(int joystick);

    // Whether the controller in `seat`, or in any seat, holds `button`, as
    // holdsButton(joystick, button) says.
    template <class HoldsButton>
    bool holds(int seat, int button, HoldsButton holdsButton) const
    {
        for (int s = 0; s < count; ++s) {
            if ((seat == anySeat || seat == s) && joysticks[s] >= 0 && holdsButton(joysticks[s], button))
                return true;
        }
        return false;
    }

private:
    int joysticks[count] = {-1, -1, -1, -1};  // -1: an empty seat
};
