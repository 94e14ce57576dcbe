#include "model/interval_rules.h"

#include <cmath>

namespace quorlin {

double randomInterval(double from, double to, double u) {
    const double drawn = std::floor(to * u + from);
    return drawn < 0 ? 1 : drawn;
}

}  // namespace quorlin
