#pragma once

#include <limits>
#include <vector>

#include "ports/screen_reader.h"
#include "window/layout.h"

namespace quorlin {

// The drawing shown in the picture box picScreen: one picture pixel per screen pixel
// from its top-left corner, cut at its edges. Unpainted pixels show the background.
class PictureBox {
public:
    static constexpr int kWidth = 2750 / kTwipsPerPixel;
    static constexpr int kHeight = 880 / kTwipsPerPixel;
    static constexpr Colour kBackground = std::numeric_limits<Colour>::min();

    void clear() { pixels_.assign(pixels_.size(), kBackground); }
    void setPixel(int x, int y, Colour c) {
        if (x >= 0 && y >= 0 && x < kWidth && y < kHeight) pixels_[static_cast<std::size_t>(y) * kWidth + x] = c;
    }
    Colour pixel(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * kWidth + x]; }

private:
    std::vector<Colour> pixels_ = std::vector<Colour>(kWidth * kHeight, kBackground);
};

}  // namespace quorlin
