#pragma once

#include <X11/Xlib.h>

#include <set>
#include <string>
#include <utility>

namespace quorlin::x11 {

// Tells the user, once per target and kind of input, that neither route can bring
// the input to a window: in the title of the program's own window, so no box stops
// the run.
class RouteNotice {
public:
    explicit RouteNotice(Display* display) : d_(display) {}

    void setOwnWindow(Window window) { own_ = window; }
    // what: "clicks" or "typing".
    void cannotReach(Window topLevel, const std::string& what);

private:
    std::string nameOf(Window window) const;
    void setTitle(const std::string& title);

    Display* d_;
    Window own_ = None;
    std::set<std::pair<Window, std::string>> told_;
};

}  // namespace quorlin::x11
