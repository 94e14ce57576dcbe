#pragma once

#include "picture/image_condition.h"
#include "picture/picture_capture.h"
#include "project/project_commands.h"
#include "run/click_step.h"
#include "run/run_controller.h"
#include "run/track_run.h"
#include "track/track_editor.h"
#include "track/track_list.h"
#include "window/help_and_links.h"
#include "window/interlocks.h"
#include "ports/platform_ports.h"
#include "model/window_model.h"

namespace quorlin {

// The main window: its state and one method per event reaction. A front end draws
// the state, forwards the user's changes and button presses here, and delivers the
// ticks of the timers.
class FrmMain : private ReactionSink {
public:
    explicit FrmMain(Ports ports, NumberLocale locale = {});
    FrmMain(const FrmMain&) = delete;
    FrmMain& operator=(const FrmMain&) = delete;

    WindowModel& model() { return m_; }
    const WindowModel& model() const { return m_; }
    const EntryForm& form() const { return m_.form; }
    void setObserver(FormObserver* observer) { m_.setObserver(observer); }

    // hWnd: the window's own handle, for staying on top.
    void Form_Load(WindowHandle hWnd);
    // The window closes: every run stops.
    void Form_Unload();
    void Form_Paint();

    // The user's changes of controls; each raises the control's reaction.
    void selectOption(Ctl option) { m_.form.selectOption(option); }
    void optionDoubleClicked(Ctl option) { interlocks_.optionDoubleClicked(option); }
    void setCheck(Ctl checkBox, int value) { m_.form.setCheck(checkBox, value); }
    void setText(Ctl field, std::string text) { m_.form.setText(field, std::move(text)); }
    // An arrow of a spin button: moves the buddy's number by one within its range.
    void spinButton(Ctl spin, int direction);

    void cmdStart_Click();
    void cmdStop_Click() { runs_.cmdStop_Click(); }
    void tmrCount_Timer() { runs_.tmrCount_Timer(); }
    void tmrLoop_Timer() { runs_.tmrLoop_Timer(); }
    // A tick of one of the window's timers, handed to the timer's reaction.
    void timerTick(TimerId timer);
    // A press of one of the window's buttons, handed to the button's reaction.
    void buttonClicked(Ctl button);

    void timer_Timer() { help_.timer_Timer(); }
    void cmdHelp_Click() { help_.cmdHelp_Click(); }
    void mnuGoToWebsite_Click() { help_.mnuGoToWebsite_Click(); }
    void mnuFeedback_Click() { help_.mnuFeedback_Click(); }
    void Picture1_Click() { help_.Picture1_Click(); }

    void cmdGetPic_Click() { capture_.cmdGetPic_Click(); }

    void cmdAddtoList_Click() { editor_.cmdAddtoList_Click(); }
    void cmdUpdate_Click() { editor_.cmdUpdate_Click(); }
    void cmdRemove_Click() { editor_.cmdRemove_Click(); }
    void cmdClearTrackList_Click() { editor_.cmdClearTrackList_Click(); }
    void fgResult_Click(int row, int col) { editor_.fgResult_Click(row, col); }
    void fgResult_RowColChange(int row, int col) { editor_.fgResult_RowColChange(row, col); }

    void cmdSave_Click() { project_.cmdSave_Click(); }
    void cmdLoad_Click() { project_.cmdLoad_Click(); }

private:
    void optionSelected(Ctl option) override { interlocks_.optionSelected(option); }
    void checkClicked(Ctl checkBox) override { interlocks_.checkClicked(checkBox); }
    void textChanged(Ctl field) override { interlocks_.textChanged(field); }

    WindowModel m_;
    Interlocks interlocks_;
    ImageCondition image_;
    ClickStep click_;
    RunController runs_;
    TrackList list_;
    TrackRun trackRun_;
    HelpAndLinks help_;
    PictureCapture capture_;
    TrackEditor editor_;
    ProjectCommands project_;
};

}  // namespace quorlin
