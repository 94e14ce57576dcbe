#include <gtest/gtest.h>

#include <X11/Xatom.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>

#include "x11/x11_desktop.h"

extern char** environ;

namespace quorlin::testing {
namespace {

using Clock = std::chrono::steady_clock;

// A real window manager on the test display, for as long as the test runs.
class WindowManager {
public:
    explicit WindowManager(Display* d) : d_(d) {
        char program[] = "openbox";
        char option[] = "--sm-disable";
        char* argv[] = {program, option, nullptr};
        if (posix_spawnp(&pid_, "openbox", nullptr, nullptr, argv, environ) != 0) pid_ = 0;
        const Atom check = XInternAtom(d_, "_NET_SUPPORTING_WM_CHECK", False);
        for (auto until = Clock::now() + std::chrono::seconds(10); pid_ && Clock::now() < until && !has(check);)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    ~WindowManager() {
        if (!pid_) return;
        kill(pid_, SIGTERM);
        waitpid(pid_, nullptr, 0);
    }
    bool running() { return pid_ && has(XInternAtom(d_, "_NET_SUPPORTING_WM_CHECK", False)); }

private:
    bool has(Atom property) {
        Atom type = None;
        int format = 0;
        unsigned long count = 0, after = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(d_, DefaultRootWindow(d_), property, 0, 1, False, AnyPropertyType, &type, &format, &count,
                           &after, &data);
        if (data) XFree(data);
        return count > 0;
    }
    Display* d_;
    pid_t pid_ = 0;
};

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
