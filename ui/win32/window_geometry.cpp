#include "window_geometry.h"

namespace quorlin::win32 {

namespace {

TwipsRect inWindow(const ControlLayout& layout) {
    TwipsRect r = layout.rect;
    for (Ctl parent = layout.parent; parent != Ctl::frmMain;) {
        const ControlLayout& container = windowLayout()[indexOf(parent)];
        r.left += container.rect.left;
        r.top += container.rect.top;
        parent = container.parent;
    }
    return r;
}

// 8.25 points as the font's character height in pixels.
HFONT makeFont(const wchar_t* family, bool bold, UINT dpi) {
    const int height = -MulDiv(825, static_cast<int>(dpi), 7200);
    return CreateFontW(height, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_SWISS, family);
}

}  // namespace

RECT clientRectOf(const ControlLayout& layout, UINT dpi) {
    const TwipsRect r = inWindow(layout);
    const int left = pixelsOf(r.left, dpi);
    const int top = pixelsOf(r.top, dpi);
    return {left, top, left + pixelsOf(r.width, dpi), top + pixelsOf(r.height, dpi)};
}

void WindowFonts::create(UINT dpi) {
    release();
    fonts_[static_cast<std::size_t>(FontRole::Default)] = makeFont(L"MS Sans Serif", false, dpi);
    fonts_[static_cast<std::size_t>(FontRole::BoldTahoma)] = makeFont(L"Tahoma", true, dpi);
    fonts_[static_cast<std::size_t>(FontRole::BoldSansSerif)] = makeFont(L"MS Sans Serif", true, dpi);
}

void WindowFonts::release() {
    for (HFONT& f : fonts_) {
        if (f) DeleteObject(f);
        f = nullptr;
    }
}

}  // namespace quorlin::win32
