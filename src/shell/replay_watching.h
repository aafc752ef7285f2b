// `gorvan --replay FILE`: a recorded game shown again in the real window,
// with its picture and sound, from a start without the boot screen to its
// end message.
#pragma once

#include <string>

#include "replay/replay_file.h"

// Plays the replay (read from `name`) in the player's folder and prints its
// final score and end code. Returns the exit code: 0 when the game ended as
// recorded or the watcher stopped it, 1 when it went otherwise, 2 when its
// map is missing or has changed.
int watchReplay(const std::string& name, const Replay& replay);
