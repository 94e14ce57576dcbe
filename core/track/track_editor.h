#pragma once

#include "track/track_list.h"
#include "ports/platform_ports.h"
#include "model/window_model.h"

namespace quorlin {

// Adding, updating, removing, clearing and selecting the entries of the track list.
class TrackEditor {
public:
    TrackEditor(WindowModel& model, Ports ports, TrackList& list) : m_(model), p_(ports), list_(list) {}

    void cmdAddtoList_Click();
    void cmdUpdate_Click();
    void cmdRemove_Click();
    void cmdClearTrackList_Click();
    // A user's click on a cell; the clicked row becomes the current row first.
    void fgResult_Click(int row, int col);
    // The grid moved its current cell by the keyboard or a drag: that row is selected, nothing loads.
    void fgResult_RowColChange(int row, int col);
    bool SplitInterval();

private:
    // Each shows its refusal and answers false when the fields cannot become an entry.
    bool countSelected();
    bool pictureFits();

    WindowModel& m_;
    Ports p_;
    TrackList& list_;
};

}  // namespace quorlin
