#pragma once

#include <cstdint>

#include "ports/platform_ports.h"
#include "model/window_model.h"

namespace quorlin {

// Plays the track list row by row, each row as a counted run of its own on tmrCount.
// The run stays inside the Start reaction; while a row waits for its clicks the
// program sleeps in the event pump, so ticks, Stop and edits are handled meanwhile.
class TrackRun {
public:
    TrackRun(WindowModel& model, Ports ports) : m_(model), p_(ports) {}

    void StartTrackRun();
    void PlayTrackPass();
    // Loads the current row into the step inputs and answers its interval in milliseconds.
    double PrepareRowStep();

private:
    bool gateOpen() const;
    void repeatPasses();
    void passesUntilStop();
    void playRowClicks(double interval);
    double rowInterval(const std::string& cell);
    bool ended() const { return m_.run.bStop || m_.closing; }

    WindowModel& m_;
    Ports p_;
    long waits_ = 0;
};

}  // namespace quorlin
