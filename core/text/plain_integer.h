#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace quorlin {

// A line that is nothing but an optional "-" and one to ten digits, fitting 32 bits:
// the form in which pixels and sizes are written. Anything else answers nothing.
// Inline: a large project reads tens of millions of them.
inline std::optional<std::int32_t> parsePlainInteger(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    if (text.empty() || text.size() > 10) return std::nullopt;
    std::int64_t value = 0;
    for (char c : text) {
        const unsigned digit = static_cast<unsigned char>(c) - unsigned{'0'};
        if (digit > 9) return std::nullopt;
        value = value * 10 + digit;
    }
    value = negative ? -value : value;
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(value);
}

}  // namespace quorlin
