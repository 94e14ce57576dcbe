#pragma once

#include <X11/Xlib.h>

namespace quorlin::x11 {

// Tells a top level, by a sent event, that the keyboard focus came (FocusIn) or went
// (FocusOut), as on a real focus change from another top level; the real focus stays.
void sendFocusChange(Display* display, Window topLevel, int type);

}  // namespace quorlin::x11
