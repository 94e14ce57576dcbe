#pragma once

#include <X11/Xlib.h>

#include <map>

namespace quorlin::x11 {

// A key that produces a keysym: its keycode and the modifier state that selects it.
struct KeyStroke {
    KeyCode keycode = 0;
    unsigned int state = 0;
};

// Finds the key for a keysym in the server's keyboard map; a keysym the map lacks is
// bound to a spare keycode (one without keysyms) until restore() gives the spare codes
// back, so the map is left as it was found.
class X11Keyboard {
public:
    explicit X11Keyboard(Display* display) : display_(display) {}
    ~X11Keyboard() { restore(); }
    X11Keyboard(const X11Keyboard&) = delete;
    X11Keyboard& operator=(const X11Keyboard&) = delete;

    // Nothing (keycode 0) when no key can be found or made.
    KeyStroke strokeFor(KeySym keysym);
    // Whether spare codes are bound now.
    bool bindsKeys() const { return !bound_.empty(); }
    // Unbinds every spare code bound since the last call.
    void restore();

    // The keysym a Windows-1252 character code stands for.
    static KeySym keysymForAnsi(unsigned char code);

private:
    KeyStroke lookUp(KeySym keysym);
    KeyCode bindSpare(KeySym keysym);

    Display* display_;
    std::map<KeySym, KeyCode> bound_;
};

}  // namespace quorlin::x11
