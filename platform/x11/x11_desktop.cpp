#include "x11/x11_desktop.h"

#include <X11/Xatom.h>
#include <spawn.h>
#include <sys/wait.h>

#include <thread>
#include <vector>

extern char** environ;

namespace quorlin::x11 {

namespace {

constexpr long kNetWmStateRemove = 0;
constexpr long kNetWmStateAdd = 1;

bool isViewable(Display* d, Window w) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(d, w, &attributes) && attributes.map_state == IsViewable;
}

}  // namespace

X11Desktop::X11Desktop(X11Connection& connection) : x_(connection), input_(DisplayString(connection.display())) {}

WindowHandle X11Desktop::windowFromPoint(ScreenPoint point) {
    Display* d = x_.display();
    Window from = x_.root();
    Window found = 0;
    int x = point.x;
    int y = point.y;
    for (;;) {
        Window child = None;
        int cx = 0;
        int cy = 0;
        if (!XTranslateCoordinates(d, from, from, x, y, &cx, &cy, &child) || child == None) break;
        int nx = 0;
        int ny = 0;
        Window ignored = None;
        if (!XTranslateCoordinates(d, from, child, x, y, &nx, &ny, &ignored)) break;
        found = child;
        from = child;
        x = nx;
        y = ny;
    }
    return found;
}

ScreenPoint X11Desktop::screenToClient(WindowHandle window, ScreenPoint point) {
    if (window == 0) return point;
    int x = 0;
    int y = 0;
    Window child = None;
    if (!XTranslateCoordinates(x_.display(), x_.root(), static_cast<Window>(window), point.x, point.y, &x, &y, &child))
        return point;
    return {x, y};
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
    return {rootX, rootY};
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
