#include "window/help_and_links.h"

#ifndef QUORLIN_WEBSITE
#error "QUORLIN_WEBSITE names the maker's web site; the build sets it"
#endif
#ifndef QUORLIN_FEEDBACK_ADDRESS
#error "QUORLIN_FEEDBACK_ADDRESS names the feedback e-mail address; the build sets it"
#endif

namespace quorlin {

void HelpAndLinks::timer_Timer() {
    const ScreenPoint at = desktop_.cursorPos();
    m_.form.setCaption(Ctl::lblXPos, std::to_string(at.x));
    m_.form.setCaption(Ctl::lblYPos, std::to_string(at.y));
}

void HelpAndLinks::cmdHelp_Click() {
    const bool show = !m_.form.visible(Ctl::txtComments);
    m_.form.setVisible(Ctl::txtComments, show);
    m_.form.setVisible(Ctl::txtComm2, show);
}

std::string HelpAndLinks::websiteLink() { return QUORLIN_WEBSITE; }
std::string HelpAndLinks::feedbackLink() { return std::string("mailto:") + QUORLIN_FEEDBACK_ADDRESS + "?Subject=Feedback"; }

void HelpAndLinks::mnuGoToWebsite_Click() { desktop_.openLink(websiteLink()); }
void HelpAndLinks::Picture1_Click() { desktop_.openLink(websiteLink()); }
void HelpAndLinks::mnuFeedback_Click() { desktop_.openLink(feedbackLink()); }

}  // namespace quorlin
