// Bringing the program's resources up and down, in a fixed order.
#pragma once

// Throws "Couldn't initialize GLFW!" or "Couldn't create window!". Without
// the boot screen (a replay starts straight away) the same work is done
// silently.
void startUp(bool bootScreen = true);
// After a change of resolution or window type: a new window and everything
// that hangs on the GL context, without the boot screen.
void reopenDisplay();
void shutDown();
