#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "form/entry_form.h"
#include "form/layout.h"
#include "model/reference_picture.h"

namespace quorlin {

// The drawing shown in the picture box picScreen: one picture pixel per screen pixel
// from its top-left corner, cut at its edges. Unpainted pixels show the background.
// Every change is told to the observer, once per drawing.
class PictureBox {
public:
    // The box's size at 15 twips per pixel; a window drawn at another density resizes it.
    static constexpr int kWidth = 2750 / kTwipsPerPixel;
    static constexpr int kHeight = 880 / kTwipsPerPixel;
    static constexpr Colour kBackground = std::numeric_limits<Colour>::min();

    int width() const { return width_; }
    int height() const { return height_; }
    // A resized box shows nothing until it is drawn again.
    void setSize(int width, int height);
    void clear();
    // Draws the first `count` pixels of the reference picture, taken column by column
    // for a picture `height` pixels high, over what the box shows.
    void draw(const ReferencePicture& picture, int height, std::size_t count);
    Colour pixel(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }

    void setObserver(FormObserver* observer) { observer_ = observer; }

private:
    void changed() {
        if (observer_) observer_->pictureBoxChanged();
    }

    int width_ = kWidth;
    int height_ = kHeight;
    std::vector<Colour> pixels_ = std::vector<Colour>(kWidth * kHeight, kBackground);
    FormObserver* observer_ = nullptr;
};

}  // namespace quorlin
