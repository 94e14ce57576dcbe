#pragma once

#include "model/window_model.h"

namespace quorlin {

// The track list's grid in its empty state and the rule by which it grows.
class TrackList {
public:
    explicit TrackList(WindowModel& model) : m_(model) {}

    void setColumnWidths();
    void fColInit();
    // Empties the list: every cell, and every entry's own stores.
    void clear();
    // Makes room for a new entry at the end and answers its row: the blank row of an
    // empty list is filled, otherwise the grid grows by one row.
    int growForNewEntry();
    int entryCount() const;

private:
    WindowModel& m_;
};

}  // namespace quorlin
