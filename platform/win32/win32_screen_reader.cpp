#include "win32/win32_screen_reader.h"

#include <windows.h>

#include <algorithm>

namespace quorlin::win32 {

namespace {

// The part of the rectangle that lies on the desktop, all monitors together.
ScreenRect onScreen(const ScreenRect& rect) {
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return {std::max(rect.left, left), std::max(rect.top, top),
            std::min(rect.right, left + GetSystemMetrics(SM_CXVIRTUALSCREEN) - 1),
            std::min(rect.bottom, top + GetSystemMetrics(SM_CYVIRTUALSCREEN) - 1)};
}

// A DIB pixel is 0x00RRGGBB; the window's colours are 0x00BBGGRR.
Colour fromDib(std::uint32_t p) {
    return static_cast<Colour>(((p & 0xFF) << 16) | (p & 0xFF00) | ((p >> 16) & 0xFF));
}

}  // namespace

Win32ScreenReader::~Win32ScreenReader() { release(); }

void Win32ScreenReader::release() {
    if (!memory_) return;
    SelectObject(memory_, original_);
    DeleteObject(bitmap_);
    DeleteDC(memory_);
    memory_ = nullptr;
    bitmap_ = nullptr;
    bits_ = nullptr;
    width_ = height_ = 0;
}

// A top-down 32-bit DIB section at least as large as the request.
bool Win32ScreenReader::reserve(int width, int height) {
    if (memory_ && width <= width_ && height <= height_) return true;
    const int w = std::max(width, width_);
    const int h = std::max(height, height_);
    release();
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = w;
    info.bmiHeader.biHeight = -h;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) return false;
    memory_ = CreateCompatibleDC(nullptr);
    bitmap_ = bitmap;
    original_ = static_cast<HBITMAP>(SelectObject(memory_, bitmap_));
    bits_ = static_cast<const std::uint32_t*>(bits);
    width_ = w;
    height_ = h;
    return true;
}

void Win32ScreenReader::readRect(const ScreenRect& rect, std::span<Colour> out) {
    const int width = rect.width();
    if (width == 0 || rect.height() == 0) return;
    std::fill(out.begin(), out.end(), kOffScreen);
    const ScreenRect part = onScreen(rect);
    const int w = part.width();
    const int h = part.height();
    if (w == 0 || h == 0 || !reserve(w, h)) return;

    HDC screen = GetDC(nullptr);
    const bool copied = BitBlt(memory_, 0, 0, w, h, screen, part.left, part.top, SRCCOPY | CAPTUREBLT);
    ReleaseDC(nullptr, screen);
    if (!copied) return;
    GdiFlush();
    for (int y = 0; y < h; ++y) {
        const std::uint32_t* src = bits_ + static_cast<std::size_t>(y) * width_;
        Colour* row = out.data() + static_cast<std::size_t>(part.top - rect.top + y) * width + (part.left - rect.left);
        std::transform(src, src + w, row, fromDib);
    }
}

}  // namespace quorlin::win32
