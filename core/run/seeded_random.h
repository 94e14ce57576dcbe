#pragma once

#include <random>

#include "ports/random_source.h"

namespace quorlin {

// A uniform sequence over [0, 1) that is the same at every start of the program:
// it is never seeded from the clock.
class SeededRandom : public RandomSource {
public:
    double next() override {
        // 53 random bits make every double of [0, 1) on the 2^-53 grid equally likely.
        const auto high = static_cast<std::uint64_t>(engine_() >> 5);
        const auto low = static_cast<std::uint64_t>(engine_() >> 6);
        return static_cast<double>((high << 26) | low) * 0x1.0p-53;
    }

private:
    std::mt19937 engine_{5489u};
};

}  // namespace quorlin
