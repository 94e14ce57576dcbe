#include "x11/x11_input_router.h"

#include <optional>

#include "run/window_messages.h"
#include "x11/x11_click_spacing.h"
#include "x11/x11_route_choice.h"

namespace quorlin::x11 {

struct X11InputRouter::Visit {
    Window target = None;
    std::optional<WindowChain> chain;  // empty when the target has vanished
    std::unique_ptr<CoreRoute> core;
    std::unique_ptr<DeviceRoute> device;
    std::optional<InputRoute*> pointer;  // chosen at the first mouse message; null: out of reach
    std::optional<InputRoute*> keys;
    ClickSpacing spacing;
};

X11InputRouter::X11InputRouter(const std::string& displayName)
    : x_(displayName.c_str()),
      clock_(x_.display()),
      keyboard_(x_.display()),
      master_(displayName),
      notice_(x_.display()),
      ping_(displayName),
      keeper_(x_.display()),
      ender_([this] { endWhenQuiet(); }) {}

X11InputRouter::~X11InputRouter() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        end();
    }
    wake_.notify_one();
    ender_.join();
}

void X11InputRouter::post(Window target, std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam) {
    const bool afterReturn = lastReturnTo_ == target;
    if (code == wm::WM_CHAR) lastReturnTo_ = (wParam & 0xFF) == '\r' ? target : None;
    const InputAction action = inputActionFor(code, wParam, afterReturn);
    if (action.kind == InputAction::Kind::none) return;
    {
        std::lock_guard lock(mutex_);
        if (visit_ && visit_->target != target) end();
        if (!visit_) begin(target);
        if (action.kind == InputAction::Kind::key) key(action.keysym);
        else point(action, lParam);
        XFlush(x_.display());
        quietFrom_ = std::chrono::steady_clock::now();
    }
    wake_.notify_one();
}

void X11InputRouter::finishStep() {
    std::lock_guard lock(mutex_);
    end();
}

void X11InputRouter::setOwnWindow(Window window) {
    std::lock_guard lock(mutex_);
    notice_.setOwnWindow(window);
}

void X11InputRouter::begin(Window target) {
    visit_ = std::make_unique<Visit>();
    visit_->target = target;
    visit_->chain = WindowChain::read(x_.display(), target);
    keeper_.note();
}

void X11InputRouter::end() {
    if (!visit_) return;
    if (visit_->core) visit_->core->end();
    if (visit_->device) visit_->device->end();
    if (keyboard_.bindsKeys()) awaitKeysRead();
    keyboard_.restore();
    if (visit_->pointer && *visit_->pointer) giveBackActiveWindow();
    XFlush(x_.display());
    visit_.reset();
}

void X11InputRouter::point(const InputAction& action, std::uint32_t lParam) {
    if (!visit_->chain) return;
    const WindowChain::Link& target = visit_->chain->target();
    const int rootX = target.originX + wm::lParamX(lParam);
    const int rootY = target.originY + wm::lParamY(lParam);
    InputRoute* route = afterHeld(pointerRoute(rootX, rootY));
    if (!route) return;
    if (action.kind == InputAction::Kind::press)
        route->press(action.button, rootX, rootY, visit_->spacing.waitBefore(action.ofItsOwn));
    else route->release(action.button, rootX, rootY);
}

// A client looks a key up in the keyboard map when it reads the key, which may be
// long after it was sent; a toolkit may even answer the ping before it has looked the
// key up (GTK answers it while it reads, and translates later), hence the grace after.
void X11InputRouter::awaitKeysRead() {
    XSync(x_.display(), False);
    if (visit_->chain) ping_.await(visit_->chain->topLevel().window, clock_.now(), kReadLimit);
    std::this_thread::sleep_for(kLookUpGrace);
}

// The target asks for activation as it handles the press, and Qt only in its next
// round of events: the request is with the window manager a little after the target
// has answered a ping.
void X11InputRouter::giveBackActiveWindow() {
    if (!visit_->chain) return;
    std::vector<Window> target;
    for (const WindowChain::Link& link : visit_->chain->links()) target.push_back(link.window);
    // Most visits end here, without a wait: nothing can be taken from a target already active.
    if (!keeper_.canBeTakenBy(target)) return;
    ping_.await(visit_->chain->topLevel().window, clock_.now(), kClickReadLimit);
    std::this_thread::sleep_for(kActivationGrace);
    XSync(x_.display(), False);
    // A target whose focus has just been taken away may ask once more (Qt does, after
    // typing).
    for (int asked = 0; asked < 3 && keeper_.restore(target, clock_.now()); ++asked)
        std::this_thread::sleep_for(kActivationGrace);
}

void X11InputRouter::key(KeySym keysym) {
    if (!visit_->chain) return;
    InputRoute* route = afterHeld(keyRoute());
    if (!route) return;
    const KeyStroke stroke = keyboard_.strokeFor(keysym);
    if (stroke.keycode != 0) route->type(stroke);
}

InputRoute* X11InputRouter::pointerRoute(int rootX, int rootY) {
    if (visit_->pointer) return *visit_->pointer;
    const WindowChain& chain = *visit_->chain;
    const bool reaches = !chain.deliveryFor(ButtonPressMask) && master_.ready() && deviceRoute().reaches(rootX, rootY);
    switch (pointerRouteFor(chain, reaches)) {
        case Route::core: visit_->pointer = &coreRoute(); break;
        case Route::device: visit_->pointer = &deviceRoute(); break;
        case Route::none:
            visit_->pointer = nullptr;
            notice_.cannotReach(chain.topLevel().window, "clicks");
            break;
    }
    return *visit_->pointer;
}

InputRoute* X11InputRouter::keyRoute() {
    if (visit_->keys) return *visit_->keys;
    const WindowChain& chain = *visit_->chain;
    switch (keyRouteFor(chain, discardsSentKeys(x_.display(), chain), master_.ready())) {
        case Route::core: visit_->keys = &coreRoute(); break;
        case Route::device: visit_->keys = &deviceRoute(); break;
        case Route::none:
            visit_->keys = nullptr;
            notice_.cannotReach(chain.topLevel().window, "typing");
            break;
    }
    return *visit_->keys;
}

// After device input, which may still be held back for click spacing, sent events
// travel on the same connection so that they land after it.
CoreRoute& X11InputRouter::coreRoute() {
    Display* d = visit_->device ? master_.display() : x_.display();
    if (!visit_->core) visit_->core = std::make_unique<CoreRoute>(d, clock_, *visit_->chain);
    return *visit_->core;
}

// Input of another route must not overtake sent events held back behind a waiting press.
InputRoute* X11InputRouter::afterHeld(InputRoute* route) {
    if (route && visit_->core && route != visit_->core.get()) visit_->core->sendHeld();
    return route;
}

DeviceRoute& X11InputRouter::deviceRoute() {
    if (!visit_->device) visit_->device = std::make_unique<DeviceRoute>(master_, x_.display(), *visit_->chain);
    return *visit_->device;
}

// Sends held-back events as they fall due, and ends a visit once it has been quiet.
void X11InputRouter::endWhenQuiet() {
    std::unique_lock lock(mutex_);
    while (!stopping_) {
        if (!visit_) {
            wake_.wait(lock);
            continue;
        }
        if (visit_->core) visit_->core->sendDue();
        auto next = quietFrom_ + kQuietEnd;
        if (std::chrono::steady_clock::now() >= next) {
            end();
            continue;
        }
        if (auto due = visit_->core ? visit_->core->nextDue() : std::nullopt) next = std::min(next, *due);
        wake_.wait_until(lock, next);
    }
}

}  // namespace quorlin::x11
