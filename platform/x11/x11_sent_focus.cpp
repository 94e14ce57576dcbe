#include "x11/x11_sent_focus.h"

namespace quorlin::x11 {

void sendFocusChange(Display* d, Window topLevel, int type) {
    XEvent event{};
    XFocusChangeEvent& f = event.xfocus;
    f.type = type;
    f.display = d;
    f.window = topLevel;
    f.mode = NotifyNormal;
    f.detail = NotifyNonlinear;
    XSendEvent(d, topLevel, False, FocusChangeMask, &event);
}

bool holdsRealFocus(Display* d, Window topLevel) {
    Window focus = None;
    int revert = 0;
    XGetInputFocus(d, &focus, &revert);
    const Window root = DefaultRootWindow(d);
    while (focus != None && focus != PointerRoot && focus != root && focus != topLevel) {
        Window top = None;
        Window parent = None;
        Window* children = nullptr;
        unsigned int count = 0;
        if (!XQueryTree(d, focus, &top, &parent, &children, &count)) return false;
        if (children) XFree(children);
        focus = parent;
    }
    return focus == topLevel;
}

}  // namespace quorlin::x11
