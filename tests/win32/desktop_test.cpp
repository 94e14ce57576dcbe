#include <gtest/gtest.h>

#include <string>

#include "test_windows.h"
#include "win32/win32_desktop.h"

namespace quorlin::testing {
namespace {

using win32::Win32Desktop;

WindowHandle handleOf(HWND hwnd) { return reinterpret_cast<WindowHandle>(hwnd); }

TEST(Win32Desktop, FindsTheInnermostWindowUnderAPointItsClientCoordinatesAndTheCursor) {
    Win32Desktop desktop;
    RecordingWindow outer({200, 150, 400, 300});
    RecordingWindow inner({50, 60, 90, 100}, outer.hwnd());
    struct Case {
        ScreenPoint point;
        HWND window;
        ScreenPoint client;
    } cases[] = {
        {{230, 170}, outer.hwnd(), {30, 20}},
        {{260, 220}, inner.hwnd(), {10, 10}},
        {{399, 299}, outer.hwnd(), {199, 149}},
    };
    for (const Case& c : cases) {
        const WindowHandle found = desktop.windowFromPoint(c.point);
        EXPECT_EQ(found, handleOf(c.window)) << c.point.x << "," << c.point.y;
        EXPECT_EQ(desktop.screenToClient(found, c.point), c.client) << c.point.x << "," << c.point.y;
    }
    EXPECT_NE(desktop.windowFromPoint({199, 150}), handleOf(outer.hwnd()));
    EXPECT_EQ(desktop.screenToClient(0, {7, 8}), (ScreenPoint{7, 8}));

    // Left of and above the client area of a framed window.
    RecordingWindow framed({500, 300, 700, 450}, nullptr, WS_OVERLAPPEDWINDOW);
    POINT origin{0, 0};
    ClientToScreen(framed.hwnd(), &origin);
    EXPECT_EQ(desktop.screenToClient(handleOf(framed.hwnd()), {origin.x - 3, origin.y - 5}), (ScreenPoint{-3, -5}));

    SetCursorPos(321, 123);
    EXPECT_EQ(desktop.cursorPos(), (ScreenPoint{321, 123}));
}

// A negative x in the low word and a key's high bits reach the window as they were posted.
TEST(Win32Desktop, PostedMessagesArriveInOrderWithTheirParameters) {
    Win32Desktop desktop;
    RecordingWindow target({100, 100, 160, 160});
    const std::vector<Received> posts = {
        {0x0203, 1, 0x0014001E}, {0x0205, 0, 0x000AFFFB}, {0x0100, 65, 0xC0100001}, {0x0102, 97, 0xC0100001},
    };
    for (const Received& p : posts)
        desktop.postMessage(handleOf(target.hwnd()), p.code, static_cast<std::uint32_t>(p.wParam),
                            static_cast<std::uint32_t>(p.lParam));
    EXPECT_EQ(target.receive(posts.size()), posts);
}

TEST(Win32Desktop, StayOnTopKeepsTheWindowAboveOneRaisedLaterUntilSwitchedOff) {
    Win32Desktop desktop;
    RecordingWindow ours({600, 400, 700, 500});
    RecordingWindow other({650, 450, 750, 550});
    for (bool onTop : {true, false}) {
        desktop.setTopMost(handleOf(ours.hwnd()), onTop);
        SetWindowPos(other.hwnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        pumpMessages(50);
        EXPECT_EQ((GetWindowLongW(ours.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0, onTop);
        EXPECT_EQ(desktop.windowFromPoint({680, 480}), handleOf(onTop ? ours.hwnd() : other.hwnd())) << onTop;
    }
}

}  // namespace
}  // namespace quorlin::testing

