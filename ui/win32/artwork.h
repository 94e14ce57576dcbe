#pragma once

#include <windows.h>

namespace quorlin::win32 {

// Quorlin's own pictures, drawn at start-up on the given background.
HBITMAP logoBitmap(COLORREF background);        // 108 x 96
HBITMAP helpBitmap(COLORREF background);        // 19 x 20
HICON windowIcon(int size);                     // size x size, transparent around the emblem

}  // namespace quorlin::win32
