#pragma once

#include <windows.h>

#include <functional>

#include "ports/timers.h"

namespace quorlin::win32 {

// The readout's 1 ms is below what a window timer can do (10 ms), and would wake the
// program a hundred times a second; 20 readings a second look just as live.
inline constexpr int kReadoutIntervalMs = 50;

// The window's three timers as window timers of a message-only window of their own;
// each WM_TIMER goes to the tick handler.
class Win32Timers : public Timers {
public:
    using TickHandler = std::function<void(TimerId)>;
    explicit Win32Timers(TickHandler onTick);
    ~Win32Timers() override;
    Win32Timers(const Win32Timers&) = delete;
    Win32Timers& operator=(const Win32Timers&) = delete;

    void setInterval(TimerId timer, std::int32_t milliseconds) override;
    void startReadout() { setInterval(TimerId::timer, kReadoutIntervalMs); }

private:
    static LRESULT CALLBACK windowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

    TickHandler onTick_;
    HWND window_ = nullptr;
};

}  // namespace quorlin::win32
