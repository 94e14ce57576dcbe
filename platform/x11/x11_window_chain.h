#pragma once

#include <X11/Xlib.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace quorlin::x11 {

// A window and its ancestors up to its application's top level, with what each one
// selects: the path a real pointer or key event travels.
class WindowChain {
public:
    struct Link {
        Window window = None;
        int originX = 0;  // inside origin, in root coordinates
        int originY = 0;
        long selected = 0;  // event masks of all clients together
        long doNotPropagate = 0;
    };

    // Nothing when the window or one of its ancestors has vanished.
    static std::optional<WindowChain> read(Display* display, Window target);

    const std::vector<Link>& links() const { return links_; }
    const Link& target() const { return links_.front(); }
    const Link& topLevel() const { return links_.back(); }

    // Where a real event of this mask would be reported: the first window from the
    // target up that some client selects it on, unless a window on the way stops it.
    std::optional<std::size_t> deliveryFor(long mask) const;

private:
    std::vector<Link> links_;
};

}  // namespace quorlin::x11
