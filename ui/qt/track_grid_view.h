#pragma once

#include <QTableWidget>
#include <functional>

#include "model/track_grid.h"
#include "window_scale.h"

namespace quorlin::qt {

// The grid fgResult: the header row of the track grid is the table's fixed header, its
// entries the table's rows. Rows are told in the grid's numbering (1 for the first entry).
class TrackGridView : public QTableWidget {
public:
    explicit TrackGridView(QWidget* parent);

    // A user's click on a cell.
    std::function<void(int row, int col)> onClick;
    // The keyboard or a drag moved the current cell.
    std::function<void(int row, int col)> onCurrentMoved;

    void showGrid(const TrackGrid& grid);
    void applyScale(const WindowScale& scale, const TrackGrid& grid);

private:
    void showSizes(const TrackGrid& grid);
    void showCurrentCell(const TrackGrid& grid);
    QTableWidgetItem* itemAt(int tableRow, int col);

    WindowScale scale_{96};
};

}  // namespace quorlin::qt
