#pragma once

#include <X11/Xlib.h>

namespace quorlin::x11 {

// Finds the application window under a point of the root window. A window manager's
// frame, and anything else wrapped around a client's own window, stands for the
// client it decorates; inside the client the innermost window is the answer.
class X11WindowAtPoint {
public:
    explicit X11WindowAtPoint(Display* display);

    // The window, or None where no window is.
    Window find(Window root, int x, int y);

private:
    bool isClient(Window w);
    Window clientInside(Window frame);
    bool stillInside(Window client, Window frame);

    Display* d_;
    Atom wmState_;
    // The frame searched last and the client found in it: repeated clicks on a title
    // bar need not search the frame's many decoration windows again.
    Window lastFrame_ = None;
    Window lastClient_ = None;
};

}  // namespace quorlin::x11
