#include "x11/x11_window_chain.h"

namespace quorlin::x11 {

namespace {

struct Placed {
    WindowChain::Link link;
    int x = 0;  // inside origin relative to the parent's
    int y = 0;
};

bool parentOf(Display* d, Window w, Window& parent) {
    Window root = None;
    Window* children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(d, w, &root, &parent, &children, &count)) return false;
    if (children) XFree(children);
    return true;
}

bool isManagedClient(Display* d, Window w, Atom wmState) {
    int count = 0;
    Atom* props = XListProperties(d, w, &count);
    bool found = false;
    for (int i = 0; i < count; ++i) found = found || props[i] == wmState;
    if (props) XFree(props);
    return found;
}

}  // namespace

// Stops at the window the window manager manages (it carries WM_STATE), else at the
// child of the root: frames above a client belong to the manager, not to the target.
std::optional<WindowChain> WindowChain::read(Display* d, Window target) {
    const Window root = DefaultRootWindow(d);
    const Atom wmState = XInternAtom(d, "WM_STATE", False);
    std::vector<Placed> placed;
    for (Window w = target; w != root && w != None;) {
        XWindowAttributes a;
        Window parent = None;
        if (!XGetWindowAttributes(d, w, &a) || !parentOf(d, w, parent)) return std::nullopt;
        placed.push_back({{w, 0, 0, a.all_event_masks, a.do_not_propagate_mask}, a.x + a.border_width,
                          a.y + a.border_width});
        if (parent == root || isManagedClient(d, w, wmState)) break;
        w = parent;
    }
    if (placed.empty()) return std::nullopt;
    Window child = None;
    XTranslateCoordinates(d, placed.back().link.window, root, 0, 0, &placed.back().link.originX,
                          &placed.back().link.originY, &child);
    WindowChain chain;
    for (std::size_t i = placed.size() - 1; i-- > 0;) {
        placed[i].link.originX = placed[i + 1].link.originX + placed[i].x;
        placed[i].link.originY = placed[i + 1].link.originY + placed[i].y;
    }
    for (const Placed& p : placed) chain.links_.push_back(p.link);
    return chain;
}

std::optional<std::size_t> WindowChain::deliveryFor(long mask) const {
    for (std::size_t i = 0; i < links_.size(); ++i) {
        if (links_[i].selected & mask) return i;
        if (links_[i].doNotPropagate & mask) return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace quorlin::x11
