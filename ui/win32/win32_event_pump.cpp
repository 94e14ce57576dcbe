#include "win32_event_pump.h"

namespace quorlin::win32 {

void Win32EventPump::pumpOnce() {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        if (msg.message == WM_QUIT) {
            quit_ = true;
            exitCode_ = static_cast<int>(msg.wParam);
            return;
        }
        if (dialog_ && IsDialogMessageW(dialog_, &msg)) continue;
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

// Waits for any input, also input already in the queue when the wait begins.
void Win32EventPump::waitForEvents() {
    if (quit_) return;
    MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    pumpOnce();
}

}  // namespace quorlin::win32
