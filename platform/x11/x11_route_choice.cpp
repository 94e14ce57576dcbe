#include "x11/x11_route_choice.h"

#include <X11/Xutil.h>

#include <cstring>

namespace quorlin::x11 {

Route pointerRouteFor(const WindowChain& chain, bool deviceReaches) {
    if (chain.deliveryFor(ButtonPressMask)) return Route::core;
    return deviceReaches ? Route::device : Route::none;
}

// The private keyboard makes no core events: a client that reads core keys only and
// throws sent ones away cannot be reached.
Route keyRouteFor(const WindowChain& chain, bool discardsSentKeys, bool deviceReady) {
    if (chain.deliveryFor(KeyPressMask)) return discardsSentKeys ? Route::none : Route::core;
    return deviceReady ? Route::device : Route::none;
}

bool discardsSentKeys(Display* display, const WindowChain& chain) {
    XClassHint hint{};
    if (!XGetClassHint(display, chain.topLevel().window, &hint)) return false;
    const bool xterm = hint.res_class && std::strcmp(hint.res_class, "XTerm") == 0;
    if (hint.res_name) XFree(hint.res_name);
    if (hint.res_class) XFree(hint.res_class);
    return xterm;
}

}  // namespace quorlin::x11
