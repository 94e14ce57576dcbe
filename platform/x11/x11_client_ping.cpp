#include "x11/x11_client_ping.h"

#include <poll.h>

namespace quorlin::x11 {

ClientPing::ClientPing(const std::string& displayName) : d_(XOpenDisplay(displayName.c_str())) {
    if (!d_) return;
    protocols_ = XInternAtom(d_, "WM_PROTOCOLS", False);
    ping_ = XInternAtom(d_, "_NET_WM_PING", False);
}

ClientPing::~ClientPing() {
    if (d_) XCloseDisplay(d_);
}

// The answer goes to the root window for the window manager; selecting the root's
// structure and substructure (clients answer with either) only while waiting lets
// this connection hear it too.
bool ClientPing::await(Window topLevel, Time stamp, std::chrono::milliseconds limit) {
    if (!d_ || !takesPings(topLevel)) return false;
    const Window root = DefaultRootWindow(d_);
    XSelectInput(d_, root, StructureNotifyMask | SubstructureNotifyMask);
    XEvent ping{};
    ping.xclient.type = ClientMessage;
    ping.xclient.window = topLevel;
    ping.xclient.message_type = protocols_;
    ping.xclient.format = 32;
    ping.xclient.data.l[0] = static_cast<long>(ping_);
    ping.xclient.data.l[1] = static_cast<long>(stamp);
    ping.xclient.data.l[2] = static_cast<long>(topLevel);
    XSendEvent(d_, topLevel, False, NoEventMask, &ping);
    XFlush(d_);
    bool done = false;
    const auto until = std::chrono::steady_clock::now() + limit;
    while (!done && std::chrono::steady_clock::now() < until) {
        done = answered(topLevel, stamp);
        pollfd p{ConnectionNumber(d_), POLLIN, 0};
        if (!done) poll(&p, 1, 5);
    }
    XSelectInput(d_, root, NoEventMask);
    XSync(d_, True);
    return done;
}

bool ClientPing::takesPings(Window topLevel) {
    Atom* protocols = nullptr;
    int count = 0;
    if (!XGetWMProtocols(d_, topLevel, &protocols, &count)) return false;
    bool found = false;
    for (int i = 0; i < count; ++i) found = found || protocols[i] == ping_;
    XFree(protocols);
    return found;
}

bool ClientPing::answered(Window topLevel, Time stamp) {
    while (XPending(d_)) {
        XEvent event;
        XNextEvent(d_, &event);
        const XClientMessageEvent& m = event.xclient;
        if (event.type == ClientMessage && m.message_type == protocols_ &&
            static_cast<Atom>(m.data.l[0]) == ping_ && static_cast<Time>(m.data.l[1]) == stamp &&
            static_cast<Window>(m.data.l[2]) == topLevel)
            return true;
    }
    return false;
}

}  // namespace quorlin::x11
