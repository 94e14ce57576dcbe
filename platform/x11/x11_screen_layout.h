#pragma once

#include <X11/Xlib.h>

#include <cstdint>

#include "ports/desktop.h"

namespace quorlin::x11 {

// A point on the root window, wide enough that no screen point overflows on the way.
struct RootPoint {
    std::int64_t x = 0;
    std::int64_t y = 0;
};

// Screen coordinates put (0, 0) at the primary monitor's top-left, as the readout
// shows them; X addresses the root window, whose origin may lie on another monitor.
struct ScreenLayout {
    int originX = 0;  // the primary monitor's top-left on the root window
    int originY = 0;
    int width = 0;  // the root window's current size
    int height = 0;

    RootPoint toRoot(ScreenPoint p) const { return {std::int64_t{p.x} + originX, std::int64_t{p.y} + originY}; }
    ScreenPoint toScreen(int rootX, int rootY) const { return {rootX - originX, rootY - originY}; }
    bool onScreen(RootPoint p) const { return p.x >= 0 && p.y >= 0 && p.x < width && p.y < height; }
};

// Follows the screen as RandR reshapes it: size changes, monitors added or moved,
// another primary chosen. It watches on a connection of its own, so no other user
// of the program's connection can take its notifications or be handed them.
class X11ScreenLayout {
public:
    explicit X11ScreenLayout(const char* displayName);
    ~X11ScreenLayout();
    X11ScreenLayout(const X11ScreenLayout&) = delete;
    X11ScreenLayout& operator=(const X11ScreenLayout&) = delete;

    // The layout as it is now; asks the server again only after it announced a change.
    const ScreenLayout& current();

private:
    bool changed();
    void query();

    Display* watch_;
    bool hasMonitors_ = false;
    ScreenLayout layout_;
};

}  // namespace quorlin::x11
