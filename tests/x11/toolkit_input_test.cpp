#include <gtest/gtest.h>

#include <unistd.h>

#include <memory>
#include <thread>

#include "private_display.h"
#include "run/window_messages.h"
#include "target_app.h"
#include "user_state.h"
#include "x11/x11_desktop.h"

namespace quorlin::testing {
namespace {

using namespace wm;
using x11::X11Connection;
using x11::X11Desktop;

enum class Action { Click, WebClick, DBClick, RightClick, Typing };

// The messages of one click step, in the order the step posts them; a "Web browser"
// Click's second pair comes after the step's long pause.
void post(X11Desktop& desktop, ScreenPoint at, Action action, const std::string& text = "") {
    const WindowHandle target = desktop.windowFromPoint(at);
    const ScreenPoint client = desktop.screenToClient(target, at);
    const std::uint32_t lParam = mouseLParam(client.x, client.y);
    if (action == Action::RightClick) {
        desktop.postMessage(target, WM_RBUTTONDOWN, MK_RBUTTON, lParam);
        desktop.postMessage(target, WM_RBUTTONUP, 0, lParam);
        return;
    }
    desktop.postMessage(target, WM_LBUTTONDOWN, MK_LBUTTON, lParam);
    desktop.postMessage(target, WM_LBUTTONUP, 0, lParam);
    if (action == Action::WebClick) std::this_thread::sleep_for(std::chrono::milliseconds(150));
    if (action == Action::DBClick || action == Action::WebClick) {
        desktop.postMessage(target, action == Action::DBClick ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON, lParam);
        desktop.postMessage(target, WM_LBUTTONUP, 0, lParam);
    }
    for (unsigned char c : text) {
        desktop.postMessage(target, WM_KEYDOWN, static_cast<std::uint32_t>(c - 32), kKeyLParam);
        desktop.postMessage(target, WM_CHAR, c, kKeyLParam);
        desktop.postMessage(target, WM_KEYUP, static_cast<std::uint32_t>(c - 32), kKeyLParam);
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
    std::vector<std::string> argv;
    std::string program;  // what must be installed; the case is skipped without it
    bool freshEachCase = false;  // the client ends after one click, and the focus moves on
    // Qt asks the window manager to activate its window when it is clicked outside the focus.
    bool activatesItself = false;
};

const std::map<std::string, Target>& targets() {
    static const std::string dir = QUORLIN_TEST_TARGETS "/", python = "/usr/bin/python3";
    static const std::map<std::string, Target> all{
        {"gtk", {{python, dir + "gtk_target.py"}, python}},
        {"tk", {{"wish", dir + "tk_target.tcl"}, "/usr/bin/wish"}},
        {"qt", {{QUORLIN_QT_TARGET}, QUORLIN_QT_TARGET, false, true}},
        {"xterm", {{python, dir + "x_client_target.py", "xterm"}, "/usr/bin/xterm"}},
        {"xev", {{python, dir + "x_client_target.py", "xev"}, "/usr/bin/xev"}},
        {"xaw", {{python, dir + "x_client_target.py", "xmessage"}, "/usr/bin/xmessage", true}},
        {"firefox", {{python, dir + "browser_target.py", "firefox-esr"}, "/usr/bin/firefox-esr"}},
        {"chromium", {{python, dir + "browser_target.py", "chromium"}, "/usr/bin/chromium"}},
    };
    return all;
}

struct Case {
    const char* target;
    Action action;
    std::vector<std::string> reaction;
    // The title the program's own window shows when the typing cannot reach the target.
    const char* notice = nullptr;
    const char* knownGap = nullptr;
};

std::string nameOf(const ::testing::TestParamInfo<Case>& info) {
    const char* actions[] = {"Click", "WebClick", "DBClick", "RightClick", "Typing"};
    return std::string(info.param.target) + actions[static_cast<int>(info.param.action)];
}

// The targets run on a display of the suite's own under a real window manager; each
// client starts once for all its cases unless it ends after a click.
struct Desk {
    PrivateDisplay server;
    X11Connection connection;
    Display* d = connection.display();
    bool managed = server.startWindowManager(d);
    X11Desktop desktop{connection};
    Window own = XCreateSimpleWindow(d, DefaultRootWindow(d), 0, 0, 10, 10, 0, 0, 0);
    std::map<std::string, std::unique_ptr<TargetApp>> apps;
    // The cases stand for a user's separate steps: one case's clicks must not make a
    // double click with the last case's on the same target.
    std::string lastTarget;
    std::chrono::steady_clock::time_point lastEnd;

    Desk() {
        XStoreName(d, own, "Quorlin");
        desktop.setTopMost(own, true);
    }
    TargetApp& app(const std::string& name) {
        const Target& t = targets().at(name);
        auto& slot = apps[name];
        if (slot && !t.freshEachCase) return *slot;
        slot = std::make_unique<TargetApp>(t.argv);
        std::this_thread::sleep_for(std::chrono::milliseconds(300));  // the window manager focuses a new window
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
    if (access(t.program.c_str(), X_OK) != 0) GTEST_SKIP() << t.program << " is not installed";
    if (c.knownGap) GTEST_SKIP() << c.knownGap;
    TargetApp& app = desk->app(c.target);
    ASSERT_TRUE(app.ready()) << c.target << " window did not come up";
    Display* d = desk->d;
    if (c.target == desk->lastTarget) std::this_thread::sleep_until(desk->lastEnd + std::chrono::milliseconds(600));
    const UserState before = UserState::of(d);
    switch (c.action) {
        case Action::Typing:
            post(desk->desktop, app.at(app.has("entry") ? "entry" : "button"), Action::Click, "Hello, 1!\xE9\r\n");
            break;
        case Action::Click:
            post(desk->desktop, app.at("button"), c.action);
            std::this_thread::sleep_for(std::chrono::milliseconds(700));
            post(desk->desktop, app.at("button"), c.action);
            break;
        default: post(desk->desktop, app.at("button"), c.action);
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
    desk->lastTarget = c.target;
    desk->lastEnd = std::chrono::steady_clock::now();
    const UserState after = UserState::of(d);
    EXPECT_EQ(after.pointer, before.pointer);
    if (!t.freshEachCase && !t.activatesItself) { EXPECT_EQ(after.focus, before.focus); }
    if (!t.activatesItself) { EXPECT_TRUE(after.stackedAs(before)) << "a window was raised or lowered"; }
    EXPECT_TRUE(after.keymap == before.keymap);
}

const std::vector<std::string> kTwoClicks{"clicked", "clicked"};
const std::vector<std::string> kOneClick{"clicked"};
const std::vector<std::string> kDoubleClick{"clicked", "double", "clicked"};
const std::vector<std::string> kMenu{"menu"};
const std::vector<std::string> kNothing{};
const std::vector<std::string> kBrowserDoubleClick{"clicked", "clicked", "double"};
const std::vector<std::string> kTyped{"text Hello, 1!\xC3\xA9"};

using enum Action;

// Ordered so that one target's cases do not follow each other. xev and xterm know no
// double click: both presses arrive. xmessage ends at its first click, so its button
// handler runs once however many clicks follow.
INSTANTIATE_TEST_SUITE_P(
    Toolkits, RealClients,
    ::testing::Values(Case{"gtk", Click, kTwoClicks}, Case{"tk", Click, kTwoClicks}, Case{"qt", Click, kTwoClicks},
                      Case{"xterm", Click, kTwoClicks}, Case{"xev", Click, kTwoClicks},
                      Case{"gtk", WebClick, kTwoClicks}, Case{"tk", WebClick, kTwoClicks},
                      Case{"qt", WebClick, kTwoClicks}, Case{"xaw", WebClick, kOneClick},
                      Case{"gtk", DBClick, kDoubleClick}, Case{"tk", DBClick, kDoubleClick},
                      Case{"qt", DBClick, kDoubleClick}, Case{"xterm", DBClick, kTwoClicks},
                      Case{"xev", DBClick, kTwoClicks}, Case{"xaw", DBClick, kOneClick},
                      Case{"gtk", RightClick, kMenu}, Case{"tk", RightClick, kMenu}, Case{"qt", RightClick, kMenu},
                      Case{"xterm", RightClick, kMenu}, Case{"xev", RightClick, kMenu},
                      Case{"xaw", RightClick, kNothing}, Case{"gtk", Typing, kTyped}, Case{"tk", Typing, kTyped},
                      Case{"qt", Typing, kTyped},
                      Case{"xterm", Typing, kOneClick, "Quorlin - typing cannot reach \"xterm target\""}),
    nameOf);

// A browser's double click is two clicks, then dblclick.
INSTANTIATE_TEST_SUITE_P(
    Browsers, RealClients,
    ::testing::Values(Case{"firefox", Click, kTwoClicks}, Case{"firefox", WebClick, kTwoClicks},
                      Case{"firefox", DBClick, kBrowserDoubleClick}, Case{"firefox", RightClick, kMenu},
                      Case{"firefox", Typing, kTyped}, Case{"chromium", Click, kTwoClicks},
                      Case{"chromium", WebClick, kTwoClicks, nullptr, "Chromium fires dblclick for two pairs 600 ms apart"},
                      Case{"chromium", DBClick, kBrowserDoubleClick}, Case{"chromium", RightClick, kMenu},
                      Case{"chromium", Typing, kTyped}),
    nameOf);

}  // namespace
}  // namespace quorlin::testing
