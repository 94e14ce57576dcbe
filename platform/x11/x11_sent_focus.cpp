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

}  // namespace quorlin::x11
