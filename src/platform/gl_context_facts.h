// What the current GL context really is: its bits, samples and renderer.
// Plain GL 1.x queries, so they work before anyone has loaded GLEW.
#pragma once

struct ContextBits {
    int red = 0, green = 0, blue = 0, alpha = 0;
    int depth = 0, stencil = 0;
    int samples = 0;
};

// Read from the current context; all 0 without one.
ContextBits readContextBits();

// True when the renderer's name is one of Mesa's software rasterizers
// (llvmpipe, softpipe, swrast, "Software Rasterizer"), compared without case.
bool isSoftwareRenderer(const char* rendererName);

// The current context's renderer is not a software rasterizer. False without
// a context.
bool currentContextIsAccelerated();
