#include "platform/pad_seats.h"

#include "platform/glfw.h"

static_assert(GLFW_PAD_SEATS == PadSeats::count && GLFW_ANY_PAD == PadSeats::anySeat,
              "the window interface numbers the seats as PadSeats does");

void PadSeats::plugIn(int joystick)
{
    int freeSeat = -1;
    for (int seat = count - 1; seat >= 0; --seat) {
        if (joysticks[seat] == joystick) return;  // seated already
        if (joysticks[seat] < 0) freeSeat = seat;
    }
    if (freeSeat >= 0) joysticks[freeSeat] = joystick;
}

void PadSeats::unplug(int joystick)
{
    for (int& seated : joysticks) {
        if (seated == joystick) seated = -1;
    }
}
