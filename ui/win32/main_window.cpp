#include "main_window.h"

#include <commctrl.h>

#include <utility>

#include "artwork.h"
#include "control_factory.h"
#include "control_ids.h"
#include "win32/win32_text.h"

namespace quorlin::win32 {

namespace {

constexpr wchar_t kClassName[] = L"QuorlinMain";
constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
constexpr COLORREF kLightYellow = RGB(255, 255, 192);
constexpr COLORREF kRed = RGB(255, 0, 0);

const ControlLayout& layoutOf(Ctl id) { return windowLayout()[indexOf(id)]; }

bool isReadout(Ctl id) { return id == Ctl::lblXPos || id == Ctl::lblYPos; }

std::wstring textOf(HWND hwnd) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()))));
    return text;
}

void setTextIfChanged(HWND hwnd, const std::string& text) {
    const std::wstring wide = wideFromUtf8(text);
    if (textOf(hwnd) != wide) SetWindowTextW(hwnd, wide.c_str());
}

HMENU aboutMenuBar() {
    HMENU about = CreatePopupMenu();
    AppendMenuW(about, MF_STRING, kMenuGoToWebsite, L"Go To Website");
    AppendMenuW(about, MF_STRING, kMenuFeedback, L"Send Feedback");
    HMENU bar = CreateMenu();
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(about), L"About");
    return bar;
}

void registerClass(WNDPROC procedure, HICON big, HICON small) {
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    wc.lpfnWndProc = procedure;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hIcon = big;
    wc.hIconSm = small;
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    wc.lpszClassName = kClassName;
    RegisterClassExW(&wc);
}

}  // namespace

MainWindow::MainWindow(FrmMain& frm)
    : frm_(frm), pictureBox_(frm.model().pictureBox, [this] { frm_.Form_Paint(); }) {
    const INITCOMMONCONTROLSEX common{sizeof(INITCOMMONCONTROLSEX), ICC_LISTVIEW_CLASSES | ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&common);
    bigIcon_ = windowIcon(32);
    smallIcon_ = windowIcon(16);
    red_ = CreateSolidBrush(kRed);
    lightYellow_ = CreateSolidBrush(kLightYellow);
    logo_ = logoBitmap(GetSysColor(COLOR_BTNFACE));
    helpImage_ = helpBitmap(GetSysColor(COLOR_BTNFACE));
    registerClass(&MainWindow::windowProc, bigIcon_, smallIcon_);
    CreateWindowExW(0, kClassName, wideFromUtf8(kWindowTitle).c_str(), kStyle, CW_USEDEFAULT, CW_USEDEFAULT, 0, 0,
                    nullptr, aboutMenuBar(), GetModuleHandleW(nullptr), this);
    SendMessageW(hwnd_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(bigIcon_));
    SendMessageW(hwnd_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon_));
    createControls();
    stackControls();
    applyDpi(GetDpiForWindow(hwnd_), nullptr);
    frm_.setObserver(this);
    for (const ControlLayout& layout : windowLayout()) controlChanged(layout.id);
    gridChanged();
}

MainWindow::~MainWindow() {
    frm_.setObserver(nullptr);
    if (IsWindow(hwnd_)) DestroyWindow(hwnd_);
    for (HGDIOBJ object : {static_cast<HGDIOBJ>(red_), static_cast<HGDIOBJ>(lightYellow_),
                           static_cast<HGDIOBJ>(logo_), static_cast<HGDIOBJ>(helpImage_)})
        DeleteObject(object);
    DestroyIcon(bigIcon_);
    DestroyIcon(smallIcon_);
}

void MainWindow::show(int showCommand) {
    ShowWindow(hwnd_, showCommand);
    UpdateWindow(hwnd_);
}

void MainWindow::createControls() {
    for (const ControlLayout& layout : windowLayout()) {
        HWND hwnd = nullptr;
        if (layout.id == Ctl::picScreen) hwnd = pictureBox_.create(hwnd_, controlId(layout.id));
        else if (layout.kind == ControlKind::Grid) hwnd = grid_.create(hwnd_, controlId(layout.id));
        else hwnd = createStandardControl(layout, hwnd_);
        controls_[indexOf(layout.id)] = hwnd;
    }
    SendMessageW(control(Ctl::Picture1), STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(logo_));
    SendMessageW(control(Ctl::cmdHelp), BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(helpImage_));
}

// Frames go below everything, an outer frame below the frames inside it, so that they
// never paint over their controls; the overlapping switch and help texts go on top.
void MainWindow::stackControls() {
    const auto layouts = windowLayout();
    for (auto it = layouts.rbegin(); it != layouts.rend(); ++it)
        if (it->kind == ControlKind::Frame)
            SetWindowPos(control(it->id), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    for (Ctl above : {Ctl::chkRecImage, Ctl::txtComments, Ctl::txtComm2})
        SetWindowPos(control(above), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// Places every control and sizes the window so that its client area holds the layout
// at the monitor's DPI.
void MainWindow::applyDpi(UINT dpi, const RECT* suggested) {
    dpi_ = dpi;
    fonts_.create(dpi);
    for (const ControlLayout& layout : windowLayout()) {
        const RECT r = clientRectOf(layout, dpi);
        HWND hwnd = control(layout.id);
        SetWindowPos(hwnd, nullptr, r.left, r.top, r.right - r.left, r.bottom - r.top, SWP_NOZORDER | SWP_NOACTIVATE);
        SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.font(layout.font)), TRUE);
    }
    grid_.setColumnWidths(frm_.model().fgResult, dpi);

    RECT frame{0, 0, pixelsOf(kClientWidthTwips, dpi), pixelsOf(kClientHeightTwips, dpi)};
    AdjustWindowRectExForDpi(&frame, kStyle, TRUE, 0, dpi);
    const UINT keepPlace = suggested ? 0 : SWP_NOMOVE;
    SetWindowPos(hwnd_, nullptr, suggested ? suggested->left : 0, suggested ? suggested->top : 0,
                 frame.right - frame.left, frame.bottom - frame.top, SWP_NOZORDER | SWP_NOACTIVATE | keepPlace);
}

LRESULT CALLBACK MainWindow::windowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->hwnd_ = hwnd;
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (!self) return DefWindowProcW(hwnd, message, wParam, lParam);
    return self->handleMessage(message, wParam, lParam);
}

LRESULT MainWindow::handleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: onCommand(LOWORD(wParam), HIWORD(wParam)); return 0;
        case WM_NOTIFY: return onNotify(*reinterpret_cast<const NMHDR*>(lParam));
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORBTN: return onControlColour(message, wParam, lParam);
        case WM_SETCURSOR:
            if (reinterpret_cast<HWND>(wParam) != control(Ctl::Picture1)) break;
            SetCursor(LoadCursorW(nullptr, IDC_HAND));
            return TRUE;
        case WM_DPICHANGED: applyDpi(HIWORD(wParam), reinterpret_cast<const RECT*>(lParam)); return 0;
        case WM_CLOSE:
            frm_.Form_Unload();
            DestroyWindow(hwnd_);
            return 0;
        case WM_DESTROY: PostQuitMessage(0); return 0;
        default: break;
    }
    return DefWindowProcW(hwnd_, message, wParam, lParam);
}

void MainWindow::onCommand(int id, int code) {
    if (id == kMenuGoToWebsite) return frm_.mnuGoToWebsite_Click();
    if (id == kMenuFeedback) return frm_.mnuFeedback_Click();
    const auto ctl = controlOfId(id);
    if (!ctl) return;
    switch (layoutOf(*ctl).kind) {
        case ControlKind::Option:
            if (code == BN_DOUBLECLICKED) return frm_.optionDoubleClicked(*ctl);
            if (code != BN_CLICKED) return;
            frm_.selectOption(*ctl);
            return controlChanged(*ctl);
        case ControlKind::CheckBox:
            if (code != BN_CLICKED) return;
            frm_.setCheck(*ctl, frm_.form().value(*ctl) == 1 ? 0 : 1);
            return controlChanged(*ctl);
        case ControlKind::TextField:
        case ControlKind::MultiLineText:
            if (code != EN_CHANGE || syncing_ || layoutOf(*ctl).colours == ColourRole::YellowBackground) return;
            return frm_.setText(*ctl, utf8FromWide(textOf(control(*ctl))));
        case ControlKind::Button:
            if (code == BN_CLICKED) pressButton(*ctl);
            return;
        case ControlKind::PictureBox:
            if (*ctl == Ctl::Picture1 && code == STN_CLICKED) frm_.Picture1_Click();
            return;
        default: return;
    }
}

// A click on a row loads it; a click beside the rows keeps the grid's current row shown.
LRESULT MainWindow::onNotify(const NMHDR& header) {
    const auto ctl = controlOfId(static_cast<int>(header.idFrom));
    if (!ctl) return 0;
    if (*ctl == Ctl::fgResult && header.code == NM_CLICK) {
        const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(header);
        if (click.iItem >= 0) frm_.fgResult_Click(click.iItem + 1, std::max(click.iSubItem, 0));
        else grid_.select(frm_.model().fgResult.row());
        return 0;
    }
    if (layoutOf(*ctl).kind == ControlKind::SpinButton && header.code == UDN_DELTAPOS) {
        frm_.spinButton(*ctl, reinterpret_cast<const NMUPDOWN&>(header).iDelta > 0 ? +1 : -1);
        return TRUE;
    }
    return 0;
}

LRESULT MainWindow::onControlColour(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto ctl = controlOfId(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)));
    HDC dc = reinterpret_cast<HDC>(wParam);
    switch (ctl ? layoutOf(*ctl).colours : ColourRole::Platform) {
        case ColourRole::YellowOnRed:
            SetTextColor(dc, kLightYellow);
            SetBkColor(dc, kRed);
            return reinterpret_cast<LRESULT>(red_);
        case ColourRole::YellowBackground:
            SetBkColor(dc, kLightYellow);
            return reinterpret_cast<LRESULT>(lightYellow_);
        default: return DefWindowProcW(hwnd_, message, wParam, lParam);
    }
}

void MainWindow::pressButton(Ctl id) { frm_.buttonClicked(id); }

void MainWindow::controlChanged(Ctl id) {
    HWND hwnd = control(id);
    if (!hwnd) return;
    const bool wasSyncing = std::exchange(syncing_, true);
    const ControlState& state = frm_.form()[id];
    if ((IsWindowEnabled(hwnd) != FALSE) != state.enabled) EnableWindow(hwnd, state.enabled);
    const bool shown = (GetWindowLongW(hwnd, GWL_STYLE) & WS_VISIBLE) != 0;
    if (shown != state.visible) ShowWindow(hwnd, state.visible ? SW_SHOWNA : SW_HIDE);
    switch (layoutOf(id).kind) {
        case ControlKind::Option: SendMessageW(hwnd, BM_SETCHECK, state.selected ? BST_CHECKED : BST_UNCHECKED, 0); break;
        case ControlKind::CheckBox: SendMessageW(hwnd, BM_SETCHECK, state.value == 1 ? BST_CHECKED : BST_UNCHECKED, 0); break;
        case ControlKind::TextField:
        case ControlKind::MultiLineText: setTextIfChanged(hwnd, state.text); break;
        case ControlKind::Label:
            if (isReadout(id)) setTextIfChanged(hwnd, state.text);
            break;
        default: break;
    }
    syncing_ = wasSyncing;
}

void MainWindow::gridChanged() {
    const bool wasSyncing = std::exchange(syncing_, true);
    grid_.setColumnWidths(frm_.model().fgResult, dpi_);
    grid_.show(frm_.model().fgResult);
    syncing_ = wasSyncing;
}

void MainWindow::pictureBoxChanged() {
    if (!pictureBox_.painting()) InvalidateRect(control(Ctl::picScreen), nullptr, FALSE);
}

}  // namespace quorlin::win32
