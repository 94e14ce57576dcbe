#include "control_factory.h"

#include <commctrl.h>

#include "control_ids.h"
#include "win32/win32_text.h"

namespace quorlin::win32 {

namespace {

struct NativeClass {
    const wchar_t* className;
    DWORD style;
    DWORD exStyle = 0;
};

// Options and check boxes leave their state to the window: core decides what a click selects.
NativeClass nativeClassOf(const ControlLayout& layout) {
    const bool helpText = layout.colours == ColourRole::YellowBackground;
    switch (layout.kind) {
        case ControlKind::Frame: return {L"BUTTON", BS_GROUPBOX};
        case ControlKind::Option: return {L"BUTTON", BS_RADIOBUTTON | WS_TABSTOP};
        case ControlKind::CheckBox: return {L"BUTTON", BS_CHECKBOX | WS_TABSTOP};
        case ControlKind::TextField: return {L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
        case ControlKind::MultiLineText:
            if (helpText) return {L"EDIT", ES_MULTILINE | ES_READONLY, WS_EX_CLIENTEDGE};
            return {L"EDIT", ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
        case ControlKind::Label: return {L"STATIC", SS_LEFT};
        case ControlKind::Button:
            if (layout.id == Ctl::cmdHelp) return {L"BUTTON", BS_PUSHBUTTON | BS_BITMAP | WS_TABSTOP};
            return {L"BUTTON", BS_PUSHBUTTON | BS_MULTILINE | WS_TABSTOP};
        case ControlKind::SpinButton: return {UPDOWN_CLASSW, 0};
        case ControlKind::PictureBox: return {L"STATIC", SS_BITMAP | SS_CENTERIMAGE | SS_NOTIFY};
        case ControlKind::Grid: break;
    }
    return {L"STATIC", 0};
}

}  // namespace

HWND createStandardControl(const ControlLayout& layout, HWND parent) {
    const NativeClass native = nativeClassOf(layout);
    HWND hwnd = CreateWindowExW(native.exStyle, native.className, wideFromUtf8(layout.caption).c_str(),
                                WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | native.style, 0, 0, 0, 0, parent,
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId(layout.id))),
                                GetModuleHandleW(nullptr), nullptr);
    // The arrows never move a position of their own: the window moves the buddy's number.
    if (layout.kind == ControlKind::SpinButton) SendMessageW(hwnd, UDM_SETRANGE32, static_cast<WPARAM>(-1000), 1000);
    return hwnd;
}

}  // namespace quorlin::win32
