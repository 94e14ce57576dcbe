#pragma once

#include <array>
#include <string>
#include <vector>

namespace quorlin {

inline constexpr int kMaxEntries = 30;
inline constexpr int kGridColumns = 10;
inline constexpr int kMaxGridRows = kMaxEntries + 1;

enum GridColumn : int {
    colNumber = 0, colX, colY, colIntrType, colInterval, colType, colRep, colFill, colText, colImage,
};

// The grid fgResult: row 0 is the header, rows 1.. the entries of the track list.
// Cell texts are read and written at any row; the current cell is what the grid
// shows selected and what several commands act on.
class TrackGrid {
public:
    using Row = std::array<std::string, kGridColumns>;

    TrackGrid() : rows_(2) {}

    int rowCount() const { return static_cast<int>(rows_.size()); }
    // Growing appends blank rows at the end, shrinking drops rows from the end.
    void setRowCount(int count) { rows_.resize(static_cast<std::size_t>(count)); }
    void removeRow(int r) { rows_.erase(rows_.begin() + r); }
    void blankAll() {
        for (Row& row : rows_) row.fill(std::string());
    }

    int row() const { return row_; }
    int col() const { return col_; }
    void setRow(int r) { row_ = r; }
    void setCol(int c) { col_ = c; }

    const std::string& cell(int r, int c) const { return rows_[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]; }
    void setCell(int r, int c, std::string text) { rows_[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] = std::move(text); }
    const std::string& currentCell() const { return cell(row_, col_); }

    int colWidth(int c) const { return widths_[static_cast<std::size_t>(c)]; }
    void setColWidth(int c, int twips) { widths_[static_cast<std::size_t>(c)] = twips; }

private:
    std::vector<Row> rows_;
    int row_ = 0;
    int col_ = 0;
    std::array<int, kGridColumns> widths_{};
};

}  // namespace quorlin
