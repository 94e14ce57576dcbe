#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <vector>

namespace quorlin::testing {

struct Received {
    UINT code;
    WPARAM wParam;
    LPARAM lParam;
    friend bool operator==(const Received&, const Received&) = default;
};

// Dispatches this thread's messages for a while, without translating keys: a window
// sees exactly the messages that were posted to it.
inline void pumpMessages(int milliseconds, const std::function<bool()>& done = [] { return false; }) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!done() && std::chrono::steady_clock::now() < until) {
        MSG msg;
        while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&msg);
        if (!done()) MsgWaitForMultipleObjectsEx(0, nullptr, 5, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

// A real window on this thread that records the mouse and key messages it receives and
// paints itself pixel by pixel in the given colours.
class RecordingWindow {
public:
    using Painter = std::function<COLORREF(int x, int y)>;

    RecordingWindow(RECT r, HWND parent = nullptr, DWORD style = WS_POPUP, Painter painter = nullptr)
        : painter_(std::move(painter)) {
        static const ATOM atom = [] {
            WNDCLASSEXW wc{};
            wc.cbSize = sizeof wc;
            wc.lpfnWndProc = &RecordingWindow::windowProc;
            wc.hInstance = GetModuleHandleW(nullptr);
            wc.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
            wc.lpszClassName = L"QuorlinTestRecordingWindow";
            return RegisterClassExW(&wc);
        }();
        hwnd_ = CreateWindowExW(0, MAKEINTATOM(atom), L"recording", (parent ? WS_CHILD : style) | WS_VISIBLE,
                                r.left, r.top, r.right - r.left, r.bottom - r.top, parent, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
        SetWindowLongPtrW(hwnd_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        UpdateWindow(hwnd_);
        pumpMessages(50);
        received_.clear();
    }
    ~RecordingWindow() { DestroyWindow(hwnd_); }
    RecordingWindow(const RecordingWindow&) = delete;
    RecordingWindow& operator=(const RecordingWindow&) = delete;

    HWND hwnd() const { return hwnd_; }

    const std::vector<Received>& receive(std::size_t count, int timeoutMs = 3000) {
        pumpMessages(timeoutMs, [&] { return received_.size() >= count; });
        return received_;
    }

private:
    static LRESULT CALLBACK windowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<RecordingWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
        const bool input = (message >= WM_LBUTTONDOWN && message <= WM_RBUTTONUP) ||
                           message == WM_KEYDOWN || message == WM_KEYUP || message == WM_CHAR;
        if (self && input) self->received_.push_back({message, wParam, lParam});
        if (!self || message != WM_PAINT || !self->painter_) return DefWindowProcW(hwnd, message, wParam, lParam);
        PAINTSTRUCT ps;
        HDC dc = BeginPaint(hwnd, &ps);
        RECT client;
        GetClientRect(hwnd, &client);
        for (int y = 0; y < client.bottom; ++y)
            for (int x = 0; x < client.right; ++x) SetPixel(dc, x, y, self->painter_(x, y));
        EndPaint(hwnd, &ps);
        return 0;
    }

    Painter painter_;
    HWND hwnd_ = nullptr;
    std::vector<Received> received_;
};

}  // namespace quorlin::testing
