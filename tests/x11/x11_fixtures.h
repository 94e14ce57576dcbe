#pragma once

// What the X11 tests make for themselves: waits, programs they start, an X server of
// their own, windows that record their input.

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "run/window_messages.h"
#include "x11/x11_desktop.h"

namespace quorlin::testing {

// Whether `done` comes true within the patience, asked again every few milliseconds.
inline bool eventually(const auto& done, std::chrono::milliseconds patience) {
    for (const auto until = std::chrono::steady_clock::now() + patience; !done();
         std::this_thread::sleep_for(std::chrono::milliseconds(5)))
        if (std::chrono::steady_clock::now() >= until) return false;
    return true;
}

// A program the test starts, reads line by line and ends with itself.
class ChildProcess {
public:
    // The shell reports its process id, which `exec` hands on to the program.
    explicit ChildProcess(const std::vector<std::string>& argv, bool quiet = false) {
        std::string command = "echo $$; exec";
        for (const std::string& arg : argv) command += " '" + arg + "'";
        out_ = popen((command + (quiet ? " 2>/dev/null" : "")).c_str(), "re");
        fcntl(fileno(out_), F_SETFL, O_NONBLOCK);
        pid_ = std::stoi(nextLine(std::chrono::seconds(5)).value_or("0"));
    }
    ~ChildProcess() {
        if (pid_) kill(pid_, SIGTERM);
        pclose(out_);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // The next whole line of the program's output, unless it does not come in time.
    std::optional<std::string> nextLine(std::chrono::milliseconds patience) {
        std::size_t end = std::string::npos;
        const auto whole = [&] {
            char buffer[512];
            for (ssize_t n; (n = read(fileno(out_), buffer, sizeof buffer)) > 0;)
                pending_.append(buffer, static_cast<std::size_t>(n));
            return (end = pending_.find('\n')) != std::string::npos;
        };
        if (!eventually(whole, patience)) return std::nullopt;
        std::string line = pending_.substr(0, end);
        pending_.erase(0, end + 1);
        return line;
    }

private:
    FILE* out_;
    pid_t pid_ = 0;
    std::string pending_;
};

// A property of a window as its items (atoms, cardinals; a text's bytes as a string); empty when it is not set.
template <class Items = std::vector<unsigned long>>
Items windowProperty(Display* d, Window w, const char* name) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(d, w, XInternAtom(d, name, False), 0, 64, False, AnyPropertyType, &type, &format, &count,
                       &after, &data);
    Items items;
    const auto* first = reinterpret_cast<unsigned long*>(data);
    if (data && format == 32) items.assign(first, first + count);
    if (data && format == 8) items.assign(data, data + count);
    if (data) XFree(data);
    return items;
}

// An X server of the test's own, made $DISPLAY while it lives, for changes no other test
// may see: a resized screen, monitors, a window manager. `d` is the test's connection to it.
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

enum class Action { Click, DBClick, RightClick, Typing };

// The messages of one click step, in the order the step posts them. Typing follows a click.
inline void post(x11::X11Desktop& desktop, ScreenPoint at, Action action, const std::string& text = "") {
    using namespace wm;
    const WindowHandle target = desktop.windowFromPoint(at);
    const ScreenPoint client = desktop.screenToClient(target, at);
    const auto send = [&](auto code, auto wParam, auto lParam) { desktop.postMessage(target, code, wParam, lParam); };
    const std::uint32_t where = mouseLParam(client.x, client.y);
    const bool right = action == Action::RightClick;
    send(right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, right ? MK_RBUTTON : MK_LBUTTON, where);
    send(right ? WM_RBUTTONUP : WM_LBUTTONUP, 0, where);
    if (action == Action::DBClick) {
        send(WM_LBUTTONDBLCLK, MK_LBUTTON, where);
        send(WM_LBUTTONUP, 0, where);
    }
    for (unsigned char c : text)
        send(WM_KEYDOWN, c - 32u, kKeyLParam), send(WM_CHAR, c, kKeyLParam), send(WM_KEYUP, c - 32u, kKeyLParam);
}

// A button event as the window saw it: type, button, x, y.
using Buttons = std::vector<std::tuple<int, unsigned, int, int>>;

// A real window on its own connection that records the input events it receives.
class RecordingWindow {
public:
    RecordingWindow(int x, int y, unsigned width, unsigned height, Window parent = None, bool managed = false)
        : d_(XOpenDisplay(nullptr)) {
        if (!d_) throw std::runtime_error("no X display: run the X11 tests under Xvfb");
        if (parent == None) parent = DefaultRootWindow(d_);
        XSetWindowAttributes a{};
        a.override_redirect = !managed;  // unmanaged, it goes exactly where asked, whatever window manager runs
        a.background_pixel = WhitePixel(d_, DefaultScreen(d_));
        a.event_mask = ButtonPressMask | ButtonReleaseMask | KeyPressMask | KeyReleaseMask | ExposureMask;
        window_ = XCreateWindow(d_, parent, x, y, width, height, 0, CopyFromParent, InputOutput, CopyFromParent,
                                CWOverrideRedirect | CWBackPixel | CWEventMask, &a);
        XMapRaised(d_, window_);
        XEvent shown;
        XWindowEvent(d_, window_, ExposureMask, &shown);
    }
    ~RecordingWindow() {
        XDestroyWindow(d_, window_);  // gone once this returns, not when the server sees the connection close
        XCloseDisplay(d_);
    }
    RecordingWindow(const RecordingWindow&) = delete;
    RecordingWindow& operator=(const RecordingWindow&) = delete;

    Window id() const { return window_; }
    Display* display() const { return d_; }

    // Collects input events until `count` have arrived or the time is up.
    const std::vector<XEvent>& receive(std::size_t count, int timeoutMs = 2000) {
        eventually([&] {
            for (XEvent e; XPending(d_);) {
                XNextEvent(d_, &e);
                if (e.type != Expose) events_.push_back(e);
            }
            return events_.size() >= count;
        }, std::chrono::milliseconds(timeoutMs));
        return events_;
    }

    // The button events received once `count` input events have come or the time is up.
    Buttons buttons(std::size_t count, int timeoutMs = 2000) {
        Buttons seen;
        for (const XEvent& e : receive(count, timeoutMs))
            if (e.type == ButtonPress || e.type == ButtonRelease)
                seen.emplace_back(e.type, e.xbutton.button, e.xbutton.x, e.xbutton.y);
        return seen;
    }

private:
    Display* d_;
    Window window_ = 0;
    std::vector<XEvent> events_;
};

}  // namespace quorlin::testing
