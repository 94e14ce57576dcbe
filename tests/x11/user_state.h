#pragma once

#include <X11/Xlib.h>

#include <vector>

#include "ports/desktop.h"

namespace quorlin::testing {

// What a step must leave as it was: the user's pointer position, the real keyboard
// focus and the server's keyboard map.
struct UserState {
    ScreenPoint pointer;
    Window focus = None;
    std::vector<KeySym> keymap;

    static UserState of(Display* d) {
        UserState s;
        Window root = None, child = None;
        int wx = 0, wy = 0, revert = 0;
        unsigned int mask = 0;
        XQueryPointer(d, DefaultRootWindow(d), &root, &child, &s.pointer.x, &s.pointer.y, &wx, &wy, &mask);
        XGetInputFocus(d, &s.focus, &revert);
        int minCode = 0, maxCode = 0, perCode = 0;
        XDisplayKeycodes(d, &minCode, &maxCode);
        KeySym* map = XGetKeyboardMapping(d, static_cast<KeyCode>(minCode), maxCode - minCode + 1, &perCode);
        s.keymap.assign(map, map + (maxCode - minCode + 1) * perCode);
        XFree(map);
        return s;
    }
    friend bool operator==(const UserState&, const UserState&) = default;
};

}  // namespace quorlin::testing
