#include <gtest/gtest.h>

#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>
#include <filesystem>

#include "track_grid_view.h"
#include "ui_window.h"

namespace quorlin::testing {
namespace {

// A window with entries whose X cells read "1", "2", ...
struct GridWindow : UiWindow {
    QTableWidget* table = window.grid();

    explicit GridWindow(int entries) {
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
    GridWindow ui(4);
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

// The header row is the first thing in the grid's box however its rows are scrolled.
void expectHeaderShown(QTableWidget* table) {
    QHeaderView* header = table->horizontalHeader();
    EXPECT_TRUE(header->isVisible());
    EXPECT_LT(header->geometry().bottom(), table->viewport()->geometry().top());
    EXPECT_EQ(header->sectionViewportPosition(0), 0) << "\"#\" is shown from the left edge";
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), "#");
}

TEST(TrackGridUi, TheHeaderStaysInViewWithThirtyEntriesAndAfterALoad) {
    GridWindow ui(30);
    ui.table->scrollToBottom();
    EXPECT_GT(ui.table->verticalScrollBar()->value(), 0);
    expectHeaderShown(ui.table);

    const auto path = std::filesystem::temp_directory_path() / "quorlin-ui-grid.tpl";
    ui.dialogs.answers.push(path.string());
    ui.frm.cmdSave_Click();
    ui.dialogs.answers.push(path.string());
    ui.click(Ctl::cmdLoad);
    std::filesystem::remove(path);
    EXPECT_EQ(ui.table->rowCount(), 30);
    EXPECT_EQ(ui.table->horizontalScrollBar()->value(), 0);
    expectHeaderShown(ui.table);
}

TEST(TrackGridUi, EveryCellShowsItsWholeTextAsAToolTip) {
    GridWindow ui(0);
    ui.click(Ctl::optRightClick);
    ui.click(Ctl::chkText);
    QTest::keyClicks(ui.window.widgetFor(Ctl::txtText), "a long text to type");
    ui.typeInto({{Ctl::txtX, "1"}, {Ctl::txtY, "1"}});
    ui.click(Ctl::cmdAddtoList);
    EXPECT_EQ(ui.table->item(0, colType)->text(), "RightClick");
    EXPECT_EQ(ui.table->item(0, colType)->toolTip(), "RightClick");
    EXPECT_EQ(ui.table->item(0, colText)->toolTip(), "a long text to type");
    EXPECT_EQ(ui.table->horizontalHeaderItem(colImage)->toolTip(), "Image");
}

}  // namespace
}  // namespace quorlin::testing
