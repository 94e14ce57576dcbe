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
    static constexpr int kWidth = 2750 / kTwipsPerPixel;
    static constexpr int kHeight = 880 / kTwipsPerPixel;
    static constexpr Colour kBackground = std::numeric_limits<Colour>::min();

    void clear();
    // Draws the first `count` pixels of the reference picture, taken column by column
    // for a picture `height` pixels high, over what the box shows.
    void draw(const ReferencePicture& picture, int height, std::size_t count);
    Colour pixel(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * kWidth + x]; }

    void setObserver(FormObserver* observer) { observer_ = observer; }

private:
    void changed() {
        if (observer_) observer_->pictureBoxChanged();
    }

    std::vector<Colour> pixels_ = std::vector<Colour>(kWidth * kHeight, kBackground);
    FormObserver* observer_ = nullptr;
};

}  // namespace quorlin
