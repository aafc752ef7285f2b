// Asks each window titled exactly TITLE to close, as a window manager's close
// button does (WM_DELETE_WINDOW), looking for up to SECONDS (default: once).
//   x11_close_window TITLE [SECONDS]
// Exit status: 0 sent, 1 no such window, 2 bad arguments or no X display.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

void findWindows(Display* display, Window parent, const std::string& title, std::vector<Window>& found)
{
    Window root = 0, grandparent = 0, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display, parent, &root, &grandparent, &children, &count)) return;
    for (unsigned i = 0; i < count; ++i) {
        XTextProperty name{};
        if (XGetWMName(display, children[i], &name) && name.value) {
            if (std::string(reinterpret_cast<char*>(name.value), name.nitems) == title)
                found.push_back(children[i]);
            XFree(name.value);
        }
        findWindows(display, children[i], title, found);
    }
    if (children) XFree(children);
}

}  // namespace

int main(int argc, char** argv)
{
    Display* display = argc == 2 || argc == 3 ? XOpenDisplay(nullptr) : nullptr;
    if (!display) {
        std::fprintf(stderr, "usage: %s TITLE [SECONDS], with an X display\n", argv[0]);
        return 2;
    }
    const auto deadline = std::chrono::steady_clock::now() +
                          std::chrono::duration<double>(argc == 3 ? std::atof(argv[2]) : 0.0);
    std::vector<Window> found;
    for (;;) {
        findWindows(display, DefaultRootWindow(display), argv[1], found);
        if (!found.empty() || std::chrono::steady_clock::now() >= deadline) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    for (Window window : found) {
        XEvent event = {};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
        event.xclient.data.l[1] = CurrentTime;
        XSendEvent(display, window, False, NoEventMask, &event);
    }
    XCloseDisplay(display);  // sends what is queued
    if (found.empty()) std::fprintf(stderr, "x11_close_window: no window titled \"%s\"\n", argv[1]);
    return found.empty() ? 1 : 0;
}
