#pragma once

#include <X11/Xlib.h>

#include <chrono>
#include <string>

namespace quorlin::x11 {

// Learns when a client has read every event sent to it so far: a client that takes
// the window manager's ping answers it only once the events before it are handled.
class ClientPing {
public:
    explicit ClientPing(const std::string& displayName);
    ~ClientPing();
    ClientPing(const ClientPing&) = delete;
    ClientPing& operator=(const ClientPing&) = delete;

    // Waits for the answer of the client that owns the top level; false when it does
    // not take pings or did not answer within the limit.
    bool await(Window topLevel, Time stamp, std::chrono::milliseconds limit);

private:
    bool takesPings(Window topLevel);
    bool answered(Window topLevel, Time stamp);

    Display* d_;
    Atom protocols_ = None;
    Atom ping_ = None;
};

}  // namespace quorlin::x11
