// Asks a window to close the way a window manager's close button does: a
// WM_DELETE_WINDOW message to each window whose title is exactly the given one.
//
//   x11_close_window TITLE [SECONDS]
//
// Looks for the window for up to SECONDS (default 0: one look). Exit status:
// 0 when the message was sent, 1 when no such window was found, 2 on bad
// arguments or without an X display.
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
    findWindows(display, DefaultRootWindow(display), argv[1], found);
    while (found.empty() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        findWindows(display, DefaultRootWindow(display), argv[1], found);
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
    XSync(display, False);
    XCloseDisplay(display);
    if (found.empty()) std::fprintf(stderr, "x11_close_window: no window titled \"%s\"\n", argv[1]);
    return found.empty() ? 1 : 0;
}
