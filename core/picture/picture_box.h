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
    // The box's size at 15 twips per pixel; a window drawn at another density resizes it.
    static constexpr int kWidth = 2750 / kTwipsPerPixel;
    static constexpr int kHeight = 880 / kTwipsPerPixel;
    static constexpr Colour kBackground = std::numeric_limits<Colour>::min();

    int width() const { return width_; }
    int height() const { return height_; }
    // A resized box shows nothing until it is drawn again.
    void setSize(int width, int height) {
        width_ = width;
        height_ = height;
        pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), kBackground);
    }
    void clear() { pixels_.assign(pixels_.size(), kBackground); }
    void setPixel(int x, int y, Colour c) {
        if (x >= 0 && y >= 0 && x < width_ && y < height_) pixels_[static_cast<std::size_t>(y) * width_ + x] = c;
    }
    Colour pixel(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }

private:
    int width_ = kWidth;
    int height_ = kHeight;
    std::vector<Colour> pixels_ = std::vector<Colour>(kWidth * kHeight, kBackground);
};

}  // namespace quorlin
