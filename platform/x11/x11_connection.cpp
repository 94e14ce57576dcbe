#include "x11/x11_connection.h"

#include <atomic>
#include <mutex>
#include <stdexcept>

namespace quorlin::x11 {

namespace {

std::atomic<unsigned long> errors{0};

// A target window may vanish between looking it up and posting to it; Xlib's default
// handler would end the program for that.
int countAndIgnore(Display*, XErrorEvent*) {
    ++errors;
    return 0;
}

std::once_flag handlerInstalled;

Display* openDisplay(const char* displayName) {
    std::call_once(handlerInstalled, [] { XSetErrorHandler(countAndIgnore); });
    Display* display = XOpenDisplay(displayName);
    if (!display) throw std::runtime_error("cannot open the X display");
    return display;
}

}  // namespace

X11Connection::X11Connection(const char* displayName)
    : display_(openDisplay(displayName)), layout_(DisplayString(display_.get())) {}

unsigned long X11Connection::errorCount() { return errors.load(); }

}  // namespace quorlin::x11
