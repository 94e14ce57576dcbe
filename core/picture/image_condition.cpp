#include "picture/image_condition.h"

namespace quorlin {

bool ImageCondition::ImageConditionMet(const StepCondition& condition, const ReferencePicture& picture,
                                       bool include) {
    if (!condition.hasImage) return true;
    bool differs = screenDiffers(condition.rect, picture);
    return include ? !differs : differs;
}

// The whole rectangle is read and compared, every time. Pixels beyond the picture
// store cannot be equal to anything stored, so they count as different.
bool ImageCondition::screenDiffers(const ScreenRect& rect, const ReferencePicture& picture) {
    const int width = rect.width();
    const int height = rect.height();
    if (width == 0 || height == 0) return false;
    buffer_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    screen_.readRect(rect, buffer_);

    bool differs = false;
    for (int dy = 0; dy < height; ++dy) {
        const Colour* row = buffer_.data() + static_cast<std::size_t>(dy) * width;
        for (int dx = 0; dx < width; ++dx) {
            if (!ReferencePicture::inStore(dx, dy) || row[dx] != picture.pixel(dx, dy)) differs = true;
        }
    }
    return differs;
}

}  // namespace quorlin
