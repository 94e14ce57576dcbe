#pragma once

#include "form/controls.h"

namespace quorlin::project {

// The step fields that close the run settings, in the order they stand in the file.
inline constexpr Ctl kStepFields[] = {Ctl::txtCount, Ctl::txtX, Ctl::txtY, Ctl::txtMinutes, Ctl::txtSeconds,
                                      Ctl::txtMiliseconds, Ctl::txtFromSec, Ctl::txtToSec};

}  // namespace quorlin::project
