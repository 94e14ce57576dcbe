#pragma once

#include "ports/desktop.h"

namespace quorlin::win32 {

// The desktop operations on user32 and shell32: the click step's messages are posted
// as they are to the target's queue; the real cursor and the focus are never touched.
class Win32Desktop : public Desktop {
public:
    WindowHandle windowFromPoint(ScreenPoint point) override;
    ScreenPoint screenToClient(WindowHandle window, ScreenPoint point) override;
    void postMessage(WindowHandle window, std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam) override;
    ScreenPoint cursorPos() override;
    void setTopMost(WindowHandle window, bool topMost) override;
    void openLink(const std::string& link) override;
};

}  // namespace quorlin::win32
