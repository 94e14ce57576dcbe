#include "win32/win32_desktop.h"

#include <windows.h>
#include <shellapi.h>

namespace quorlin::win32 {

namespace {
HWND hwndOf(WindowHandle window) { return reinterpret_cast<HWND>(window); }
}  // namespace

WindowHandle Win32Desktop::windowFromPoint(ScreenPoint point) {
    return reinterpret_cast<WindowHandle>(WindowFromPoint(POINT{point.x, point.y}));
}

ScreenPoint Win32Desktop::screenToClient(WindowHandle window, ScreenPoint point) {
    if (window == 0) return point;
    POINT p{point.x, point.y};
    if (!ScreenToClient(hwndOf(window), &p)) return point;
    return {p.x, p.y};
}

// Both values travel as their 32-bit patterns, zero-extended as the system's own
// mouse and key messages carry them on 64-bit Windows.
void Win32Desktop::postMessage(WindowHandle window, std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam) {
    PostMessageA(hwndOf(window), code, static_cast<WPARAM>(wParam), static_cast<LPARAM>(lParam));
}

ScreenPoint Win32Desktop::cursorPos() {
    POINT p{0, 0};
    GetCursorPos(&p);
    return {p.x, p.y};
}

void Win32Desktop::setTopMost(WindowHandle window, bool topMost) {
    SetWindowPos(hwndOf(window), topMost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Win32Desktop::openLink(const std::string& link) {
    ShellExecuteA(nullptr, nullptr, link.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace quorlin::win32
