#pragma once

#include <cstdint>

namespace quorlin {

// The longest interval a step may have and a run timer takes, in milliseconds.
inline constexpr std::int32_t kLongestInterval = 65'535;

// One draw of a random interval: floor(to x u + from) milliseconds, u from [0, 1).
// The bounds are used as typed, not converted from seconds. A draw below zero cannot be
// timed; it is taken as the shortest interval, 1 ms, so a random run never ends by itself.
double randomInterval(double from, double to, double u);

}  // namespace quorlin
