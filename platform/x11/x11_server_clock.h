#pragma once

#include <X11/Xlib.h>

#include <chrono>
#include <cstdint>

namespace quorlin::x11 {

// Time stamps as the server's own devices give them: milliseconds on the server's
// clock, increasing from one event to the next. The server's time is read once; later
// stamps follow the local steady clock from there, so no event needs a round trip.
class ServerClock {
public:
    explicit ServerClock(Display* display);

    // A stamp taken ahead of the clock holds back the stamps after it until the clock passes it.
    Time now(std::chrono::milliseconds ahead = std::chrono::milliseconds{0});

private:
    static std::int64_t steadyMilliseconds();

    std::int64_t offset_ = 0;
    Time last_ = 0;
};

}  // namespace quorlin::x11
