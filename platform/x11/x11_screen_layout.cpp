#include "x11/x11_screen_layout.h"

#include <X11/extensions/Xrandr.h>

#include <stdexcept>

namespace quorlin::x11 {

X11ScreenLayout::X11ScreenLayout(const char* displayName) : watch_(XOpenDisplay(displayName)) {
    if (!watch_) throw std::runtime_error("cannot open the X display");
    const Window root = DefaultRootWindow(watch_);
    int eventBase = 0;
    int errorBase = 0;
    int major = 0;
    int minor = 0;
    if (XRRQueryExtension(watch_, &eventBase, &errorBase) && XRRQueryVersion(watch_, &major, &minor)) {
        hasMonitors_ = major > 1 || (major == 1 && minor >= 5);
        XRRSelectInput(watch_, root, RRScreenChangeNotifyMask | RRCrtcChangeNotifyMask | RROutputChangeNotifyMask);
    }
    // Monitors set up by hand announce themselves only as a reconfigured root window.
    XSelectInput(watch_, root, StructureNotifyMask);
    query();
}

X11ScreenLayout::~X11ScreenLayout() { XCloseDisplay(watch_); }

const ScreenLayout& X11ScreenLayout::current() {
    if (changed()) query();
    return layout_;
}

// Only the notifications asked for arrive here; each one means the layout may differ.
bool X11ScreenLayout::changed() {
    bool any = false;
    while (XPending(watch_) > 0) {
        XEvent event;
        XNextEvent(watch_, &event);
        any = true;
    }
    return any;
}

// Without a primary monitor (or without RandR) the root window's origin stands in.
void X11ScreenLayout::query() {
    const Window root = DefaultRootWindow(watch_);
    Window ignored = None;
    int x = 0;
    int y = 0;
    unsigned int width = 0;
    unsigned int height = 0;
    unsigned int border = 0;
    unsigned int depth = 0;
    if (XGetGeometry(watch_, root, &ignored, &x, &y, &width, &height, &border, &depth)) {
        layout_.width = static_cast<int>(width);
        layout_.height = static_cast<int>(height);
    }
    layout_.originX = 0;
    layout_.originY = 0;
    if (!hasMonitors_) return;
    int count = 0;
    XRRMonitorInfo* monitors = XRRGetMonitors(watch_, root, True, &count);
    for (int i = 0; i < count; ++i) {
        if (!monitors[i].primary) continue;
        layout_.originX = monitors[i].x;
        layout_.originY = monitors[i].y;
        break;
    }
    if (monitors) XRRFreeMonitors(monitors);
}

}  // namespace quorlin::x11
