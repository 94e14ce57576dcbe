#include "x11/x11_route_notice.h"

#include <X11/Xatom.h>

#include <cstdio>

namespace quorlin::x11 {

void RouteNotice::cannotReach(Window topLevel, const std::string& what) {
    if (own_ == None || !told_.emplace(topLevel, what).second) return;
    setTitle("Quorlin - " + what + " cannot reach \"" + nameOf(topLevel) + "\"");
}

std::string RouteNotice::nameOf(Window window) const {
    char* name = nullptr;
    if (XFetchName(d_, window, &name) && name) {
        std::string text(name);
        XFree(name);
        return text;
    }
    char id[24];
    std::snprintf(id, sizeof id, "0x%lx", window);
    return id;
}

void RouteNotice::setTitle(const std::string& title) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(title.data());
    const int length = static_cast<int>(title.size());
    XChangeProperty(d_, own_, XInternAtom(d_, "_NET_WM_NAME", False), XInternAtom(d_, "UTF8_STRING", False), 8,
                    PropModeReplace, bytes, length);
    XChangeProperty(d_, own_, XA_WM_NAME, XA_STRING, 8, PropModeReplace, bytes, length);
    XFlush(d_);
}

}  // namespace quorlin::x11
