#pragma once

#include <X11/Xlib.h>

namespace quorlin::x11 {

// The event that tells a top level the keyboard focus came (FocusIn) or went (FocusOut),
// as on a real focus change from another top level; sent, it leaves the real focus be.
XEvent focusChange(Display* display, Window topLevel, int type);

}  // namespace quorlin::x11
