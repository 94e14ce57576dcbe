#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace quorlin {

// The plain integer at `at`: an optional "-" and one to ten digits, fitting 32 bits, the
// form in which pixels and sizes are written. Moves `at` past it; nothing, with `at`
// anywhere, when the text there has another form. Inline: a large project reads tens of
// millions of them.
inline std::optional<std::int32_t> takePlainInteger(const char*& at, const char* end) {
    const bool negative = at < end && *at == '-';
    at += negative ? 1 : 0;
    const char* const digits = at;
    std::int64_t value = 0;
    while (at < end && at - digits <= 10 && static_cast<unsigned>(*at - '0') <= 9) value = value * 10 + (*at++ - '0');
    const auto count = at - digits;
    if (count == 0 || count > 10) return std::nullopt;
    value = negative ? -value : value;
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(value);
}

// A text that is nothing but a plain integer.
inline std::optional<std::int32_t> parsePlainInteger(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto value = takePlainInteger(at, end);
    return at == end ? value : std::nullopt;
}

}  // namespace quorlin
