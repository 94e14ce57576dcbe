#pragma once

#include <windows.h>

#include "model/track_grid.h"

namespace quorlin::win32 {

// The grid fgResult as a report list view: the grid's row 0 is the list view's fixed
// header, the grid's row r its item r - 1.
class GridView {
public:
    HWND create(HWND parent, int id);
    HWND handle() const { return list_; }

    void setColumnWidths(const TrackGrid& grid, UINT dpi);
    void show(const TrackGrid& grid);
    // Shows the grid's current row selected, or none for the header row.
    void select(int row);

private:
    void setHeader(const TrackGrid& grid);
    void setRows(const TrackGrid& grid);

    HWND list_ = nullptr;
};

}  // namespace quorlin::win32
