#pragma once

#include <X11/Xlib.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "ports/desktop.h"

namespace quorlin::testing {

// What a step must leave as it was: the user's pointer position, the real keyboard
// focus and the server's keyboard map.
struct UserState {
    ScreenPoint pointer;
    Window focus = None;
    std::vector<KeySym> keymap;
    std::vector<Window> stacking;  // the root's children, bottom first

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
        Window parent = None, *children = nullptr;
        unsigned int count = 0;
        XQueryTree(d, root, &root, &parent, &children, &count);
        s.stacking.assign(children, children + count);
        if (children) XFree(children);
        return s;
    }
    // The windows that are there before and after are stacked in the same order.
    bool stackedAs(const UserState& before) const {
        return kept(stacking, before.stacking) == kept(before.stacking, stacking);
    }
    static std::vector<Window> kept(const std::vector<Window>& order, const std::vector<Window>& others) {
        std::vector<Window> both;
        std::copy_if(order.begin(), order.end(), std::back_inserter(both),
                     [&](Window w) { return std::find(others.begin(), others.end(), w) != others.end(); });
        return both;
    }
};

}  // namespace quorlin::testing
