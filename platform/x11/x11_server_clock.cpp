#include "x11/x11_server_clock.h"

#include <X11/Xatom.h>

#include <chrono>

namespace quorlin::x11 {

namespace {

// The only way to learn the server's time is an event that carries it: a property
// change on a window of our own.
Time readServerTime(Display* d) {
    XSetWindowAttributes a{};
    a.event_mask = PropertyChangeMask;
    const Window probe = XCreateWindow(d, DefaultRootWindow(d), -1, -1, 1, 1, 0, 0, InputOnly, CopyFromParent,
                                       CWEventMask, &a);
    const unsigned char nothing = 0;
    XChangeProperty(d, probe, XA_WM_NAME, XA_STRING, 8, PropModeAppend, &nothing, 0);
    XEvent event;
    XWindowEvent(d, probe, PropertyChangeMask, &event);
    XDestroyWindow(d, probe);
    return event.xproperty.time;
}

}  // namespace

ServerClock::ServerClock(Display* display)
    : offset_(static_cast<std::int64_t>(readServerTime(display)) - steadyMilliseconds()) {}

Time ServerClock::now(std::chrono::milliseconds ahead) {
    const auto stamp = static_cast<Time>(static_cast<std::uint32_t>(steadyMilliseconds() + offset_ + ahead.count()));
    last_ = stamp > last_ ? stamp : last_ + 1;
    return last_;
}

std::int64_t ServerClock::steadyMilliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace quorlin::x11
