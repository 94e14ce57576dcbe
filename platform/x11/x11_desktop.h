#pragma once

#include "ports/desktop.h"
#include "x11/x11_connection.h"
#include "x11/x11_keyboard.h"
#include "x11/x11_window_at_point.h"

namespace quorlin::x11 {

// The desktop operations on X11. Window messages become synthetic X events sent to
// the target window; the real pointer and the focus are never touched.
class X11Desktop : public Desktop {
public:
    explicit X11Desktop(X11Connection& connection);

    WindowHandle windowFromPoint(ScreenPoint point) override;
    ScreenPoint screenToClient(WindowHandle window, ScreenPoint point) override;
    void postMessage(WindowHandle window, std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam) override;
    ScreenPoint cursorPos() override;
    void setTopMost(WindowHandle window, bool topMost) override;
    void openLink(const std::string& link) override;

private:
    XEvent inputEvent(int type, Window target) const;
    void sendButton(Window target, int type, unsigned int button, unsigned int state, std::uint32_t lParam);
    void sendCharacter(Window target, unsigned char code);
    void sendKey(Window target, int type, const KeyStroke& stroke);
    void setStateProperty(Window w, Atom state, Atom above, bool on);

    X11Connection& x_;
    X11Keyboard keyboard_;
    X11WindowAtPoint windowAtPoint_;
    Window lastWasReturnTo_ = 0;
};

}  // namespace quorlin::x11
