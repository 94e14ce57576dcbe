#pragma once

#include <X11/Xlib.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "x11/x11_active_window_keeper.h"
#include "x11/x11_client_ping.h"
#include "x11/x11_connection.h"
#include "x11/x11_core_route.h"
#include "x11/x11_device_route.h"
#include "x11/x11_input_action.h"
#include "x11/x11_keyboard.h"
#include "x11/x11_private_master.h"
#include "x11/x11_route_notice.h"
#include "x11/x11_server_clock.h"

namespace quorlin::x11 {

// Brings the click step's window messages to their target as X input. The messages
// for one target make a visit: its routes are chosen when it begins, and it ends once
// the messages have stopped for a while (or another target is posted to), so the
// crossing, the focus change and any key bound for the text end with the step. A bound
// key is given back only once the target has read the keys typed with it.
// Works on connections of its own, so ending a visit from its timer thread never
// meets the toolkit's or the screen reader's use of theirs.
class X11InputRouter {
public:
    static constexpr std::chrono::milliseconds kQuietEnd{500};
    // How long the end of a visit waits for the target to have read its bound keys.
    static constexpr std::chrono::milliseconds kReadLimit{2000};
    static constexpr std::chrono::milliseconds kLookUpGrace{150};
    // How long the end of a visit waits for a clicked target to have read its clicks.
    static constexpr std::chrono::milliseconds kClickReadLimit{200};
    static constexpr std::chrono::milliseconds kActivationGrace{100};

    explicit X11InputRouter(const std::string& displayName);
    ~X11InputRouter();
    X11InputRouter(const X11InputRouter&) = delete;
    X11InputRouter& operator=(const X11InputRouter&) = delete;

    void post(Window target, std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam);
    // Ends the current visit now rather than after the quiet time.
    void finishStep();
    // The program's own window, where a target out of reach is reported.
    void setOwnWindow(Window window);

private:
    struct Visit;

    void begin(Window target);
    void end();
    void point(const InputAction& action, std::uint32_t lParam);
    void awaitKeysRead();
    void giveBackActiveWindow();
    void key(KeySym keysym);
    InputRoute* pointerRoute(int rootX, int rootY);
    InputRoute* keyRoute();
    CoreRoute& coreRoute();
    DeviceRoute& deviceRoute();
    InputRoute* afterHeld(InputRoute* route);
    void endWhenQuiet();

    X11Connection x_;
    ServerClock clock_;
    X11Keyboard keyboard_;
    PrivateMaster master_;
    RouteNotice notice_;
    ClientPing ping_;
    ActiveWindowKeeper keeper_;
    std::unique_ptr<Visit> visit_;
    Window lastReturnTo_ = None;

    std::mutex mutex_;
    std::condition_variable wake_;
    std::chrono::steady_clock::time_point quietFrom_;
    bool stopping_ = false;
    std::thread ender_;
};

}  // namespace quorlin::x11
