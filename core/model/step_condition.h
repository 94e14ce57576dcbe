#pragma once

#include "ports/screen_reader.h"

namespace quorlin {

// The image condition of one click step: whether it has one, and the screen rectangle
// that must show the current reference picture.
struct StepCondition {
    bool hasImage = false;
    ScreenRect rect{};
};

}  // namespace quorlin
