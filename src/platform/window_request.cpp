#include "platform/window_request.h"

glfw3Bridge::WindowRequest windowRequestFor27(int width, int height, int redBits, int greenBits,
                                              int blueBits, int alphaBits, int depthBits,
                                              int stencilBits, int samples, int noResize)
{
    if (width <= 0 && height <= 0) {
        width = 640;
        height = 480;
    } else if (width <= 0) {
        width = height * 4 / 3;
    } else if (height <= 0) {
        height = width * 3 / 4;
    }
    glfw3Bridge::WindowRequest request;
    request.width = width;
    request.height = height;
    request.redBits = redBits;
    request.greenBits = greenBits;
    request.blueBits = blueBits;
    request.alphaBits = alphaBits;
    request.depthBits = depthBits;
    request.stencilBits = stencilBits;
    request.samples = samples;
    request.resizable = noResize == 0;
    return request;
}
