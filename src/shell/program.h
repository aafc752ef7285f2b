// The spine of the program: the command line, the player's folder, then
// start-up, menu and game in turn, and shutdown, with the one exception
// handler around all of it.
#pragma once

// Returns the process's exit code: 0 after a game (even one ended by an
// error, which is shown), 2 for a command line that can't be used, 1 when the
// player's folder can't be made.
int runGorvan(int argc, char** argv);
