// The play field and HUD pictures of a Player, its cannons and its signs come
// with the play-picture work. Until then these operations draw nothing and
// leave the GL state as they found it; the rules of play run in full.
#include "sim/cannon.h"
#include "sim/cannon_bank.h"
#include "sim/player.h"

