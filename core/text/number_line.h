#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "text/eight_digits.h"

namespace quorlin {

// "-2147483648\r\n"
inline constexpr std::size_t kLongestNumberLine = 13;

// Writes `value` and CR LF at `at`, which has room for the longest number line.
inline char* numberLine(char* at, std::int32_t value) {
    char* const digits = writeEightDigits(at, value);
    at = digits ? digits : std::to_chars(at, at + kLongestNumberLine - 2, value).ptr;
    std::memcpy(at, "\r\n", 2);
    return at + 2;
}

}  // namespace quorlin
