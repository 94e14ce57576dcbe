#pragma once

#include <array>
#include <string>
#include <vector>

#include "form/entry_form.h"

namespace quorlin {

inline constexpr int kMaxEntries = 30;
inline constexpr int kGridColumns = 10;
inline constexpr int kMaxGridRows = kMaxEntries + 1;

enum GridColumn : int {
    colNumber = 0, colX, colY, colIntrType, colInterval, colType, colRep, colFill, colText, colImage,
};

// The grid fgResult: row 0 is the header, rows 1.. the entries of the track list.
// Cell texts are read and written at any row; the current cell is what the grid
// shows selected and what several commands act on. Every change is told to the observer.
class TrackGrid {
public:
    using Row = std::array<std::string, kGridColumns>;

    TrackGrid() : rows_(2) {}

    int rowCount() const { return static_cast<int>(rows_.size()); }
    // Growing appends blank rows at the end, shrinking drops rows from the end.
    void setRowCount(int count);
    void removeRow(int r);
    void blankAll();

    int row() const { return row_; }
    int col() const { return col_; }
    void setRow(int r);
    void setCol(int c);

    const std::string& cell(int r, int c) const { return rows_[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]; }
    const Row& cells(int r) const { return rows_[static_cast<std::size_t>(r)]; }
    void setCell(int r, int c, std::string text);
    void setCells(int r, Row cells);
    const std::string& currentCell() const { return cell(row_, col_); }

    int colWidth(int c) const { return widths_[static_cast<std::size_t>(c)]; }
    void setColWidth(int c, int twips);

    void setObserver(FormObserver* observer) { observer_ = observer; }

private:
    void changed() {
        if (observer_) observer_->gridChanged();
    }

    std::vector<Row> rows_;
    int row_ = 0;
    int col_ = 0;
    std::array<int, kGridColumns> widths_{};
    FormObserver* observer_ = nullptr;
};

}  // namespace quorlin
