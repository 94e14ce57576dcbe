#pragma once

#include <X11/Xlib.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "child_process.h"
#include "eventually.h"

namespace quorlin::testing {

// A property of a window as 32-bit items (atoms, cardinals); empty when it is not set.
inline std::vector<unsigned long> windowProperty(Display* d, Window w, const char* name) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(d, w, XInternAtom(d, name, False), 0, 64, False, AnyPropertyType, &type, &format, &count,
                       &after, &data);
    std::vector<unsigned long> items;
    if (data && format == 32) items.assign(reinterpret_cast<unsigned long*>(data), reinterpret_cast<unsigned long*>(data) + count);
    if (data) XFree(data);
    return items;
}

// An X server of the test's own, made $DISPLAY while it lives, for changes no other
// test may see: a resized screen, monitors, a window manager. `d` is the test's connection to it.
class PrivateDisplay {
public:
    Display* d = nullptr;

    PrivateDisplay() {
        const auto number = server_.nextLine(std::chrono::seconds(20));
        if (!number) throw std::runtime_error("Xvfb did not start");
        if (const char* previous = std::getenv("DISPLAY")) previous_ = previous;
        setenv("DISPLAY", (":" + *number).c_str(), 1);
        d = XOpenDisplay(nullptr);
    }
    ~PrivateDisplay() {
        windowManager_.reset();
        if (d) XCloseDisplay(d);
        if (previous_.empty()) unsetenv("DISPLAY");
        else setenv("DISPLAY", previous_.c_str(), 1);
    }

    // Starts openbox and waits until it announces itself.
    bool startWindowManager() {
        windowManager_ = std::make_unique<ChildProcess>(std::vector<std::string>{"openbox", "--sm-disable"}, true);
        return eventually([&] { return !windowProperty(d, DefaultRootWindow(d), "_NET_SUPPORTING_WM_CHECK").empty(); },
                          std::chrono::seconds(10));
    }

private:
    ChildProcess server_{{"Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"}, true};
    std::unique_ptr<ChildProcess> windowManager_;
    std::string previous_;
};

}  // namespace quorlin::testing
