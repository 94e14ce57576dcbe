#include "x11/x11_active_window_keeper.h"

#include <X11/Xatom.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace quorlin::x11 {

namespace {
// Requests from a pager, which window managers carry out without second thoughts.
constexpr long kFromPager = 2;
constexpr std::chrono::milliseconds kSettleLimit{500};
}  // namespace

ActiveWindowKeeper::ActiveWindowKeeper(Display* display)
    : d_(display),
      active_(XInternAtom(display, "_NET_ACTIVE_WINDOW", False)),
      stacking_(XInternAtom(display, "_NET_CLIENT_LIST_STACKING", False)),
      restack_(XInternAtom(display, "_NET_RESTACK_WINDOW", False)) {}

// Openbox leaves no active window after the active one closed, though it has put the
// focus on another: then that one counts.
void ActiveWindowKeeper::note() {
    activeBefore_ = active();
    if (activeBefore_ == None) {
        int revert = 0;
        XGetInputFocus(d_, &activeBefore_, &revert);
        if (activeBefore_ == PointerRoot) activeBefore_ = None;
    }
    stackingBefore_ = stacking();
}

bool ActiveWindowKeeper::canBeTakenBy(const std::vector<Window>& target) const {
    return activeBefore_ != None && std::find(target.begin(), target.end(), activeBefore_) == target.end();
}

bool ActiveWindowKeeper::restore(const std::vector<Window>& target, Time now) {
    const Window activeNow = active();
    const bool tookIt = std::find(target.begin(), target.end(), activeNow) != target.end();
    if (!tookIt || !canBeTakenBy(target)) return false;
    askWindowManager(activeBefore_, active_, kFromPager, static_cast<long>(now), 0);
    // The windows that were above it go back on top, in their order.
    const auto at = std::find(stackingBefore_.begin(), stackingBefore_.end(), activeNow);
    for (auto above = at == stackingBefore_.end() ? at : at + 1; above != stackingBefore_.end(); ++above)
        askWindowManager(*above, restack_, kFromPager, None, Above);
    // The next visit notes what it finds: the window manager must have done it by then.
    for (auto until = std::chrono::steady_clock::now() + kSettleLimit;
         active() != activeBefore_ && std::chrono::steady_clock::now() < until;)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return true;
}

Window ActiveWindowKeeper::active() const {
    const std::vector<Window> windows = rootWindows(active_, 1);
    return windows.empty() ? None : windows.front();
}

std::vector<Window> ActiveWindowKeeper::stacking() const { return rootWindows(stacking_, 4096); }

std::vector<Window> ActiveWindowKeeper::rootWindows(Atom property, long most) const {
    Atom type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* data = nullptr;
    std::vector<Window> windows;
    if (XGetWindowProperty(d_, DefaultRootWindow(d_), property, 0, most, False, XA_WINDOW, &type, &format, &count,
                           &left, &data) == Success &&
        data && format == 32) {
        const auto* read = reinterpret_cast<const Window*>(data);
        windows.assign(read, read + count);
    }
    if (data) XFree(data);
    return windows;
}

void ActiveWindowKeeper::askWindowManager(Window window, Atom message, long a, long b, long c) {
    XEvent event{};
    XClientMessageEvent& m = event.xclient;
    m.type = ClientMessage;
    m.window = window;
    m.message_type = message;
    m.format = 32;
    m.data.l[0] = a;
    m.data.l[1] = b;
    m.data.l[2] = c;
    XSendEvent(d_, DefaultRootWindow(d_), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

}  // namespace quorlin::x11
