#pragma once

#include <cstdint>
#include <string>

namespace quorlin {

// A window of the desktop; 0 means "no window".
using WindowHandle = std::uintptr_t;

// Physical screen pixels of the whole desktop, origin at the primary monitor's top-left.
struct ScreenPoint {
    std::int32_t x;
    std::int32_t y;
    friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

// The desktop operations the click step, the readout and the window need.
// Messages are Windows window messages (code, wParam, lParam); a back end for
// another desktop translates them into its own input events.
class Desktop {
public:
    virtual ~Desktop() = default;

    // The innermost visible window containing the point, or 0.
    virtual WindowHandle windowFromPoint(ScreenPoint point) = 0;
    // The point in the client coordinates of the window; unchanged for window 0.
    virtual ScreenPoint screenToClient(WindowHandle window, ScreenPoint point) = 0;
    // Queues the message for the window and returns at once; failures are ignored.
    virtual void postMessage(WindowHandle window, std::uint32_t code, std::uint32_t wParam,
                             std::uint32_t lParam) = 0;
    virtual ScreenPoint cursorPos() = 0;
    // Keeps the window above normal windows, or lets others cover it.
    virtual void setTopMost(WindowHandle window, bool topMost) = 0;
    // Hands a web or mailto link to the desktop's default program.
    virtual void openLink(const std::string& link) = 0;
};

}  // namespace quorlin
