// The spine of the program: start-up, then menu and game in turn, then
// shutdown, with the one exception handler around all of it. Returns 0.
#pragma once

int runGorvan();
