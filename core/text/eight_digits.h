#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>

namespace quorlin {

// Decimal numbers of up to eight digits, read eight bytes at a time and written four
// digits at a time: a large project file is tens of millions of pixel colours, mostly
// seven or eight digits long. Callers take the general way for what these refuse.

// The one to eight digits at `at` that a non-digit follows. Nine bytes from `at` must be
// readable. Moves `at` past them; nothing, with `at` unmoved, for any other text.
inline std::optional<std::int32_t> readEightDigits(const char*& at) {
    if constexpr (std::endian::native != std::endian::little) return std::nullopt;
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    constexpr std::uint64_t kHighNibbles = 0xF0F0F0F0F0F0F0F0;
    constexpr std::uint64_t kZeros = 0x3030303030303030;
    // A byte is a digit when it and the byte six above it both lie in 0x30..0x3F. A carry
    // out of a byte only ever spoils the bytes after the first non-digit.
    const std::uint64_t nonDigits =
        ((word & kHighNibbles) ^ kZeros) | (((word + 0x0606060606060606) & kHighNibbles) ^ kZeros);
    const int count = nonDigits == 0 ? 8 : std::countr_zero(nonDigits) / 8;
    if (count == 0 || (count == 8 && static_cast<unsigned>(at[8] - '0') <= 9)) return std::nullopt;
    // The digits move to the top bytes behind leading zeros; neighbouring digits, then
    // pairs, then fours fold into one number in the low half.
    word = (word << (8 * (8 - count))) & 0x0F0F0F0F0F0F0F0F;
    word = (word * 10 + (word >> 8)) & 0x00FF00FF00FF00FF;
    word = (word * 100 + (word >> 16)) & 0x0000FFFF0000FFFF;
    word = word * 10000 + (word >> 32);
    at += count;
    return static_cast<std::int32_t>(word & 0xFFFFFFFF);
}

// Every number below 10,000 as four digits with leading zeros, back to back.
inline constexpr auto kFourDigits = [] {
    std::array<char, 4 * 10000> digits{};
    for (int value = 0; value < 10000; ++value)
        for (int place = 0, power = 1000; place < 4; ++place, power /= 10)
            digits[static_cast<std::size_t>(4 * value + place)] = static_cast<char>('0' + value / power % 10);
    return digits;
}();

// Writes `value`, 0 to 99,999,999, without leading zeros at `at`; eight bytes from `at`
// must be writable. Answers the end of the digits; nullptr, with nothing written, for
// any other value.
inline char* writeEightDigits(char* at, std::int32_t value) {
    if (value < 0 || value > 99'999'999) return nullptr;
    const auto high = static_cast<std::uint32_t>(value) / 10000;
    const auto low = static_cast<std::uint32_t>(value) % 10000;
    const std::uint32_t lead = high == 0 ? low : high;
    const int count = 1 + (lead >= 10) + (lead >= 100) + (lead >= 1000);
    std::memcpy(at, kFourDigits.data() + 4 * lead + 4 - count, 4);
    if (high == 0) return at + count;
    std::memcpy(at + count, kFourDigits.data() + 4 * low, 4);
    return at + count + 4;
}

}  // namespace quorlin
