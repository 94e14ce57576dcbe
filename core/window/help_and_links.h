#pragma once

#include <string>

#include "ports/desktop.h"
#include "model/window_model.h"

namespace quorlin {

// The live mouse-position readout, the help texts and the maker's links.
class HelpAndLinks {
public:
    HelpAndLinks(WindowModel& model, Desktop& desktop) : m_(model), desktop_(desktop) {}

    void timer_Timer();
    void cmdHelp_Click();
    void mnuGoToWebsite_Click();
    void mnuFeedback_Click();
    void Picture1_Click();

    static std::string websiteLink();
    static std::string feedbackLink();

private:
    WindowModel& m_;
    Desktop& desktop_;
};

}  // namespace quorlin
