#include "x11/x11_sent_focus.h"

namespace quorlin::x11 {

XEvent focusChange(Display* d, Window topLevel, int type) {
    XEvent event{};
    XFocusChangeEvent& f = event.xfocus;
    f.type = type;
    f.display = d;
    f.window = topLevel;
    f.mode = NotifyNormal;
    f.detail = NotifyNonlinear;
    return event;
}

}  // namespace quorlin::x11
