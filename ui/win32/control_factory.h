#pragma once

#include <windows.h>

#include "form/layout.h"

namespace quorlin::win32 {

// The native control for one entry of the layout table, as a child of the main window
// with the control's id. Picture boxes and the grid are made by their own views.
HWND createStandardControl(const ControlLayout& layout, HWND parent);

}  // namespace quorlin::win32
