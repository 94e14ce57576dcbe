#pragma once

#include <optional>
#include <string_view>
#include <utility>

namespace quorlin {

// The text before the first colon and the whole text after it; nothing without a colon.
inline std::optional<std::pair<std::string_view, std::string_view>> splitAtColon(std::string_view s) {
    const auto colon = s.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    return std::pair{s.substr(0, colon), s.substr(colon + 1)};
}

}  // namespace quorlin
