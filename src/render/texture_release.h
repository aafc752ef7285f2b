// Freeing the textures that an owner loaded: the simulation's destructors use
// this, so that they need no GL of their own.
#pragma once

#include <cstdint>

// glDeleteTextures on the names that aren't 0.
void deleteTextures(int count, const uint32_t* textures);
