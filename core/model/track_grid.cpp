#include "model/track_grid.h"

namespace quorlin {

void TrackGrid::setRowCount(int count) {
    rows_.resize(static_cast<std::size_t>(count));
    changed();
}

void TrackGrid::removeRow(int r) {
    rows_.erase(rows_.begin() + r);
    changed();
}

void TrackGrid::blankAll() {
    for (Row& row : rows_) row.fill(std::string());
    changed();
}

void TrackGrid::setRow(int r) {
    row_ = r;
    changed();
}

void TrackGrid::setCol(int c) {
    col_ = c;
    changed();
}

void TrackGrid::setCell(int r, int c, std::string text) {
    rows_[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] = std::move(text);
    changed();
}

void TrackGrid::setCells(int r, Row cells) {
    rows_[static_cast<std::size_t>(r)] = std::move(cells);
    changed();
}

void TrackGrid::setColWidth(int c, int twips) {
    widths_[static_cast<std::size_t>(c)] = twips;
    changed();
}

}  // namespace quorlin
