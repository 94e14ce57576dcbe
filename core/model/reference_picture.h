#pragma once

#include <cstdint>
#include <vector>

#include "ports/screen_reader.h"

namespace quorlin {

// The largest picture is kPictureSide x kPictureSide pixels; indices run 0 to 1000.
inline constexpr int kPictureSide = 1001;

// The current reference picture: the fixed store of pixels and the rectangle it was
// taken from. Only dx 0..iPicMaxX, dy 0..iPicMaxY belong to the picture; the rest of
// the store keeps what earlier, larger pictures left there.
struct ReferencePicture {
    // Row by row, as the screen is read: pixel (dx, dy) at dy * kPictureSide + dx.
    std::vector<Colour> lPixels = std::vector<Colour>(kPictureSide * kPictureSide, 0);
    std::int16_t iPicMaxX = 0;
    std::int16_t iPicMaxY = 0;
    std::int16_t iTopX = 0;
    std::int16_t iTopY = 0;
    std::int16_t iBottomX = 0;
    std::int16_t iBottomY = 0;

    static bool inStore(int dx, int dy) { return dx >= 0 && dy >= 0 && dx < kPictureSide && dy < kPictureSide; }
    Colour& pixel(int dx, int dy) { return lPixels[static_cast<std::size_t>(dy) * kPictureSide + dx]; }
    Colour pixel(int dx, int dy) const { return lPixels[static_cast<std::size_t>(dy) * kPictureSide + dx]; }
    Colour* row(int dy) { return lPixels.data() + static_cast<std::size_t>(dy) * kPictureSide; }
    const Colour* row(int dy) const { return lPixels.data() + static_cast<std::size_t>(dy) * kPictureSide; }
    ScreenRect rect() const { return {iTopX, iTopY, iBottomX, iBottomY}; }
};

}  // namespace quorlin
