#include "x11/x11_window_at_point.h"

#include <vector>

namespace quorlin::x11 {

namespace {

// Window managers put the client's own window at most this far inside their frame.
constexpr int kFrameDepth = 3;

// Window managers mark every client window they manage with WM_STATE.
bool isClient(Display* d, Window w, Atom wmState) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    unsigned char* data = nullptr;
    const bool ok =
        XGetWindowProperty(d, w, wmState, 0, 0, False, AnyPropertyType, &type, &format, &count, &after, &data) ==
        Success;
    if (data) XFree(data);
    return ok && type != None;
}

bool isOverrideRedirect(Display* d, Window w) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(d, w, &attributes) && attributes.override_redirect;
}

// From the root's child down to the innermost mapped window that holds the point.
std::vector<Window> windowsAt(Display* d, Window root, int x, int y) {
    std::vector<Window> chain;
    Window parent = root;
    for (;;) {
        int px = 0;
        int py = 0;
        Window child = None;
        if (!XTranslateCoordinates(d, root, parent, x, y, &px, &py, &child) || child == None) break;
        chain.push_back(child);
        parent = child;
    }
    return chain;
}

std::vector<Window> childrenOf(Display* d, const std::vector<Window>& parents) {
    std::vector<Window> all;
    for (Window parent : parents) {
        Window root = None;
        Window grandParent = None;
        Window* children = nullptr;
        unsigned int count = 0;
        if (!XQueryTree(d, parent, &root, &grandParent, &children, &count)) continue;
        all.insert(all.end(), children, children + count);
        if (children) XFree(children);
    }
    return all;
}

Window clientInside(Display* d, Window frame, Atom wmState) {
    std::vector<Window> level{frame};
    for (int depth = 0; depth < kFrameDepth && !level.empty(); ++depth) {
        level = childrenOf(d, level);
        for (Window w : level)
            if (isClient(d, w, wmState)) return w;
    }
    return None;
}

}  // namespace

Window applicationWindowAt(Display* display, Window root, int x, int y) {
    const std::vector<Window> chain = windowsAt(display, root, x, y);
    if (chain.empty()) return None;
    const Atom wmState = XInternAtom(display, "WM_STATE", False);
    for (Window w : chain)
        if (isClient(display, w, wmState)) return chain.back();
    // Popups place themselves and carry no frame; without a window manager nothing does.
    if (isOverrideRedirect(display, chain.front())) return chain.back();
    const Window client = clientInside(display, chain.front(), wmState);
    return client != None ? client : chain.back();
}

}  // namespace quorlin::x11
