#pragma once

#include <X11/Xlib.h>

#include <string>

namespace quorlin::x11 {

// A master pointer and keyboard of the program's own, beside the user's: events made
// through their test devices are real XInput 2 device events, yet the user's pointer
// does not move and the user's keyboard focus stays where it is. The pair makes no
// core events: core clients, the window manager's grabs among them, never see it. Made on first need and removed
// with this object; a pair left behind by a program that ended without removing it is
// removed when the next one starts.
class PrivateMaster {
public:
    explicit PrivateMaster(const std::string& displayName);
    ~PrivateMaster();
    PrivateMaster(const PrivateMaster&) = delete;
    PrivateMaster& operator=(const PrivateMaster&) = delete;

    // False when the server lacks XInput 2.2 or XTEST, or refused the pair.
    bool ready();

    // Core test input on this connection drives the private pair.
    Display* display() const { return d_; }
    int pointer() const { return pointer_; }
    int keyboard() const { return keyboard_; }

private:
    bool extensionsPresent();
    void removeLeftovers();
    bool create();
    void remove(int pointer);

    Display* d_;
    bool tried_ = false;
    int pointer_ = 0;
    int keyboard_ = 0;
};

}  // namespace quorlin::x11
