#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quorlin {

// A line that is nothing but an optional "-" and one to ten digits, fitting 32 bits:
// the form in which pixels and sizes are written. Anything else answers nothing.
std::optional<std::int32_t> parsePlainInteger(std::string_view text);

}  // namespace quorlin
