// The four controls of every menu, from the keyboard and from any game
// controller alike: next and previous (arrow keys, d-pad), choose (ENTER, A)
// and back (ESC, B).
#pragma once

struct MenuControls {
    bool next = false;
    bool previous = false;
    bool choose = false;
    bool back = false;
};

MenuControls readMenuControls();
