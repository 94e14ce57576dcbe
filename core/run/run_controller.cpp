#include "run/run_controller.h"

#include <algorithm>
#include <cmath>

#include "window/entry_validation.h"
#include "window/messages.h"

namespace quorlin {

using C = Ctl;

std::int32_t timerInterval(double interval) {
    double rounded = roundHalfEven(interval);
    if (!(rounded > 0)) return 0;
    return static_cast<std::int32_t>(std::min(rounded, static_cast<double>(kMaxTimerInterval)));
}

bool refuseTooLongInterval(double interval, RunState& run, Dialogs& dialogs) {
    if (interval <= kMaxTimerInterval) return false;
    dialogs.messageBox(msg::kMaxMinute);
    run.bStop = true;
    run.bCountDone = true;
    return true;
}

double RunController::randomInterval() {
    return std::floor(m_.valueOf(C::txtToSec) * p_.random.next() + m_.valueOf(C::txtFromSec));
}

double RunController::manualInterval() {
    if (m_.form.selected(C::optRandom)) return randomInterval();
    return m_.valueOf(C::txtMinutes) * 60 * 1000 + m_.valueOf(C::txtSeconds) * 1000 + m_.valueOf(C::txtMiliseconds);
}

void RunController::StartManualRun() {
    if (!ValidateInput(m_.form, m_.locale, p_.dialogs)) return;
    m_.manualCondition = {m_.form.value(C::chkRecImage) == 1, m_.picture.rect()};

    const double interval = manualInterval();
    if (refuseTooLongInterval(interval, m_.run, p_.dialogs)) return;
    if (m_.form.selected(C::optLoop)) {
        p_.timers.setInterval(TimerId::tmrLoop, timerInterval(interval));
        return;
    }
    auto target = toInt32(m_.valueOf(C::txtCount));
    if (!target) {
        p_.dialogs.messageBox(msg::kErrorInInput);
        return;
    }
    m_.run.lClickCount = 0;
    m_.run.iClickTarget = *target;
    m_.run.bCountDone = false;
    p_.timers.setInterval(TimerId::tmrCount, timerInterval(interval));
}

void RunController::cmdStop_Click() {
    m_.run.bStop = true;
    p_.timers.setInterval(TimerId::tmrLoop, 0);
    p_.timers.setInterval(TimerId::tmrCount, 0);
}

void RunController::tmrCount_Timer() {
    if (m_.clickInProgress) return;
    RunState& run = m_.run;
    if (run.lClickCount < run.iClickTarget && !run.bCountDone) {
        clickOnce(m_.trackRunActive ? m_.trackCondition() : m_.manualCondition);
        ++run.lClickCount;
        if (run.lClickCount == run.iClickTarget) {
            run.bCountDone = true;
            p_.timers.setInterval(TimerId::tmrCount, 0);
        }
    } else {
        run.bCountDone = true;
        p_.timers.setInterval(TimerId::tmrCount, 0);
    }
}

void RunController::tmrLoop_Timer() {
    if (m_.run.bStop || m_.clickInProgress) return;
    clickOnce(m_.manualCondition);
    if (m_.form.selected(C::optRandom)) p_.timers.setInterval(TimerId::tmrLoop, timerInterval(randomInterval()));
}

void RunController::clickOnce(const StepCondition& condition) {
    m_.clickInProgress = true;
    step_.SendClick(condition);
    m_.clickInProgress = false;
}

}  // namespace quorlin
