#pragma once

#include <X11/Xlib.h>

namespace quorlin::x11 {

// The application window under a point of the root window, or None. A window
// manager's frame, and anything else wrapped around a client's own window, stands
// for the client it decorates; inside the client the innermost window is the answer.
Window applicationWindowAt(Display* display, Window root, int x, int y);

}  // namespace quorlin::x11
