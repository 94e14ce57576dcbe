#pragma once

#include <X11/Xlib.h>

namespace quorlin::x11 {

// The program's own Xlib connection for the desktop operations, apart from the
// toolkit's. X errors on it (a target window that vanished, say) are counted and
// otherwise ignored: they never end the program.
class X11Connection {
public:
    // Opens the display named by $DISPLAY (or displayName); throws std::runtime_error when it cannot.
    explicit X11Connection(const char* displayName = nullptr);
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    Display* display() const { return display_; }
    Window root() const { return DefaultRootWindow(display_); }

    // X errors seen on any connection of the process since it started.
    static unsigned long errorCount();

private:
    Display* display_;
};

}  // namespace quorlin::x11
