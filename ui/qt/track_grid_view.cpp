#include "track_grid_view.h"

#include <QHeaderView>
#include <QScopedValueRollback>

namespace quorlin::qt {

namespace {
QString cellText(const std::string& text) { return QString::fromStdString(text).replace("\r\n", "\n"); }

// A row of twips high, as the grid's rows are, and never lower than its text.
constexpr int kRowHeightTwips = 255;
}  // namespace

TrackGridView::TrackGridView(QWidget* parent) : QTableWidget(parent) {
    setColumnCount(kGridColumns);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* header = horizontalHeader();
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setTabKeyNavigation(false);
    setWordWrap(false);
    connect(this, &QTableWidget::cellClicked, this, [this](int row, int col) {
        if (onClick) onClick(row + 1, col);
    });
    connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int col) {
        if (row >= 0 && onCurrentMoved) onCurrentMoved(row + 1, col);
    });
}

QTableWidgetItem* TrackGridView::itemAt(int tableRow, int col) {
    QTableWidgetItem* item = tableRow < 0 ? horizontalHeaderItem(col) : this->item(tableRow, col);
    if (item) return item;
    item = new QTableWidgetItem;
    if (tableRow < 0) setHorizontalHeaderItem(col, item);
    else setItem(tableRow, col, item);
    return item;
}

// Every text is also a tool tip: a cell cut at its column's edge can still be read.
void TrackGridView::showGrid(const TrackGrid& grid) {
    const QSignalBlocker blocker(this);
    showSizes(grid);
    setRowCount(grid.rowCount() - 1);
    for (int r = 0; r < grid.rowCount(); ++r) {
        for (int c = 0; c < kGridColumns; ++c) {
            QTableWidgetItem* item = itemAt(r - 1, c);
            const QString text = cellText(grid.cell(r, c));
            item->setText(text);
            item->setToolTip(text);
        }
    }
    showCurrentCell(grid);
}

// The program's moves show the current row from its first column, whichever column is current.
void TrackGridView::showCurrentCell(const TrackGrid& grid) {
    if (grid.row() < 1 || grid.row() >= grid.rowCount()) {
        setCurrentIndex(QModelIndex());
        clearSelection();
        return;
    }
    setCurrentCell(grid.row() - 1, grid.col());
    scrollTo(model()->index(grid.row() - 1, 0));
}

void TrackGridView::applyScale(const WindowScale& scale, const TrackGrid& grid) {
    scale_ = scale;
    showSizes(grid);
}

void TrackGridView::showSizes(const TrackGrid& grid) {
    const int rowHeight = std::max(scale_.pixels(kRowHeightTwips), fontMetrics().height() + scale_.scaled(4));
    verticalHeader()->setDefaultSectionSize(rowHeight);
    horizontalHeader()->setFixedHeight(rowHeight);
    for (int c = 0; c < kGridColumns; ++c) setColumnWidth(c, scale_.pixels(grid.colWidth(c)));
}

}  // namespace quorlin::qt
