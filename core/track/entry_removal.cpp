#include "track/entry_removal.h"

#include <string>
#include <utility>

namespace quorlin {

namespace {

void forgetSlot(RowStores& rows, std::size_t i) {
    rows.sRowCells[i].fill(std::string());
    rows.bRowImage[i] = false;
    rows.lRowInclude[i] = 0;
    rows.lRowRect[i] = {};
    rows.lRowPixels[i] = RowPicture{};
}

// Pictures are moved, not copied: each entry keeps its own pixels.
void moveSlot(RowStores& rows, std::size_t from, std::size_t to) {
    rows.sRowCells[to] = std::move(rows.sRowCells[from]);
    rows.bRowImage[to] = rows.bRowImage[from];
    rows.lRowInclude[to] = rows.lRowInclude[from];
    rows.lRowRect[to] = rows.lRowRect[from];
    rows.lRowPixels[to] = std::move(rows.lRowPixels[from]);
}

void emptyTheOnlyEntry(WindowModel& m) {
    m.fgResult.setCells(1, {});
    forgetSlot(m.rows, 1);
    m.vFirstRowUsed = false;
}

void renumber(WindowModel& m) {
    for (int i = 1; i < m.fgResult.rowCount(); ++i) {
        m.fgResult.setCell(i, colNumber, std::to_string(i));
        m.rows.sRowCells[static_cast<std::size_t>(i)][colNumber] = std::to_string(i);
    }
}

}  // namespace

void removeEntry(WindowModel& m, int r) {
    TrackGrid& grid = m.fgResult;
    if (grid.rowCount() == 2 && r == 1) return emptyTheOnlyEntry(m);
    const int lastBefore = grid.rowCount() - 1;
    grid.removeRow(r);
    for (int i = r; i < lastBefore; ++i)
        moveSlot(m.rows, static_cast<std::size_t>(i + 1), static_cast<std::size_t>(i));
    forgetSlot(m.rows, static_cast<std::size_t>(lastBefore));
    renumber(m);
    grid.setCol(0);
    grid.setRow(grid.rowCount() - 1);
}

void forgetAllEntries(RowStores& rows) {
    for (std::size_t i = 0; i < rows.sRowCells.size(); ++i) forgetSlot(rows, i);
}

}  // namespace quorlin
