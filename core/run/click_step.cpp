#include "run/click_step.h"

#include <string>

#include "run/window_messages.h"
#include "text/windows1252.h"

namespace quorlin {

using namespace wm;

void ClickStep::SendClick(const StepCondition& condition) {
    if (!image_.ImageConditionMet(condition, m_.picture, m_.form.selected(Ctl::optImageInclude))) return;

    const ScreenPoint screen{clampToInt32(m_.form.valueOf(Ctl::txtX)), clampToInt32(m_.form.valueOf(Ctl::txtY))};
    const WindowHandle target = desktop_.windowFromPoint(screen);
    const ScreenPoint client = desktop_.screenToClient(target, screen);
    const std::uint32_t lParam = mouseLParam(client.x, client.y);

    const std::string& kind = m_.step.ClickKind;
    if (kind == kClick) click(target, lParam);
    else if (kind == kDBClick) doubleClick(target, lParam);
    else if (kind == kRightClick) rightClick(target, client, lParam);
}

void ClickStep::click(WindowHandle target, std::uint32_t lParam) {
    desktop_.postMessage(target, WM_LBUTTONDOWN, MK_LBUTTON, lParam);
    desktop_.postMessage(target, WM_LBUTTONUP, 0, lParam);
    if (m_.form.selected(Ctl::optWeb)) {
        pause(kLongPause);
        desktop_.postMessage(target, WM_LBUTTONDOWN, MK_LBUTTON, lParam);
        desktop_.postMessage(target, WM_LBUTTONUP, 0, lParam);
    }
    if (m_.step.bTypeText && !m_.form.text(Ctl::txtText).empty()) typeText(target);
    pause(kLongPause);
}

void ClickStep::doubleClick(WindowHandle target, std::uint32_t lParam) {
    desktop_.postMessage(target, WM_LBUTTONDOWN, MK_LBUTTON, lParam);
    desktop_.postMessage(target, WM_LBUTTONUP, 0, lParam);
    desktop_.postMessage(target, WM_LBUTTONDBLCLK, MK_LBUTTON, lParam);
    desktop_.postMessage(target, WM_LBUTTONUP, 0, lParam);
}

// Left of or above the client area only the release is posted.
void ClickStep::rightClick(WindowHandle target, ScreenPoint client, std::uint32_t lParam) {
    if (client.x >= 0 && client.y >= 0) desktop_.postMessage(target, WM_RBUTTONDOWN, MK_RBUTTON, lParam);
    desktop_.postMessage(target, WM_RBUTTONUP, 0, lParam);
}

// Each character travels as its Windows-1252 code c; key-down and key-up carry c - 32,
// below 32 as a sign-extended 32-bit value. A copy is typed, so edits during the
// pauses do not change what goes out.
void ClickStep::typeText(WindowHandle target) {
    const std::string codes = utf8ToWindows1252(m_.step.sTypeText);
    for (char ch : codes) {
        const auto c = static_cast<std::int32_t>(static_cast<unsigned char>(ch));
        const auto key = static_cast<std::uint32_t>(c - 32);
        desktop_.postMessage(target, WM_KEYDOWN, key, kKeyLParam);
        pause(kKeyPause);
        desktop_.postMessage(target, WM_CHAR, static_cast<std::uint32_t>(c), kKeyLParam);
        pause(kKeyPause);
        desktop_.postMessage(target, WM_KEYUP, key, kKeyLParam);
        pause(kKeyPause);
    }
}

void ClickStep::pause(int passes) {
    for (int i = 0; i < passes; ++i) pump_.pumpOnce();
}

}  // namespace quorlin
