#pragma once

#include "model/window_model.h"

namespace quorlin {

// Removes entry r; later entries move up with all their per-row data and are
// renumbered. The only entry of the list leaves the blank row of an empty list.
void removeEntry(WindowModel& m, int r);

// Forgets every entry's per-row data.
void forgetAllEntries(RowStores& rows);

}  // namespace quorlin
