#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <span>
#include <vector>

#include "ports/screen_reader.h"
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

// The number lines of pictures' pixels, column by column. Formatting costs more than
// writing, so a large picture is formatted in parts on every core while the parts before
// are written; the text still comes out in column order.
class PixelText {
public:
    // Fills `column` with the pixels of column `x`, top down.
    using ColumnSource = std::function<void(int x, std::span<Colour> column)>;
    using Sink = std::function<bool(std::span<const char> text)>;

    // False as soon as `sink` fails.
    bool write(int columns, std::size_t height, const ColumnSource& source, const Sink& sink);

private:
    struct Part {
        std::vector<char> text;
        std::size_t used = 0;
    };
    void format(Part& part, int from, int to, std::size_t height, const ColumnSource& source);

    std::vector<Part> parts_;
};

}  // namespace quorlin
