#pragma once

#include <windows.h>

#include <array>

#include "form/layout.h"

namespace quorlin::win32 {

// Twips at the monitor's dots per inch: 15 twips a pixel at 96 DPI.
inline int pixelsOf(int twips, UINT dpi) { return MulDiv(twips, static_cast<int>(dpi), 1440); }

// The control's rectangle in the main window's client area, in pixels at dpi: frames
// are containers in the layout, but every control is a child of the main window.
RECT clientRectOf(const ControlLayout& layout, UINT dpi);

// The window's three fonts, made for one DPI.
class WindowFonts {
public:
    WindowFonts() = default;
    ~WindowFonts() { release(); }
    WindowFonts(const WindowFonts&) = delete;
    WindowFonts& operator=(const WindowFonts&) = delete;

    void create(UINT dpi);
    HFONT font(FontRole role) const { return fonts_[static_cast<std::size_t>(role)]; }

private:
    void release();
    std::array<HFONT, 3> fonts_{};
};

}  // namespace quorlin::win32
