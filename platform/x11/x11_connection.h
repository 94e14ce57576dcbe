#pragma once

#include <X11/Xlib.h>

#include <memory>

#include "x11/x11_screen_layout.h"

namespace quorlin::x11 {

// The program's own Xlib connection for the desktop operations, apart from the
// toolkit's. X errors on it (a target window that vanished, say) are counted and
// otherwise ignored: they never end the program.
class X11Connection {
public:
    // Opens the display named by $DISPLAY (or displayName); throws std::runtime_error when it cannot.
    explicit X11Connection(const char* displayName = nullptr);

    Display* display() const { return display_.get(); }
    Window root() const { return DefaultRootWindow(display_.get()); }
    // Where screen coordinates lie on the root window, and how large it is now.
    const ScreenLayout& screenLayout() { return layout_.current(); }

    // X errors seen on any connection of the process since it started.
    static unsigned long errorCount();

private:
    struct Closer {
        void operator()(Display* d) const { XCloseDisplay(d); }
    };
    std::unique_ptr<Display, Closer> display_;
    X11ScreenLayout layout_;
};

}  // namespace quorlin::x11
