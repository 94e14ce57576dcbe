#pragma once

#include <vector>

#include "model/reference_picture.h"
#include "model/step_condition.h"
#include "ports/screen_reader.h"

namespace quorlin {

// The test made before every click: does the screen inside the step's rectangle
// show the current reference picture, pixel for pixel?
class ImageCondition {
public:
    explicit ImageCondition(ScreenReader& screen) : screen_(screen) {}

    // True when the click may happen. include: the rule "Click if screen picture is : ".
    bool ImageConditionMet(const StepCondition& condition, const ReferencePicture& picture, bool include);

private:
    bool screenDiffers(const ScreenRect& rect, const ReferencePicture& picture);

    ScreenReader& screen_;
    std::vector<Colour> buffer_;
};

}  // namespace quorlin
