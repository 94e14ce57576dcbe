#pragma once

#include <deque>
#include <optional>

#include "x11/x11_input_route.h"
#include "x11/x11_server_clock.h"
#include "x11/x11_window_chain.h"

namespace quorlin::x11 {

// Input as core events sent to the clients that select them, shaped as a real device's
// would be: server time stamps, the window that would receive the event after
// propagation, a pointer crossing into the target around the clicks and a focus
// change to its top level around typed keys. The real pointer and focus stay put.
class CoreRoute : public InputRoute {
public:
    // display: the connection the events are sent on; input of another route that must
    // land first is sent on the same one, so the server keeps the order.
    CoreRoute(Display* display, ServerClock& clock, WindowChain chain);

    void press(unsigned int button, int rootX, int rootY, std::chrono::milliseconds wait) override;
    void release(unsigned int button, int rootX, int rootY) override;
    void type(const KeyStroke& stroke) override;
    void end() override;

    // When the first event held back behind a waiting press is due; none when none is.
    std::optional<std::chrono::steady_clock::time_point> nextDue() const;
    // Sends the held-back events that are due.
    void sendDue();
    // Sends every held-back event, waiting for the last one's time.
    void sendHeld();

private:
    void button(int type, unsigned int button, unsigned int state, int rootX, int rootY, Time time);
    void key(int type, const KeyStroke& stroke);
    void cross(int type);
    XEvent pointerEvent(int type, std::size_t at, Time time) const;
    Time stamp() const;
    void send(long mask, XEvent event);

    Display* d_;
    ServerClock& clock_;
    WindowChain chain_;
    int rootX_ = 0;
    int rootY_ = 0;
    unsigned int buttonsDown_ = 0;
    bool inside_ = false;
    bool focused_ = false;
    std::chrono::steady_clock::time_point heldUntil_;
    struct Held {
        std::chrono::steady_clock::time_point due;
        long mask;
        XEvent event;
    };
    std::deque<Held> held_;
};

}  // namespace quorlin::x11
