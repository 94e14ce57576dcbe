#include "x11/x11_window_at_point.h"

#include <vector>

namespace quorlin::x11 {

namespace {

// Window managers put the client's own window at most this far inside their frame.
constexpr int kFrameDepth = 3;

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

Window parentOf(Display* d, Window w) {
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(d, w, &root, &parent, &children, &count)) return None;
    if (children) XFree(children);
    return parent;
}

}  // namespace

X11WindowAtPoint::X11WindowAtPoint(Display* display)
    : d_(display), wmState_(XInternAtom(display, "WM_STATE", False)) {}

Window X11WindowAtPoint::find(Window root, int x, int y) {
    const std::vector<Window> chain = windowsAt(d_, root, x, y);
    if (chain.empty()) return None;
    for (Window w : chain)
        if (isClient(w)) return chain.back();
    // Popups place themselves and carry no frame; without a window manager nothing does.
    if (isOverrideRedirect(d_, chain.front())) return chain.back();
    const Window client = clientInside(chain.front());
    return client != None ? client : chain.back();
}

// Window managers mark every client window they manage with WM_STATE.
bool X11WindowAtPoint::isClient(Window w) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    unsigned char* data = nullptr;
    const bool ok = XGetWindowProperty(d_, w, wmState_, 0, 0, False, AnyPropertyType, &type, &format, &count, &after,
                                       &data) == Success;
    if (data) XFree(data);
    return ok && type != None;
}

Window X11WindowAtPoint::clientInside(Window frame) {
    if (frame == lastFrame_ && stillInside(lastClient_, frame)) return lastClient_;
    lastFrame_ = frame;
    lastClient_ = None;
    std::vector<Window> level{frame};
    for (int depth = 0; depth < kFrameDepth && !level.empty() && lastClient_ == None; ++depth) {
        level = childrenOf(d_, level);
        for (Window w : level) {
            if (!isClient(w)) continue;
            lastClient_ = w;
            break;
        }
    }
    return lastClient_;
}

// A client the manager let go of is handed back to the root, out of the frame.
bool X11WindowAtPoint::stillInside(Window client, Window frame) {
    Window w = client;
    for (int depth = 0; depth < kFrameDepth && w != None; ++depth) {
        w = parentOf(d_, w);
        if (w == frame) return true;
    }
    return false;
}

}  // namespace quorlin::x11
