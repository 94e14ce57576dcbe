#pragma once

#include <X11/Xlib.h>

#include <chrono>

#include "x11/x11_keyboard.h"

namespace quorlin::x11 {

// One way of bringing a step's pointer and key input to one target window. A route
// is made for each visit to a target and ended when the step is over.
class InputRoute {
public:
    virtual ~InputRoute() = default;

    // Buttons are X button numbers; the point is where the step's pointer is, in root
    // coordinates. A press that must wait lands that much later, and so does all input after it.
    virtual void press(unsigned int button, int rootX, int rootY, std::chrono::milliseconds wait) = 0;
    virtual void release(unsigned int button, int rootX, int rootY) = 0;
    // One press and release of the key.
    virtual void type(const KeyStroke& stroke) = 0;
    // Whatever the route began around the input (a crossing, a focus) ends here.
    virtual void end() = 0;
};

}  // namespace quorlin::x11
