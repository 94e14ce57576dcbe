#include "x11/x11_click_spacing.h"

#include <algorithm>

namespace quorlin::x11 {

std::chrono::milliseconds ClickSpacing::waitBefore(bool ofItsOwn) {
    using namespace std::chrono;
    const auto now = steady_clock::now();
    milliseconds wait{0};
    if (ofItsOwn && last_ && *last_ <= now) wait = std::max(wait, ceil<milliseconds>(*last_ + kApart - now));
    last_ = std::max(now + wait, last_.value_or(now));
    return wait;
}

}  // namespace quorlin::x11
