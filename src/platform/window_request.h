// The GLFW 3 request that a 2.7 glfwOpenWindow call stands for, shared by the
// desktop and the test backend.
#pragma once

#include "platform/glfw3_bridge.h"

// Bits as given; a missing size takes 2.7's defaults (640 x 480, or the other
// side at 4:3). The caller adds visibility, fullscreen and refresh rate.
glfw3Bridge::WindowRequest windowRequestFor27(int width, int height, int redBits, int greenBits,
                                              int blueBits, int alphaBits, int depthBits,
                                              int stencilBits, int samples, int noResize);
