#pragma once

#include <windows.h>

#include "ports/event_pump.h"

namespace quorlin::win32 {

// The thread's message queue: a pass dispatches every pending message. Keyboard
// navigation between the controls of the dialog window is handled on the way.
class Win32EventPump : public EventPump {
public:
    void setDialogWindow(HWND window) { dialog_ = window; }

    void pumpOnce() override;
    void waitForEvents() override;

    // WM_QUIT has been taken from the queue: the program ends.
    bool quitRequested() const { return quit_; }
    int exitCode() const { return exitCode_; }

private:
    HWND dialog_ = nullptr;
    bool quit_ = false;
    int exitCode_ = 0;
};

}  // namespace quorlin::win32
