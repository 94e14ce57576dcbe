#include "x11/x11_input_action.h"

#include <X11/keysym.h>

#include "run/window_messages.h"
#include "x11/x11_keyboard.h"

namespace quorlin::x11 {

namespace {

KeySym keysymForCharacter(unsigned char code, bool afterReturn) {
    if (code == '\r') return XK_Return;
    if (code == '\n') return afterReturn ? NoSymbol : XK_Return;
    if (code == '\t') return XK_Tab;
    if (code >= 32) return X11Keyboard::keysymForAnsi(code);
    return NoSymbol;
}

}  // namespace

InputAction inputActionFor(std::uint32_t code, std::uint32_t wParam, bool afterReturn) {
    using namespace wm;
    using Kind = InputAction::Kind;
    switch (code) {
        case WM_LBUTTONDOWN: return {Kind::press, Button1, NoSymbol, true};
        case WM_LBUTTONDBLCLK: return {Kind::press, Button1, NoSymbol, false};
        case WM_LBUTTONUP: return {Kind::release, Button1, NoSymbol};
        case WM_RBUTTONDOWN: return {Kind::press, Button3, NoSymbol, true};
        case WM_RBUTTONUP: return {Kind::release, Button3, NoSymbol};
        case WM_CHAR: {
            const KeySym keysym = keysymForCharacter(static_cast<unsigned char>(wParam & 0xFF), afterReturn);
            return keysym == NoSymbol ? InputAction{} : InputAction{Kind::key, 0, keysym};
        }
        default: return {};
    }
}

}  // namespace quorlin::x11
