#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "run/window_messages.h"
#include "target_app.h"
#include "user_state.h"
#include "window_manager.h"
#include "x11/x11_desktop.h"

namespace quorlin::testing {
namespace {

using namespace wm;
using x11::X11Connection;
using x11::X11Desktop;

enum class Action { Click, DBClick, RightClick, Typing };

// The messages of one click step, in the order the step posts them.
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
    if (action == Action::DBClick) {
        desktop.postMessage(target, WM_LBUTTONDBLCLK, MK_LBUTTON, lParam);
        desktop.postMessage(target, WM_LBUTTONUP, 0, lParam);
    }
    for (unsigned char c : text) {
        desktop.postMessage(target, WM_KEYDOWN, static_cast<std::uint32_t>(c - 32), kKeyLParam);
        desktop.postMessage(target, WM_CHAR, c, kKeyLParam);
        desktop.postMessage(target, WM_KEYUP, static_cast<std::uint32_t>(c - 32), kKeyLParam);
    }
}

struct Case {
    const char* toolkit;
    Action action;
    std::vector<std::string> reaction;
    // Clicks that travel as real device events pass the window manager, whose
    // click-to-focus moves the real focus to the target some time after the step.
    bool managerFocuses = false;
    const char* knownGap = nullptr;
};

std::string nameOf(const ::testing::TestParamInfo<Case>& info) {
    const char* actions[] = {"Click", "DBClick", "RightClick", "Typing"};
    return std::string(info.param.toolkit) + actions[static_cast<int>(info.param.action)];
}

// Each toolkit's window is started once for all its cases, under a real window manager.
class ToolkitInput : public ::testing::TestWithParam<Case> {
protected:
    static void SetUpTestSuite() {
        connection = std::make_unique<X11Connection>();
        manager = std::make_unique<WindowManager>(connection->display());
        desktop = std::make_unique<X11Desktop>(*connection);
        apps["gtk"] = std::make_unique<TargetApp>(
            std::vector<std::string>{"/usr/bin/python3", QUORLIN_TEST_TARGETS "/gtk_target.py"});
        apps["tk"] = std::make_unique<TargetApp>(std::vector<std::string>{"wish", QUORLIN_TEST_TARGETS "/tk_target.tcl"});
        apps["qt"] = std::make_unique<TargetApp>(std::vector<std::string>{QUORLIN_QT_TARGET});
    }
    static void TearDownTestSuite() {
        apps.clear();
        desktop.reset();
        manager.reset();
        connection.reset();
    }

    static inline std::unique_ptr<X11Connection> connection;
    static inline std::unique_ptr<WindowManager> manager;
    static inline std::unique_ptr<X11Desktop> desktop;
    static inline std::map<std::string, std::unique_ptr<TargetApp>> apps;
};

TEST_P(ToolkitInput, ReactsAsToTheUsersOwnInputAndTheUsersStateStaysAfterTheStep) {
    const Case& c = GetParam();
    TargetApp& app = *apps.at(c.toolkit);
    if (c.knownGap) GTEST_SKIP() << c.knownGap;
    ASSERT_TRUE(app.ready()) << c.toolkit << " window did not come up";
    Display* d = connection->display();
    const UserState before = UserState::of(d);

    if (c.action == Action::Typing) {
        post(*desktop, app.at("entry"), Action::Click, "Hello, 1!\xE9\r\n");
    } else {
        post(*desktop, app.at("button"), c.action);
        if (c.action == Action::Click) {
            std::this_thread::sleep_for(std::chrono::milliseconds(700));
            post(*desktop, app.at("button"), c.action);
        }
    }
    EXPECT_EQ(app.lines(c.reaction.size()), c.reaction);
    std::this_thread::sleep_for(X11Desktop::kQuietEnd + std::chrono::milliseconds(100));
    XSync(d, False);
    const UserState after = UserState::of(d);
    EXPECT_EQ(after.pointer, before.pointer);
    EXPECT_EQ(after.focus, before.focus);
    EXPECT_TRUE(after.stackedAs(before));
    EXPECT_TRUE(after.keymap == before.keymap);
}

const std::vector<std::string> kTwoSingleClicks{"clicked", "clicked"};
const std::vector<std::string> kDoubleClick{"clicked", "double", "clicked"};
const std::vector<std::string> kMenu{"menu"};
const std::vector<std::string> kTyped{"text Hello, 1!\xC3\xA9"};

INSTANTIATE_TEST_SUITE_P(
    RealToolkits, ToolkitInput,
    ::testing::Values(Case{"gtk", Action::Click, kTwoSingleClicks, true},
                      Case{"gtk", Action::DBClick, kDoubleClick, true},
                      Case{"gtk", Action::RightClick, kMenu, true}, Case{"gtk", Action::Typing, kTyped, true},
                      Case{"tk", Action::Click, kTwoSingleClicks}, Case{"tk", Action::DBClick, kDoubleClick},
                      Case{"tk", Action::RightClick, kMenu}, Case{"tk", Action::Typing, kTyped},
                      Case{"qt", Action::Click, kTwoSingleClicks, true}, Case{"qt", Action::DBClick, kDoubleClick, true},
                      Case{"qt", Action::RightClick, kMenu, true}, Case{"qt", Action::Typing, kTyped, true}),
    nameOf);

}  // namespace
}  // namespace quorlin::testing
