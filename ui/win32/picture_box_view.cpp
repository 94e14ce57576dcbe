#include "picture_box_view.h"

#include <algorithm>
#include <vector>

namespace quorlin::win32 {

namespace {

constexpr wchar_t kClassName[] = L"QuorlinPictureBox";

std::uint32_t dibPixel(Colour c, std::uint32_t background) {
    if (c == PictureBox::kBackground) return background;
    const auto v = static_cast<std::uint32_t>(c);
    return ((v & 0xFF) << 16) | (v & 0xFF00) | ((v >> 16) & 0xFF);
}

}  // namespace

PictureBoxView::PictureBoxView(const PictureBox& box, std::function<void()> beforePaint)
    : box_(box), beforePaint_(std::move(beforePaint)) {}

HWND PictureBoxView::create(HWND parent, int id) {
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    wc.lpfnWndProc = &PictureBoxView::windowProc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.lpszClassName = kClassName;
    RegisterClassExW(&wc);
    HWND hwnd = CreateWindowExW(0, kClassName, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent,
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return hwnd;
}

LRESULT CALLBACK PictureBoxView::windowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<PictureBoxView*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (self && message == WM_PAINT) {
        self->paint(hwnd);
        return 0;
    }
    if (message == WM_ERASEBKGND) return 1;
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

// The whole client area in one transfer: the box's pixels, the window colour beyond them.
void PictureBoxView::paint(HWND hwnd) {
    painting_ = true;
    if (beforePaint_) beforePaint_();
    painting_ = false;

    RECT client;
    GetClientRect(hwnd, &client);
    const int width = std::max<int>(client.right, 1);
    const int height = std::max<int>(client.bottom, 1);
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const std::uint32_t background = (GetRValue(face) << 16) | (GetGValue(face) << 8) | GetBValue(face);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * height, background);
    for (int y = 0; y < std::min(height, PictureBox::kHeight); ++y)
        for (int x = 0; x < std::min(width, PictureBox::kWidth); ++x)
            pixels[static_cast<std::size_t>(y) * width + x] = dibPixel(box_.pixel(x, y), background);

    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(hwnd, &ps);
    SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(width), static_cast<DWORD>(height), 0, 0, 0,
                      static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
    EndPaint(hwnd, &ps);
}

}  // namespace quorlin::win32
