#include "run/run_controller.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "form/entry_validation.h"
#include "form/message_texts.h"

namespace quorlin {

using C = Ctl;

std::int32_t timerInterval(double interval) {
    double rounded = roundHalfEven(interval);
    if (!(rounded > 0)) return 0;
    return static_cast<std::int32_t>(std::min(rounded, static_cast<double>(kLongestInterval)));
}

bool refuseUntimableInterval(double interval, RunState& run, Dialogs& dialogs) {
    const bool negative = roundHalfEven(interval) < 0;
    if (interval <= kLongestInterval && !negative) return false;
    dialogs.messageBox(negative ? msg::kErrorInInput : msg::kMaxMinute);
    run.bStop = true;
    run.bCountDone = true;
    return true;
}

double RunController::randomInterval() {
    return quorlin::randomInterval(m_.form.valueOf(C::txtFromSec), m_.form.valueOf(C::txtToSec), p_.random.next());
}

double RunController::manualInterval() {
    if (m_.form.selected(C::optRandom)) return randomInterval();
    return m_.form.valueOf(C::txtMinutes) * 60 * 1000 + m_.form.valueOf(C::txtSeconds) * 1000 +
           m_.form.valueOf(C::txtMiliseconds);
}

void RunController::StartManualRun() {
    if (!ValidateInput(m_.form, m_.locale, p_.dialogs)) return;
    m_.manualCondition = {m_.form.value(C::chkRecImage) == 1, m_.picture.rect()};

    const double interval = manualInterval();
    if (refuseUntimableInterval(interval, m_.run, p_.dialogs)) return;
    if (m_.form.selected(C::optLoop)) {
        p_.timers.setInterval(TimerId::tmrLoop, timerInterval(interval));
        return;
    }
    auto target = toInt32(m_.form.valueOf(C::txtCount));
    if (!target) {
        p_.dialogs.messageBox(msg::kErrorInInput);
        return;
    }
    m_.run.lClickCount = 0;
    m_.run.iClickTarget = *target;
    m_.run.bCountDone = false;
    ++m_.countRun;
    p_.timers.setInterval(TimerId::tmrCount, timerInterval(interval));
}

void RunController::cmdStop_Click() {
    m_.run.bStop = true;
    p_.timers.setInterval(TimerId::tmrLoop, 0);
    p_.timers.setInterval(TimerId::tmrCount, 0);
}

// Buttons are handled inside a step's pauses, so a run started there takes tmrCount
// over; its ticks click at once, and the interrupted step leaves the new run's count alone.
void RunController::tmrCount_Timer() {
    const std::uint32_t runNumber = m_.countRun;
    if (m_.countRunClicking == runNumber) return;
    RunState& run = m_.run;
    if (run.lClickCount < run.iClickTarget && !run.bCountDone) {
        const auto interrupted = std::exchange(m_.countRunClicking, runNumber);
        step_.SendClick(m_.trackRunActive ? m_.trackCondition() : m_.manualCondition);
        m_.countRunClicking = interrupted;
        if (m_.countRun != runNumber) return;
        if (++run.lClickCount != run.iClickTarget) return;
    }
    run.bCountDone = true;
    p_.timers.setInterval(TimerId::tmrCount, 0);
}

void RunController::tmrLoop_Timer() {
    if (m_.run.bStop || m_.loopClicking) return;
    m_.loopClicking = true;
    step_.SendClick(m_.manualCondition);
    m_.loopClicking = false;
    if (m_.form.selected(C::optRandom) && !m_.run.bStop)
        p_.timers.setInterval(TimerId::tmrLoop, timerInterval(randomInterval()));
}

}  // namespace quorlin
