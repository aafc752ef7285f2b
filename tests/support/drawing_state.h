// The GL state every drawing routine leaves for the next one: the basic
// program, alpha blending, no stencil test, texture unit 0, colour white.
#pragma once

void expectCommonDrawingState();
