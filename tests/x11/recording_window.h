#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "eventually.h"

namespace quorlin::testing {

// A button event as the window saw it: type, button, x, y.
using Buttons = std::vector<std::tuple<int, unsigned, int, int>>;

// A real window on its own connection that records the input events it receives.
class RecordingWindow {
public:
    RecordingWindow(int x, int y, int width, int height, Window parent = None) : d_(XOpenDisplay(nullptr)) {
        if (!d_) throw std::runtime_error("no X display: run the X11 tests under Xvfb");
        if (parent == None) parent = DefaultRootWindow(d_);
        XSetWindowAttributes a{};
        a.override_redirect = True;  // placed exactly where asked, whatever window manager runs
        a.background_pixel = WhitePixel(d_, DefaultScreen(d_));
        a.event_mask = ButtonPressMask | ButtonReleaseMask | KeyPressMask | KeyReleaseMask | ExposureMask;
        window_ = XCreateWindow(d_, parent, x, y, static_cast<unsigned>(width), static_cast<unsigned>(height), 0,
                                CopyFromParent, InputOutput, CopyFromParent,
                                CWOverrideRedirect | CWBackPixel | CWEventMask, &a);
        XMapRaised(d_, window_);
        XSync(d_, False);
        eventually([this] { return pump(), exposed_; }, std::chrono::seconds(2));
        events_.clear();
    }
    ~RecordingWindow() {
        XDestroyWindow(d_, window_);  // gone once this returns, not when the server sees the connection close
        XCloseDisplay(d_);
    }
    RecordingWindow(const RecordingWindow&) = delete;
    RecordingWindow& operator=(const RecordingWindow&) = delete;

    Window id() const { return window_; }
    Display* display() const { return d_; }

    // Collects events until `count` input events have arrived or the time is up.
    const std::vector<XEvent>& receive(std::size_t count, int timeoutMs = 2000) {
        eventually([&] { return pump(), events_.size() >= count; }, std::chrono::milliseconds(timeoutMs));
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

    // The text the key presses received so far spell, as the window's own lookup reads them.
    std::string typed() {
        std::string text;
        for (XEvent& e : events_) {
            char buffer[8];
            const int n = e.type == KeyPress ? XLookupString(&e.xkey, buffer, sizeof buffer, nullptr, nullptr) : 0;
            text.append(buffer, static_cast<std::size_t>(n));
        }
        return text;
    }

private:
    void pump() {
        for (XEvent e; XPending(d_);) {
            XNextEvent(d_, &e);
            if (e.type == Expose) exposed_ = true;
            else events_.push_back(e);
        }
    }

    Display* d_;
    Window window_ = 0;
    std::vector<XEvent> events_;
    bool exposed_ = false;
};

}  // namespace quorlin::testing
