#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <sstream>
#include <thread>

#include <X11/Xutil.h>

#include "run/window_messages.h"
#include "x11/x11_desktop.h"
#include "x11_fixtures.h"

namespace quorlin::testing {
namespace {

// A program started by the test that reports on its standard output, one line each,
// where its controls are ("at button 310 245") and what happened to it ("clicked").
class TargetApp : public ChildProcess {
public:
    explicit TargetApp(std::vector<std::string> argv) : ChildProcess(std::move(argv)) {
        while (auto line = nextLine(std::chrono::seconds(20))) {
            if (*line == "ready") break;
            std::istringstream words(*line);
            std::string at, name;
            ScreenPoint p;
            if (words >> at >> name >> p.x >> p.y && at == "at") places_[name] = p;
        }
    }

    bool ready() const { return places_.count("button") > 0; }
    bool has(const std::string& name) const { return places_.count(name) > 0; }
    ScreenPoint at(const std::string& name) const { return places_.at(name); }

    // The lines that arrive until `count` have come (then a little longer, to catch any
    // extra ones) or the time is up.
    std::vector<std::string> lines(std::size_t count, int timeoutMs = 3000) {
        using namespace std::chrono;
        std::vector<std::string> got;
        auto until = steady_clock::now() + milliseconds(timeoutMs);
        for (bool extended = false; steady_clock::now() < until;) {
            if (got.size() >= count && !extended) until = steady_clock::now() + milliseconds(250), extended = true;
            if (auto line = nextLine(milliseconds(20))) got.push_back(*line);
        }
        return got;
    }

private:
    std::map<std::string, ScreenPoint> places_;
};

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
        const auto inBoth = [](std::vector<Window> order, const std::vector<Window>& others) {
            std::erase_if(order, [&](Window w) { return std::find(others.begin(), others.end(), w) == others.end(); });
            return order;
        };
        return inBoth(stacking, before.stacking) == inBoth(before.stacking, stacking);
    }
};

using namespace wm;
using x11::X11Connection;
using x11::X11Desktop;

enum class Action { Click, WebClick, DBClick, RightClick, Typing };

// The messages of one click step, in the order the step posts them; a "Web browser"
// Click's second pair comes after the step's long pause. Typing follows a Click.
void post(X11Desktop& desktop, ScreenPoint at, Action action, const std::string& text = "") {
    const WindowHandle target = desktop.windowFromPoint(at);
    const ScreenPoint client = desktop.screenToClient(target, at);
    const auto send = [&](std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam) {
        desktop.postMessage(target, code, wParam, lParam);
    };
    const std::uint32_t where = mouseLParam(client.x, client.y);
    const bool right = action == Action::RightClick;
    send(right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, right ? MK_RBUTTON : MK_LBUTTON, where);
    send(right ? WM_RBUTTONUP : WM_LBUTTONUP, 0, where);
    if (action == Action::WebClick) std::this_thread::sleep_for(std::chrono::milliseconds(150));
    if (action == Action::DBClick || action == Action::WebClick) {
        send(action == Action::DBClick ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON, where);
        send(WM_LBUTTONUP, 0, where);
    }
    for (unsigned char c : text) {
        send(WM_KEYDOWN, c - 32u, kKeyLParam), send(WM_CHAR, c, kKeyLParam), send(WM_KEYUP, c - 32u, kKeyLParam);
    }
}

std::string titleOf(Display* d, Window w) {
    char* name = nullptr;
    std::string title;
    if (XFetchName(d, w, &name) && name) title = name;
    if (name) XFree(name);
    return title;
}

struct Target {
    std::vector<std::string> argv;  // a wrapper script's last argument names the client it starts
    bool freshEachCase = false;  // the client ends after one click, and the focus moves on

    // What must be installed; the case is skipped without it.
    std::string program() const { return argv.size() > 2 ? "/usr/bin/" + argv.back() : argv.front(); }
};

const std::map<std::string, Target>& targets() {
    static const std::string dir = QUORLIN_TEST_TARGETS "/", python = "/usr/bin/python3";
    static const std::map<std::string, Target> all{
        {"gtk", {{python, dir + "gtk_target.py"}}},
        {"tk", {{"/usr/bin/wish", dir + "tk_target.tcl"}}},
        {"qt", {{QUORLIN_QT_TARGET}}},
        {"xterm", {{python, dir + "x_client_target.py", "xterm"}}},
        {"xaw", {{python, dir + "x_client_target.py", "xmessage"}, true}},
        {"firefox", {{python, dir + "x_client_target.py", "firefox-esr"}}},
        {"chromium", {{python, dir + "x_client_target.py", "chromium"}}},
    };
    return all;
}

struct Case {
    const char* target;
    Action action;
    std::vector<std::string> reaction;
    // The title the program's own window shows when the typing cannot reach the target.
    const char* notice = nullptr;
};

std::string nameOf(const ::testing::TestParamInfo<Case>& info) {
    return std::string(info.param.target) +
           std::array{"Click", "WebClick", "DBClick", "RightClick", "Typing"}[static_cast<int>(info.param.action)];
}

// The targets run on a display of the suite's own under a real window manager; each
// client starts once for all its cases unless it ends after a click.
struct Desk {
    PrivateDisplay server;
    X11Connection connection;
    Display* d = connection.display();
    bool managed = server.startWindowManager();
    X11Desktop desktop{connection};
    Window own = XCreateSimpleWindow(d, DefaultRootWindow(d), 0, 0, 10, 10, 0, 0, 0);
    // The window the user works in, out of the targets' way: it keeps the focus.
    Window user = XCreateSimpleWindow(d, DefaultRootWindow(d), 1060, 900, 200, 100, 0, 0, 0);
    std::map<std::string, std::unique_ptr<TargetApp>> apps;
    // The cases stand for a user's separate steps: one case's clicks must not make a
    // double click with an earlier case's on the same target.
    std::map<std::string, std::chrono::steady_clock::time_point> lastEnd;

    Desk() {
        XStoreName(d, own, "Quorlin");
        desktop.setTopMost(own, true);
        XSizeHints placed{};
        placed.flags = USPosition | USSize;
        XSetWMNormalHints(d, user, &placed);
        XMapWindow(d, user);
    }
    void focusUser() {
        XEvent e{};
        e.xclient = {ClientMessage, 0, True, d, user, XInternAtom(d, "_NET_ACTIVE_WINDOW", False), 32, {}};
        e.xclient.data.l[0] = 2;
        XSendEvent(d, DefaultRootWindow(d), False, SubstructureRedirectMask | SubstructureNotifyMask, &e);
        for (int tries = 0; tries < 100 && UserState::of(d).focus != user; ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    TargetApp& app(const std::string& name) {
        const Target& t = targets().at(name);
        auto& slot = apps[name];
        if (slot && !t.freshEachCase) return *slot;
        slot = std::make_unique<TargetApp>(t.argv);
        // The window manager places, focuses and raises a new window, and a browser goes
        // full screen: the case begins once the stacking has stayed put for a while.
        std::vector<Window> last;
        for (int still = 0, tries = 0; still < 6 && tries < 60; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            auto now = UserState::of(d).stacking;
            still = now == last ? still + 1 : 0;
            last = std::move(now);
        }
        return *slot;
    }
};

class RealClients : public ::testing::TestWithParam<Case> {
protected:
    static void SetUpTestSuite() { desk = std::make_unique<Desk>(); }
    static void TearDownTestSuite() { desk.reset(); }
    static inline std::unique_ptr<Desk> desk;
};

TEST_P(RealClients, ReactAsToTheUsersOwnInputWhilePointerFocusStackingAndKeymapStay) {
    const Case& c = GetParam();
    const Target& t = targets().at(c.target);
    ASSERT_TRUE(desk->managed) << "openbox did not start";
    if (access(t.program().c_str(), X_OK) != 0) GTEST_SKIP() << t.program() << " is not installed";
    TargetApp& app = desk->app(c.target);
    ASSERT_TRUE(app.ready()) << c.target << " window did not come up";
    Display* d = desk->d;
    std::this_thread::sleep_until(desk->lastEnd[c.target] + std::chrono::milliseconds(600));
    desk->focusUser();
    const UserState before = UserState::of(d);
    ASSERT_EQ(before.focus, desk->user);
    const bool typing = c.action == Action::Typing;
    const ScreenPoint at = app.at(typing && app.has("entry") ? "entry" : "button");
    post(desk->desktop, at, c.action, typing ? "Hello, 1!\xE9\r\n" : "");
    if (c.action == Action::Click) {
        std::this_thread::sleep_for(std::chrono::milliseconds(700));
        post(desk->desktop, at, c.action);
    }
    EXPECT_EQ(app.lines(c.reaction.size()), c.reaction);
    if (c.notice) {
        EXPECT_EQ(titleOf(d, desk->own), c.notice);
        XStoreName(d, desk->own, "Quorlin");
        post(desk->desktop, app.at("button"), Action::Click, "again\r");
        EXPECT_EQ(titleOf(d, desk->own), "Quorlin") << "the notice is given once per target";
        app.lines(1);
    }
    desk->desktop.finishStep();
    desk->lastEnd[c.target] = std::chrono::steady_clock::now();
    const UserState after = UserState::of(d);
    EXPECT_EQ(after.pointer, before.pointer);
    if (!t.freshEachCase) { EXPECT_EQ(after.focus, before.focus); }
    EXPECT_TRUE(after.stackedAs(before)) << "a window was raised or lowered";
    EXPECT_TRUE(after.keymap == before.keymap);
}

using Lines = std::vector<std::string>;
const Lines kTwoClicks{"clicked", "clicked"}, kOneClick{"clicked"}, kDoubleClick{"clicked", "double", "clicked"};
const Lines kBrowserDoubleClick{"clicked", "clicked", "double"}, kMenu{"menu"}, kNothing{};
const Lines kTyped{"text Hello, 1!\xC3\xA9"};

using enum Action;

// Ordered so that one target's cases do not follow each other. xterm knows no double
// click: both presses arrive. xmessage ends at its first click, so its button handler
// runs once however many clicks follow.
INSTANTIATE_TEST_SUITE_P(
    Toolkits, RealClients,
    ::testing::Values(Case{"gtk", Click, kTwoClicks}, Case{"tk", Click, kTwoClicks}, Case{"qt", Click, kTwoClicks},
                      Case{"xterm", Click, kTwoClicks}, Case{"gtk", WebClick, kTwoClicks},
                      Case{"tk", WebClick, kTwoClicks}, Case{"qt", WebClick, kTwoClicks},
                      Case{"xaw", WebClick, kOneClick}, Case{"gtk", DBClick, kDoubleClick},
                      Case{"tk", DBClick, kDoubleClick}, Case{"qt", DBClick, kDoubleClick},
                      Case{"xterm", DBClick, kTwoClicks}, Case{"xaw", DBClick, kOneClick},
                      Case{"gtk", RightClick, kMenu}, Case{"tk", RightClick, kMenu}, Case{"qt", RightClick, kMenu},
                      Case{"xterm", RightClick, kMenu}, Case{"xaw", RightClick, kNothing}, Case{"gtk", Typing, kTyped},
                      Case{"tk", Typing, kTyped}, Case{"qt", Typing, kTyped},
                      Case{"xterm", Typing, kOneClick, "Quorlin - typing cannot reach \"xterm target\""}),
    nameOf);

// A browser's double click is two clicks, then dblclick.
INSTANTIATE_TEST_SUITE_P(
    Browsers, RealClients,
    ::testing::Values(Case{"firefox", Click, kTwoClicks}, Case{"firefox", WebClick, kTwoClicks},
                      Case{"firefox", DBClick, kBrowserDoubleClick}, Case{"firefox", RightClick, kMenu},
                      Case{"firefox", Typing, kTyped}, Case{"chromium", Click, kTwoClicks},
                      Case{"chromium", WebClick, kTwoClicks}, Case{"chromium", DBClick, kBrowserDoubleClick},
                      Case{"chromium", RightClick, kMenu}, Case{"chromium", Typing, kTyped}),
    nameOf);

}  // namespace
}  // namespace quorlin::testing
