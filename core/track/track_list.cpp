#include "track/track_list.h"

#include <array>

#include "track/entry_removal.h"

namespace quorlin {

namespace {
const TrackGrid::Row kHeaders = {"#", "X", "Y", "Intr Type", "Interval", "Type", "Rep", "Fill", "Text", "Image"};
constexpr std::array<int, kGridColumns> kWidths = {400, 600, 600, 800, 800, 800, 800, 400, 900, 400};
}  // namespace

void TrackList::setColumnWidths() {
    for (int c = 0; c < kGridColumns; ++c) m_.fgResult.setColWidth(c, kWidths[static_cast<std::size_t>(c)]);
}

void TrackList::fColInit() {
    m_.vFirstRowUsed = false;
    TrackGrid& grid = m_.fgResult;
    grid.setRowCount(2);
    grid.setRow(0);
    grid.setCol(0);
    grid.setCells(0, kHeaders);
}

void TrackList::clear() {
    m_.fgResult.blankAll();
    fColInit();
    forgetAllEntries(m_.rows);
}

int TrackList::growForNewEntry() {
    TrackGrid& grid = m_.fgResult;
    if (m_.vFirstRowUsed || grid.rowCount() > 2) grid.setRowCount(grid.rowCount() + 1);
    return grid.rowCount() - 1;
}

int TrackList::entryCount() const { return m_.vFirstRowUsed ? m_.fgResult.rowCount() - 1 : 0; }

}  // namespace quorlin
