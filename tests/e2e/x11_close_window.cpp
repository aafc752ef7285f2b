// Asks a window to close the way a window manager's close button does: a
// WM_DELETE_WINDOW message to the window whose title is exactly the given one.
//
//   x11_close_window TITLE [SECONDS]
//
// Looks for the window for up to SECONDS (default 0: one look). Exit status:
// 0 when the message was sent, 1 when no such window was found, 2 on bad
// arguments or without an X display.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

std::string windowTitle(Display* display, Window window)
{
    // The UTF-8 title first (_NET_WM_NAME), then the classic WM_NAME.
    Atom netName = XInternAtom(display, "_NET_WM_NAME", False);
    Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0, remaining = 0;
    unsigned char* data = nullptr;
    std::string title;
    if (XGetWindowProperty(display, window, netName, 0, 1024, False, utf8, &type, &format, &count,
                           &remaining, &data) == Success && data && type == utf8 && format == 8) {
        title.assign(reinterpret_cast<char*>(data), count);
    }
    if (data) {
        XFree(data);
    }
    if (!title.empty()) {
        return title;
    }
    char* name = nullptr;
    if (XFetchName(display, window, &name) && name) {
        title = name;
        XFree(name);
    }
    return title;
}

void findWindows(Display* display, Window parent, const std::string& title, std::vector<Window>& found)
{
    Window root = 0, parentOfParent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display, parent, &root, &parentOfParent, &children, &count)) {
        return;
    }
    for (unsigned i = 0; i < count; i++) {
        if (windowTitle(display, children[i]) == title) {
            found.push_back(children[i]);
        }
        findWindows(display, children[i], title, found);
    }
    if (children) {
        XFree(children);
    }
}

void sendDelete(Display* display, Window window)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: %s TITLE [SECONDS]\n", argv[0]);
        return 2;
    }
    const std::string title = argv[1];
    const double seconds = argc == 3 ? std::atof(argv[2]) : 0.0;
    Display* display = XOpenDisplay(nullptr);
    if (!display) {
        std::fprintf(stderr, "x11_close_window: no X display\n");
        return 2;
    }
    auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    std::vector<Window> found;
    for (;;) {
        findWindows(display, DefaultRootWindow(display), title, found);
        if (!found.empty() || std::chrono::steady_clock::now() >= deadline) {
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    for (Window window : found) {
        sendDelete(display, window);
    }
    XSync(display, False);
    XCloseDisplay(display);
    if (found.empty()) {
        std::fprintf(stderr, "x11_close_window: no window titled \"%s\"\n", title.c_str());
        return 1;
    }
    return 0;
}
