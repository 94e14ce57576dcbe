#include "picture/image_condition.h"

namespace quorlin {

bool ImageCondition::ImageConditionMet(const StepCondition& condition, const ReferencePicture& picture,
                                       bool include) {
    if (!condition.hasImage) return true;
    bool differs = screenDiffers(condition.rect, picture);
    return include ? !differs : differs;
}

// The whole rectangle is read and compared, every time. Pixels beyond the picture
// store cannot be equal to anything stored, so a larger rectangle differs unread:
// its size, which may come from any file, never sizes a buffer.
bool ImageCondition::screenDiffers(const ScreenRect& rect, const ReferencePicture& picture) {
    if (rect.width() > kPictureSide || rect.height() > kPictureSide) return true;
    const int width = static_cast<int>(rect.width());
    const int height = static_cast<int>(rect.height());
    if (width == 0 || height == 0) return false;
    buffer_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    screen_.readRect(rect, buffer_);

    bool differs = false;
    for (int dy = 0; dy < height; ++dy) {
        const Colour* seen = buffer_.data() + static_cast<std::size_t>(dy) * width;
        const Colour* expected = picture.row(dy);
        for (int dx = 0; dx < width; ++dx) differs |= seen[dx] != expected[dx];
    }
    return differs;
}

}  // namespace quorlin
