#include <gtest/gtest.h>

#include <X11/Xatom.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>

#include "window_manager.h"
#include "x11/x11_desktop.h"

extern char** environ;

namespace quorlin::testing {
namespace {

using Clock = std::chrono::steady_clock;

bool isAbove(Display* d, Window w) {
    const Atom state = XInternAtom(d, "_NET_WM_STATE", False);
    const Atom above = XInternAtom(d, "_NET_WM_STATE_ABOVE", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    bool found = false;
    if (XGetWindowProperty(d, w, state, 0, 64, False, XA_ATOM, &type, &format, &count, &after, &data) == Success &&
        data) {
        const auto* atoms = reinterpret_cast<const Atom*>(data);
        for (unsigned long i = 0; i < count; ++i) found = found || atoms[i] == above;
        XFree(data);
    }
    return found;
}

bool becomes(Display* d, Window w, bool above) {
    for (auto until = Clock::now() + std::chrono::seconds(3); Clock::now() < until;) {
        XSync(d, False);
        if (isAbove(d, w) == above) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

TEST(StayOnTop, TheWindowManagerKeepsTheWindowAboveOrLetsItGo) {
    x11::X11Connection connection;
    x11::X11Desktop desktop(connection);
    Display* d = connection.display();
    WindowManager manager(d);
    ASSERT_TRUE(manager.running()) << "openbox did not start";

    Window early = XCreateSimpleWindow(d, connection.root(), 10, 10, 100, 100, 0, 0, 0);
    desktop.setTopMost(early, true);  // before it is mapped, as when the window loads
    XMapWindow(d, early);
    EXPECT_TRUE(becomes(d, early, true));

    desktop.setTopMost(early, false);
    EXPECT_TRUE(becomes(d, early, false));
    desktop.setTopMost(early, true);
    EXPECT_TRUE(becomes(d, early, true));
    XDestroyWindow(d, early);
    XSync(d, False);
}

}  // namespace
}  // namespace quorlin::testing
