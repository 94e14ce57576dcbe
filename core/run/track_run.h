#pragma once

#include <cstdint>

#include "run/run_controller.h"
#include "window/ports.h"
#include "window/window_model.h"

namespace quorlin {

// Plays the track list row by row, each row as a counted run of its own.
class TrackRun {
public:
    TrackRun(WindowModel& model, Ports ports, RunController& controller)
        : m_(model), p_(ports), controller_(controller) {}

    void StartTrackRun();

private:
    WindowModel& m_;
    Ports p_;
    RunController& controller_;
};

}  // namespace quorlin
