#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>
#include <dlgs.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "control_ids.h"
#include "test_windows.h"
#include "win32/win32_text.h"

namespace quorlin::testing {
namespace {

std::wstring quorlinExe;  // the program under test, as a Windows path

// Asked of the control itself: an edit control's text is not its window caption.
std::wstring textOf(HWND hwnd) {
    wchar_t text[256] = {};
    SendMessageW(hwnd, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text));
    return text;
}

// quorlin.exe started as its own process and driven through its windows from outside.
class Quorlin {
public:
    Quorlin() {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        std::wstring line = L"\"" + quorlinExe + L"\"";
        if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process_))
            throw std::runtime_error("quorlin.exe does not start");
        main_ = waitForWindow(L"Quorlin", nullptr);
    }
    ~Quorlin() {
        PostMessageW(main_, WM_CLOSE, 0, 0);
        if (WaitForSingleObject(process_.hProcess, 10000) != WAIT_OBJECT_0) TerminateProcess(process_.hProcess, 99);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    Quorlin(const Quorlin&) = delete;
    Quorlin& operator=(const Quorlin&) = delete;

    HWND main() const { return main_; }
    HWND control(Ctl id) const { return GetDlgItem(main_, win32::controlId(id)); }
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
    void chooseFile(Ctl button, const std::filesystem::path& path, const std::function<bool()>& done) {
        click(button);
        HWND dialog = waitForWindow(L"Load Attachement", L"#32770");
        ASSERT_TRUE(dialog);
        HWND filter = GetDlgItem(dialog, cmb1);
        ASSERT_EQ(SendMessageW(filter, CB_GETCOUNT, 0, 0), 1);
        wchar_t description[64] = {};
        SendMessageW(filter, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(description));
        EXPECT_STREQ(description, L"Files (*.tpl)");
        HWND name = GetDlgItem(dialog, cmb13) ? GetDlgItem(dialog, cmb13) : GetDlgItem(dialog, edt1);
        SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.wstring().c_str()));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        pumpMessages(10000, done);
    }

private:
    PROCESS_INFORMATION process_{};
    HWND main_ = nullptr;
};

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(FrontEnd, OpensWithItsLayoutAndCaptionsSpinArrowsStepTheirFieldAndStartClicksTheWindowUnderThePoint) {
    Quorlin quorlin;
    ASSERT_TRUE(quorlin.main());
    ASSERT_EQ(GetDpiForWindow(quorlin.main()), 96u);
    RECT client;
    GetClientRect(quorlin.main(), &client);
    EXPECT_EQ(client.right, 455);
    EXPECT_EQ(client.bottom, 623);
    EXPECT_TRUE(GetWindowLongW(quorlin.main(), GWL_EXSTYLE) & WS_EX_TOPMOST);

    // One control of each kind and in each parent; trailing blanks stay.
    const std::pair<Ctl, const wchar_t*> captions[] = {
        {Ctl::frmStayOnTop, L"Stay On Top"}, {Ctl::optTopMost, L"Top Most"}, {Ctl::lblX, L"X :"},
        {Ctl::frmWeb, L"Type "}, {Ctl::optLoop, L"Non-stop"}, {Ctl::chkText, L"and type text :"},
        {Ctl::chkRecImage, L""}, {Ctl::optImageNotInclude, L"Click if screen picture is Not : "},
        {Ctl::cmdRemove, L"Remove from track list"}, {Ctl::cmdStop, L"Stop"}, {Ctl::txtSeconds, L"3"},
    };
    for (const auto& [id, caption] : captions) EXPECT_EQ(textOf(quorlin.control(id)), caption) << indexOf(id);
    EXPECT_EQ(textOf(quorlin.main()), L"Quorlin");
    EXPECT_FALSE(IsWindowVisible(quorlin.control(Ctl::txtComments)));

    HWND spin = quorlin.control(Ctl::UpDown3);
    const struct {
        int y;
        const wchar_t* after;
    } presses[] = {{4, L"4"}, {15, L"3"}, {15, L"2"}};  // upper arrow, lower arrow twice
    for (const auto& press : presses) {
        PostMessageW(spin, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, press.y));
        PostMessageW(spin, WM_LBUTTONUP, 0, MAKELPARAM(8, press.y));
        pumpMessages(5000, [&] { return textOf(quorlin.control(Ctl::txtSeconds)) == press.after; });
        EXPECT_EQ(textOf(quorlin.control(Ctl::txtSeconds)), press.after);
    }

    RecordingWindow target({800, 500, 900, 580});
    SetWindowPos(target.hwnd(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    quorlin.type(Ctl::txtX, L"850");
    quorlin.type(Ctl::txtY, L"540");
    quorlin.type(Ctl::txtSeconds, L"0");
    quorlin.type(Ctl::txtMiliseconds, L"100");
    quorlin.click(Ctl::optApplication);
    quorlin.click(Ctl::cmdStart);
    const std::vector<Received> expected = {{0x0201, 1, 0x00280032}, {0x0202, 0, 0x00280032}};
    EXPECT_EQ(target.receive(2, 10000), expected);
}

// The project is saved, the list cleared, the file loaded and saved again.
TEST(FrontEnd, AProjectLoadedThroughTheFileDialogSavesByteForByteAsBefore) {
    const auto dir = std::filesystem::temp_directory_path() / ("quorlin-" + std::to_string(GetCurrentProcessId()));
    std::filesystem::create_directories(dir);
    Quorlin quorlin;
    for (const wchar_t* x : {L"12", L"56"}) {
        quorlin.type(Ctl::txtX, x);
        quorlin.type(Ctl::txtY, L"34");
        quorlin.press(Ctl::cmdAddtoList);
    }
    HWND grid = quorlin.control(Ctl::fgResult);
    auto rows = [&] { return SendMessageW(grid, LVM_GETITEMCOUNT, 0, 0); };
    auto saved = [&](const char* name) { return [&dir, name] { return std::filesystem::exists(dir / name); }; };
    pumpMessages(5000, [&] { return rows() == 2; });
    quorlin.chooseFile(Ctl::cmdSave, dir / "first.tpl", saved("first.tpl"));
    quorlin.click(Ctl::cmdClearTrackList);
    pumpMessages(5000, [&] { return rows() == 1; });
    ASSERT_EQ(rows(), 1);
    quorlin.chooseFile(Ctl::cmdLoad, dir / "first.tpl", [&] { return rows() == 2; });
    quorlin.chooseFile(Ctl::cmdSave, dir / "second.tpl", saved("second.tpl"));

    const std::string first = bytesOf(dir / "first.tpl");
    EXPECT_NE(first.find("\r\n1\r\n12\r\n34\r\n"), std::string::npos) << "entry 1 at 12, 34";
    EXPECT_EQ(bytesOf(dir / "second.tpl"), first);
    std::filesystem::remove_all(dir);
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
