// The shadow-and-light pattern of the field's light stage. Each light first
// marks the shadows of every enemy in the stencil (1), then draws one quad
// over the whole field where the stencil holds 0. Since the stencil
// operations stay REPLACE with reference 0, that quad also writes 0 into the
// shadowed pixels: the stencil cleans itself for the next light.
#pragma once

class Level;

// Stencil marks for the point shadows of light (x, y) with the given radius;
// leaves the test set for the light's quad (pixels holding 0).
void castShadows(const Level& level, float x, float y, float radius);
// Writes the enemies' shadows into the stencil; for tests of the light stage.
void beginShadowMarks();
void endShadowMarks();
// The light's quad over the field; the ground stays bound on unit 0.
void lightQuad();
