#pragma once

#include <X11/Xlib.h>

#include <cstdint>

namespace quorlin::x11 {

// Time stamps as the server's own devices give them: milliseconds on the server's
// clock, increasing from one event to the next. The server's time is read once; later
// stamps follow the local steady clock from there, so no event needs a round trip.
class ServerClock {
public:
    explicit ServerClock(Display* display);

    Time now();

private:
    static std::int64_t steadyMilliseconds();

    std::int64_t offset_ = 0;
    Time last_ = 0;
};

}  // namespace quorlin::x11
