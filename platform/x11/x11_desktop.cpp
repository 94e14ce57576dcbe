#include "x11/x11_desktop.h"

#include <X11/Xatom.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <limits>
#include <thread>
#include <vector>

extern char** environ;

namespace quorlin::x11 {

namespace {

constexpr long kNetWmStateRemove = 0;
constexpr long kNetWmStateAdd = 1;

std::int32_t clampToInt32(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

bool isViewable(Display* d, Window w) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(d, w, &attributes) && attributes.map_state == IsViewable;
}

}  // namespace

X11Desktop::X11Desktop(X11Connection& connection)
    : x_(connection), windowAtPoint_(connection.display()), input_(DisplayString(connection.display())) {}

// Beyond the root window there is no window; checking first also keeps the point
// from wrapping in the protocol's 16-bit coordinates.
WindowHandle X11Desktop::windowFromPoint(ScreenPoint point) {
    const ScreenLayout& screen = x_.screenLayout();
    const RootPoint at = screen.toRoot(point);
    if (!screen.onScreen(at)) return 0;
    return windowAtPoint_.find(x_.root(), static_cast<int>(at.x), static_cast<int>(at.y));
}

// Measured from the window's origin on the root in full width, so a far point
// never wraps; only a result beyond 32 bits is held at the limit.
ScreenPoint X11Desktop::screenToClient(WindowHandle window, ScreenPoint point) {
    if (window == 0) return point;
    int left = 0;
    int top = 0;
    Window child = None;
    if (!XTranslateCoordinates(x_.display(), static_cast<Window>(window), x_.root(), 0, 0, &left, &top, &child))
        return point;
    const RootPoint at = x_.screenLayout().toRoot(point);
    return {clampToInt32(at.x - left), clampToInt32(at.y - top)};
}

void X11Desktop::postMessage(WindowHandle window, std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam) {
    if (window != 0) input_.post(static_cast<Window>(window), code, wParam, lParam);
}

ScreenPoint X11Desktop::cursorPos() {
    Window root = None;
    Window child = None;
    int rootX = 0;
    int rootY = 0;
    int winX = 0;
    int winY = 0;
    unsigned int mask = 0;
    XQueryPointer(x_.display(), x_.root(), &root, &child, &rootX, &rootY, &winX, &winY, &mask);
    return x_.screenLayout().toScreen(rootX, rootY);
}

// Through the window manager's standard stay-above state. A window that is not
// mapped yet carries the state in its property; the manager applies it at mapping.
void X11Desktop::setTopMost(WindowHandle window, bool topMost) {
    if (window == 0) return;
    Display* d = x_.display();
    const auto w = static_cast<Window>(window);
    input_.setOwnWindow(w);
    const Atom state = XInternAtom(d, "_NET_WM_STATE", False);
    const Atom above = XInternAtom(d, "_NET_WM_STATE_ABOVE", False);
    if (isViewable(d, w)) {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = w;
        event.xclient.message_type = state;
        event.xclient.format = 32;
        event.xclient.data.l[0] = topMost ? kNetWmStateAdd : kNetWmStateRemove;
        event.xclient.data.l[1] = static_cast<long>(above);
        event.xclient.data.l[3] = 1;
        XSendEvent(d, x_.root(), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    } else {
        setStateProperty(w, state, above, topMost);
    }
    XFlush(d);
}

void X11Desktop::setStateProperty(Window w, Atom state, Atom above, bool on) {
    Display* d = x_.display();
    std::vector<Atom> atoms;
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(d, w, state, 0, 64, False, XA_ATOM, &type, &format, &count, &after, &data) == Success &&
        data) {
        const auto* existing = reinterpret_cast<const Atom*>(data);
        for (unsigned long i = 0; i < count; ++i)
            if (existing[i] != above) atoms.push_back(existing[i]);
        XFree(data);
    }
    if (on) atoms.push_back(above);
    XChangeProperty(d, w, state, XA_ATOM, 32, PropModeReplace, reinterpret_cast<const unsigned char*>(atoms.data()),
                    static_cast<int>(atoms.size()));
}

// The opener runs on its own; a thread reaps it so no zombie stays behind and the
// window never waits for the browser or mail program.
void X11Desktop::openLink(const std::string& link) {
    std::string program = "xdg-open";
    std::vector<char*> argv{program.data(), const_cast<char*>(link.c_str()), nullptr};
    pid_t pid = 0;
    if (posix_spawnp(&pid, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0) return;
    std::thread([pid] { waitpid(pid, nullptr, 0); }).detach();
}

}  // namespace quorlin::x11
