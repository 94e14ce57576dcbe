#include "model/picture_box.h"

#include <algorithm>

namespace quorlin {

void PictureBox::setSize(int width, int height) {
    width_ = width;
    height_ = height;
    pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), kBackground);
    changed();
}

void PictureBox::clear() {
    std::fill(pixels_.begin(), pixels_.end(), kBackground);
    changed();
}

// The box never shows more than the picture store holds, whatever its size.
void PictureBox::draw(const ReferencePicture& picture, int height, std::size_t count) {
    if (height <= 0) return;
    const auto columnHeight = static_cast<std::size_t>(height);
    const int shownRows = std::min({height, height_, kPictureSide});
    const int shownColumns = std::min(width_, kPictureSide);
    for (int x = 0; x < shownColumns && static_cast<std::size_t>(x) * columnHeight < count; ++x) {
        const std::size_t columnStart = static_cast<std::size_t>(x) * columnHeight;
        const int rows = static_cast<int>(std::min<std::size_t>(shownRows, count - columnStart));
        for (int y = 0; y < rows; ++y) pixels_[static_cast<std::size_t>(y) * width_ + x] = picture.pixel(x, y);
    }
    changed();
}

}  // namespace quorlin
