#pragma once

#include "ports/desktop.h"
#include "model/window_model.h"

namespace quorlin {

// The reactions that tie options, check boxes and fields together. They run alike
// for the user's changes and the program's.
class Interlocks {
public:
    Interlocks(WindowModel& model, Desktop& desktop) : m_(model), desktop_(desktop) {}

    // Dispatch by control, as the form raises them.
    void optionSelected(Ctl option);
    void optionDoubleClicked(Ctl option);
    void checkClicked(Ctl checkBox);
    void textChanged(Ctl field);

    void chkRecImage_Click();
    void chkText_Click();
    void optClick_Click();
    void optDbClick_Click();
    void optRightClick_Click();
    void optCount_Click();
    void optLoop_Click();
    void optCustom_Click();
    void optRandom_Click();
    void optManual_Click();
    void optFromTrack_Click();
    void optRepeatTrack_Click();
    void optLooptrack_Click();
    void optTopMost_Click();
    void optNotOnTop_Click();
    void txtText_Change();

    std::int32_t SetTopMostWindow(WindowHandle hWnd, bool Topmost);

private:
    void enable(std::initializer_list<Ctl> controls, bool on);

    WindowModel& m_;
    Desktop& desktop_;
};

}  // namespace quorlin
