#pragma once

#include <cstdint>

namespace quorlin {

enum class TimerId { tmrCount, tmrLoop, timer };

// The window's timers. Setting an interval restarts the countdown; 0 stops the timer.
// Each tick is delivered to the reaction named after the timer (tmrCount_Timer, ...).
class Timers {
public:
    virtual ~Timers() = default;
    virtual void setInterval(TimerId timer, std::int32_t milliseconds) = 0;
};

}  // namespace quorlin
