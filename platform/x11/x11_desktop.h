#pragma once

#include "ports/desktop.h"
#include "x11/x11_connection.h"
#include "x11/x11_input_router.h"
#include "x11/x11_window_at_point.h"

namespace quorlin::x11 {

// The desktop operations on X11. Window messages become X input for the target window
// (see X11InputRouter); the user's pointer and focus are never touched.
class X11Desktop : public Desktop {
public:
    explicit X11Desktop(X11Connection& connection);

    WindowHandle windowFromPoint(ScreenPoint point) override;
    ScreenPoint screenToClient(WindowHandle window, ScreenPoint point) override;
    void postMessage(WindowHandle window, std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam) override;
    ScreenPoint cursorPos() override;
    void setTopMost(WindowHandle window, bool topMost) override;
    void openLink(const std::string& link) override;

    static constexpr auto kQuietEnd = X11InputRouter::kQuietEnd;

    // Ends the step's input at once (pointer crossing, focus, bound keys) instead of
    // after the messages have stopped for a while.
    void finishStep() { input_.finishStep(); }

private:
    void setStateProperty(Window w, Atom state, Atom above, bool on);

    X11Connection& x_;
    X11WindowAtPoint windowAtPoint_;
    X11InputRouter input_;
};

}  // namespace quorlin::x11
