#include <gtest/gtest.h>

#include <X11/Xatom.h>

#include <string>

#include "private_display.h"
#include "recording_window.h"
#include "support/fake_platform.h"
#include "window/frm_main.h"
#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"

namespace quorlin::testing {
namespace {

// One RightClick step of a manual run, through the whole window and the real back end.
void rightClickOnce(ScreenPoint at) {
    x11::X11Connection connection;
    x11::X11Desktop desktop(connection);
    x11::X11ScreenReader screen(connection);
    VirtualClock clock;
    FakeDialogs dialogs;
    ScriptedRandom random;
    FrmMain frm{Ports{desktop, screen, clock, clock, dialogs, random}};
    clock.onTick = [&frm](TimerId id) {
        if (id == TimerId::tmrCount) frm.tmrCount_Timer();
    };
    frm.Form_Load(0);
    frm.selectOption(Ctl::optApplication);
    frm.selectOption(Ctl::optRightClick);
    frm.setText(Ctl::txtX, std::to_string(at.x));
    frm.setText(Ctl::txtY, std::to_string(at.y));
    frm.cmdStart_Click();
    clock.advanceBy(10'000);
}

std::vector<long> frameExtents(Display* d, Window client, std::chrono::milliseconds patience) {
    const Atom extents = XInternAtom(d, "_NET_FRAME_EXTENTS", False);
    for (auto until = std::chrono::steady_clock::now() + patience; std::chrono::steady_clock::now() < until;
         std::this_thread::sleep_for(std::chrono::milliseconds(20))) {
        Atom type = None;
        int format = 0;
        unsigned long count = 0, after = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(d, client, extents, 0, 4, False, XA_CARDINAL, &type, &format, &count, &after, &data);
        std::vector<long> values;
        if (data && count == 4) values.assign(reinterpret_cast<long*>(data), reinterpret_cast<long*>(data) + 4);
        if (data) XFree(data);
        if (!values.empty() && values[2] > 0) return values;
    }
    return {};
}

// Hands the recording window to the window manager, which frames it with a title bar;
// returns the frame's left, right, top and bottom widths. A manager still starting up
// can miss a mapping, so the window is mapped again until it is framed.
std::vector<long> frameAround(RecordingWindow& w) {
    Display* d = w.display();
    XStoreName(d, w.id(), "target");
    for (int attempt = 0; attempt < 10; ++attempt) {
        XUnmapWindow(d, w.id());
        XSetWindowAttributes managed{};
        XChangeWindowAttributes(d, w.id(), CWOverrideRedirect, &managed);
        XMapWindow(d, w.id());
        XSync(d, False);
        std::vector<long> extents = frameExtents(d, w.id(), std::chrono::milliseconds(300));
        if (!extents.empty()) return extents;
    }
    return {};
}

TEST(WindowAtPoint, AWindowManagersFrameStandsForTheClientItDecorates) {
    PrivateDisplay server;
    RecordingWindow client(300, 200, 200, 150);
    RecordingWindow button(20, 20, 40, 30, client.id());
    Display* d = client.display();
    ASSERT_TRUE(server.startWindowManager(d)) << "openbox did not start";
    const std::vector<long> frame = frameAround(client);
    ASSERT_EQ(frame.size(), 4u) << "openbox did not frame the window";
    const long left = frame[0];
    const long titleMiddle = -frame[2] / 2;
    x11::X11Connection connection;
    x11::X11Desktop desktop(connection);
    int x = 0, y = 0;
    Window child = None;
    XTranslateCoordinates(d, client.id(), DefaultRootWindow(d), 0, 0, &x, &y, &child);

    struct Case {
        const char* where;
        ScreenPoint client;
        Window expected;
        ScreenPoint inExpected;
    };
    const int title = static_cast<int>(titleMiddle);
    const int border = static_cast<int>(-left);
    const Case cases[] = {{"title bar", {100, title}, client.id(), {100, title}},
                          {"left border", {border, 50}, client.id(), {border, 50}},
                          {"client area", {100, 100}, client.id(), {100, 100}},
                          {"the client's own child", {30, 30}, button.id(), {10, 10}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.where);
        const ScreenPoint at{x + c.client.x, y + c.client.y};
        const WindowHandle found = desktop.windowFromPoint(at);
        EXPECT_EQ(found, c.expected);
        EXPECT_EQ(desktop.screenToClient(found, at), c.inExpected);
    }

    // Above the client area only the release goes out, to the client: the window
    // manager never sees the click, so no menu of its own opens and grabs the pointer.
    rightClickOnce({x + 100, y + title});
    const auto& events = client.receive(2, 300);
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].type, ButtonRelease);
    EXPECT_EQ(events[0].xbutton.button, 3u);
    EXPECT_EQ(events[0].xbutton.y, title);
    EXPECT_EQ(XGrabPointer(d, DefaultRootWindow(d), False, 0, GrabModeAsync, GrabModeAsync, None, None, CurrentTime),
              GrabSuccess);
}

TEST(WindowAtPoint, APointOffTheScreenHasNoWindowAndNeverWraps) {
    PrivateDisplay server;
    RecordingWindow target(800, 150, 100, 100);
    x11::X11Connection connection;
    x11::X11Desktop desktop(connection);
    const ScreenPoint offScreen[] = {{66386, 200}, {850 - 65536, 200}, {850, 200 + 65536}, {-1, 200}, {1280, 200},
                                     {850, 1024}, {2147483647, -2147483647 - 1}};
    for (ScreenPoint p : offScreen) EXPECT_EQ(desktop.windowFromPoint(p), 0u) << p.x << "," << p.y;
    EXPECT_EQ(desktop.windowFromPoint({850, 200}), target.id());
    EXPECT_EQ(desktop.screenToClient(target.id(), {66386, 200}), (ScreenPoint{65586, 50}));
    EXPECT_EQ(desktop.screenToClient(target.id(), {-2147483647 - 1, 2147483647}),
              (ScreenPoint{-2147483647 - 1, 2147483497}));

    rightClickOnce({66386, 200});
    EXPECT_TRUE(target.receive(1, 300).empty());
}

}  // namespace
}  // namespace quorlin::testing
