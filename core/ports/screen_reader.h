#pragma once

#include <cstdint>
#include <span>

namespace quorlin {

// A colour as 0x00BBGGRR; a pixel the screen cannot deliver reads as kOffScreen.
using Colour = std::int32_t;
inline constexpr Colour kOffScreen = -1;

// A screen rectangle, both corners inclusive.
struct ScreenRect {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;

    // In 64 bits: the extreme corners of 32-bit coordinates span more than 32 bits hold.
    std::int64_t width() const { return right < left ? 0 : std::int64_t{right} - left + 1; }
    std::int64_t height() const { return bottom < top ? 0 : std::int64_t{bottom} - top + 1; }
};

class ScreenReader {
public:
    virtual ~ScreenReader() = default;

    // Reads every pixel of the rectangle in one go, row by row from the top:
    // out[(y - top) * width + (x - left)]. out holds exactly width * height values.
    // Pixels outside the screen read as kOffScreen.
    virtual void readRect(const ScreenRect& rect, std::span<Colour> out) = 0;
};

}  // namespace quorlin
