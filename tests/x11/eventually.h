#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace quorlin::testing {

// Whether `done` comes true within the patience, asked again every few milliseconds.
inline bool eventually(const std::function<bool()>& done, std::chrono::milliseconds patience) {
    for (const auto until = std::chrono::steady_clock::now() + patience; !done();
         std::this_thread::sleep_for(std::chrono::milliseconds(5)))
        if (std::chrono::steady_clock::now() >= until) return false;
    return true;
}

}  // namespace quorlin::testing
