#pragma once

#include "model/reference_picture.h"
#include "model/window_model.h"

namespace quorlin {

// Whether the current reference picture's rectangle lies within its pixel store,
// so that an entry can take a copy of it.
bool pictureCopyable(const ReferencePicture& picture);

// Writes the step fields into entry r: its ten cells (grid and sRowCells) and, when
// "Recognize Image" is ticked, a copy of the current reference picture.
void writeEntry(WindowModel& m, int r);

}  // namespace quorlin
