#pragma once

#include <cstdint>
#include <optional>

#include "model/interval_rules.h"
#include "run/click_step.h"
#include "ports/platform_ports.h"
#include "model/window_model.h"

namespace quorlin {

// Starts and stops manual runs and handles the ticks of the two run timers.
class RunController {
public:
    RunController(WindowModel& model, Ports ports, ClickStep& step) : m_(model), p_(ports), step_(step) {}

    void StartManualRun();
    void cmdStop_Click();
    void tmrCount_Timer();
    void tmrLoop_Timer();

    // One draw of the random interval: floor(To x u + From), in milliseconds.
    double randomInterval();

private:
    double manualInterval();
    void countTick(std::uint32_t runNumber);

    WindowModel& m_;
    Ports p_;
    ClickStep& step_;
};

// An interval a run timer cannot take, longer than the longest or below zero: tells the
// user and ends the runs. Answers whether that happened.
bool refuseUntimableInterval(double interval, RunState& run, Dialogs& dialogs);

// The whole milliseconds a run timer is set to for an interval: halves to even,
// clamped to what the timer takes. Below zero the timer is not armed (0).
std::int32_t timerInterval(double interval);

}  // namespace quorlin
