#include "x11/x11_device_route.h"

#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace quorlin::x11 {

namespace {

unsigned int buttonMask(unsigned int button) { return 1u << button; }

}  // namespace

DeviceRoute::DeviceRoute(PrivateMaster& master, Display* userDisplay, WindowChain chain)
    : master_(master), user_(userDisplay), chain_(std::move(chain)) {}

bool DeviceRoute::reaches(int rootX, int rootY) {
    moveTo(rootX, rootY);
    Display* d = master_.display();
    Window under = DefaultRootWindow(d);
    for (;;) {
        Window root = None;
        Window child = None;
        double rx = 0, ry = 0, wx = 0, wy = 0;
        XIButtonState buttons{};
        XIModifierState mods{};
        XIGroupState group{};
        const bool found = XIQueryPointer(d, master_.pointer(), under, &root, &child, &rx, &ry, &wx, &wy, &buttons,
                                          &mods, &group);
        if (buttons.mask) XFree(buttons.mask);
        if (!found || child == None) break;
        under = child;
    }
    return under == chain_.target().window;
}

// The server holds the press back for the wait, and every later request of this
// connection with it.
void DeviceRoute::press(unsigned int button, int rootX, int rootY, std::chrono::milliseconds wait) {
    moveTo(rootX, rootY);
    XTestFakeButtonEvent(master_.display(), button, True, static_cast<unsigned long>(wait.count()));
    buttonsDown_ |= buttonMask(button);
}

// A real button cannot come up without having gone down: such a release is not made.
void DeviceRoute::release(unsigned int button, int, int) {
    if (!(buttonsDown_ & buttonMask(button))) return;
    XTestFakeButtonEvent(master_.display(), button, False, CurrentTime);
    buttonsDown_ &= ~buttonMask(button);
}

void DeviceRoute::type(const KeyStroke& stroke) {
    Display* d = master_.display();
    if (!focused_) XISetFocus(d, master_.keyboard(), chain_.topLevel().window, CurrentTime);
    focused_ = true;
    const bool shifted = stroke.state & ShiftMask;
    if (shifted) shift(true);
    XTestFakeKeyEvent(d, stroke.keycode, True, CurrentTime);
    XTestFakeKeyEvent(d, stroke.keycode, False, CurrentTime);
    if (shifted) shift(false);
}

void DeviceRoute::end() {
    Display* d = master_.display();
    for (unsigned int button = 1; button <= 5; ++button) release(button, 0, 0);
    if (focused_) XISetFocus(d, master_.keyboard(), None, CurrentTime);
    if (moved_) {
        Window root = None;
        Window child = None;
        int x = 0, y = 0, wx = 0, wy = 0;
        unsigned int mask = 0;
        XQueryPointer(user_, DefaultRootWindow(user_), &root, &child, &x, &y, &wx, &wy, &mask);
        XTestFakeMotionEvent(d, -1, x, y, CurrentTime);
    }
    XSync(d, False);
    focused_ = moved_ = false;
}

void DeviceRoute::moveTo(int rootX, int rootY) {
    XTestFakeMotionEvent(master_.display(), -1, rootX, rootY, CurrentTime);
    moved_ = true;
}

void DeviceRoute::shift(bool down) {
    Display* d = master_.display();
    XTestFakeKeyEvent(d, XKeysymToKeycode(d, XK_Shift_L), down, CurrentTime);
}

}  // namespace quorlin::x11
