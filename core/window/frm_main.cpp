#include "window/frm_main.h"

#include <algorithm>
#include <cmath>

namespace quorlin {

FrmMain::FrmMain(Ports ports, NumberLocale locale)
    : interlocks_(m_, ports.desktop),
      image_(ports.screen),
      click_(m_, ports.desktop, ports.pump, image_),
      runs_(m_, ports, click_),
      list_(m_),
      trackRun_(m_, ports),
      help_(m_, ports.desktop),
      capture_(m_, ports),
      editor_(m_, ports, list_),
      project_(m_, ports, list_) {
    m_.locale = std::move(locale);
    m_.form.setReactions(this);
}

void FrmMain::Form_Load(WindowHandle hWnd) {
    m_.hWnd = hWnd;
    interlocks_.SetTopMostWindow(hWnd, true);
    m_.step.bTypeText = false;
    m_.step.ClickKind = kClick;
    m_.vFirstRowUsed = false;
    list_.setColumnWidths();
    list_.fColInit();
}

void FrmMain::Form_Unload() {
    m_.closing = true;
    runs_.cmdStop_Click();
}

void FrmMain::Form_Paint() { capture_.Form_Paint(); }

void FrmMain::buttonClicked(Ctl button) {
    switch (button) {
        case Ctl::cmdStart: return cmdStart_Click();
        case Ctl::cmdStop: return cmdStop_Click();
        case Ctl::cmdHelp: return cmdHelp_Click();
        case Ctl::cmdGetPic: return cmdGetPic_Click();
        case Ctl::cmdAddtoList: return cmdAddtoList_Click();
        case Ctl::cmdUpdate: return cmdUpdate_Click();
        case Ctl::cmdRemove: return cmdRemove_Click();
        case Ctl::cmdClearTrackList: return cmdClearTrackList_Click();
        case Ctl::cmdSave: return cmdSave_Click();
        case Ctl::cmdLoad: return cmdLoad_Click();
        default: return;
    }
}

void FrmMain::timerTick(TimerId timer) {
    switch (timer) {
        case TimerId::tmrCount: return tmrCount_Timer();
        case TimerId::tmrLoop: return tmrLoop_Timer();
        case TimerId::timer: return timer_Timer();
    }
}

// While the track list plays, Start would begin a second run inside the waiting of
// the first (and a manual run would take over tmrCount); the run in progress carries on.
void FrmMain::cmdStart_Click() {
    if (m_.trackRunActive) return;
    m_.run.bStop = false;
    if (m_.form.selected(Ctl::optManual)) runs_.StartManualRun();
    else trackRun_.StartTrackRun();
}

namespace {
struct SpinRange {
    Ctl spin;
    Ctl buddy;
    int minimum;
    int maximum;
};
constexpr SpinRange kSpinButtons[] = {
    {Ctl::UpDown2, Ctl::txtMinutes, 0, 1},
    {Ctl::UpDown3, Ctl::txtSeconds, 0, 60},
    {Ctl::UpDown4, Ctl::txtMiliseconds, 0, 600},
};
}  // namespace

// The arrows start from the number the buddy's text begins with (0 for any other
// text), so a typed value is where the next press goes on from.
void FrmMain::spinButton(Ctl spin, int direction) {
    for (const SpinRange& range : kSpinButtons) {
        if (range.spin != spin) continue;
        const double current = std::clamp(roundHalfEven(m_.form.valueOf(range.buddy)), -1e9, 1e9);
        const int next = std::clamp(static_cast<int>(current) + (direction > 0 ? 1 : -1), range.minimum, range.maximum);
        m_.form.setText(range.buddy, std::to_string(next));
    }
}

}  // namespace quorlin
