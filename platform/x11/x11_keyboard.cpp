#include "x11/x11_keyboard.h"

#include <X11/XKBlib.h>
#include <X11/keysym.h>

#include "text/windows1252.h"

namespace quorlin::x11 {

KeySym X11Keyboard::keysymForAnsi(unsigned char code) {
    const char32_t cp = windows1252ToCodePoint(code);
    if ((cp >= 0x20 && cp <= 0x7E) || (cp >= 0xA0 && cp <= 0xFF)) return cp;
    return 0x01000000 + cp;
}

KeyStroke X11Keyboard::strokeFor(KeySym keysym) {
    KeyStroke stroke = lookUp(keysym);
    if (stroke.keycode != 0) return stroke;
    auto it = bound_.find(keysym);
    const KeyCode spare = it != bound_.end() ? it->second : bindSpare(keysym);
    return {spare, 0};
}

void X11Keyboard::restore() {
    if (bound_.empty()) return;
    for (const auto& [keysym, keycode] : bound_) {
        KeySym none = NoSymbol;
        XChangeKeyboardMapping(display_, keycode, 1, &none, 1);
    }
    bound_.clear();
    XSync(display_, False);
}

KeyStroke X11Keyboard::lookUp(KeySym keysym) {
    const KeyCode keycode = XKeysymToKeycode(display_, keysym);
    if (keycode == 0) return {};
    for (unsigned int level = 0; level < 2; ++level)
        if (XkbKeycodeToKeysym(display_, keycode, 0, level) == keysym) return {keycode, level == 1 ? ShiftMask : 0u};
    return {};
}

KeyCode X11Keyboard::bindSpare(KeySym keysym) {
    int minCode = 0;
    int maxCode = 0;
    XDisplayKeycodes(display_, &minCode, &maxCode);
    int perCode = 0;
    KeySym* map = XGetKeyboardMapping(display_, static_cast<KeyCode>(minCode), maxCode - minCode + 1, &perCode);
    if (!map) return 0;
    KeyCode spare = 0;
    for (int code = maxCode; code >= minCode && spare == 0; --code) {
        bool empty = true;
        for (int i = 0; i < perCode; ++i)
            if (map[(code - minCode) * perCode + i] != NoSymbol) empty = false;
        bool taken = false;
        for (const auto& [sym, used] : bound_) taken = taken || used == code;
        if (empty && !taken) spare = static_cast<KeyCode>(code);
    }
    XFree(map);
    if (spare == 0) return 0;
    KeySym both[2] = {keysym, keysym};
    XChangeKeyboardMapping(display_, spare, 2, both, 1);
    XSync(display_, False);
    bound_[keysym] = spare;
    return spare;
}

}  // namespace quorlin::x11
