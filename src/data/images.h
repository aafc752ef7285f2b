// .spg pictures out of content/images.sfa, and the textures made from them.
#pragma once

#include <cstdint>

// RGBA pixels (free with delete[]), first stored row first; null on failure.
unsigned char* loadImage(const char* name, uint16_t* outWidth, uint16_t* outHeight);

// Generates a texture name, binds it, repeat wrapping and linear (or nearest)
// filtering. The texture stays bound and has no image yet.
void createLinearTexture(uint32_t* textureName);
void createNearestTexture(uint32_t* textureName);

// createLinearTexture, then the picture's pixels when it loads. Stays bound.
// Without a current GL context it does nothing and the name stays as it was.
void loadTexture(uint32_t* textureName, const char* name);
