#pragma once

#include <X11/Xlib.h>

#include "x11/x11_window_chain.h"

namespace quorlin::x11 {

enum class Route { core, device, none };

// Sent core events are the way to a target whose path selects core events of the
// kind; real XInput 2 device events the way to one whose path selects none, as with
// XInput 2 toolkits.
Route pointerRouteFor(const WindowChain& chain, bool deviceReaches);
Route keyRouteFor(const WindowChain& chain, bool discardsSentKeys, bool deviceReady);

// xterm throws sent keys away unless its user allowed them, which is rare.
bool discardsSentKeys(Display* display, const WindowChain& chain);

}  // namespace quorlin::x11
