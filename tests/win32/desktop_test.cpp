#include <gtest/gtest.h>

#include <string>

#include "test_windows.h"
#include "win32/win32_desktop.h"

namespace quorlin::testing {
namespace {

constexpr std::uint32_t kKeyLParam = 0xC0100001;
using win32::Win32Desktop;

WindowHandle handleOf(HWND hwnd) { return reinterpret_cast<WindowHandle>(hwnd); }

TEST(Win32Desktop, FindsTheInnermostWindowUnderAPointAndItsClientCoordinates) {
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
}

TEST(Win32Desktop, APointLeftOfTheClientAreaGivesNegativeClientCoordinates) {
    Win32Desktop desktop;
    RecordingWindow framed({500, 300, 700, 450}, nullptr, WS_OVERLAPPEDWINDOW);
    POINT origin{0, 0};
    ClientToScreen(framed.hwnd(), &origin);
    const ScreenPoint client = desktop.screenToClient(handleOf(framed.hwnd()), {origin.x - 3, origin.y - 5});
    EXPECT_EQ(client, (ScreenPoint{-3, -5}));
}

TEST(Win32Desktop, PostedMessagesArriveInOrderWithTheirParameters) {
    Win32Desktop desktop;
    RecordingWindow target({100, 100, 160, 160});
    struct Post {
        std::uint32_t code, wParam, lParam;
    } posts[] = {
        {WM_LBUTTONDOWN, MK_LBUTTON, 0x0014001E}, {WM_LBUTTONUP, 0, 0x0014001E},
        {WM_LBUTTONDBLCLK, MK_LBUTTON, 0x0014001E}, {WM_RBUTTONDOWN, MK_RBUTTON, 0x000AFFFB},
        {WM_RBUTTONUP, 0, 0x000AFFFB}, {WM_KEYDOWN, 'a' - 32, kKeyLParam},
        {WM_CHAR, 'a', kKeyLParam}, {WM_KEYUP, 'a' - 32, kKeyLParam},
    };
    for (const Post& p : posts) desktop.postMessage(handleOf(target.hwnd()), p.code, p.wParam, p.lParam);
    const std::vector<Received> expected = {
        {0x0201, 1, 0x0014001E}, {0x0202, 0, 0x0014001E}, {0x0203, 1, 0x0014001E}, {0x0204, 2, 0x000AFFFB},
        {0x0205, 0, 0x000AFFFB}, {0x0100, 65, 0xC0100001}, {0x0102, 97, 0xC0100001}, {0x0101, 65, 0xC0100001},
    };
    EXPECT_EQ(target.receive(std::size(posts)), expected);
}

TEST(Win32Desktop, TypedCharactersArriveInARealEditControl) {
    Win32Desktop desktop;
    RecordingWindow host({100, 100, 300, 140});
    HWND edit = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, 200, 40, host.hwnd(),
                                nullptr, GetModuleHandleW(nullptr), nullptr);
    const std::string text = "aZ1 !\xE9x";  // Windows-1252, as the click step types it
    for (unsigned char c : text) {
        desktop.postMessage(handleOf(edit), WM_KEYDOWN, static_cast<std::uint32_t>(c - 32), kKeyLParam);
        desktop.postMessage(handleOf(edit), WM_CHAR, c, kKeyLParam);
        desktop.postMessage(handleOf(edit), WM_KEYUP, static_cast<std::uint32_t>(c - 32), kKeyLParam);
    }
    wchar_t typed[32] = {};
    pumpMessages(3000, [&] { return GetWindowTextW(edit, typed, 32) >= 7; });
    EXPECT_STREQ(typed, L"aZ1 !\u00E9x");
}

TEST(Win32Desktop, StayOnTopKeepsTheWindowAboveALaterOneUntilSwitchedOff) {
    Win32Desktop desktop;
    RecordingWindow ours({600, 400, 700, 500});
    desktop.setTopMost(handleOf(ours.hwnd()), true);
    RecordingWindow other({650, 450, 750, 550});
    SetWindowPos(other.hwnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    pumpMessages(50);
    EXPECT_TRUE(GetWindowLongW(ours.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_EQ(desktop.windowFromPoint({680, 480}), handleOf(ours.hwnd()));

    desktop.setTopMost(handleOf(ours.hwnd()), false);
    SetWindowPos(other.hwnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    pumpMessages(50);
    EXPECT_FALSE(GetWindowLongW(ours.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_EQ(desktop.windowFromPoint({680, 480}), handleOf(other.hwnd()));
}

TEST(Win32Desktop, CursorPositionIsInScreenPixels) {
    Win32Desktop desktop;
    SetCursorPos(321, 123);
    EXPECT_EQ(desktop.cursorPos(), (ScreenPoint{321, 123}));
}

}  // namespace
}  // namespace quorlin::testing

