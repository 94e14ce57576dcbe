#include "window/interlocks.h"

namespace quorlin {

using C = Ctl;

void Interlocks::enable(std::initializer_list<Ctl> controls, bool on) {
    for (Ctl c : controls) m_.form.setEnabled(c, on);
}

void Interlocks::optionSelected(Ctl option) {
    switch (option) {
        case C::optClick: return optClick_Click();
        case C::optDbClick: return optDbClick_Click();
        case C::optRightClick: return optRightClick_Click();
        case C::optCount: return optCount_Click();
        case C::optLoop: return optLoop_Click();
        case C::optCustom: return optCustom_Click();
        case C::optRandom: return optRandom_Click();
        case C::optManual: return optManual_Click();
        case C::optFromTrack: return optFromTrack_Click();
        case C::optRepeatTrack: return optRepeatTrack_Click();
        case C::optLooptrack: return optLooptrack_Click();
        case C::optTopMost: return optTopMost_Click();
        case C::optNotOnTop: return optNotOnTop_Click();
        default: return;  // the target-type and image-rule options have no reaction
    }
}

// A double click does what the click does, for the options that have a double-click reaction.
void Interlocks::optionDoubleClicked(Ctl option) {
    switch (option) {
        case C::optClick: case C::optDbClick: case C::optRightClick:
        case C::optManual: case C::optFromTrack: case C::optRepeatTrack: case C::optLooptrack:
            return optionSelected(option);
        default: return;
    }
}

void Interlocks::checkClicked(Ctl checkBox) {
    if (checkBox == C::chkRecImage) chkRecImage_Click();
    if (checkBox == C::chkText) chkText_Click();
}

void Interlocks::textChanged(Ctl field) {
    if (field == C::txtText) txtText_Change();
}

void Interlocks::chkRecImage_Click() {
    enable({C::frmImage, C::optImageInclude, C::optImageNotInclude, C::txtTopX, C::txtTopY, C::txtBottomX,
            C::txtBottomY, C::lblTopX, C::lblTopY, C::lblBottomX, C::lblBottomY},
           m_.form.value(C::chkRecImage) == 1);
}

void Interlocks::chkText_Click() {
    bool on = m_.form.value(C::chkText) == 1;
    m_.form.setEnabled(C::txtText, on);
    m_.step.bTypeText = on;
}

void Interlocks::optClick_Click() { m_.step.ClickKind = kClick; }
void Interlocks::optDbClick_Click() { m_.step.ClickKind = kDBClick; }
void Interlocks::optRightClick_Click() { m_.step.ClickKind = kRightClick; }

void Interlocks::optCount_Click() {
    m_.form.setEnabled(C::txtCount, true);
    m_.form.setText(C::txtCount, "1");
}

void Interlocks::optLoop_Click() { m_.form.setEnabled(C::txtCount, false); }

void Interlocks::optCustom_Click() {
    enable({C::lblMinutes, C::lblSeconds, C::lblMiliseconds, C::UpDown2, C::UpDown3, C::UpDown4, C::txtMinutes,
            C::txtSeconds, C::txtMiliseconds},
           true);
    enable({C::lblFromSec, C::lblToSec, C::txtFromSec, C::txtToSec}, false);
}

void Interlocks::optRandom_Click() {
    enable({C::lblMinutes, C::lblSeconds, C::lblMiliseconds, C::UpDown2, C::UpDown3, C::UpDown4, C::txtMinutes,
            C::txtSeconds, C::txtMiliseconds},
           false);
    enable({C::lblFromSec, C::lblToSec, C::txtFromSec, C::txtToSec}, true);
}

void Interlocks::optManual_Click() { enable({C::frmTrack, C::optRepeatTrack, C::optLooptrack, C::txtTrackNum}, false); }

void Interlocks::optFromTrack_Click() {
    enable({C::frmTrack, C::optRepeatTrack, C::optLooptrack}, true);
    m_.form.setEnabled(C::txtTrackNum, m_.form.selected(C::optRepeatTrack));
}

void Interlocks::optRepeatTrack_Click() { m_.form.setEnabled(C::txtTrackNum, true); }
void Interlocks::optLooptrack_Click() { m_.form.setEnabled(C::txtTrackNum, false); }

void Interlocks::optTopMost_Click() { SetTopMostWindow(m_.hWnd, true); }
void Interlocks::optNotOnTop_Click() { SetTopMostWindow(m_.hWnd, false); }

void Interlocks::txtText_Change() { m_.step.sTypeText = m_.form.text(C::txtText); }

std::int32_t Interlocks::SetTopMostWindow(WindowHandle hWnd, bool Topmost) {
    desktop_.setTopMost(hWnd, Topmost);
    return Topmost ? 1 : 0;
}

}  // namespace quorlin
