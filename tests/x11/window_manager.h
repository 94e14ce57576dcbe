#pragma once

#include <X11/Xlib.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>

extern char** environ;

namespace quorlin::testing {

// A real window manager on the test display, for as long as the test runs.
class WindowManager {
public:
    explicit WindowManager(Display* d) : d_(d) {
        using Clock = std::chrono::steady_clock;
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

}  // namespace quorlin::testing
