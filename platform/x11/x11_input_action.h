#pragma once

#include <X11/X.h>

#include <cstdint>

namespace quorlin::x11 {

// What one window message asks of the target, in X terms.
struct InputAction {
    enum class Kind { none, press, release, key };
    Kind kind = Kind::none;
    unsigned int button = 0;
    KeySym keysym = NoSymbol;
    // A press that begins a click of its own rather than the second half of a double click.
    bool ofItsOwn = false;
};

// Key-down and key-up carry nothing of their own: the character travels with WM_CHAR.
// A line feed right after a carriage return ends the same line break and makes no key.
InputAction inputActionFor(std::uint32_t code, std::uint32_t wParam, bool afterReturn);

}  // namespace quorlin::x11
