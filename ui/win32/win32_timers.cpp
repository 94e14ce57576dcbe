#include "win32_timers.h"

namespace quorlin::win32 {

namespace {

constexpr wchar_t kClassName[] = L"QuorlinTimers";

// Timer ids start at 1: SetTimer treats id 0 like any other, but 0 reads as "none".
UINT_PTR idOf(TimerId timer) { return static_cast<UINT_PTR>(timer) + 1; }
constexpr UINT_PTR kLastId = static_cast<UINT_PTR>(TimerId::timer) + 1;

void registerClass(WNDPROC procedure) {
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    wc.lpfnWndProc = procedure;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.lpszClassName = kClassName;
    RegisterClassExW(&wc);
}

}  // namespace

Win32Timers::Win32Timers(TickHandler onTick) : onTick_(std::move(onTick)) {
    registerClass(&Win32Timers::windowProc);
    window_ = CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Win32Timers::~Win32Timers() { DestroyWindow(window_); }

// Setting the same id again restarts its countdown, as the window's timers do.
void Win32Timers::setInterval(TimerId timer, std::int32_t milliseconds) {
    if (milliseconds > 0) SetTimer(window_, idOf(timer), static_cast<UINT>(milliseconds), nullptr);
    else KillTimer(window_, idOf(timer));
}

LRESULT CALLBACK Win32Timers::windowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<Win32Timers*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (message == WM_TIMER && self && wParam >= 1 && wParam <= kLastId) {
        self->onTick_(static_cast<TimerId>(wParam - 1));
        return 0;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

}  // namespace quorlin::win32
