#include <gtest/gtest.h>

#include <aclapi.h>
#include <sddl.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "project/atomic_file.h"
#include "test_windows.h"
#include "win32/win32_desktop.h"
#include "win32/win32_durable_files.h"
#include "win32/win32_screen_reader.h"

namespace quorlin::testing {
namespace {

namespace fs = std::filesystem;
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

// GetPixel gives 0x00BBGGRR, and -1 off the screen. One reader reads every rectangle, the
// largest first, so that the smaller ones are read through a buffer wider than they are.
TEST(Win32ScreenReader, GivesWhatGetPixelGivesAlsoOffTheScreen) {
    RecordingWindow corner({0, 0, 8, 8}, nullptr, WS_POPUP, [](int x, int y) { return RGB(x * 30, 255, y * 30); });
    RecordingWindow shades({300, 200, 316, 208}, nullptr, WS_POPUP,
                           [](int x, int y) { return RGB(x * 16, y * 32, 0x80); });
    for (HWND painted : {corner.hwnd(), shades.hwnd()})
        SetWindowPos(painted, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    pumpMessages(300);
    const int right = GetSystemMetrics(SM_CXVIRTUALSCREEN) - 1;
    const int bottom = GetSystemMetrics(SM_CYVIRTUALSCREEN) - 1;
    const ScreenRect cases[] = {
        {300, 200, 315, 207},                            // a window of shades
        {-3, -2, 4, 3},                                  // across the top-left corner
        {right - 2, bottom - 1, right + 3, bottom + 2},  // across the bottom-right corner
        {-60, 10, -50, 12},                              // wholly left of the screen
        {2, 2, 6, 5},                                    // wholly on it
    };
    win32::Win32ScreenReader reader;
    HDC dc = GetWindowDC(GetDesktopWindow());
    std::vector<std::vector<Colour>> read;
    for (const ScreenRect& r : cases) {
        std::vector<Colour> pixelByPixel;
        for (int y = r.top; y <= r.bottom; ++y)
            for (int x = r.left; x <= r.right; ++x) pixelByPixel.push_back(static_cast<Colour>(GetPixel(dc, x, y)));
        read.emplace_back(pixelByPixel.size(), 0);
        reader.readRect(r, read.back());
        EXPECT_EQ(read.back(), pixelByPixel) << r.left << "," << r.top << " - " << r.right << "," << r.bottom;
    }
    ReleaseDC(GetDesktopWindow(), dc);
    EXPECT_EQ(read[0][1], 0x00800010);
    EXPECT_EQ(read[1][0], -1);
    EXPECT_EQ(read[1][2 * 8 + 3], 0x0000FF00);
}

std::wstring accessListOf(const fs::path& path) {
    PACL access = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &access,
                              nullptr, &descriptor) != ERROR_SUCCESS)
        return L"unreadable";
    LPWSTR text = nullptr;
    ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text,
                                                         nullptr);
    std::wstring list = text ? text : L"";
    LocalFree(text);
    LocalFree(descriptor);
    return list;
}

// A save replaces the file with a new one: the content reaches the disk first, and the
// new file keeps the access list the user gave the old one.
TEST(Win32DurableFiles, ASaveFlushesTheFileAndKeepsItsAccessList) {
    const fs::path dir = fs::temp_directory_path() / "quorlin-durable";
    fs::create_directories(dir);
    const fs::path file = dir / "setup.tpl";
    std::ofstream(file) << "former";
    PSECURITY_DESCRIPTOR own = nullptr;
    ASSERT_TRUE(
        ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;WD)", SDDL_REVISION_1, &own, nullptr));
    ASSERT_TRUE(SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, own));
    LocalFree(own);
    const std::wstring before = accessListOf(file);

    win32::Win32DurableFiles files;
    EXPECT_TRUE(writeFileAtomically(file, [](std::ostream& out) { return static_cast<bool>(out << "new"); }, &files));
    std::ifstream in(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "new");
    in.close();
    EXPECT_EQ(accessListOf(file), before);
    EXPECT_TRUE(files.flushToDisk(file));
    EXPECT_TRUE(files.flushToDisk(dir));
    EXPECT_FALSE(files.flushToDisk(dir / "missing.tpl"));
    fs::remove_all(dir);
}

}  // namespace
}  // namespace quorlin::testing
