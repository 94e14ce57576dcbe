#pragma once

namespace quorlin {

class RandomSource {
public:
    virtual ~RandomSource() = default;
    // The next number of a uniform sequence over [0, 1).
    virtual double next() = 0;
};

}  // namespace quorlin
