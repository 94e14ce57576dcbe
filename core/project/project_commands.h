#pragma once

#include "track/track_list.h"
#include "ports/platform_ports.h"
#include "model/window_model.h"

namespace quorlin {

// "Save project" and "Load project".
class ProjectCommands {
public:
    ProjectCommands(WindowModel& model, Ports ports, TrackList& list) : m_(model), p_(ports), list_(list) {}

    void cmdSave_Click();
    void cmdLoad_Click();

private:
    WindowModel& m_;
    Ports p_;
    TrackList& list_;
};

}  // namespace quorlin
