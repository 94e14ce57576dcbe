#pragma once

#include <cstdint>

namespace quorlin {

struct RunState {
    bool bStop = false;
    std::int32_t lClickCount = 0;
    // Wider than the window's other 16-bit counters so that "# of times" and "Rep"
    // above 32,767 click as often as the user asked.
    std::int32_t iClickTarget = 0;
    bool bCountDone = false;
};

}  // namespace quorlin
