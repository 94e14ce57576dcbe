#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorlin {

// How the user's locale writes numbers. A period is always accepted as well.
struct NumberLocale {
    std::string decimalSeparator = ".";
};

// The number a text begins with: blanks, tabs and line feeds are passed over wherever
// they stand; an optional sign, digits, one period and an optional exponent are read,
// or "&H"/"&O" followed by hexadecimal/octal digits. A text without a number gives 0.
double leadingNumber(std::string_view text);

// The value of a text that is a number as a whole (blanks around it allowed), or nothing.
// An empty text is not a number.
std::optional<double> wholeNumber(std::string_view text, const NumberLocale& locale);
inline bool isNumber(std::string_view text, const NumberLocale& locale) {
    return wholeNumber(text, locale).has_value();
}

// Rounds to the nearest integer, halves to the even neighbour.
double roundHalfEven(double value);

// Rounded (halves to even) into the range of the target; nothing when it does not fit.
std::optional<std::int16_t> toInt16(double value);
std::optional<std::int32_t> toInt32(double value);
// Rounded into 32 bits; a value beyond them becomes the nearest end of the range.
std::int32_t clampToInt32(double value);

}  // namespace quorlin
