#include <gtest/gtest.h>

#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>
#include <filesystem>

#include "track_grid_view.h"
#include "ui_window.h"

namespace quorlin::testing {
namespace {

struct GridWindow : UiWindow {
    QTableWidget* table = window.grid();

    // Entries whose X cells read "1", "2", ...
    void add(int entries) {
        for (int i = 1; i <= entries; ++i) {
            frm.setText(Ctl::txtX, std::to_string(i));
            frm.setText(Ctl::txtY, "5");
            frm.cmdAddtoList_Click();
        }
    }
    QPoint centreOf(int entryRow) { return table->visualRect(table->model()->index(entryRow - 1, 2)).center(); }
    void clickRow(int entryRow) { QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, centreOf(entryRow)); }
    // The row the user sees highlighted, in the grid's numbering.
    int highlighted() {
        const auto rows = table->selectionModel()->selectedRows();
        return rows.size() == 1 ? rows.front().row() + 1 : 0;
    }
};

TEST(TrackGridUi, TheHighlightedRowIsTheCurrentRowAndOnlyAClickLoadsIt) {
    GridWindow ui;
    ui.add(4);
    ui.clickRow(2);
    EXPECT_EQ(ui.frm.form().text(Ctl::txtX), "2") << "a click loads its row";
    ui.table->setFocus();

    struct Move {
        const char* how;
        std::function<void()> act;
        int row;
    };
    const Move moves[] = {
        {"Down", [&] { QTest::keyClick(ui.table, Qt::Key_Down); }, 3},
        {"Ctrl+Home", [&] { QTest::keyClick(ui.table, Qt::Key_Home, Qt::ControlModifier); }, 1},
        {"a drag from 1 to 2", [&] {
             QTest::mousePress(ui.table->viewport(), Qt::LeftButton, {}, ui.centreOf(1));
             QTest::mouseMove(ui.table->viewport(), ui.centreOf(2));
             QTest::mouseRelease(ui.table->viewport(), Qt::LeftButton, {}, ui.centreOf(2));
         }, 2},
    };
    for (const Move& move : moves) {
        move.act();
        EXPECT_EQ(ui.frm.model().fgResult.row(), move.row) << move.how;
        EXPECT_EQ(ui.highlighted(), move.row) << move.how;
        EXPECT_EQ(ui.frm.form().text(Ctl::txtX), "2") << move.how << " loads nothing";
    }

    QTest::keyClick(ui.table, Qt::Key_End, Qt::ControlModifier);
    ui.click(Ctl::cmdRemove);
    EXPECT_EQ(ui.table->rowCount(), 3) << "the highlighted entry 4 is the one removed";
    EXPECT_EQ(ui.table->item(2, colX)->text(), "3");
    EXPECT_EQ(ui.highlighted(), 3) << "the last row is current after removing";

    ui.click(Ctl::cmdClearTrackList);
    EXPECT_EQ(ui.highlighted(), 0) << "no row is highlighted while no entry is selected";
    EXPECT_EQ(ui.table->currentRow(), -1);
}

// Every cell's whole text is also its tool tip, and the header row is the first thing in
// the grid's box however its rows are scrolled.
void expectThirtyEntriesUnderTheHeader(QTableWidget* table, const char* when) {
    SCOPED_TRACE(when);
    EXPECT_EQ(table->rowCount(), 30);
    EXPECT_EQ(table->item(29, colType)->text(), "RightClick");
    EXPECT_EQ(table->item(29, colType)->toolTip(), "RightClick");
    EXPECT_EQ(table->item(29, colText)->toolTip(), "a long text to type");
    EXPECT_EQ(table->horizontalHeaderItem(colImage)->toolTip(), "Image");
    QHeaderView* header = table->horizontalHeader();
    EXPECT_TRUE(header->isVisible());
    EXPECT_LT(header->geometry().bottom(), table->viewport()->geometry().top());
    EXPECT_EQ(header->sectionViewportPosition(0), 0) << "\"#\" is shown from the left edge";
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), "#");
    EXPECT_EQ(table->horizontalScrollBar()->value(), 0);
}

TEST(TrackGridUi, ThirtyEntriesShowTheirTextsAndToolTipsUnderTheHeaderAlsoAfterALoad) {
    GridWindow ui;
    ui.click(Ctl::optRightClick);
    ui.click(Ctl::chkText);
    QTest::keyClicks(ui.window.widgetFor(Ctl::txtText), "a long text to type");
    ui.add(30);
    ui.table->scrollToBottom();
    EXPECT_GT(ui.table->verticalScrollBar()->value(), 0);
    expectThirtyEntriesUnderTheHeader(ui.table, "added");

    const auto path = std::filesystem::temp_directory_path() / "quorlin-ui-grid.tpl";
    ui.dialogs.answers.push(path.string());
    ui.frm.cmdSave_Click();
    ui.dialogs.answers.push(path.string());
    ui.click(Ctl::cmdLoad);
    std::filesystem::remove(path);
    expectThirtyEntriesUnderTheHeader(ui.table, "loaded");
}

}  // namespace
}  // namespace quorlin::testing
