#include "x11/x11_core_route.h"

#include <algorithm>
#include <thread>

#include "x11/x11_sent_focus.h"

namespace quorlin::x11 {

namespace {

long maskOf(int type) {
    switch (type) {
        case ButtonPress: return ButtonPressMask;
        case ButtonRelease: return ButtonReleaseMask;
        case KeyPress: return KeyPressMask;
        case KeyRelease: return KeyReleaseMask;
        case EnterNotify: return EnterWindowMask;
        case LeaveNotify: return LeaveWindowMask;
        default: return FocusChangeMask;
    }
}

unsigned int buttonMask(unsigned int button) { return Button1Mask << (button - 1); }

}  // namespace

CoreRoute::CoreRoute(Display* display, ServerClock& clock, WindowChain chain)
    : d_(display), clock_(clock), chain_(std::move(chain)) {}

// Some clients (Chromium) time a click by when its events arrive, and take a stamp
// ahead of the server's time for the present: a press that must wait really comes
// later, and so does everything after it.
void CoreRoute::press(unsigned int button, int rootX, int rootY, std::chrono::milliseconds wait) {
    if (wait > std::chrono::milliseconds{0}) heldUntil_ = std::chrono::steady_clock::now() + wait;
    this->button(ButtonPress, button, buttonsDown_, rootX, rootY, stamp());
    buttonsDown_ |= buttonMask(button);
}

// Held-back events carry the time at which they will land.
Time CoreRoute::stamp() const {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(heldUntil_ - std::chrono::steady_clock::now());
    return clock_.now(std::max(left, std::chrono::milliseconds{0}));
}

void CoreRoute::release(unsigned int button, int rootX, int rootY) {
    this->button(ButtonRelease, button, buttonsDown_ | buttonMask(button), rootX, rootY, stamp());
    buttonsDown_ &= ~buttonMask(button);
}

void CoreRoute::type(const KeyStroke& stroke) {
    if (!focused_) send(FocusChangeMask, focusChange(d_, chain_.topLevel().window, FocusIn));
    focused_ = true;
    key(KeyPress, stroke);
    key(KeyRelease, stroke);
}

void CoreRoute::end() {
    if (inside_) cross(LeaveNotify);
    if (focused_) send(FocusChangeMask, focusChange(d_, chain_.topLevel().window, FocusOut));
    inside_ = focused_ = false;
    sendHeld();
}

std::optional<std::chrono::steady_clock::time_point> CoreRoute::nextDue() const {
    if (held_.empty()) return std::nullopt;
    return held_.front().due;
}

void CoreRoute::sendDue() {
    const auto now = std::chrono::steady_clock::now();
    for (; !held_.empty() && held_.front().due <= now; held_.pop_front())
        XSendEvent(d_, held_.front().event.xany.window, False, held_.front().mask, &held_.front().event);
    XFlush(d_);
}

void CoreRoute::sendHeld() {
    if (!held_.empty()) std::this_thread::sleep_until(held_.back().due);
    sendDue();
}

void CoreRoute::send(long mask, XEvent event) {
    if (held_.empty() && heldUntil_ <= std::chrono::steady_clock::now()) {
        XSendEvent(d_, event.xany.window, False, mask, &event);
        return;
    }
    held_.push_back({heldUntil_, mask, event});
}

void CoreRoute::button(int type, unsigned int button, unsigned int state, int rootX, int rootY, Time time) {
    rootX_ = rootX;
    rootY_ = rootY;
    if (!inside_) cross(EnterNotify);
    inside_ = true;
    const auto at = chain_.deliveryFor(maskOf(type));
    if (!at) return;
    XEvent event = pointerEvent(type, *at, time);
    event.xbutton.state = state;
    event.xbutton.button = button;
    send(maskOf(type), event);
}

// Keys go where a real keyboard's would while the pointer is inside the focused top
// level: to the target, or the nearest ancestor that takes them.
void CoreRoute::key(int type, const KeyStroke& stroke) {
    const auto at = chain_.deliveryFor(maskOf(type));
    if (!at) return;
    XEvent event = pointerEvent(type, *at, stamp());
    event.xkey.state = stroke.state | buttonsDown_;
    event.xkey.keycode = stroke.keycode;
    send(maskOf(type), event);
}

// A real crossing from another top level: the ancestors hear of it as virtual, from
// the outside in when entering and from the inside out when leaving.
void CoreRoute::cross(int type) {
    const Time time = stamp();
    const std::size_t count = chain_.links().size();
    for (std::size_t n = 0; n < count; ++n) {
        const std::size_t at = type == EnterNotify ? count - 1 - n : n;
        XEvent event = pointerEvent(type, at, time);
        XCrossingEvent& c = event.xcrossing;
        c.mode = NotifyNormal;
        c.detail = at == 0 ? NotifyNonlinear : NotifyNonlinearVirtual;
        c.focus = focused_;
        c.state = buttonsDown_;
        send(maskOf(type), event);
    }
}

// Button, key and crossing events share these fields and their layout, same_screen included.
XEvent CoreRoute::pointerEvent(int type, std::size_t at, Time time) const {
    const WindowChain::Link& link = chain_.links()[at];
    XEvent event{};
    XButtonEvent& e = event.xbutton;
    e.type = type;
    e.display = d_;
    e.window = link.window;
    e.root = DefaultRootWindow(d_);
    e.subwindow = at == 0 ? None : chain_.links()[at - 1].window;
    e.time = time;
    e.x = rootX_ - link.originX;
    e.y = rootY_ - link.originY;
    e.x_root = rootX_;
    e.y_root = rootY_;
    e.same_screen = True;
    return event;
}

}  // namespace quorlin::x11
