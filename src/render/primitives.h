// The drawing primitives: coordinate set-ups, rectangles and rotated quads in
// immediate mode, and the copies of the back buffer (one main screen texture
// plus numbered slots) that post-processing, transitions and menus draw from.
//
// Between any two drawing routines the GL state is: program `basic`, colour
// white, blending on with (SRC_ALPHA, ONE_MINUS_SRC_ALPHA), stencil test off,
// colour mask all on, texture unit 0 active, clear colour opaque black, matrix
// mode GL_MODELVIEW with the identity. A routine that departs from it puts it
// back. None of the rectangles below touches colour or program.
#pragma once

#include <cstdint>
#include <vector>

// The back buffer copy used by copyScreen; one per GL context.
extern uint32_t screenTexture;
// Captured pictures, by 8-bit slot number; grown on demand by captureScreenSlot.
extern std::vector<uint32_t> screenSlots;

// Projection glOrtho(0, width, height, 0, -1, 1): origin top left, y down.
// Leaves GL_MODELVIEW selected.
void setOrtho(int16_t width, int16_t height);
// The same with glOrtho(left, right, bottom, top, -1, 1).
void setOrthoRect(float left, float top, float right, float bottom);

// Each rectangle is one GL_TRIANGLE_STRIP: top right, top left, bottom right,
// bottom left. v = 1 lies on the top edge, so a texture's first row shows at
// the bottom and copies of the back buffer come out upright.
void drawTexturedRect(uint32_t texture, float x, float y, float width, float height);
// As drawTexturedRect but without binding: whatever is bound shows through.
void drawRect(float x, float y, float width, float height);
// (u1, v1) top right, (u0, v1) top left, (u1, v0) bottom right, (u0, v0) bottom left.
void drawTexturedRegion(uint32_t texture, float x, float y, float width, float height,
                        float u0, float u1, float v0, float v1);
// A quad turned by `angle` radians about its centre. `height` lies along the
// direction of the angle (the texture's u axis), `width` across it: at angle 0
// the quad is `height` wide on the screen and `width` tall.
void drawTexturedRotated(uint32_t texture, float centreX, float centreY, float width,
                         float height, float angle);
void drawRotated(float centreX, float centreY, float width, float height, float angle);

// Makes screenTexture (after each window opening).
void createScreenTexture();
// Deletes screenTexture and every slot; the slot list becomes empty.
void deleteScreenTextures();
// Copies the back buffer (screenTextureWidth x screenTextureHeight, RGB) into
// the slot, creating it and any lower missing slots first. Leaves the viewport
// at the texture's size.
void captureScreenSlot(uint8_t slot);
// Draws a captured slot over the whole window in unit space; a slot that
// does not exist draws nothing and changes nothing.
void drawScreenSlot(uint8_t slot);
// Reads the back buffer, clears it and draws it again through the current
// program: a post-process of the whole frame. Leaves unit space set.
void copyScreen();
