#include "artwork.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace quorlin::win32 {

namespace {

struct Canvas {
    HBITMAP bitmap = nullptr;
    std::uint32_t* bits = nullptr;
};

// A top-down 32-bit DIB section filled with the background and drawn on with GDI.
Canvas paint(int width, int height, COLORREF background, const std::function<void(HDC)>& draw) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    Canvas canvas;
    void* bits = nullptr;
    canvas.bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    canvas.bits = static_cast<std::uint32_t*>(bits);
    if (!canvas.bitmap) return canvas;
    HDC dc = CreateCompatibleDC(nullptr);
    HGDIOBJ old = SelectObject(dc, canvas.bitmap);
    HBRUSH fill = CreateSolidBrush(background);
    const RECT all{0, 0, width, height};
    FillRect(dc, &all, fill);
    DeleteObject(fill);
    draw(dc);
    SelectObject(dc, old);
    DeleteDC(dc);
    GdiFlush();
    return canvas;
}

// A mouse pointer over a target ring: the emblem of the logo and the icon.
void drawEmblem(HDC dc, int left, int top, int size) {
    const int ring = size / 12 + 1;
    HPEN red = CreatePen(PS_SOLID, ring, RGB(200, 30, 30));
    HGDIOBJ oldPen = SelectObject(dc, red);
    HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(NULL_BRUSH));
    const int inset = ring / 2 + 1;
    Ellipse(dc, left + inset, top + inset, left + size - inset, top + size - inset);
    const int inner = size * 3 / 10;
    Ellipse(dc, left + inner, top + inner, left + size - inner, top + size - inner);
    const int cx = left + size / 2;
    const int cy = top + size / 2;
    const int s = size / 20 + 1;
    const POINT arrow[] = {{cx, cy}, {cx, cy + 9 * s}, {cx + 2 * s, cy + 7 * s}, {cx + 4 * s, cy + 10 * s},
                           {cx + 5 * s, cy + 9 * s}, {cx + 4 * s, cy + 6 * s}, {cx + 7 * s, cy + 6 * s}};
    SelectObject(dc, GetStockObject(BLACK_PEN));
    SelectObject(dc, GetStockObject(WHITE_BRUSH));
    Polygon(dc, arrow, static_cast<int>(std::size(arrow)));
    SelectObject(dc, oldBrush);
    SelectObject(dc, oldPen);
    DeleteObject(red);
}

void drawLabel(HDC dc, RECT area, int pixelHeight, COLORREF colour, const wchar_t* text) {
    HFONT font = CreateFontW(-pixelHeight, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                             CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH, L"Tahoma");
    HGDIOBJ old = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, colour);
    DrawTextW(dc, text, -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    SelectObject(dc, old);
    DeleteObject(font);
}

}  // namespace

HBITMAP logoBitmap(COLORREF background) {
    return paint(108, 96, background, [](HDC dc) {
        drawEmblem(dc, 24, 4, 60);
        drawLabel(dc, RECT{0, 66, 108, 92}, 17, RGB(40, 40, 110), L"Quorlin");
    }).bitmap;
}

HBITMAP helpBitmap(COLORREF background) {
    return paint(19, 20, background, [](HDC dc) {
        HBRUSH blue = CreateSolidBrush(RGB(40, 90, 200));
        HGDIOBJ oldBrush = SelectObject(dc, blue);
        HGDIOBJ oldPen = SelectObject(dc, GetStockObject(NULL_PEN));
        Ellipse(dc, 0, 1, 19, 20);
        SelectObject(dc, oldPen);
        SelectObject(dc, oldBrush);
        DeleteObject(blue);
        drawLabel(dc, RECT{0, 1, 19, 20}, 14, RGB(255, 255, 255), L"?");
    }).bitmap;
}

// Drawn on a key colour that becomes the transparent part of the icon.
HICON windowIcon(int size) {
    constexpr COLORREF kKey = RGB(255, 0, 255);
    Canvas canvas = paint(size, size, kKey, [size](HDC dc) { drawEmblem(dc, 0, 0, size); });
    if (!canvas.bitmap) return nullptr;
    for (int i = 0; i < size * size; ++i) {
        std::uint32_t& p = canvas.bits[i];
        p = (p & 0xFFFFFF) == 0xFF00FF ? 0 : (p | 0xFF000000);
    }
    const std::vector<BYTE> clear(static_cast<std::size_t>((size + 15) / 16 * 2 * size), 0);
    HBITMAP mask = CreateBitmap(size, size, 1, 1, clear.data());
    ICONINFO info{TRUE, 0, 0, mask, canvas.bitmap};
    HICON icon = CreateIconIndirect(&info);
    DeleteObject(mask);
    DeleteObject(canvas.bitmap);
    return icon;
}

}  // namespace quorlin::win32
