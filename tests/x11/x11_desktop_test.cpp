#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "run/window_messages.h"
#include "x11/x11_desktop.h"
#include "x11_fixtures.h"

namespace quorlin::testing {
namespace {

using namespace wm;
using x11::X11Connection;

class X11DesktopTest : public ::testing::Test {
protected:
    X11Connection connection;
    x11::X11Desktop desktop{connection};
};

TEST_F(X11DesktopTest, ButtonsGoToTheInnermostWindowWithClientAndRootCoordinates) {
    RecordingWindow outer(200, 150, 200, 200);
    RecordingWindow target(20, 10, 120, 80, outer.id());
    EXPECT_EQ(desktop.windowFromPoint({210, 155}), outer.id());
    EXPECT_EQ(desktop.windowFromPoint({1270, 1010}), 0u);
    EXPECT_EQ(desktop.screenToClient(0, {7, 8}), (ScreenPoint{7, 8}));
    const WindowHandle w = desktop.windowFromPoint({250, 180});
    ASSERT_EQ(w, target.id());
    EXPECT_EQ(desktop.screenToClient(w, {250, 180}), (ScreenPoint{30, 20}));
    // A window that takes no buttons leaves them to the nearest ancestor that does, as with a real click.
    const Window pane = XCreateSimpleWindow(target.display(), target.id(), 60, 40, 20, 20, 0, 0, 0);
    XMapWindow(target.display(), pane);
    XSync(target.display(), False);

    desktop.postMessage(w, WM_LBUTTONDOWN, MK_LBUTTON, mouseLParam(30, 20));
    desktop.postMessage(w, WM_LBUTTONUP, 0, mouseLParam(30, 20));
    desktop.postMessage(w, WM_LBUTTONDBLCLK, MK_LBUTTON, mouseLParam(30, 20));
    desktop.postMessage(w, WM_RBUTTONDOWN, MK_RBUTTON, mouseLParam(-5, 10));
    desktop.postMessage(w, WM_RBUTTONUP, 0, mouseLParam(-5, 10));
    // Posts to another window make a visit of their own there.
    desktop.postMessage(outer.id(), WM_LBUTTONDOWN, MK_LBUTTON, mouseLParam(10, 5));
    desktop.postMessage(outer.id(), WM_LBUTTONUP, 0, mouseLParam(10, 5));
    desktop.postMessage(pane, WM_LBUTTONDOWN, MK_LBUTTON, mouseLParam(5, 5));
    desktop.postMessage(pane, WM_LBUTTONUP, 0, mouseLParam(5, 5));
    ASSERT_EQ(target.buttons(7), (Buttons{{ButtonPress, 1, 30, 20}, {ButtonRelease, 1, 30, 20},
                                          {ButtonPress, 1, 30, 20}, {ButtonPress, 3, -5, 10},
                                          {ButtonRelease, 3, -5, 10}, {ButtonPress, 1, 65, 45},
                                          {ButtonRelease, 1, 65, 45}}));
    const auto& events = target.receive(7);
    EXPECT_EQ((std::vector<unsigned long>{events[0].xbutton.subwindow, events[5].xbutton.subwindow}),
              (std::vector<unsigned long>{None, pane}));
    EXPECT_EQ((std::vector<int>{events[0].xbutton.x_root, events[0].xbutton.y_root, events[3].xbutton.x_root}),
              (std::vector<int>{250, 180, 215}));
    EXPECT_EQ(outer.buttons(2), (Buttons{{ButtonPress, 1, 10, 5}, {ButtonRelease, 1, 10, 5}}));
}

TEST_F(X11DesktopTest, EveryTypedCharacterArrivesOnceAsThatCharacter) {
    RecordingWindow target(100, 100, 50, 50);
    const std::string text = "aZ1 !\xE9\r\nx\ty";  // Windows-1252 codes, as the click step sends them
    for (unsigned char c : text) {
        desktop.postMessage(target.id(), WM_KEYDOWN, static_cast<std::uint32_t>(c - 32), kKeyLParam);
        desktop.postMessage(target.id(), WM_CHAR, c, kKeyLParam);
        desktop.postMessage(target.id(), WM_KEYUP, static_cast<std::uint32_t>(c - 32), kKeyLParam);
    }
    const auto& events = target.receive(20);
    EXPECT_EQ(target.typed(), "aZ1 !\xE9\rx\ty");
    EXPECT_EQ(events.size(), 20u);
    EXPECT_EQ(std::count_if(events.begin(), events.end(), [](const XEvent& e) { return e.type == KeyRelease; }), 10);
}

TEST_F(X11DesktopTest, AVanishedTargetNeitherCrashesNorStopsLaterPosts) {
    auto gone = std::make_unique<RecordingWindow>(10, 10, 20, 20);
    RecordingWindow alive(40, 10, 20, 20);
    const WindowHandle stale = gone->id();
    gone.reset();
    desktop.postMessage(stale, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    desktop.postMessage(stale, WM_CHAR, 'a', kKeyLParam);
    (void)desktop.screenToClient(stale, {1, 1});
    XSync(connection.display(), False);
    EXPECT_GT(X11Connection::errorCount(), 0u);

    desktop.postMessage(alive.id(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
    EXPECT_EQ(alive.receive(1).size(), 1u);
}

TEST_F(X11DesktopTest, LinksGoToTheDesktopsOpenCommand) {
    const auto dir = std::filesystem::temp_directory_path() / "quorlin-opener";
    std::filesystem::create_directories(dir);
    std::filesystem::remove(dir / "opened");
    std::ofstream(dir / "xdg-open") << "#!/bin/sh\nprintf '%s' \"$1\" > \"${0%/*}/opened\"\n";
    std::filesystem::permissions(dir / "xdg-open", std::filesystem::perms::owner_all);
    const std::string path = std::getenv("PATH");
    setenv("PATH", (dir.string() + ":" + path).c_str(), 1);
    desktop.openLink("mailto:someone@example.org?Subject=Feedback");
    setenv("PATH", path.c_str(), 1);
    const auto opened = [&] {
        std::ifstream in(dir / "opened");
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    EXPECT_TRUE(eventually([&] { return opened() == "mailto:someone@example.org?Subject=Feedback"; },
                           std::chrono::seconds(5)))
        << opened();
}

TEST_F(X11DesktopTest, APointOffTheScreenHasNoWindowAndNeverWraps) {
    RecordingWindow target(800, 150, 100, 100);
    const ScreenPoint offScreen[] = {{66386, 200}, {850 - 65536, 200}, {850, 200 + 65536}, {-1, 200}, {1280, 200},
                                     {850, 1024}, {2147483647, -2147483647 - 1}};
    for (ScreenPoint p : offScreen) EXPECT_EQ(desktop.windowFromPoint(p), 0u) << p.x << "," << p.y;
    EXPECT_EQ(desktop.windowFromPoint({850, 200}), target.id());
    EXPECT_EQ(desktop.screenToClient(target.id(), {66386, 200}), (ScreenPoint{65586, 50}));
    EXPECT_EQ(desktop.screenToClient(target.id(), {-2147483647 - 1, 2147483647}),
              (ScreenPoint{-2147483647 - 1, 2147483497}));
}

}  // namespace
}  // namespace quorlin::testing
