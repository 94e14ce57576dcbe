// The Windows platform and front end, run under Wine: desktop operations and screen reads as
// the platform does them, and quorlin.exe driven through its windows.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>
#include <dlgs.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include "control_ids.h"
#include "win32/win32_desktop.h"
#include "win32/win32_durable_files.h"
#include "win32/win32_screen_reader.h"
#include "win32/win32_text.h"

namespace quorlin::testing {
namespace {

namespace fs = std::filesystem;
using win32::Win32Desktop;
using Received = std::tuple<UINT, WPARAM, LPARAM>;

std::string bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Dispatches this thread's messages for a while, without translating keys: a window
// sees exactly the messages that were posted to it.
void pumpMessages(int milliseconds, const std::function<bool()>& done = [] { return false; }) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!done() && std::chrono::steady_clock::now() < until) {
        MSG msg;
        while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&msg);
        if (!done()) MsgWaitForMultipleObjectsEx(0, nullptr, 5, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

// A real window on this thread that records the mouse and key messages it receives and
// paints itself pixel by pixel in the given colours. A top-level one stays above the
// windows of other programs, so that nothing covers it.
class RecordingWindow {
public:
    using Painter = std::function<COLORREF(int x, int y)>;
    HWND hwnd = nullptr;

    RecordingWindow(RECT r, HWND parent = nullptr, DWORD style = WS_POPUP, Painter painter = nullptr)
        : painter_(std::move(painter)) {
        static const WNDCLASSEXW windowClass{
            sizeof(WNDCLASSEXW), 0, &windowProc, 0, 0, GetModuleHandleW(nullptr), nullptr, nullptr, nullptr, nullptr,
            L"QuorlinTestRecordingWindow", nullptr};
        static const ATOM atom = RegisterClassExW(&windowClass);
        hwnd = CreateWindowExW(parent ? 0 : WS_EX_TOPMOST, MAKEINTATOM(atom), L"recording",
                               (parent ? WS_CHILD : style) | WS_VISIBLE, r.left, r.top, r.right - r.left,
                               r.bottom - r.top, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        pumpMessages(50);
        received_.clear();
    }
    ~RecordingWindow() { DestroyWindow(hwnd); }
    RecordingWindow(const RecordingWindow&) = delete;
    RecordingWindow& operator=(const RecordingWindow&) = delete;

    const std::vector<Received>& receive(std::size_t count, int timeoutMs = 3000) {
        pumpMessages(timeoutMs, [&] { return received_.size() >= count; });
        return received_;
    }

private:
    static LRESULT CALLBACK windowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<RecordingWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
        const bool input = (message >= WM_LBUTTONDOWN && message <= WM_RBUTTONUP) ||
                           message == WM_KEYDOWN || message == WM_KEYUP || message == WM_CHAR;
        if (self && input) self->received_.push_back({message, wParam, lParam});
        if (!self || message != WM_PAINT || !self->painter_) return DefWindowProcW(hwnd, message, wParam, lParam);
        PAINTSTRUCT ps;
        HDC dc = BeginPaint(hwnd, &ps);
        for (int y = ps.rcPaint.top; y < ps.rcPaint.bottom; ++y)
            for (int x = ps.rcPaint.left; x < ps.rcPaint.right; ++x) SetPixel(dc, x, y, self->painter_(x, y));
        EndPaint(hwnd, &ps);
        return 0;
    }

    Painter painter_;
    std::vector<Received> received_;
};

WindowHandle handleOf(HWND hwnd) { return reinterpret_cast<WindowHandle>(hwnd); }

// Client coordinates are the client area's, also left of and above it.
TEST(Win32Desktop, FindsTheWindowUnderAPointItsClientPointAndTheCursor) {
    Win32Desktop desktop;
    RecordingWindow outer({200, 150, 400, 300});
    RecordingWindow inner({50, 60, 90, 100}, outer.hwnd);
    const std::tuple<ScreenPoint, HWND, ScreenPoint> cases[] = {  // a point, the window there, the client point
        {{230, 170}, outer.hwnd, {30, 20}},
        {{260, 220}, inner.hwnd, {10, 10}},
        {{399, 299}, outer.hwnd, {199, 149}},
    };
    for (const auto& [point, window, client] : cases) {
        const WindowHandle found = desktop.windowFromPoint(point);
        EXPECT_EQ(found, handleOf(window)) << point.x << "," << point.y;
        EXPECT_EQ(desktop.screenToClient(found, point), client) << point.x << "," << point.y;
    }
    EXPECT_NE(desktop.windowFromPoint({199, 150}), handleOf(outer.hwnd));
    EXPECT_EQ(desktop.screenToClient(0, {7, 8}), (ScreenPoint{7, 8}));
    RecordingWindow framed({350, 250, 550, 400}, nullptr, WS_OVERLAPPEDWINDOW);
    POINT origin{0, 0};
    ClientToScreen(framed.hwnd, &origin);
    EXPECT_EQ(desktop.screenToClient(handleOf(framed.hwnd), {origin.x - 3, origin.y - 5}), (ScreenPoint{-3, -5}));
    SetCursorPos(321, 123);
    EXPECT_EQ(desktop.cursorPos(), (ScreenPoint{321, 123}));
}

// A negative x in the low word and a key's high bits reach the window as they were posted.
TEST(Win32Desktop, PostsMessagesAsTheyWereGiven) {
    RecordingWindow window({200, 150, 400, 300});
    const std::vector<Received> posts = {
        {0x0203, 1, 0x0014001E}, {0x0205, 0, 0x000AFFFB}, {0x0100, 65, 0xC0100001}, {0x0102, 97, 0xC0100001},
    };
    for (const auto& [code, wParam, lParam] : posts)
        Win32Desktop().postMessage(handleOf(window.hwnd), code, static_cast<std::uint32_t>(wParam),
                                   static_cast<std::uint32_t>(lParam));
    EXPECT_EQ(window.receive(posts.size()), posts);
}

// GetPixel gives 0x00BBGGRR, and -1 off the screen. One reader reads every rectangle, the
// largest first, so that the smaller ones are read through a buffer wider than they are.
TEST(Win32ScreenReader, GivesWhatGetPixelGivesAlsoOffTheScreen) {
    RecordingWindow corner({0, 0, 8, 8}, nullptr, WS_POPUP, [](int x, int y) { return RGB(x * 30, 255, y * 30); });
    RecordingWindow shades({300, 200, 316, 208}, nullptr, WS_POPUP,
                           [](int x, int y) { return RGB(x * 16, y * 32, 0x80); });
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
    EXPECT_EQ(read[1][2 * 8 + 3], 0x0000FF00);
}

std::wstring quorlinExe;  // the program under test, as a Windows path

// Asked of the control itself: an edit control's text is not its window caption.
std::wstring textOf(HWND hwnd) {
    wchar_t text[256] = {};
    SendMessageW(hwnd, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text));
    return text;
}

// quorlin.exe started as its own process and driven through its windows from outside.
class FrontEnd : public ::testing::Test {
protected:
    HWND main = nullptr;
    FrontEnd() {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        if (!CreateProcessW(quorlinExe.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process_))
            throw std::runtime_error("quorlin.exe does not start");
        main = waitForWindow(L"Quorlin", nullptr);
    }
    ~FrontEnd() override {
        PostMessageW(main, WM_CLOSE, 0, 0);
        if (WaitForSingleObject(process_.hProcess, 10000) != WAIT_OBJECT_0) TerminateProcess(process_.hProcess, 99);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }

    HWND control(Ctl id) const { return GetDlgItem(main, win32::controlId(id)); }
    void type(Ctl id, const wchar_t* text) { SendMessageW(control(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)); }
    void click(Ctl id) { PostMessageW(control(id), BM_CLICK, 0, 0); }
    // Handled before it returns, so that the fields typed next are not read by this press.
    void press(Ctl id) { SendMessageTimeoutW(control(id), BM_CLICK, 0, 0, SMTO_NORMAL, 5000, nullptr); }

    // A top-level window of the program with this title (and class, when given).
    HWND waitForWindow(const wchar_t* title, const wchar_t* className) const {
        HWND found = nullptr;
        pumpMessages(15000, [&] {
            found = FindWindowW(className, title);
            DWORD owner = 0;
            if (found) GetWindowThreadProcessId(found, &owner);
            return found && owner == process_.dwProcessId && IsWindowVisible(found);
        });
        return found;
    }

    // Presses a file button, chooses the file in the dialog it opens and waits until `done`.
    void chooseFile(Ctl button, const fs::path& path, const std::function<bool()>& done) {
        click(button);
        HWND dialog = waitForWindow(L"Load Attachement", L"#32770");
        ASSERT_TRUE(dialog);
        HWND filter = GetDlgItem(dialog, cmb1);
        EXPECT_EQ(SendMessageW(filter, CB_GETCOUNT, 0, 0), 1);
        EXPECT_EQ(textOf(filter), L"Files (*.tpl)");
        HWND name = GetDlgItem(dialog, cmb13) ? GetDlgItem(dialog, cmb13) : GetDlgItem(dialog, edt1);
        SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.wstring().c_str()));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        pumpMessages(30000, done);
    }

private:
    PROCESS_INFORMATION process_{};
};

TEST_F(FrontEnd, OpensAtItsSizeWithItsCaptions) {
    ASSERT_EQ(GetDpiForWindow(main), 96u);
    RECT client;
    GetClientRect(main, &client);
    EXPECT_EQ((std::pair{client.right, client.bottom}), (std::pair<LONG, LONG>{455, 623}));

    // One control of each kind; trailing blanks stay.
    const std::pair<Ctl, const wchar_t*> captions[] = {
        {Ctl::frmWeb, L"Type "}, {Ctl::optImageNotInclude, L"Click if screen picture is Not : "}, {Ctl::lblX, L"X :"},
        {Ctl::chkText, L"and type text :"}, {Ctl::chkRecImage, L""}, {Ctl::cmdRemove, L"Remove from track list"},
        {Ctl::txtSeconds, L"3"},
    };
    for (const auto& [id, caption] : captions) EXPECT_EQ(textOf(control(id)), caption) << indexOf(id);
    EXPECT_FALSE(IsWindowVisible(control(Ctl::txtComments)));
}

TEST_F(FrontEnd, StaysOnTopUntilSwitchedOff) {
    EXPECT_TRUE(GetWindowLongW(main, GWL_EXSTYLE) & WS_EX_TOPMOST);
    press(Ctl::optNotOnTop);
    EXPECT_FALSE(GetWindowLongW(main, GWL_EXSTYLE) & WS_EX_TOPMOST);
}

// The upper arrow, then the lower one twice: the third press steps below where the arrows began.
TEST_F(FrontEnd, SpinArrowsStepTheirField) {
    const std::pair<int, const wchar_t*> presses[] = {{4, L"4"}, {15, L"3"}, {15, L"2"}};
    for (const auto& [y, after] : presses) {
        PostMessageW(control(Ctl::UpDown3), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, y));
        PostMessageW(control(Ctl::UpDown3), WM_LBUTTONUP, 0, MAKELPARAM(8, y));
        pumpMessages(5000, [&] { return textOf(control(Ctl::txtSeconds)) == after; });
        EXPECT_EQ(textOf(control(Ctl::txtSeconds)), after);
    }
}

// Saved over an older file, whose owner and access list the save keeps (Wine keeps none that a
// test could set), then cleared and loaded again.
TEST_F(FrontEnd, SavesAndLoadsTheTrackListThroughTheFileDialog) {
    const auto dir = fs::temp_directory_path() / ("quorlin-" + std::to_string(GetCurrentProcessId()));
    const fs::path file = dir / "setup.tpl";
    fs::create_directories(dir);
    std::ofstream(file) << "former";
    for (const wchar_t* x : {L"12", L"56"}) {
        type(Ctl::txtX, x);
        type(Ctl::txtY, L"34");
        press(Ctl::cmdAddtoList);
    }
    auto rows = [&] { return SendMessageW(control(Ctl::fgResult), LVM_GETITEMCOUNT, 0, 0); };
    chooseFile(Ctl::cmdSave, file, [&] { return bytesOf(file) != "former"; });
    EXPECT_NE(bytesOf(file).find("\r\n1\r\n12\r\n34\r\n"), std::string::npos) << "entry 1 at 12, 34";
    click(Ctl::cmdClearTrackList);
    pumpMessages(5000, [&] { return rows() == 1; });
    ASSERT_EQ(rows(), 1);
    chooseFile(Ctl::cmdLoad, file, [&] { return rows() == 2; });
    EXPECT_EQ(rows(), 2);
    EXPECT_FALSE(win32::Win32DurableFiles().flushToDisk(dir / "missing.tpl")) << "only what exists is flushed";
    fs::remove_all(dir);
}

TEST_F(FrontEnd, StartClicksTheWindowUnderThePoint) {
    RecordingWindow target({800, 500, 900, 580});
    const std::pair<Ctl, const wchar_t*> run[] = {
        {Ctl::txtX, L"850"}, {Ctl::txtY, L"540"}, {Ctl::txtSeconds, L"0"}, {Ctl::txtMiliseconds, L"100"}};
    for (const auto& [id, text] : run) type(id, text);
    click(Ctl::optApplication);
    click(Ctl::cmdStart);
    const std::vector<Received> expected = {{0x0201, 1, 0x00280032}, {0x0202, 0, 0x00280032}};
    EXPECT_EQ(target.receive(2, 10000), expected);
}

}  // namespace
}  // namespace quorlin::testing

// The one argument: quorlin.exe, as a path of the build machine (Wine's Z: drive).
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (argc < 2) return 2;
    const std::wstring path = quorlin::win32::wideFromAnsi(argv[1]);
    quorlin::testing::quorlinExe = path.starts_with(L"/") ? L"Z:" + path : path;
    return RUN_ALL_TESTS();
}
