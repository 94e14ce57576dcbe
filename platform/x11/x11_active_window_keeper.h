#pragma once

#include <X11/Xlib.h>

#include <vector>

namespace quorlin::x11 {

// Some toolkits (Qt) ask the window manager to activate their window when it is
// clicked outside the focus, which raises it and takes the user's focus. What the
// window manager reports as active and how it stacks its windows is noted before a
// visit, and when the visit's target has made itself active, both are given back.
class ActiveWindowKeeper {
public:
    explicit ActiveWindowKeeper(Display* display);

    void note();
    // Whether the active window noted is one the target could take the place of.
    bool canBeTakenBy(const std::vector<Window>& target) const;
    // target: the target's window and its ancestors. True when there was something to
    // give back.
    bool restore(const std::vector<Window>& target, Time now);

private:
    Window active() const;
    std::vector<Window> stacking() const;
    std::vector<Window> rootWindows(Atom property, long most) const;
    void askWindowManager(Window window, Atom message, long a, long b, long c);

    Display* d_;
    Atom active_;
    Atom stacking_;
    Atom restack_;
    Window activeBefore_ = None;
    std::vector<Window> stackingBefore_;
};

}  // namespace quorlin::x11
