#pragma once

#include "picture/reference_picture.h"
#include "window/controls.h"

namespace quorlin::project {

// The text fields of the file in the order they stand: the picture rectangle among the
// image settings, and the step fields that close the run settings.
inline constexpr Ctl kRectangleFields[] = {Ctl::txtTopX, Ctl::txtTopY, Ctl::txtBottomX, Ctl::txtBottomY};
inline constexpr Ctl kStepFields[] = {Ctl::txtCount, Ctl::txtX, Ctl::txtY, Ctl::txtMinutes, Ctl::txtSeconds,
                                      Ctl::txtMiliseconds, Ctl::txtFromSec, Ctl::txtToSec};

// Pixel indices of a picture block lie within the picture store.
inline bool inStoreRange(int index) { return index >= 0 && index < kPictureSide; }

}  // namespace quorlin::project
