#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <ranges>

#include "x11_fixtures.h"

namespace quorlin::testing {
namespace {

using namespace ::testing;

// A program started by the test that reports on its standard output, one line each,
// where its controls are ("at button 310 245") and what happened to it ("clicked").
struct TargetApp : ChildProcess {
    std::map<std::string, ScreenPoint> places;

    explicit TargetApp(std::vector<std::string> argv) : ChildProcess(std::move(argv)) {
        while (auto line = nextLine(std::chrono::seconds(20))) {
            if (*line == "ready") break;
            char name[16];
            ScreenPoint p;
            if (std::sscanf(line->c_str(), "at %15s %d %d", name, &p.x, &p.y) == 3) places[name] = p;
        }
    }

    // The lines that arrive until `count` have come, and any extra ones that follow closely.
    std::vector<std::string> lines(std::size_t count) {
        std::vector<std::string> got;
        while (auto line = nextLine(std::chrono::milliseconds(got.size() < count ? 3000 : 250))) got.push_back(*line);
        return got;
    }
};

// What a step must leave as it was: the user's pointer position, the real keyboard
// focus, the stacking and the server's keyboard map.
struct UserState {
    ScreenPoint pointer;
    Window focus = None;
    std::vector<KeySym> keymap;
    std::vector<Window> stacking;  // the root's children, bottom first

    explicit UserState(Display* d) {
        Window root = None, parent = None, *children = nullptr;
        int wx = 0, wy = 0, revert = 0, perCode = 0;
        unsigned int mask = 0, count = 0;
        XQueryPointer(d, DefaultRootWindow(d), &root, &parent, &pointer.x, &pointer.y, &wx, &wy, &mask);
        XGetInputFocus(d, &focus, &revert);
        KeySym* map = XGetKeyboardMapping(d, 8, 248, &perCode);  // every key code X allows
        keymap.assign(map, map + 248 * perCode);
        XFree(map);
        XQueryTree(d, root, &root, &parent, &children, &count);
        stacking.assign(children, children + count);
        if (children) XFree(children);
    }
    // The windows that are there before and after are stacked in the same order.
    bool stackedAs(const UserState& before) const {
        const auto in = [](const auto& ws) { return [&ws](Window w) { return std::ranges::count(ws, w) > 0; }; };
        return std::ranges::equal(stacking | std::views::filter(in(before.stacking)),
                                  before.stacking | std::views::filter(in(stacking)));
    }
};

using Lines = std::vector<std::string>;
const Lines kClicks{"clicked", "clicked", "clicked"}, kTwoClicks{"clicked", "clicked"}, kOneClick{"clicked"};
const Lines kDoubleClick{"clicked", "double", "clicked"}, kBrowserDouble{"clicked", "clicked", "double"};
const Lines kMenu{"menu"}, kNothing{}, kTyped{"text Hello, 1!\xC3\xA9"};

struct Target {
    std::vector<std::string> argv;  // a wrapper script's last argument names the client it starts
    // What the program reports for a Click, DBClick, RightClick and Typing, where it can.
    std::array<std::optional<Lines>, 4> reactions;
    bool freshEachCase = false;  // the client ends after one click, and the focus moves on
    // The title the program's own window shows when the typing cannot reach the target.
    const char* notice = nullptr;
};

// xterm knows no double click: both presses arrive. xmessage ends at its first click,
// so its button handler runs once however many clicks follow, and it has nothing to
// type into. A browser's double click is two clicks, then dblclick.
const std::map<std::string, Target>& targets() {
    static const std::string dir = QUORLIN_TEST_TARGETS "/", python = "/usr/bin/python3";
    static const std::map<std::string, Target> all{
        {"gtk", {{python, dir + "gtk_target.py"}, {kClicks, kDoubleClick, kMenu, kTyped}}},
        {"tk", {{"/usr/bin/wish", dir + "tk_target.tcl"}, {kClicks, kDoubleClick, kMenu, kTyped}}},
        {"qt", {{QUORLIN_QT_TARGET}, {kClicks, kDoubleClick, kMenu, kTyped}}},
        {"xterm", {{python, dir + "x_client_target.py", "xterm"}, {kClicks, kTwoClicks, kMenu, kOneClick}, false,
                   "Quorlin - typing cannot reach \"xterm target\""}},
        {"xaw", {{python, dir + "x_client_target.py", "xmessage"}, {kOneClick, {}, kNothing, {}}, true}},
        {"firefox", {{python, dir + "x_client_target.py", "firefox-esr"}, {kClicks, kBrowserDouble, kMenu, kTyped}}},
        {"chromium", {{python, dir + "x_client_target.py", "chromium"}, {kClicks, kBrowserDouble, kMenu, kTyped}}},
    };
    return all;
}

using Case = std::tuple<std::string, Action>;

std::string nameOf(const TestParamInfo<Case>& info) {
    const auto& [target, action] = info.param;
    return target + std::array{"Click", "DBClick", "RightClick", "Typing"}[static_cast<int>(action)];
}

// The targets run on a display of the suite's own under a real window manager; each
// client starts once for all its cases unless it ends after a click.
struct Desk {
    PrivateDisplay server;
    x11::X11Connection connection;
    Display* d = connection.display();
    bool managed = server.startWindowManager();
    x11::X11Desktop desktop{connection};
    Window own = XCreateSimpleWindow(d, DefaultRootWindow(d), 0, 0, 10, 10, 0, 0, 0);
    // The window the user works in, out of the targets' way: it keeps the focus.
    Window user = XCreateSimpleWindow(d, DefaultRootWindow(d), 1060, 900, 200, 100, 0, 0, 0);
    std::map<std::string, std::unique_ptr<TargetApp>> apps;

    Desk() {
        desktop.setTopMost(own, true);
        XSizeHints placed{};
        placed.flags = USPosition | USSize;
        XSetWMNormalHints(d, user, &placed);
        XMapWindow(d, user);
    }
    void focusUser() {
        XEvent e{.xclient = {ClientMessage, 0, True, d, user, XInternAtom(d, "_NET_ACTIVE_WINDOW", False), 32,
                             {.l = {2}}}};
        XSendEvent(d, DefaultRootWindow(d), False, SubstructureRedirectMask | SubstructureNotifyMask, &e);
        eventually([&] { return UserState(d).focus == user; }, std::chrono::seconds(2));
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
            still = std::exchange(last, UserState(d).stacking) == last ? still + 1 : 0;
        }
        return *slot;
    }
};

struct RealClients : TestWithParam<Case> {
    static void SetUpTestSuite() { desk = std::make_unique<Desk>(); }
    static void TearDownTestSuite() { desk.reset(); }
    static inline std::unique_ptr<Desk> desk;
};

TEST_P(RealClients, ReactAsToTheUsersOwnInputWhilePointerFocusStackingAndKeymapStay) {
    const auto& [name, action] = GetParam();
    const Target& t = targets().at(name);
    const std::optional<Lines>& reaction = t.reactions[static_cast<int>(action)];
    if (!reaction) GTEST_SKIP() << "the other cases already show what " << name << " does with this";
    ASSERT_TRUE(desk->managed) << "openbox did not start";
    // What must be installed; the case is skipped without it.
    const std::string program = t.argv.size() > 2 ? "/usr/bin/" + t.argv.back() : t.argv.front();
    if (access(program.c_str(), X_OK) != 0) GTEST_SKIP() << program << " is not installed";
    TargetApp& app = desk->app(name);
    ASSERT_TRUE(app.places.count("button")) << name << " window did not come up";
    // The cases stand for a user's separate steps: one case's clicks must not make a
    // double click with the case's before on the same target.
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    desk->focusUser();
    const UserState before = UserState(desk->d);
    ASSERT_EQ(before.focus, desk->user);
    const bool typing = action == Action::Typing;
    const ScreenPoint at = app.places.at(typing ? "entry" : "button");
    post(desk->desktop, at, action, typing ? "Hello, 1!\xE9\r\n" : "");
    // A click of a step of its own, then a "Web browser" click, whose second click
    // follows after a short pause.
    for (const int pause : action == Action::Click ? std::vector{700, 150} : std::vector<int>{}) {
        std::this_thread::sleep_for(std::chrono::milliseconds(pause));
        post(desk->desktop, at, action);
    }
    EXPECT_EQ(app.lines(reaction->size()), *reaction);
    if (typing && t.notice) {
        EXPECT_EQ(windowProperty<std::string>(desk->d, desk->own, "WM_NAME"), t.notice);
        XStoreName(desk->d, desk->own, "Quorlin");
        post(desk->desktop, app.places.at("button"), Action::Click, "again\r");
        EXPECT_EQ(windowProperty<std::string>(desk->d, desk->own, "WM_NAME"), "Quorlin")
            << "the notice is given once per target";
        app.lines(1);
    }
    desk->desktop.finishStep();
    const UserState after = UserState(desk->d);
    EXPECT_EQ(after.pointer, before.pointer);
    if (!t.freshEachCase) { EXPECT_EQ(after.focus, before.focus); }
    EXPECT_TRUE(after.stackedAs(before)) << "a window was raised or lowered";
    EXPECT_TRUE(after.keymap == before.keymap);
}

// A browser covers the whole screen: one's cases end before the next one starts.
const auto kActions = Values(Action::Click, Action::DBClick, Action::RightClick, Action::Typing);
INSTANTIATE_TEST_SUITE_P(Toolkits, RealClients, Combine(Values("gtk", "tk", "qt", "xterm", "xaw"), kActions), nameOf);
INSTANTIATE_TEST_SUITE_P(Browsers, RealClients, Combine(Values("firefox", "chromium"), kActions), nameOf);

}  // namespace
}  // namespace quorlin::testing
